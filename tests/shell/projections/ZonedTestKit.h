#pragma once

#include "core/projections/TransverseMercator.h"
#include "tests/shell/projections/ProjectionTestKit.h"

#include <cstddef>
#include <cxxabi.h>
#include <type_traits>
#include <typeinfo>
#include <utility>

/** What the tests of the transverse cylinders share. Their descriptions are in metres, degrees, plain factors. */
namespace ZonedTestKit {

using namespace ProjectionTestKit;

inline constexpr TUnit unity = {0, 3, "1", "1", "unity"};
inline constexpr TUnits surveyUnits = {&metre, &degree, &unity};
inline constexpr TUnits noUnits = {nullptr, nullptr, nullptr};

inline constexpr int ZoneKey = 6201;
inline constexpr int HemisphereKey = 6202;
inline constexpr int BlockKey = 6204;
inline constexpr int RegionKey = 6205;
inline constexpr int WidthKey = 6206;
inline constexpr int CodeKey = 102007;
inline constexpr int MethodKey = 102008;

/** Describes a projection by its type and the texts of its fields. */
inline void Describe(TStringTree* tree, int type, TChanges const& texts, TUnits const& units) {
    tree->InsertInteger("", 6001, 0, type);
    std::pair<int, TUnit const*> const unitsOfTags[] = {
        {6091, units.linear}, {6090, units.angular}, {6092, units.scale}};
    for (auto const& [tag, unit] : unitsOfTags) {
        if (unit) {
            PutUnitSubtree(tree, tag, *unit);
        }
    }
    for (auto const& [tag, text] : texts) {
        tree->InsertString("", tag, 0, text);
    }
}

template <class Shell>
std::unique_ptr<Shell> Make(int type, TChanges const& texts, TUnits const& units = surveyUnits) {
    TStringTree tree;
    Describe(&tree, type, texts, units);
    return std::make_unique<Shell>(&tree);
}

/** @return what the constructor says to a description. */
template <class Shell>
std::string Refusal(int type, TChanges const& texts) {
    return MessageOf([&] { Make<Shell>(type, texts); });
}

/** The same texts with one of them changed, or without it. */
inline TChanges With(TChanges texts, int tag, std::string const& text) {
    texts[tag] = text;
    return texts;
}

inline TChanges Without(TChanges texts, int tag) {
    texts.erase(tag);
    return texts;
}

/** The shell makes a Transverse Mercator from the equator. @param degrees of the central meridian. */
inline void ExpectTransverseMercator(TShellMapProjection const& shell, double degrees, double scale,
                                     double easting, double northing) {
    std::unique_ptr<TMapProjection> const core = CoreOf(shell);
    ASSERT_NE(core, nullptr);
    EXPECT_EQ(core->Type, mptTransverseMercator);
    auto const* const cylinder = dynamic_cast<TTransverseMercatorMapProjection const*>(core.get());
    ASSERT_NE(cylinder, nullptr);
    // The product first, then the division.
    EXPECT_EQ(cylinder->Parameters->CentralMeridian, degrees * 3.141592653589793 / 180);
    EXPECT_EQ(cylinder->Parameters->LatitudeOfOrigin, 0);
    EXPECT_EQ(cylinder->Parameters->ScaleFactor, scale);
    EXPECT_EQ(cylinder->Parameters->FalseEasting, easting);
    EXPECT_EQ(cylinder->Parameters->FalseNorthing, northing);
}

/** Longitude and latitude (degrees) through the shell's core on WGS 84 give easting and northing (metres). */
inline void ExpectPlane(TShellMapProjection const& shell, double longitude, double latitude, double easting,
                        double northing, double tolerance) {
    std::unique_ptr<TMapProjection> const core = CoreOf(shell);
    ASSERT_NE(core, nullptr);
    constexpr double RadiansOfDegree = 3.141592653589793 / 180;
    TCoords point{longitude * RadiansOfDegree, latitude * RadiansOfDegree, 0, false};
    core->GeodeticToProjected(&point);
    EXPECT_NEAR(point.X, easting, tolerance);
    EXPECT_NEAR(point.Y, northing, tolerance);
}

/** There is no class between, no second base, and the operations are reached through the base. */
template <class Shell>
void ExpectDirectChildOfTheFamily() {
    auto const* const type = dynamic_cast<abi::__si_class_type_info const*>(&typeid(Shell));
    ASSERT_NE(type, nullptr);
    EXPECT_EQ(*type->__base_type, typeid(TShellMapProjection));
    static_assert(!std::is_copy_constructible_v<Shell> && !std::is_copy_assignable_v<Shell>);
    static_assert(std::is_constructible_v<Shell, TStringTree*>);
    static_assert(!std::is_constructible_v<Shell, TKvXIniReader*>);
    static_assert(!std::is_convertible_v<TStringTree*, Shell>);
}

/** Distance of a member from the beginning of its object, in bytes. */
template <class Shell, class Member>
std::ptrdiff_t OffsetOf(Shell const& shell, Member const& member) {
    return reinterpret_cast<char const*>(&member) - reinterpret_cast<char const*>(&shell);
}

/** All operations but the WKT name fail; texts and keys stay as they were. */
inline void ExpectNothingComesOut(TShellMapProjection const& shell) {
    EXPECT_EQ(CoreOf(shell), nullptr);
    EXPECT_EQ(WktOf(shell), "false");
    EXPECT_EQ(MifOf(shell), "false");
    EXPECT_EQ(GeoKeysOf(shell), (TGeoKeys{{0, "false"}}));
}

/** XML carries type, units and codes; the parameters are gone after reading it. */
inline void ExpectXmlLosesTheParameters(TShellMapProjection* shell) {
    shell->GeoTIFFCode = "32631";
    shell->GeoTIFFType = "1";
    MemoryXIni::TNode document = Saved(*shell);
    std::vector<std::string> const expected = {
        "MapProjType",           "MapProjParamLinearUnit", "MapProjParamAngularUnit",
        "MapProjParamScaleUnit", "MapProjGeoTIFFCode",     "MapProjGeoTIFFType"};
    EXPECT_EQ(Keys(document), expected);
    MemoryXIni::TReader factoryReader(&document);
    EXPECT_EQ(TOwned(CreateShellMapProjection(&factoryReader)), nullptr);

    TMapProjectionType const type = shell->Type;
    MemoryXIni::TReader reader(&document);
    EXPECT_TRUE(shell->LoadFromXML(&reader));
    EXPECT_EQ(shell->Type, type);
    EXPECT_NE(shell->LinearUnit, nullptr);
    EXPECT_NE(shell->AngularUnit, nullptr);
    EXPECT_NE(shell->ScaleUnit, nullptr);
    ExpectNothingComesOut(*shell);
}

/** Equal to its like, whatever the names; a code, a method or a unit more or less makes a difference or not. */
template <class Shell>
void ExpectBaseToCount(int type, TChanges const& texts, bool counts) {
    auto const shell = Make<Shell>(type, texts);
    auto const same = Make<Shell>(type, With(texts, 6020, "another name"));
    EXPECT_EQ(same->Name, "another name");
    EXPECT_TRUE(*shell == *same);
    auto const coded = Make<Shell>(type, With(texts, CodeKey, "32631"));
    EXPECT_EQ(coded->GeoTIFFCode, "32631");
    EXPECT_NE(*shell == *coded, counts);
    EXPECT_NE(*shell == *Make<Shell>(type, With(texts, MethodKey, "1")), counts);
    EXPECT_NE(*shell == *Make<Shell>(type, texts, {&foot, &degree, &unity}), counts);
    EXPECT_NE(*shell == *Make<Shell>(type, texts, {&metre, &grad, &unity}), counts);
    EXPECT_NE(*shell == *Make<Shell>(type, texts, {&metre, &degree, nullptr}), counts);
}

} // namespace ZonedTestKit
