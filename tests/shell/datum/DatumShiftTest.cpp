#include "shell/datum/DatumShift.h"

#include "shell/datum/BursaWolfDatumShift.h"
#include "shell/datum/MolodenskyDatumShift.h"
#include "tests/shell/datum/ShiftDescription.h"

#include <map>
#include <type_traits>

namespace {

using namespace DatumTestKit;
using KvRefSystem::CreateShellDatumShift;
using KvRefSystem::TShellBursaWolfDatumShift;
using KvRefSystem::TShellBursaWolfInvRotDatumShift;
using KvRefSystem::TShellDatumShift;
using KvRefSystem::TShellMolodenskyDatumShift;

static_assert(sizeof(TShellDatumShift) == 16);
static_assert(std::is_abstract_v<TShellDatumShift>);
static_assert(std::has_virtual_destructor_v<TShellDatumShift>);

constexpr char const* treeMessage = "TShellDatumShift::TShellDatumShift(TStringTree *tree)";
constexpr char const* xmlMessage = "TShellDatumShift::TShellDatumShift(TKvXIniReader *xml)";

/** The root alone: the pure operations answer nothing. */
class TBareShift : public TShellDatumShift {
public:
    using TShellDatumShift::TShellDatumShift;
    KvRefSystem::TDatumShift* Create() const override { return nullptr; }
    bool ExportToMIFMID(std::string*) const override { return false; }
    bool ExportToWKT(std::string*) const override { return false; }
    bool ExportToGeoTIFF(std::map<int, std::string>*) const override { return false; }
    bool GetDatumShiftParams(double*, double*, double*, double*, double*, double*, double*) const override {
        return false;
    }
};

/** @return a document that holds the type alone. */
MemoryXIni::TNode TypeDocument(std::string const& type) {
    MemoryXIni::TNode root;
    root.children.push_back(MemoryXIni::TNode{"DatumShiftType", type, false, {}});
    return root;
}

TEST(ShellDatumShift, TypeStandsBehindTheTablePointer) {
    TShiftDescription tree(2);
    TBareShift const shift(&tree);
    EXPECT_EQ(reinterpret_cast<char const*>(&shift.Type) - reinterpret_cast<char const*>(&shift), 8);
}

TEST(ShellDatumShift, TreeFactoryBuildsByTheType) {
    TShiftDescription first(1);
    TShiftDescription second(2);
    TShiftDescription third(3);
    std::unique_ptr<TShellDatumShift> const molodensky(CreateShellDatumShift(&first));
    std::unique_ptr<TShellDatumShift> const bursaWolf(CreateShellDatumShift(&second));
    std::unique_ptr<TShellDatumShift> const invRot(CreateShellDatumShift(&third));
    EXPECT_NE(dynamic_cast<TShellMolodenskyDatumShift*>(molodensky.get()), nullptr);
    EXPECT_NE(dynamic_cast<TShellBursaWolfDatumShift*>(bursaWolf.get()), nullptr);
    EXPECT_NE(dynamic_cast<TShellBursaWolfInvRotDatumShift*>(invRot.get()), nullptr);
}

TEST(ShellDatumShift, TreeFactoryIsNullWithoutAKnownType) {
    TShiftDescription without(0);
    EXPECT_EQ(CreateShellDatumShift(&without), nullptr);
    TShiftDescription empty(0);
    PutSubtree(&empty, 5443);
    EXPECT_EQ(CreateShellDatumShift(&empty), nullptr);
    for (int const type : {-1, 4, 100}) {
        TShiftDescription unknown(type);
        EXPECT_EQ(CreateShellDatumShift(&unknown), nullptr) << type;
    }
    TShiftDescription text(0);
    PutSubtree(&text, 5443)->InsertString("", 5701, 0, "two");
    EXPECT_EQ(CreateShellDatumShift(&text), nullptr);
    EXPECT_EQ(CreateShellDatumShift(static_cast<TStringTree*>(nullptr)), nullptr);
}

TEST(ShellDatumShift, TreeFactoryIsNullForATypeWithoutAParent) {
    TShiftDescription tree(2);
    tree.FindSubtree(5443, 0)->parent = nullptr;
    EXPECT_EQ(CreateShellDatumShift(&tree), nullptr);
    EXPECT_EQ(MessageOf([&] { TBareShift const shift(&tree); }), treeMessage);
}

TEST(ShellDatumShift, TreeFactoryLetsTheClassFail) {
    TShiftDescription tree(2);
    tree.DeleteField(5467, 0);
    EXPECT_EQ(MessageOf([&] { delete CreateShellDatumShift(&tree); }),
              "TShellBursaWolfDatumShift::TShellBursaWolfDatumShift(TStringTree *tree)");
}

TEST(ShellDatumShift, RootTakesAnyTypeOfATree) {
    TShiftDescription tree(77);
    EXPECT_EQ(TBareShift(&tree).Type, 77);
}

TEST(ShellDatumShift, RootNeedsTheTypeInATree) {
    TShiftDescription without(0);
    EXPECT_EQ(MessageOf([&] { TBareShift const shift(&without); }), treeMessage);
    PutSubtree(&without, 5443);
    EXPECT_EQ(MessageOf([&] { TBareShift const shift(&without); }), treeMessage);
    EXPECT_EQ(MessageOf([] { TBareShift const shift(static_cast<TStringTree*>(nullptr)); }), treeMessage);
}

TEST(ShellDatumShift, RootNeedsAKnownTypeInXML) {
    for (char const* const type : {"0", "4", "-1", "two"}) {
        MemoryXIni::TNode root = TypeDocument(type);
        MemoryXIni::TReader reader(&root);
        EXPECT_EQ(MessageOf([&] { TBareShift const shift(&reader); }), xmlMessage) << type;
        EXPECT_EQ(MessageOf([&] { TShellMolodenskyDatumShift const shift(&reader); }), xmlMessage) << type;
        EXPECT_EQ(CreateShellDatumShift(&reader), nullptr) << type;
    }
    MemoryXIni::TNode empty;
    MemoryXIni::TReader reader(&empty);
    EXPECT_EQ(MessageOf([&] { TBareShift const shift(&reader); }), xmlMessage);
    EXPECT_EQ(CreateShellDatumShift(&reader), nullptr);
    EXPECT_EQ(CreateShellDatumShift(static_cast<TKvXIniReader*>(nullptr)), nullptr);
    EXPECT_EQ(MessageOf([] { TBareShift const shift(static_cast<TKvXIniReader*>(nullptr)); }), xmlMessage);
}

TEST(ShellDatumShift, RootKeepsItsTypeWhenTheLoadFails) {
    MemoryXIni::TNode good = TypeDocument("3");
    MemoryXIni::TReader goodReader(&good);
    TBareShift shift(&goodReader);
    EXPECT_EQ(shift.Type, 3);
    MemoryXIni::TNode bad = TypeDocument("4");
    MemoryXIni::TReader badReader(&bad);
    EXPECT_FALSE(shift.LoadFromXML(&badReader));
    EXPECT_EQ(shift.Type, 3);
}

TEST(ShellDatumShift, RootWritesTheTypeOfItsTree) {
    TShiftDescription tree(2);
    TBareShift const shift(&tree);
    MemoryXIni::TNode const root = Saved(shift);
    ASSERT_EQ(root.children.size(), 1U);
    EXPECT_EQ(root.children.front().name, "DatumShiftType");
    EXPECT_EQ(root.children.front().text, "2");
    ExpectEveryFailedWriteIsReported(shift);
    EXPECT_FALSE(shift.SaveToXML(nullptr));
}

TEST(ShellDatumShift, RootHasNoExactForm) {
    TShiftDescription tree(2);
    TBareShift shift(&tree);
    EXPECT_FALSE(shift.SetNonLinear(true));
    EXPECT_FALSE(shift.SetNonLinear(false));
}

TEST(ShellDatumShift, XMLFactoryBuildsByTheType) {
    for (int type = 1; type <= 3; ++type) {
        TShiftDescription tree(type);
        std::unique_ptr<TShellDatumShift> const source(CreateShellDatumShift(&tree));
        MemoryXIni::TNode root = Saved(*source);
        MemoryXIni::TReader reader(&root);
        std::unique_ptr<TShellDatumShift> const copy(CreateShellDatumShift(&reader));
        ASSERT_NE(copy, nullptr) << type;
        EXPECT_EQ(copy->Type, type);
        TShellDatumShift const& first = *source;
        TShellDatumShift const& second = *copy;
        EXPECT_EQ(typeid(first), typeid(second));
    }
}

} // namespace
