#include "core/refsystems/ReferenceSystem.h"
#include "frame/imported/Geometry.h"
#include "frame/imported/OptionTable.h"
#include "shell/datum/DatumShift.h"
#include "tests/abi/StatedComparison.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <type_traits>

// Hosts were compiled against the order of our members, our bases and the slots of our virtual tables. The
// tables in tests/abi/stated were typed by hand, apart from the code; here they meet the library's debug
// information.

namespace {

namespace fs = std::filesystem;

fs::path const TableFolder = fs::path(VELLARI_SOURCE_DIR) / "tests/abi/stated";

std::string ReadText(fs::path const& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error(path.string() +
                                 " can't be read; the target vellari_abi makes the library's description");
    }
    return {std::istreambuf_iterator<char>(file), {}};
}

/** All tables as one, since a class of one derives from a class of another. */
Abi::TStatedTable ReadTables() {
    std::set<fs::path> paths;
    for (fs::directory_entry const& entry : fs::directory_iterator(TableFolder)) {
        paths.insert(entry.path());
    }
    Abi::TStatedTable all;
    for (fs::path const& path : paths) {
        Abi::TStatedTable const table = Abi::ReadStatedTable(ReadText(path), path.filename());
        all.classes.insert(all.classes.end(), table.classes.begin(), table.classes.end());
        all.enumerations.insert(all.enumerations.end(), table.enumerations.begin(), table.enumerations.end());
    }
    return all;
}

/** The debug information of the exported functions doesn't reach these: they are taken from their headers. */
void AddTypesOfHeaders(Abi::TLibraryTypes& types) {
    using namespace KvRefSystem;
    using TVector3 = vec_t_<double, 3>;
    static_assert(std::is_same_v<decltype(TVector3::Elements), double[3]>);
    Abi::TFoundClass vector3;
    vector3.size = sizeof(TVector3);
    vector3.members.push_back({"double[3]", "Elements", offsetof(TVector3, Elements)});
    types.classes.emplace("vec_t_<double, 3>", vector3);
    // Hosts see these only as numbers in an int.
    types.enumerations.emplace("TShellDatumShiftType",
                               Abi::TFoundEnumeration{sizeof(TShellDatumShiftType),
                                                      {{"dstMolodensky", dstMolodensky},
                                                       {"dstBursaWolf", dstBursaWolf},
                                                       {"dstBursaWolfInvRot", dstBursaWolfInvRot}}});
    types.enumerations.emplace("TDatumComparison",
                               Abi::TFoundEnumeration{sizeof(TDatumComparison),
                                                      {{"dcUnknown", dcUnknown},
                                                       {"dcEqual", dcEqual},
                                                       {"dcDifferent", dcDifferent},
                                                       {"dcIncompatible", dcIncompatible}}});
}

TEST(StatedClasses, LieInTheLibraryAsHostsKnowThem) {
    Abi::TStatedTable const tables = ReadTables();
    Abi::TLibraryTypes library = Abi::ReadLibraryTypes(ReadText(VELLARI_ABI_XML));
    AddTypesOfHeaders(library);
    Abi::TStatedComparison const comparison(tables, library);

    ASSERT_FALSE(tables.classes.empty());
    for (Abi::TStatedClass const& stated : tables.classes) {
        for (std::string const& difference : comparison.Differences(stated)) {
            ADD_FAILURE() << difference;
        }
    }
    for (Abi::TStatedEnumeration const& stated : tables.enumerations) {
        for (std::string const& difference : comparison.Differences(stated)) {
            ADD_FAILURE() << difference;
        }
    }
}

TEST(StatedClasses, StandOnceInTheTables) {
    Abi::TStatedTable const tables = ReadTables();
    std::set<std::string> names;
    for (Abi::TStatedClass const& stated : tables.classes) {
        EXPECT_TRUE(names.insert(stated.name).second)
            << stated.where << ": " << stated.name << " stands twice";
    }
    for (Abi::TStatedEnumeration const& stated : tables.enumerations) {
        EXPECT_TRUE(names.insert(stated.name).second)
            << stated.where << ": " << stated.name << " stands twice";
    }
}

/** A typing error in a base would hide the slots that come from it. */
TEST(StatedClasses, DeriveFromClassesThatAreStatedToo) {
    Abi::TStatedTable const tables = ReadTables();
    std::set<std::string> names{""};
    for (Abi::TStatedClass const& stated : tables.classes) {
        names.insert(stated.name);
    }
    for (Abi::TStatedClass const& stated : tables.classes) {
        EXPECT_TRUE(names.contains(stated.base)) << stated.where << ": " << stated.base << " isn't stated";
    }
}

/** The library asks a host for its option table without knowing more of the host's class than this. */
TEST(StatedClasses, GiveTheOptionTableInTheFirstSlot) {
    // A pointer to a virtual function is its place in the table, in bytes, and 1.
    auto const getTable = &TKvOptionTableAccess::GetTable;
    EXPECT_EQ((std::bit_cast<std::array<std::ptrdiff_t, 2>>(getTable))[0], 1);
}

} // namespace
