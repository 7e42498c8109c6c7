#include "tests/cli/ToolRunner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <string>

using namespace ToolTest;
using testing::HasSubstr;

namespace {

void AppendBigEndian(std::string* bytes, std::uint64_t bits, int size) {
    for (int shift = 8 * (size - 1); shift >= 0; shift -= 8) {
        *bytes += static_cast<char>((bits >> shift) & 0xFFU);
    }
}

/** A GTX grid of 50 to 60 degrees of latitude, 30 to 40 of longitude, with one undulation everywhere. */
std::string ConstantGrid(float undulation) {
    std::string bytes;
    for (double const number : {50.0, 30.0, 10.0, 10.0}) {
        AppendBigEndian(&bytes, std::bit_cast<std::uint64_t>(number), 8);
    }
    AppendBigEndian(&bytes, 2, 4);
    AppendBigEndian(&bytes, 2, 4);
    for (int node = 0; node < 4; ++node) {
        AppendBigEndian(&bytes, std::bit_cast<std::uint32_t>(undulation), 4);
    }
    return bytes;
}

class GeoidOption : public testing::Test {
protected:
    TToolRun Run(std::vector<std::string> arguments, std::string const& points) const {
        arguments.insert(arguments.begin(), "transform");
        TRunSettings settings;
        settings.input = points;
        return RunTool(arguments, settings);
    }

    TTemporaryFolder const Folder;
    std::string const Grid = Folder.Write("thirty.gtx", ConstantGrid(30));
};

} // namespace

TEST_F(GeoidOption, TargetsHeightsStandOverItsGeoid) {
    TToolRun const run = Run({"wgs-84", "wgs-84", "--geoid-target", Grid}, "lat,lon,h\n55,37,130\n");
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out,
              "latitude_deg,longitude_deg,height_over_thirty_m\n55.000000000,37.000000000,100.000\n");
}

TEST_F(GeoidOption, SourcesHeightsStandOverItsGeoid) {
    TToolRun const run = Run({"wgs-84", "wgs-84", "--geoid-source", Grid}, "lat,lon,h\n55,37,100\n");
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out,
              "latitude_deg,longitude_deg,ellipsoidal_height_m\n55.000000000,37.000000000,130.000\n");
}

TEST_F(GeoidOption, BothSidesMayHaveOne) {
    std::string const other = Folder.Write("ten.gtx", ConstantGrid(10));
    TToolRun const run =
        Run({"wgs-84", "utm:37N", "--geoid-source", Grid, "--geoid-target", other}, "55,39,100\n");
    EXPECT_EQ(run.status, 0) << run.err;
    // echo "55 39" | cs2cs -f %.4f EPSG:4326 +to EPSG:32637: 500000.0000 6094791.4210
    EXPECT_THAT(run.out, HasSubstr("500000.000,6094791.42"));
    EXPECT_THAT(run.out, HasSubstr(",120.000\n"));
}

TEST_F(GeoidOption, WithoutGeoidsTheColumnKeepsItsName) {
    TToolRun const run = Run({"wgs-84", "wgs-84"}, "lat,lon,h\n55,37,100\n");
    EXPECT_THAT(run.out, HasSubstr("latitude_deg,longitude_deg,height_m\n"));
}

// cs2cs -f %.4f EPSG:4979 +to "+proj=longlat +datum=WGS84 +geoidgrids=egm96_15.gtx +type=crs": 135.5416
TEST_F(GeoidOption, GivesTheHeightsOverTheEarthGravitationalModel) {
    TToolRun const run =
        Run({"wgs-84", "wgs-84", "--geoid-target", "/usr/share/proj/egm96_15.gtx", "--precision", "4"},
            "55.75,37.62,150\n");
    EXPECT_EQ(run.out, "55.7500,37.6200,135.5416\n") << run.err;
}

TEST_F(GeoidOption, PointsOutsideOfTheGridFail) {
    TToolRun const run = Run({"wgs-84", "wgs-84", "--geoid-target", Grid}, "45,37,130\n55,37,130\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, HasSubstr("the point lies outside of the geoid's grid"));
    EXPECT_THAT(run.out, HasSubstr("55.000000000,37.000000000,100.000\n"));
}

TEST_F(GeoidOption, PointsWithoutHeightPassByTheGeoid) {
    TToolRun const run = Run({"wgs-84", "wgs-84", "--geoid-target", Grid}, "45,37\n");
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "45.000000000,37.000000000\n");
}

TEST_F(GeoidOption, AFileThatCannotBeReadIsNamedWithTheReason) {
    TToolRun const missing = Run({"wgs-84", "wgs-84", "--geoid-target", Folder.Path("none.gtx")}, "");
    EXPECT_NE(missing.status, 0);
    EXPECT_THAT(missing.err, HasSubstr("--geoid-target " + Folder.Path("none.gtx") + ": can't be read"));
    TToolRun const damaged =
        Run({"wgs-84", "wgs-84", "--geoid-source", Folder.Write("short.gtx", "no grid")}, "");
    EXPECT_NE(damaged.status, 0);
    EXPECT_THAT(damaged.err, HasSubstr("can't be read as a geoid grid"));
}

TEST_F(GeoidOption, SystemsWithoutHeightsOverAnEllipsoidTakeNone) {
    TToolRun const run = Run({"wgs-84", "wgs-84-geocentric", "--geoid-target", Grid}, "55,37,1\n");
    EXPECT_NE(run.status, 0);
    EXPECT_THAT(run.err, HasSubstr("--geoid-target: wgs-84-geocentric is a geocentric system, and its third "
                                   "coordinate isn't a height over an ellipsoid"));
}
