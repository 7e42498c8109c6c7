#include "tests/oracle/Road.h"
#include "tests/support/Descriptions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace OracleTests {

namespace {

using namespace KvRefSystem;
using TestSupport::Create;
using TestSupport::TGeodeticText;

using TSystem = std::unique_ptr<TShellReferenceSystem>;

constexpr double EarthRadius = 6.4e6;      ///< metres, a little too great
constexpr double Second = Degree / 3600.0; ///< radians

std::vector<TPlace> GroundPlaces() {
    return EdgesAndDrawn(Ground, 4000, 1942);
}

/** Greatest distance (metres) between our way and the pipeline's. */
double GreatestDistance(TShellReferenceSystem const& source, TShellReferenceSystem const& target,
                        std::string const& pipelineText) {
    TProjPipeline const pipeline(pipelineText);
    double greatest = 0;
    for (TPlace const& place : GroundPlaces()) {
        greatest =
            std::max(greatest, GroundDistance(OurWay(source, place, target), ProjsWay(pipeline, place)));
    }
    return greatest;
}

double GreatestDistance(TShellReferenceSystem const& source, TShellReferenceSystem const& target,
                        TShiftStyle style) {
    return GreatestDistance(source, target, PipelineBetween(source, target, style));
}

void SetShift(TGeodeticText* text, int type, std::vector<std::string> const& numbers) {
    text->shiftType = type;
    std::copy(numbers.begin(), numbers.end(), std::begin(text->shift));
}

/** Seven parameters with greater angles than most of those in use, so that neglected terms would show. */
TGeodeticText SevenParameters(int type) {
    TGeodeticText text;
    text.majorAxis = "6377397.155";
    text.inverseFlattening = "299.1528128";
    SetShift(&text, type, {"598.1", "73.7", "418.2", "5.202", "-4.045", "12.455", "6.7"});
    return text;
}

/** Sum of the products of two rotations each (radians squared): what turns of another order leave. */
double Commutators() {
    double const rx = 5.202 * Second;
    double const ry = 4.045 * Second;
    double const rz = 12.455 * Second;
    return rx * ry + ry * rz + rz * rx;
}

/** Sum of the squares of the rotations: what the small-angle matrix lacks. */
double Squares() {
    double const rx = 5.202 * Second;
    double const ry = 4.045 * Second;
    double const rz = 12.455 * Second;
    return rx * rx + ry * ry + rz * rz;
}

TSystem Wgs84() {
    return Create(TestSupport::WithZeroShift());
}

TEST(DatumRoad, ThreeParametersEqualProjsBothWays) {
    TGeodeticText text;
    text.majorAxis = "6378388";
    text.inverseFlattening = "297";
    SetShift(&text, 1, {"-87", "-98", "-121", "0", "0", "0", "0"});
    TSystem const ed50 = Create(text);
    TSystem const wgs84 = Wgs84();
    ASSERT_TRUE(ed50 && wgs84);
    EXPECT_LT(GreatestDistance(*ed50, *wgs84, TShiftStyle{}), SameFormulas);
    EXPECT_LT(GreatestDistance(*wgs84, *ed50, TShiftStyle{}), SameFormulas);
}

TEST(DatumRoad, PositionVectorRotationsEqualProjsBothWays) {
    TSystem const system = Create(SevenParameters(2));
    TSystem const wgs84 = Wgs84();
    ASSERT_TRUE(system && wgs84);
    // Both turn back by the transposed small-angle matrix: the reverse agrees as well as the forward road.
    TShiftStyle const style = {.Exact = false, .PositionVector = true};
    EXPECT_LT(GreatestDistance(*system, *wgs84, style), SameFormulas);
    EXPECT_LT(GreatestDistance(*wgs84, *system, style), SameFormulas);
}

TEST(DatumRoad, CoordinateFrameRotationsEqualProjsBothWays) {
    TSystem const system = Create(SevenParameters(3));
    TSystem const wgs84 = Wgs84();
    ASSERT_TRUE(system && wgs84);
    TShiftStyle const style = {.Exact = false, .PositionVector = false};
    EXPECT_LT(GreatestDistance(*system, *wgs84, style), SameFormulas);
    EXPECT_LT(GreatestDistance(*wgs84, *system, style), SameFormulas);
}

/** PROJ's parameters written down here, so that no sign goes round through the reports of the system. */
std::string WrittenPipeline(std::string const& convention) {
    return "+proj=pipeline +step +proj=cart +a=6377397.155 +rf=299.1528128 +step +proj=helmert +x=598.1 "
           "+y=73.7 "
           "+z=418.2 +rx=5.202 +ry=-4.045 +rz=12.455 +s=6.7 +convention=" +
           convention + " +step +inv +proj=cart +ellps=WGS84";
}

TEST(DatumRoad, FormTwoIsThePositionVectorAndFormThreeTheCoordinateFrame) {
    TSystem const second = Create(SevenParameters(2));
    TSystem const third = Create(SevenParameters(3));
    TSystem const wgs84 = Wgs84();
    ASSERT_TRUE(second && third && wgs84);
    EXPECT_LT(GreatestDistance(*second, *wgs84, WrittenPipeline("position_vector")), SameFormulas);
    EXPECT_LT(GreatestDistance(*third, *wgs84, WrittenPipeline("coordinate_frame")), SameFormulas);
    // The other sign is hundreds of metres away.
    EXPECT_GT(GreatestDistance(*third, *wgs84, WrittenPipeline("position_vector")), 100.0);
}

TEST(DatumRoad, SmallAnglesThereAndBackLeaveTheSameRemainderAsProjs) {
    TSystem const system = Create(SevenParameters(3));
    TSystem const wgs84 = Wgs84();
    ASSERT_TRUE(system && wgs84);
    TShiftStyle const style;
    TProjPipeline const there(PipelineBetween(*system, *wgs84, style));
    TProjPipeline const back(PipelineBetween(*wgs84, *system, style));
    double greatest = 0;
    for (TPlace const& place : GroundPlaces()) {
        TPlace const ours = OurWay(*wgs84, OurWay(*system, place, *wgs84), *system);
        TPlace const theirs = ProjsWay(back, ProjsWay(there, place));
        ASSERT_LT(GroundDistance(ours, theirs), 2 * SameFormulas);
        greatest = std::max(greatest, GroundDistance(ours, place));
    }
    // The transposed matrix times the matrix is the identity and squares of the rotations: 30 mm at most.
    EXPECT_LT(greatest, Squares() * EarthRadius);
    EXPECT_GT(greatest, 0.5 * Squares() * EarthRadius);
}

TEST(DatumRoad, ExactRotationsEqualProjsOfThePositionVector) {
    // Both multiply the turns about X, Y and Z in this order; form 3 takes the opposite angles.
    TShiftStyle const style = {.Exact = true, .PositionVector = true};
    TSystem const wgs84 = Wgs84();
    for (int const type : {2, 3}) {
        TSystem const system = Create(SevenParameters(type));
        ASSERT_TRUE(system && wgs84);
        ASSERT_TRUE(system->SetNonLinearDatum(true));
        EXPECT_LT(GreatestDistance(*system, *wgs84, style), SameFormulas) << type;
        EXPECT_LT(GreatestDistance(*wgs84, *system, style), SameFormulas) << type;
    }
}

TEST(DatumRoad, ExactRotationsOfTheCoordinateFrameDifferFromProjsByTheOrderOfTurns) {
    TSystem const system = Create(SevenParameters(3));
    TSystem const wgs84 = Wgs84();
    ASSERT_TRUE(system && wgs84);
    ASSERT_TRUE(system->SetNonLinearDatum(true));
    // PROJ transposes its matrix here, and so turns about Z first in the product: Z Y X instead of X Y Z.
    TShiftStyle const style = {.Exact = true, .PositionVector = false};
    double const there = GreatestDistance(*system, *wgs84, style);
    double const back = GreatestDistance(*wgs84, *system, style);
    EXPECT_LT(there, Commutators() * EarthRadius); // 20 mm at these angles
    EXPECT_LT(back, Commutators() * EarthRadius);
    EXPECT_GT(there, SameFormulas);
}

TEST(DatumRoad, SmallAnglesDifferFromExactOnesByTheirSquares) {
    TSystem const linear = Create(SevenParameters(2));
    TSystem const wgs84 = Wgs84();
    ASSERT_TRUE(linear && wgs84);
    TShiftStyle const style = {.Exact = true, .PositionVector = true};
    double const greatest = GreatestDistance(*linear, *wgs84, style);
    // Half the squares on the diagonal, one product each beside it.
    EXPECT_LT(greatest, (Squares() / 2 + Commutators()) * EarthRadius);
    EXPECT_GT(greatest, SameFormulas);
}

TEST(DatumRoad, ExactRotationsThereAndBackReturnToTheStart) {
    // With exact rotations the reverse is the inverse, and nothing but the conversions' last places stays.
    TSystem const system = Create(SevenParameters(2));
    TSystem const wgs84 = Wgs84();
    ASSERT_TRUE(system && wgs84);
    ASSERT_TRUE(system->SetNonLinearDatum(true));
    for (TPlace const& place : GroundPlaces()) {
        ASSERT_LT(GroundDistance(OurWay(*wgs84, OurWay(*system, place, *wgs84), *system), place), 2e-6);
    }
}

struct TMeridian {
    char const* Name;
    std::string Longitude;
    TestSupport::TUnitText Unit;
    double Degrees;
};

void PrintTo(TMeridian const& meridian, std::ostream* out) {
    *out << meridian.Name;
}

class DatumRoadOfMeridian : public testing::TestWithParam<TMeridian> {};

TEST_P(DatumRoadOfMeridian, TurnsAsProjDoes) {
    TGeodeticText text = SevenParameters(2);
    text.meridian = GetParam().Longitude;
    text.meridianUnit = GetParam().Unit;
    TSystem const system = Create(text);
    TSystem const wgs84 = Wgs84();
    ASSERT_TRUE(system && wgs84);
    TShiftStyle const style = {.Exact = false, .PositionVector = true};
    EXPECT_LT(GreatestDistance(*system, *wgs84, style), SameFormulas);
    EXPECT_LT(GreatestDistance(*wgs84, *system, style), SameFormulas);
    // The meridian as a number of this table, not as the system reports it.
    std::string const pipeline =
        "+proj=pipeline +step +inv +proj=longlat +a=6377397.155 +rf=299.1528128 +pm=" +
        Number(GetParam().Degrees) + " +step " +
        WrittenPipeline("position_vector").substr(sizeof("+proj=pipeline +step ") - 1);
    EXPECT_LT(GreatestDistance(*system, *wgs84, pipeline), SameFormulas);
}

TEST_P(DatumRoadOfMeridian, MeetsAnotherMeridianOnTheSameDatum) {
    TGeodeticText text = SevenParameters(2);
    TSystem const greenwich = Create(text);
    text.meridian = GetParam().Longitude;
    text.meridianUnit = GetParam().Unit;
    TSystem const system = Create(text);
    ASSERT_TRUE(greenwich && system);
    for (TPlace const& place : GroundPlaces()) {
        TPlace const turned = {place.Latitude, place.Longitude - GetParam().Degrees, place.Height};
        ASSERT_LT(GroundDistance(OurWay(*greenwich, place, *system), turned), SameFormulas);
    }
}

// The register's longitudes of the meridians 8901 to 8909, and one across the antimeridian.
INSTANTIATE_TEST_SUITE_P(
    All, DatumRoadOfMeridian,
    testing::Values(TMeridian{"Paris", "2.5969213", TestSupport::Grad(), 2.33722917},
                    TMeridian{"Ferro", "-17.666666666666668", TestSupport::Degree(), -17.666666666666668},
                    TMeridian{"Jakarta", "106.80771944444445", TestSupport::Degree(), 106.80771944444445},
                    TMeridian{"Bogota", "-74.08091666666667", TestSupport::Degree(), -74.08091666666667},
                    TMeridian{"Antimeridian", "180", TestSupport::Degree(), 180.0}),
    [](auto const& meridian) { return meridian.param.Name; });

TEST(DatumRoad, GradsAndFeetComeToTheSamePlaces) {
    TGeodeticText text = SevenParameters(3);
    text.angularUnit = TestSupport::Grad();
    text.heightUnit = TestSupport::Foot();
    text.meridian = "2.5969213";
    text.meridianUnit = TestSupport::Grad();
    TSystem const system = Create(text);
    TSystem const wgs84 = Wgs84();
    ASSERT_TRUE(system && wgs84);
    EXPECT_LT(GreatestDistance(*system, *wgs84, TShiftStyle{}), SameFormulas);
    EXPECT_LT(GreatestDistance(*wgs84, *system, TShiftStyle{}), SameFormulas);

    // One place with its own numbers: 60 grads are 54 degrees, 1000 feet 304.8 m.
    TTriple ours{};
    ASSERT_TRUE(TransformCoords(system.get(), 60, 10, 1000, wgs84.get(), &ours[0], &ours[1], &ours[2]));
    TProjPipeline const pipeline(PipelineBetween(*system, *wgs84, TShiftStyle{}));
    TPlace const theirs = ProjsWay(pipeline, {54, 9, 304.8});
    EXPECT_LT(GroundDistance({ours[0], ours[1], ours[2]}, theirs), SameFormulas);
}

TEST(DatumRoad, KeepsThePromiseAKilometreFromThePoles) {
    TSystem const system = Create(SevenParameters(3));
    TSystem const wgs84 = Wgs84();
    ASSERT_TRUE(system && wgs84);
    TProjPipeline const pipeline(PipelineBetween(*system, *wgs84, TShiftStyle{}));
    // 0.01 degrees are 1100 m, and the shift brings some places nearer.
    for (TPlace const& place : EdgesAndDrawn({89.99, -1e3, 9e3}, 1000, 90)) {
        TPlace const ours = OurWay(*system, place, *wgs84);
        TPlace const theirs = ProjsWay(pipeline, place);
        double const tangent = std::tan(std::fabs(ours.Latitude) * Degree);
        ASSERT_NEAR(ours.Height, theirs.Height, SameFormulas + 6e-8 * tangent);
        ASSERT_LT(GroundDistance(ours, theirs), PromisedOnTheGround);
    }
}

TEST(DatumRoad, TwoShiftsOfDifferentFormsEqualProjs) {
    TSystem const pulkovo = Create(TestSupport::Pulkovo1942());
    TSystem const other = Create(SevenParameters(2));
    ASSERT_TRUE(pulkovo && other);
    // Two shifts of different forms in one road: PROJ gets both in the coordinate frame's sign.
    EXPECT_LT(GreatestDistance(*pulkovo, *other, TShiftStyle{}), SameFormulas);
    EXPECT_LT(GreatestDistance(*other, *pulkovo, TShiftStyle{}), SameFormulas);
}

TEST(DatumRoad, EqualShiftsAreSkippedHereAndTakenOutOfProjsPipelines) {
    TSystem const system = Create(SevenParameters(2));
    TGeodeticText text = SevenParameters(2);
    text.angularUnit = TestSupport::Grad();
    TSystem const same = Create(text);
    TSystem const wgs84 = Wgs84();
    ASSERT_TRUE(system && same && wgs84);
    EXPECT_LT(GreatestDistance(*system, *same, TShiftStyle{}), SameFormulas);
    double direct = 0;
    double byTheCommonDatum = 0;
    for (TPlace const& place : GroundPlaces()) {
        TPlace const common = OurWay(*system, place, *wgs84);
        direct = std::max(direct, GroundDistance(OurWay(*system, place, *same), place));
        byTheCommonDatum = std::max(byTheCommonDatum, GroundDistance(OurWay(*wgs84, common, *same), place));
    }
    // Applied one after the other they would leave the squares of the rotations.
    EXPECT_LT(direct, SameFormulas);
    EXPECT_GT(byTheCommonDatum, 0.5 * Squares() * EarthRadius);
}

} // namespace

} // namespace OracleTests
