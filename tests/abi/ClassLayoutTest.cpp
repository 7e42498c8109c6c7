#include "tests/abi/ClassLayout.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

// The compiler of the tests follows the same rules: what it says of these classes is what they have to give.

namespace {

enum TKind : int { near = 1 };

struct TRecord {
    bool Flag;
    double Value;
    char Letter[4];
};

class TRoot {
public:
    virtual ~TRoot() = default;
    int Type = 0;
};

class TFlagged : public TRoot {
public:
    bool Flag = false;
    TKind Kind = near;
    char Letter = ' ';
};

class TOwner : public TFlagged {
public:
    char Letter2 = ' ';
    TRecord Record{};
    std::string Name;
    std::vector<TRoot*> List;
    std::map<int, std::string> Map;
    bool Last = false;
};

char const* const Table = R"(
enum TKind
    value 1 near

class TRecord
    member bool Flag
    member double Value
    member char[4] Letter

class TRoot
    slot destructor
    member int Type

class TFlagged : TRoot
    member bool Flag
    member TKind Kind
    member char Letter

class TOwner : TFlagged
    member char Letter2
    member TRecord Record
    member string Name
    member vector<TRoot*> List
    member map<int, string> Map
    member bool Last

class TLost
    member TNowhere Place
)";

class ClassLayout : public testing::Test {
protected:
    Abi::TClassLayout Of(std::string const& name) const { return Rules.Of(*Rules.Find(name)); }

    Abi::TStatedTable const Stated = Abi::ReadStatedTable(Table, "t");
    Abi::TLibraryTypes const Library{};
    Abi::TLayoutRules const Rules{Stated, Library};
};

/** Where a member lies in an object of its class. */
template <class TClass, class TMember>
std::size_t OffsetOf(TMember TClass::*member) {
    TClass const object{};
    return static_cast<std::size_t>(reinterpret_cast<char const*>(&(object.*member)) -
                                    reinterpret_cast<char const*>(&object));
}

TEST_F(ClassLayout, OfARecordIsTheCompilers) {
    Abi::TClassLayout const layout = Of("TRecord");
    EXPECT_EQ(layout.size, sizeof(TRecord));
    EXPECT_EQ(layout.alignment, alignof(TRecord));
    EXPECT_EQ(layout.offsets, (std::vector<std::size_t>{OffsetOf(&TRecord::Flag), OffsetOf(&TRecord::Value),
                                                        OffsetOf(&TRecord::Letter)}));
}

TEST_F(ClassLayout, FillsThePaddingAtTheEndOfABaseAsTheCompilerDoes) {
    Abi::TClassLayout const layout = Of("TFlagged");
    EXPECT_EQ(layout.size, sizeof(TFlagged));
    EXPECT_EQ(layout.offsets, (std::vector<std::size_t>{OffsetOf(&TFlagged::Flag), OffsetOf(&TFlagged::Kind),
                                                        OffsetOf(&TFlagged::Letter)}));
    EXPECT_LT(layout.offsets[0], sizeof(TRoot));
}

TEST_F(ClassLayout, OfAClassWithPartsOfTheStandardLibraryIsTheCompilers) {
    Abi::TClassLayout const layout = Of("TOwner");
    EXPECT_EQ(layout.size, sizeof(TOwner));
    EXPECT_EQ(layout.offsets, (std::vector<std::size_t>{OffsetOf(&TOwner::Letter2), OffsetOf(&TOwner::Record),
                                                        OffsetOf(&TOwner::Name), OffsetOf(&TOwner::List),
                                                        OffsetOf(&TOwner::Map), OffsetOf(&TOwner::Last)}));
}

TEST_F(ClassLayout, RefusesATypeOfUnknownSize) {
    EXPECT_THROW(Of("TLost"), std::runtime_error);
}

} // namespace
