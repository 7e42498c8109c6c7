#include "shell/projections/ProjectionParameters.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

using namespace KvRefSystem;

namespace {

/** Keys of each class in the order of its fields, typed from the description of the format. */
std::map<int, std::vector<int>> const& KeysOfClasses() {
    static std::map<int, std::vector<int>> const keys = {
        {1, {6101, 6102, 6103, 6104, 6105}},
        {2, {6108, 6107, 6109, 6110, 6111, 6112, 6113}},
        {3, {6108, 6107, 6109, 6110, 6111, 6104, 6105}},
        {4, {6106, 6102, 6104, 6105}},
        {5, {6101, 6102, 6114, 6115, 6104, 6105}},
        {6, {6114, 6115, 6116, 6117, 6118, 6119}},
        {7, {6102, 6106, 6111, 6104, 6105}},
        {8, {6102, 6106, 6104, 6105}},
        {9, {6114, 6106, 6104, 6105}},
        {10, {6102, 6106, 6120, 6104, 6105}},
        {11, {6106, 6102, 6120, 6104, 6105}},
        {12, {6106, 6120, 6104, 6105}},
        {13, {6106, 6102, 6120, 6104, 6105}},
        {14, {6106, 6102, 6111, 6104, 6105}},
        {15, {6101, 6103, 6104, 6105}},
        {16, {6107, 6106, 6109, 6121, 6122, 6104, 6105}},
        {17, {6102, 6106}},
        {21, {6106, 6203, 6120, 6104, 6105}},
        {22, {6106, 6203, 6120, 6104, 6105}},
        {23, {6106, 6203, 6114, 6104, 6105}},
        {24, {6102, 6106, 6104, 6105}},
        {25, {6114, 6115, 6116, 6117, 6118, 6119}},
        {26, {6102, 6106, 6104, 6105}},
        {101, {6101, 6104, 6105, 6103}},
        {1001, {6201, 6202}},
        {1002, {6201, 6202}},
        {1003, {6201, 6206, 6205}},
        {1004, {6201, 6206, 6204}},
        {1201, {6114, 6115, 6116, 6117, 6118, 6119}},
        {1313, {6101, 6103, 6104, 6105}},
    };
    return keys;
}

std::vector<TMapProjectionParameter> ParametersOf(int type) {
    return GetMapProjectionParameters(static_cast<TMapProjectionType>(type));
}

std::vector<int> KeysOf(int type) {
    std::vector<int> keys;
    for (TMapProjectionParameter const& parameter : ParametersOf(type)) {
        keys.push_back(parameter.Key);
    }
    return keys;
}

/** The first description of a key in any class; all are of one table. */
TMapProjectionParameter ParameterOfKey(int key) {
    for (auto const& [type, keys] : KeysOfClasses()) {
        for (TMapProjectionParameter const& parameter : ParametersOf(type)) {
            if (parameter.Key == key) {
                return parameter;
            }
        }
    }
    return {0, "", utNone, false};
}

} // namespace

TEST(ProjectionParameters, EveryClassListsItsFieldsInReadingOrder) {
    for (auto const& [type, keys] : KeysOfClasses()) {
        EXPECT_EQ(KeysOf(type), keys) << "type " << type;
    }
}

TEST(ProjectionParameters, ATypeWithoutAClassHasNone) {
    for (int type = -1; type <= 1400; ++type) {
        if (KeysOfClasses().count(type) == 0) {
            EXPECT_TRUE(ParametersOf(type).empty()) << "type " << type;
        }
    }
}

TEST(ProjectionParameters, TheOlderPolarStereographicHasNoFieldForItsLatitude) {
    for (TMapProjectionParameter const& parameter : ParametersOf(mptPolarStereographic)) {
        EXPECT_NE(parameter.Key, 6102);
    }
}

TEST(ProjectionParameters, OnlyTheScaleOfTheWideCylinderIsOptional) {
    for (auto const& [type, keys] : KeysOfClasses()) {
        for (TMapProjectionParameter const& parameter : ParametersOf(type)) {
            EXPECT_EQ(parameter.IsOptional, type == mptGaussKrugerWide && parameter.Key == 6103)
                << "type " << type << " key " << parameter.Key;
        }
    }
}

TEST(ProjectionParameters, EachKeyTellsItsMeaningAndTheKindOfItsUnit) {
    struct TRow {
        int key;
        std::string meaning;
        TShellUnitType unit;
    };
    std::vector<TRow> const rows = {
        {6101, "longitude of origin or central meridian", utAngular},
        {6102, "latitude of origin", utAngular},
        {6103, "scale factor at origin", utScale},
        {6104, "false easting", utLinear},
        {6105, "false northing", utLinear},
        {6106, "longitude of natural origin", utAngular},
        {6107, "latitude of projection centre", utAngular},
        {6108, "longitude of projection centre", utAngular},
        {6109, "azimuth of initial line", utAngular},
        {6110, "angle from rectified to skew grid", utAngular},
        {6111, "scale factor", utScale},
        {6112, "easting at projection centre", utLinear},
        {6113, "northing at projection centre", utLinear},
        {6114, "first standard parallel", utAngular},
        {6115, "second standard parallel", utAngular},
        {6116, "latitude of false origin", utAngular},
        {6117, "longitude of false origin", utAngular},
        {6118, "easting at false origin", utLinear},
        {6119, "northing at false origin", utLinear},
        {6120, "scale factor at natural origin", utScale},
        {6121, "latitude of pseudo standard parallel", utAngular},
        {6122, "scale factor on pseudo standard parallel", utScale},
        {6201, "zone number", utNone},
        {6202, "hemisphere, N or S", utNone},
        {6203, "pole, N or S", utNone},
        {6204, "block letter", utNone},
        {6205, "region code", utNone},
        {6206, "zone width in degrees", utNone},
    };
    std::set<int> met;
    for (TRow const& row : rows) {
        TMapProjectionParameter const parameter = ParameterOfKey(row.key);
        EXPECT_EQ(parameter.Key, row.key);
        EXPECT_EQ(parameter.Meaning, row.meaning) << row.key;
        EXPECT_EQ(parameter.Unit, row.unit) << row.key;
        met.insert(row.key);
    }
    for (auto const& [type, keys] : KeysOfClasses()) {
        for (int const key : keys) {
            EXPECT_EQ(met.count(key), 1U) << "key " << key;
        }
    }
}
