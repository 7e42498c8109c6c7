#include "TestKinds.h"
#include "core/projections/TransverseMercator.h"
#include "core/refsystems/LocalCartesianReferenceSystem.h"
#include "core/refsystems/LocalCurvedReferenceSystem.h"
#include "core/refsystems/MapProjectedReferenceSystem.h"
#include "core/refsystems/TopocentricHorizontalReferenceSystem.h"
#include "core/transforms/PlaneAndVertical.h"
#include "core/transforms/PlaneGrid.h"
#include "core/transforms/SevenParameters.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace KvRefSystem;
using namespace KvRefSystemTests;

namespace {

/** Whether two references of one family name one object. */
template <class Base>
bool Same(Base const& first, Base const& second) {
    return &first == &second;
}

/** Compares the two both ways, also by inequality; only an object and itself are expected to be equal. */
template <class Base, class First, class Second>
void ExpectPair(First const& first, Second const& second) {
    bool const equal = Same<Base>(first, second);
    EXPECT_EQ(first == second, equal);
    EXPECT_EQ(second == first, equal);
    EXPECT_EQ(first != second, !equal);
    EXPECT_EQ(second != first, !equal);
}

template <class Base, class First, class... All>
void ExpectAgainstAll(First const& first, All const&... all) {
    (ExpectPair<Base>(first, all), ...);
    (ExpectPair<Base>(first, static_cast<Base const&>(all)), ...);
    (ExpectPair<Base>(static_cast<Base const&>(first), all), ...);
    (ExpectPair<Base>(static_cast<Base const&>(first), static_cast<Base const&>(all)), ...);
}

/** Every object against every object, under its own class and under the family's base. */
template <class Base, class... All>
void ExpectPairs(All const&... all) {
    (ExpectAgainstAll<Base>(all, all...), ...);
}

} // namespace

TEST(EqualityPairs, SystemsOfAllKindsCompareBothWays) {
    auto const ellipsoid = Wgs84();
    TGeocentricReferenceSystem const geocentric(nullptr, nullptr, {}, {});
    TGeodeticReferenceSystem const geodetic(nullptr, nullptr, &ellipsoid, {}, {});
    TEllipsoidSemiAxes const axes = {ellipsoid.SemiMajorAxis, ellipsoid.SemiMinorAxis};
    TTransverseMercatorMapProjectionParameters const parameters(0.0, 0.0, 1.0, 0.0, 0.0);
    TMapProjectedReferenceSystem const projected(
        &geodetic, new TTransverseMercatorMapProjection(&axes, &parameters), {}, {});
    TTopocentricHorizontalReferenceSystem const topocentric(rscoLeft, 0.0, &geodetic, Point(0, 0, 0), {}, {});
    TLocalCartesianReferenceSystem const local(rscoLeft, {}, {});
    TLocalCurvedReferenceSystem const curved(rscoLeft, 6371000.0, 0.0, 0.0, {}, {});
    ExpectPairs<TReferenceSystem>(geocentric, geodetic, projected, topocentric, local, curved, TTestKind(1),
                                  TTestKind(2), TTestKind(3), TTestKind(4), TTestKind(5), TTestKind(6));
}

TEST(EqualityPairs, EqualSystemsOfOneClassAreEqualUnderEveryStaticType) {
    TGeocentricReferenceSystem const first(nullptr, nullptr, {}, {});
    TGeocentricReferenceSystem const second = CopyOf(first);
    TReferenceSystem const& base = second;
    EXPECT_TRUE(first == second);
    EXPECT_TRUE(first == base);
    EXPECT_TRUE(base == first);
    EXPECT_FALSE(first != second);
}

TEST(EqualityPairs, TransformsOfAllTypesCompareBothWays) {
    double const matrix[4] = {1, 0, 0, 1};
    double const shift[2] = {0, 0};
    TPlaneRotationRefSystemTransform const rotation(0);
    TPlaneShiftRefSystemTransform const planeShift(0, 0);
    TSevenParametersRefSystemTransform const similarity;
    TPlaneAffineRefSystemTransform const affine(matrix, shift);
    TPlaneGridRefSystemTransform const grid(T2DTable<float>(), T2DTable<float>(), 1, nullptr);
    TVerticalShiftRefSystemTransform const vertical(0);
    ExpectPairs<TRefSystemTransform>(rotation, planeShift, similarity, affine, grid, vertical,
                                     TForeignTransform());
}

TEST(EqualityPairs, EqualTransformsOfOneClassAreEqualUnderEveryStaticType) {
    TPlaneShiftRefSystemTransform const first(1, 2);
    TPlaneShiftRefSystemTransform const second = CopyOf(first);
    TRefSystemTransform const& base = second;
    EXPECT_TRUE(first == second);
    EXPECT_TRUE(first == base);
    EXPECT_TRUE(base == first);
    EXPECT_FALSE(first != second);
}

TEST(EqualityPairs, DatumShiftsOfAllClassesCompareBothWays) {
    TBursaWolfDatumShiftParameters const parameters(1, 2, 3);
    TBursaWolfDatumShift const linear(parameters);
    TBursaWolfNonlinearDatumShift const nonlinear(parameters);
    ExpectPairs<TDatumShift>(linear, nonlinear, TForeignShift());
}

TEST(EqualityPairs, EqualDatumShiftsOfOneClassAreEqualUnderEveryStaticType) {
    TBursaWolfNonlinearDatumShift const first(TBursaWolfDatumShiftParameters(1, 2, 3));
    TBursaWolfNonlinearDatumShift const second = CopyOf(first);
    TDatumShift const& base = second;
    EXPECT_TRUE(first == second);
    EXPECT_TRUE(first == base);
    EXPECT_TRUE(base == first);
    EXPECT_FALSE(first != second);
}
