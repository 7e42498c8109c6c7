#include "core/transforms/PlaneGrid.h"

#include "core/primitives/BursaWolfDatumShift.h"
#include "core/refsystems/GeocentricReferenceSystem.h"
#include "core/refsystems/GeodeticReferenceSystem.h"
#include "core/transforms/PlaneAndVertical.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace KvRefSystem;
using FloatTable = T2DTable<float>;
using Transform = TPlaneGridRefSystemTransform;

// Hosts are compiled against this layout.
static_assert(sizeof(Transform) == 112);

constexpr double Degree = 3.141592653589793 / 180;
constexpr char FailureText[] = "TPlaneGridRefSystemTransform::TPlaneGridRefSystemTransform";

std::unique_ptr<FloatTable> Table(std::string const& text) {
    auto table = std::make_unique<FloatTable>();
    EXPECT_TRUE(table->LoadFromString2(text, nullptr)) << text;
    return table;
}

/** dE = (x - 1000) / 10 and dN = (y - 2000) / 5 between 1000 and 1010, 2000 and 2010. */
Transform Sample(double coef = 1.0) {
    return Transform(*Table("2 2 10 2000 1000 0 1 0 1"), *Table("2 2 10 2000 1000 0 0 2 2"), coef, nullptr);
}

TCoords Point(double x, double y, double z) {
    TCoords point;
    point.X = x;
    point.Y = y;
    point.Z = z;
    return point;
}

TEllipsoid Wgs84Ellipsoid() {
    return TEllipsoid(6378137.0, 6356752.314245179);
}

TGeodeticReferenceSystem Wgs84(TRefSystemTransformsSet const& transforms = TRefSystemTransformsSet()) {
    TEllipsoid const ellipsoid = Wgs84Ellipsoid();
    TBursaWolfDatumShift const none({0, 0, 0});
    return TGeodeticReferenceSystem(&none, nullptr, &ellipsoid, transforms, {});
}

/** Krassowsky's ellipsoid with a shift to WGS 84. */
TGeodeticReferenceSystem Pulkovo(TRefSystemTransformsSet const& transforms = TRefSystemTransformsSet()) {
    TEllipsoid const ellipsoid(6378245.0, 6356863.018773047);
    TBursaWolfDatumShift const shift({25, -141, -80});
    return TGeodeticReferenceSystem(&shift, nullptr, &ellipsoid, transforms, {});
}

/** A system that no copy knows. */
class TUnknownSystem : public TReferenceSystem {
public:
    TUnknownSystem() : TReferenceSystem(static_cast<TReferenceSystemType>(77), TRefSystemTransformsSet()) {}
    bool operator==(TReferenceSystem const& other) const override { return this == &other; }
    bool PreservesHeights(TReferenceSystem const&) const override { return false; }
    void OperateCoordsBase(TReferenceSystem const&, TCoords*) const override {}
    void OperateCoordsBaseWorld(TCoords*, bool) const override {}
    void GetAxisStepsBase(double* steps) const override { steps[0] = steps[1] = steps[2] = 1; }
};

// --- Without a system --------------------------------------------------------------------------------------

TEST(PlaneGrid, AddsWhatTheTablesHold) {
    TCoords point = Point(1005, 2002.5, 77);
    Sample().BaseToTransformed(nullptr, &point);
    EXPECT_EQ(point.X, 1005.5);
    EXPECT_EQ(point.Y, 2003);
    EXPECT_EQ(point.Z, 77);
}

TEST(PlaneGrid, CoefficientScalesBothCorrections) {
    TCoords point = Point(1005, 2002.5, 0);
    Sample(-4).BaseToTransformed(nullptr, &point);
    EXPECT_EQ(point.X, 1003);
    EXPECT_EQ(point.Y, 2000.5);
}

TEST(PlaneGrid, BothTablesAreLookedUpAtTheUncorrectedPlace) {
    // After the correction of X the place would be at the edge of the table.
    Transform const grid(*Table("2 2 10 0 0 100 100 100 100"), *Table("2 2 10 0 0 0 10 0 10"), 1.0, nullptr);
    TCoords point = Point(5, 5, 0);
    grid.BaseToTransformed(nullptr, &point);
    EXPECT_EQ(point.X, 105);
    EXPECT_EQ(point.Y, 10);
}

TEST(PlaneGrid, OutsideOfTheTablesTheEdgeCounts) {
    TCoords point = Point(1e7, -1e7, 0);
    Sample().BaseToTransformed(nullptr, &point);
    EXPECT_EQ(point.X, 1e7 + 1);
    EXPECT_EQ(point.Y, -1e7);
}

TEST(PlaneGrid, PlaceIsReducedToFloat) {
    // 16777217 isn't a float: looked up at 16777216, where the table begins.
    auto const table = Table("2 2 1 0 16777216 0 8 0 8");
    Transform const grid(*table, *table, 1.0, nullptr);
    TCoords point = Point(16777217, 0, 0);
    grid.BaseToTransformed(nullptr, &point);
    EXPECT_EQ(point.X, 16777217);
    point = Point(16777218, 0, 0);
    grid.BaseToTransformed(nullptr, &point);
    EXPECT_EQ(point.X, 16777226);
}

TEST(PlaneGrid, BackwardDoesNothingByDesign) {
    TCoords point = Point(1005, 2002.5, 77);
    point.ZUndefined = true;
    Sample().TransformedToBase(nullptr, &point);
    EXPECT_EQ(point.X, 1005);
    EXPECT_EQ(point.Y, 2002.5);
    EXPECT_EQ(point.Z, 77);
    EXPECT_TRUE(point.ZUndefined);
}

TEST(PlaneGrid, FormWithTwoPointsIsReachable) {
    TCoords const in = Point(1005, 2002.5, 77);
    TCoords out;
    Sample().BaseToTransformed(nullptr, in, &out);
    EXPECT_EQ(out.X, 1005.5);
    Sample().TransformedToBase(nullptr, in, &out);
    EXPECT_EQ(out.X, 1005);
}

TEST(PlaneGrid, LeavesTheHeightsMarkAlone) {
    TCoords point = Point(1005, 2002.5, 77);
    point.ZUndefined = true;
    Sample().BaseToTransformed(nullptr, &point);
    EXPECT_TRUE(point.ZUndefined);
}

TEST(PlaneGrid, PreservesHeights) {
    EXPECT_TRUE(Sample().PreservesHeights());
}

TEST(PlaneGrid, OutputIsTheCommonLinesOnly) {
    Transform grid = Sample();
    grid.Name = "residuals";
    std::vector<std::string> lines = {"before"};
    grid.Output(&lines);
    EXPECT_EQ(lines,
              (std::vector<std::string>{"before", "Name: residuals", "Description: ", "Type: Plane grid"}));
}

// --- With a system -----------------------------------------------------------------------------------------

TEST(PlaneGrid, IsLookedUpInItsOwnSystem) {
    // Pulkovo 37° E, 55° N, 200 m is at 36.9980052994° E, 55.0000881313° N of WGS 84 (mpmath).
    // dE = 1e6 (lon - 0.64), dN = 1e6 (lat - 0.955), both in radians.
    TGeodeticReferenceSystem const wgs84 = Wgs84();
    TGeodeticReferenceSystem const pulkovo = Pulkovo();
    Transform const grid(*Table("2 2 0.01 0.955 0.64 0 10000 0 10000"),
                         *Table("2 2 0.01 0.955 0.64 0 0 10000 10000"), 1e-9, &wgs84);
    TCoords point = Point(37 * Degree, 55 * Degree, 200);
    grid.BaseToTransformed(&pulkovo, &point);
    // Half a float's digit at 0.64 and 0.96 is 3e-8 rad, and so 0.03 of the correction, times 1e-9.
    double const dE = 1e6 * (36.9980052994 * Degree - 0.64);
    double const dN = 1e6 * (55.0000881313 * Degree - 0.955);
    EXPECT_NEAR((point.X - 37 * Degree) * 1e9, dE, 0.2);
    EXPECT_NEAR((point.Y - 55 * Degree) * 1e9, dN, 0.2);
    EXPECT_EQ(point.Z, 200);
}

TEST(PlaneGrid, IsLookedUpAtHeightZero) {
    // X and Y of 37° E, 55° N at height 0; 200 m higher they are 91.6 and 69.0 m more (mpmath).
    TBursaWolfDatumShift const none({0, 0, 0});
    TGeocentricReferenceSystem const geocentric(&none, nullptr, TRefSystemTransformsSet(), {});
    TGeodeticReferenceSystem const wgs84 = Wgs84();
    Transform const grid(*Table("2 2 1000 2206000 2928000 0 1000 0 1000"),
                         *Table("2 2 1000 2206000 2928000 0 0 1000 1000"), 1e-6, &geocentric);
    TCoords point = Point(37 * Degree, 55 * Degree, 200);
    grid.BaseToTransformed(&wgs84, &point);
    EXPECT_NEAR((point.X - 37 * Degree) * 1e6, 271.788, 0.2);
    EXPECT_NEAR((point.Y - 55 * Degree) * 1e6, 611.066, 0.2);
    EXPECT_EQ(point.Z, 200);
}

TEST(PlaneGrid, InAChainIsLookedUpAtTheBasePlace) {
    // The chain is taken back for the lookup: the shift is undone, and the grid does nothing backwards.
    TBursaWolfDatumShift const none({0, 0, 0});
    TGeodeticReferenceSystem const wgs84 = Wgs84();
    TRefSystemTransformsSet chain;
    ASSERT_TRUE(chain.AddNextTransform(TPlaneShiftRefSystemTransform(0.002, 0.0)));
    ASSERT_TRUE(chain.AddNextTransform(
        Transform(*Table("2 2 0.01 0.955 0.64 0 10000 0 10000"), *Table("1 1 1 0 0 0"), 1e-9, &wgs84)));
    TGeodeticReferenceSystem const holder = Wgs84(chain);
    TCoords point = Point(0.645, 0.957, 0);
    wgs84.OperateCoords(holder, &point);
    EXPECT_NEAR((point.X - 0.647) * 1e9, 1e6 * 0.005, 0.2);
    EXPECT_NEAR(point.Y, 0.957, 1e-12);

    // Backwards the correction stays.
    holder.OperateCoords(wgs84, &point);
    EXPECT_NEAR((point.X - 0.645) * 1e9, 1e6 * 0.005, 0.2);
}

TEST(PlaneGrid, NeedsTheHolderOfTheChainWhenItHasASystem) {
    TGeodeticReferenceSystem const wgs84 = Wgs84();
    Transform const grid(FloatTable(), FloatTable(), 1.0, &wgs84);
    TCoords point = Point(0.1, 0.2, 3);
    try {
        grid.BaseToTransformed(nullptr, &point);
        ADD_FAILURE() << "nothing thrown";
    } catch (std::logic_error const& failure) {
        EXPECT_STREQ(failure.what(),
                     "TPlaneGridRefSystemTransform::BaseToTransformed: no system is given from "
                     "which the point could be taken into the system of the grid");
    }
    EXPECT_EQ(point.X, 0.1);
    EXPECT_EQ(point.Z, 3);
}

TEST(PlaneGrid, FailureOnTheWayToItsSystemPasses) {
    // Geodetic to an unknown kind throws std::logic_error.
    TGeodeticReferenceSystem const wgs84 = Wgs84();
    Transform const grid(FloatTable(), FloatTable(), 1.0, &wgs84);
    grid.GridRefSystem->Type = static_cast<TReferenceSystemType>(77);
    TCoords point = Point(0.1, 0.2, 3);
    EXPECT_THROW(grid.BaseToTransformed(&wgs84, &point), std::logic_error);
}

// --- Copies and equality -----------------------------------------------------------------------------------

TEST(PlaneGrid, OwnsCopiesOfWhatItIsGiven) {
    auto const dE = Table("1 1 1 0 0 1");
    auto const dN = Table("1 1 1 0 0 2");
    TGeodeticReferenceSystem const wgs84 = Wgs84();
    Transform const grid(*dE, *dN, 1.5, &wgs84);
    EXPECT_EQ(grid.Type, rsttPlaneGrid);
    EXPECT_NE(grid.GridDE, dE.get());
    EXPECT_NE(grid.GridDN, dN.get());
    EXPECT_NE(grid.GridRefSystem, &wgs84);
    EXPECT_TRUE(*grid.GridDE == *dE);
    EXPECT_TRUE(*grid.GridDN == *dN);
    EXPECT_TRUE(*grid.GridRefSystem == wgs84);
    EXPECT_EQ(grid.GridCoef, 1.5);
}

TEST(PlaneGrid, CopyIsDeepAndLosesTheNames) {
    TGeodeticReferenceSystem const wgs84 = Wgs84();
    Transform source(*Table("1 1 1 0 0 1"), *Table("1 1 1 0 0 2"), 1.5, &wgs84);
    source.Name = "name";
    source.Description = "description";
    Transform const copy(source);
    EXPECT_TRUE(copy == source);
    EXPECT_NE(copy.GridDE, source.GridDE);
    EXPECT_NE(copy.GridDN, source.GridDN);
    EXPECT_NE(copy.GridRefSystem, source.GridRefSystem);
    EXPECT_EQ(copy.Name, "");
    EXPECT_EQ(copy.Description, "");
    EXPECT_EQ(Transform(Sample()).GridRefSystem, nullptr);
}

TEST(PlaneGrid, SystemThatCannotBeCopiedFailsTheConstructor) {
    TUnknownSystem const unknown;
    try {
        Transform const grid(FloatTable(), FloatTable(), 1.0, &unknown);
        FAIL() << "no exception";
    } catch (std::runtime_error const& error) {
        EXPECT_STREQ(error.what(), FailureText);
    }
}

TEST(PlaneGrid, FailedCopyHasTheConstructorsTextToo) {
    TGeodeticReferenceSystem const wgs84 = Wgs84();
    Transform const source(FloatTable(), FloatTable(), 1.0, &wgs84);
    source.GridRefSystem->Type = static_cast<TReferenceSystemType>(77);
    try {
        Transform const copy(source);
        FAIL() << "no exception";
    } catch (std::runtime_error const& error) {
        EXPECT_STREQ(error.what(), FailureText);
    }
}

TEST(PlaneGrid, EqualityComparesEveryPart) {
    auto const one = Table("1 1 1 0 0 1");
    auto const two = Table("1 1 1 0 0 2");
    TGeodeticReferenceSystem const wgs84 = Wgs84();
    TGeodeticReferenceSystem const pulkovo = Pulkovo();
    Transform const grid(*one, *two, 1.5, &wgs84);
    EXPECT_TRUE(grid == Transform(*one, *two, 1.5, &wgs84));
    EXPECT_FALSE(grid == Transform(*one, *two, 1.25, &wgs84));
    EXPECT_FALSE(grid == Transform(*two, *two, 1.5, &wgs84));
    EXPECT_FALSE(grid == Transform(*one, *one, 1.5, &wgs84));
    EXPECT_FALSE(grid == Transform(*one, *two, 1.5, &pulkovo));
    EXPECT_FALSE(grid == Transform(*one, *two, 1.5, nullptr));
    EXPECT_FALSE(Transform(*one, *two, 1.5, nullptr) == grid);
    EXPECT_TRUE(Transform(*one, *two, 1.5, nullptr) == Transform(*one, *two, 1.5, nullptr));
    EXPECT_FALSE(grid == TPlaneShiftRefSystemTransform(0, 0));
    EXPECT_FALSE(TPlaneShiftRefSystemTransform(0, 0) == grid);
}

} // namespace
