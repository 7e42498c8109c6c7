#include "core/projections/CassiniSoldner.h"

#include "tests/core/projections/ProjectionChecks.h"

namespace {

using namespace ProjectionChecks;
using KvRefSystem::TCassiniSoldnerMapProjection;
using Record = KvRefSystem::TCassiniSoldnerMapProjectionParameters;

constexpr std::array<double, 4> Fields = {0.5, 0.2, 3, 4};

TCassiniSoldnerMapProjection From40North10East(TEllipsoidSemiAxes const& axes = Wgs84) {
    Record const record(40 * Degree, 10 * Degree, 1000, 2000);
    return TCassiniSoldnerMapProjection(&axes, &record);
}

TEST(CassiniSoldner, GivesTheExampleOfTheGuidanceNote) {
    // [EPSG7-2, 9806], Trinidad 1903: 66644.94 and 82536.22 links of Clarke; the semi-axes are in his feet.
    constexpr double Foot = 0.3047972654;
    constexpr double Link = 0.201166195164;
    TEllipsoidSemiAxes const clarke1858 = {20926348 * Foot, 20855233 * Foot};
    Record const record(Dms(10, 26, 30) * Degree, -Dms(61, 20, 0) * Degree, 430000 * Link, 325000 * Link);
    TCassiniSoldnerMapProjection const trinidad(&clarke1858, &record);
    ExpectNear(Project(trinidad, 10, -62), 66644.94 * Link, 82536.22 * Link, 0.005 * Link);
    ExpectNear(Project(trinidad, 10, -62), 13406.7091, 16603.4971, 5e-5);
    ExpectNear(Unproject(trinidad, 66644.94 * Link, 82536.22 * Link), -62 * Degree, 10 * Degree, 5e-10);
}

TEST(CassiniSoldner, CentralMeridianIsTrueToLength) {
    // The meridian of WGS 84 from 40 to 55 degrees by quadrature, mpmath.
    TCoords const point = Project(From40North10East(), 55, 10);
    EXPECT_EQ(point.X, 1000);
    TCoords const origin = Project(From40North10East(), 40, 10);
    ExpectNear(origin, 1000, 2000, 1e-8);
    EXPECT_NEAR(point.Y - origin.Y, 1667701.28277367, 1e-3);
}

TEST(CassiniSoldner, LastTermsCountOnAFlattenedBody) {
    // A tenth flat, so that the terms that are below a millimetre on the earth show. [Snyder87, 13-5 to 13-10,
    // 3-21, 3-26] in Python, as printed.
    auto const flattened = From40North10East({6378137, 5740323.3});
    ExpectNear(Project(flattened, 55, 14), 274275.60406286607, 1603450.544310506, 1e-7);
    ExpectNear(Unproject(flattened, 300000, 1500000), 0.24930034253037087, 0.9434258824527795, 1e-14);
}

TEST(CassiniSoldner, RoundTripsCloseNearTheCentralMeridian) {
    EXPECT_LT(GreatestRoundTripError(From40North10East(), {-70, 70, 9, 11}), 1e-3);
    EXPECT_LT(GreatestRoundTripError(From40North10East(), {-80, 80, 7, 13}), 0.02);
    // The series end with the fifth power of the longitude difference.
    EXPECT_GT(GreatestRoundTripError(From40North10East(), {-80, 80, 0, 20}), 1);
}

TEST(CassiniSoldner, LongitudesAreNotWrapped) {
    ExpectLongitudesUnwrapped(From40North10East(), 40, 11);
}

TEST(CassiniSoldner, FieldsStandInTheirStoredOrder) {
    ExpectRecordInStoredOrder<Record>(Fields);
    Record const record(1, 2, 3, 4);
    EXPECT_EQ(record.LatitudeOfOrigin, 1);
    EXPECT_EQ(record.LongitudeOfOrigin, 2);
    EXPECT_EQ(record.FalseEasting, 3);
    EXPECT_EQ(record.FalseNorthing, 4);
}

TEST(CassiniSoldner, EqualityComparesTheWholeRecordAndNotTheEllipsoid) {
    ExpectEqualityOfRecords<TCassiniSoldnerMapProjection>(RecordOf<Record>(Fields));
}

TEST(CassiniSoldner, CopiesStandAlone) {
    ExpectCopiesToStandAlone<TCassiniSoldnerMapProjection>(Wgs84, RecordOf<Record>(Fields), 41, 12);
}

TEST(CassiniSoldner, TakesAnyNumber) {
    ExpectToTakeAnyNumber(From40North10East());
    ExpectToTakeAnyNumber(From40North10East(Sphere));
}

} // namespace
