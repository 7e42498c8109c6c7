#include "shell/datum/Geoid.h"

#include "frame/imported/BaseGrid.h"
#include "shell/refsystems/GeodeticReferenceSystem.h"
#include "tests/shell/datum/DatumTestKit.h"

#include <cmath>
#include <cstddef>
#include <functional>
#include <map>

namespace {

using namespace DatumTestKit;
using KvRefSystem::TShellGeodeticReferenceSystem;
using KvRefSystem::TShellGeoid;

static_assert(sizeof(TShellGeoid) == 96);
static_assert(offsetof(TShellGeoid, Id) == 0);
static_assert(offsetof(TShellGeoid, Shift) == 32);
static_assert(offsetof(TShellGeoid, Grid) == 40);
static_assert(offsetof(TShellGeoid, GridRefSystem) == 48);
static_assert(offsetof(TShellGeoid, GridIsLeft) == 56);
static_assert(offsetof(TShellGeoid, GridHeightCoef) == 64);
static_assert(offsetof(TShellGeoid, PresetSystem) == 72);
static_assert(offsetof(TShellGeoid, PresetFast) == 80);
static_assert(offsetof(TShellGeoid, PresetScale) == 88);

constexpr char const* undulationMessage = "double TShellGeoid::Undulation(const double grid_coords[3]) const";
constexpr char const* toEllipsoidMessage =
    "void TShellGeoid::GeoidToEllipsoid(const TShellReferenceSystem*, double[3]) const";

/** Undulations by a function of the plane position, between 0 and 90 on both axes. */
class TGrid : public TBaseGrid {
public:
    explicit TGrid(std::function<double(double, double)> surface) : height(std::move(surface)) {}
    explicit TGrid(double constant) : TGrid([constant](double, double) { return constant; }) {}

    bool GetZFastZ(double x, double y, double& z, unsigned int mode) override {
        ++lookups;
        lastX = x;
        lastY = y;
        lastMode = mode;
        if (!(x >= 0 && x <= 90 && y >= 0 && y <= 90)) {
            return false;
        }
        z = height(x, y);
        return true;
    }

    int lookups = 0;
    double lastX = -1;
    double lastY = -1;
    unsigned int lastMode = 99;

private:
    std::function<double(double, double)> height;
};

/** A geodetic description in degrees. */
struct TDescription : TStringTree {
    TDescription(char const* major, char const* flattening, TUnit const& heightUnit) {
        InsertInteger("", 1100, 0, 4);
        InsertString("", 1020, 0, "system");
        InsertString("", 1021, 0, "");
        TStringTree* const meridian = PutSubtree(this, 1101);
        meridian->InsertString("", 5220, 0, "Greenwich");
        meridian->InsertString("", 5221, 0, "");
        meridian->InsertString("", 5210, 0, "0");
        PutUnitSubtree(meridian, 5211, degree);
        TStringTree* const ellipsoid = PutSubtree(this, 1103);
        ellipsoid->InsertString("", 5120, 0, "ellipsoid");
        ellipsoid->InsertString("", 5121, 0, "");
        ellipsoid->InsertString("", 5110, 0, major);
        ellipsoid->InsertString("", 5111, 0, "");
        ellipsoid->InsertInteger("", 5114, 0, 1);
        ellipsoid->InsertInteger("", 5115, 0, 0);
        ellipsoid->InsertString("", 5112, 0, flattening);
        PutUnitSubtree(ellipsoid, 5113, metre);
        PutUnitSubtree(this, 1106, degree);
        PutUnitSubtree(PutSubtree(this, 1201), 1104, heightUnit);
    }
};

struct TWGS84Description : TDescription {
    explicit TWGS84Description(TUnit const& heightUnit)
        : TDescription("6378137", "298.257223563", heightUnit) {}
};

struct TKrasovskyDescription : TDescription {
    explicit TKrasovskyDescription(TUnit const& heightUnit) : TDescription("6378245", "298.3", heightUnit) {}
};

/** A system made from a temporary description. */
struct TSystem : TShellGeodeticReferenceSystem {
    explicit TSystem(TStringTree&& tree) : TShellGeodeticReferenceSystem(&tree, nullptr) {}
};

/** A system whose first coordinate comes first in its grids. */
struct TRightSystem : TSystem {
    using TSystem::TSystem;
    bool IsLeft() const override { return false; }
};

TEST(ShellGeoid, ShiftIsTheNumberBehindTheMark) {
    EXPECT_EQ(TShellGeoid::ExtractShift("a.grd###-0.25"), -0.25);
    EXPECT_EQ(TShellGeoid::ExtractShift("a.grd###"), 0.0);
    EXPECT_EQ(TShellGeoid::ExtractShift("a.grd"), 0.0);
    EXPECT_EQ(TShellGeoid::ExtractShift(""), 0.0);
    EXPECT_EQ(TShellGeoid::ExtractShift("a.grd###x"), 0.0);
    EXPECT_EQ(TShellGeoid::ExtractShift("a###   "), 0.0);
    EXPECT_EQ(TShellGeoid::ExtractShift("a## #1.5###2 m"), 2.0);
    EXPECT_EQ(TShellGeoid::ExtractShift("a### 1e1"), 10.0);
}

TEST(ShellGeoid, ShiftStandsBehindTheFirstMark) {
    EXPECT_EQ(TShellGeoid::ExtractShift("a###1###2"), 1.0);
    EXPECT_EQ(TShellGeoid::ExtractShift("a####3"), 0.0);
}

TEST(ShellGeoid, ConstructorReadsTheGridsSystem) {
    TSystem const system(TWGS84Description{foot});
    TGrid grid(30);
    TShellGeoid const geoid("a.grd###-0.25", &grid, &system);
    EXPECT_EQ(geoid.Id, "a.grd###-0.25");
    EXPECT_EQ(geoid.Shift, -0.25);
    EXPECT_EQ(geoid.Grid, &grid);
    EXPECT_EQ(geoid.GridRefSystem, &system);
    EXPECT_TRUE(geoid.GridIsLeft);
    EXPECT_EQ(geoid.GridHeightCoef, 0.3048);
    EXPECT_EQ(geoid.PresetSystem, nullptr);
    EXPECT_FALSE(geoid.PresetFast);
    EXPECT_EQ(geoid.PresetScale, 0.0);
}

TEST(ShellGeoid, GridWithoutASystemIsRefused) {
    TGrid grid(30);
    EXPECT_EQ(MessageOf([&] { TShellGeoid const geoid("a", &grid, nullptr); }),
              "TShellGeoid::TShellGeoid(const string& id, TBaseGrid *grid, const TShellReferenceSystem "
              "*grid_system)");
}

TEST(ShellGeoid, LeftGridSwapsTheLookup) {
    TSystem const system(TWGS84Description{metre});
    TGrid grid(30);
    TShellGeoid const geoid("a", &grid, &system);
    double const coords[] = {55, 37, 200};
    EXPECT_EQ(geoid.Undulation(coords), 30.0);
    EXPECT_EQ(grid.lastX, 37.0);
    EXPECT_EQ(grid.lastY, 55.0);
    EXPECT_EQ(grid.lastMode, 0U);
}

TEST(ShellGeoid, RightGridIsLookedUpAsItStands) {
    TRightSystem const system(TWGS84Description{metre});
    TGrid grid(30);
    TShellGeoid const geoid("a", &grid, &system);
    double const coords[] = {55, 37, 200};
    EXPECT_EQ(geoid.Undulation(coords), 30.0);
    EXPECT_EQ(grid.lastX, 55.0);
    EXPECT_EQ(grid.lastY, 37.0);
}

TEST(ShellGeoid, ShiftIsAddedToEveryUndulation) {
    TSystem const system(TWGS84Description{metre});
    TGrid grid(30);
    TShellGeoid const geoid("a###-0.25", &grid, &system);
    double const coords[] = {55, 37, 200};
    EXPECT_EQ(geoid.Undulation(coords), 29.75);
}

TEST(ShellGeoid, PresetOfTheSameDatumAndMetresIsFastWithoutAScale) {
    TSystem const system(TWGS84Description{metre});
    TSystem const gridSystem(TWGS84Description{metre});
    TGrid grid(30);
    TShellGeoid geoid("a", &grid, &gridSystem);
    geoid.Preset(&system);
    EXPECT_EQ(geoid.PresetSystem, &system);
    EXPECT_TRUE(geoid.PresetFast);
    EXPECT_EQ(geoid.PresetScale, 0.0);
    double coords[] = {55, 37, 100};
    geoid.GeoidToEllipsoid(coords);
    EXPECT_EQ(coords[2], 130.0);
    EXPECT_EQ(grid.lookups, 1);
    geoid.EllipsoidToGeoid(coords);
    EXPECT_NEAR(coords[2], 100.0, 1e-8);
    EXPECT_EQ(coords[0], 55.0);
    EXPECT_EQ(coords[1], 37.0);
}

TEST(ShellGeoid, PresetOfFeetOnAGridOfMetresIsFastWithAScale) {
    TSystem const system(TWGS84Description{foot});
    TSystem const gridSystem(TWGS84Description{metre});
    TGrid grid(30);
    TShellGeoid geoid("a", &grid, &gridSystem);
    geoid.Preset(&system);
    EXPECT_TRUE(geoid.PresetFast);
    EXPECT_NEAR(geoid.PresetScale, 3.280839895013123, 1e-15); // 1 / 0.3048
    double coords[] = {55, 37, 100};
    geoid.GeoidToEllipsoid(coords);
    EXPECT_NEAR(coords[2], 198.4251968503937, 1e-9); // 100 + 30 / 0.3048
    EXPECT_EQ(grid.lookups, 1);
    geoid.EllipsoidToGeoid(coords);
    EXPECT_NEAR(coords[2], 100.0, 1e-7);
}

TEST(ShellGeoid, PresetOfMetresOnAGridOfFeetIsFastWithAScale) {
    TSystem const system(TWGS84Description{metre});
    TSystem const gridSystem(TWGS84Description{foot});
    TGrid grid(30);
    TShellGeoid geoid("a###10", &grid, &gridSystem);
    geoid.Preset(&system);
    EXPECT_TRUE(geoid.PresetFast);
    EXPECT_NEAR(geoid.PresetScale, 0.3048, 1e-16);
    double coords[] = {55, 37, 100};
    geoid.GeoidToEllipsoid(coords);
    EXPECT_NEAR(coords[2], 112.192, 1e-9); // 100 + (30 + 10) 0.3048: the shift is in the grid's unit
}

TEST(ShellGeoid, PresetOfAnotherDatumAndUnitIsNotFast) {
    TSystem const system(TKrasovskyDescription{foot});
    TSystem const gridSystem(TWGS84Description{metre});
    TGrid grid(30);
    TShellGeoid geoid("a", &grid, &gridSystem);
    geoid.Preset(&system);
    EXPECT_EQ(geoid.PresetSystem, &system);
    EXPECT_FALSE(geoid.PresetFast);
    EXPECT_EQ(geoid.PresetScale, 0.0);
    double byPreset[] = {55, 37, 100};
    double byName[] = {55, 37, 100};
    geoid.GeoidToEllipsoid(byPreset);
    geoid.GeoidToEllipsoid(&system, byName);
    EXPECT_EQ(byPreset[2], byName[2]);
    EXPECT_GT(grid.lookups, 2);
}

TEST(ShellGeoid, PresetIsReplacedAndCleared) {
    TSystem const feet(TWGS84Description{foot});
    TSystem const krasovskyFeet(TKrasovskyDescription{foot});
    TSystem const gridSystem(TWGS84Description{metre});
    TGrid grid(30);
    TShellGeoid geoid("a", &grid, &gridSystem);
    geoid.Preset(&feet);
    geoid.Preset(&krasovskyFeet);
    EXPECT_FALSE(geoid.PresetFast);
    EXPECT_EQ(geoid.PresetScale, 0.0);
    geoid.Preset(&feet);
    geoid.ClearPreset();
    EXPECT_EQ(geoid.PresetSystem, nullptr);
    EXPECT_FALSE(geoid.PresetFast);
    EXPECT_EQ(geoid.PresetScale, 0.0);
}

TEST(ShellGeoid, WithoutAPresetTheShortFormsThrow) {
    TSystem const system(TWGS84Description{metre});
    TGrid grid(30);
    TShellGeoid geoid("a", &grid, &system);
    geoid.Preset(&system);
    geoid.Preset(nullptr);
    double coords[] = {55, 37, 100};
    EXPECT_EQ(MessageOf([&] { geoid.GeoidToEllipsoid(coords); }),
              "void TShellGeoid::GeoidToEllipsoid(double[3]) const");
    EXPECT_EQ(MessageOf([&] { geoid.EllipsoidToGeoid(coords); }),
              "void TShellGeoid::EllipsoidToGeoid(double[3]) const");
    EXPECT_EQ(MessageOf([&] { geoid.GeoidToEllipsoid(nullptr, coords); }), toEllipsoidMessage);
    EXPECT_EQ(MessageOf([&] { geoid.EllipsoidToGeoid(nullptr, coords); }),
              "void TShellGeoid::EllipsoidToGeoid(const TShellReferenceSystem*, double[3]) const");
    EXPECT_EQ(coords[2], 100.0);
}

TEST(ShellGeoid, CopyIsPresetForItsSystem) {
    TSystem const system(TWGS84Description{metre});
    TSystem const feet(TWGS84Description{foot});
    TGrid grid(30);
    TShellGeoid source("a###2", &grid, &system);
    source.Preset(&system);
    TShellGeoid const copy(source, &feet);
    EXPECT_EQ(copy.Id, "a###2");
    EXPECT_EQ(copy.Shift, 2.0);
    EXPECT_EQ(copy.Grid, &grid);
    EXPECT_EQ(copy.GridRefSystem, &system);
    EXPECT_TRUE(copy.GridIsLeft);
    EXPECT_EQ(copy.GridHeightCoef, 1.0);
    EXPECT_EQ(copy.PresetSystem, &feet);
    EXPECT_TRUE(copy.PresetFast);
    EXPECT_NEAR(copy.PresetScale, 3.280839895013123, 1e-15);
}

TEST(ShellGeoid, ConstantUndulationIsAddedAndTakenOff) {
    TSystem const system(TWGS84Description{metre});
    TGrid grid(30);
    TShellGeoid const geoid("a", &grid, &system);
    double coords[] = {55, 37, 100};
    geoid.GeoidToEllipsoid(&system, coords);
    EXPECT_NEAR(coords[2], 130.0, 1e-8);
    geoid.EllipsoidToGeoid(&system, coords);
    EXPECT_NEAR(coords[2], 100.0, 1e-8);
    EXPECT_EQ(coords[0], 55.0);
    EXPECT_EQ(coords[1], 37.0);
}

// Heights between the ellipsoids at latitude 55, longitude 37, worked out in Python with the closed form onto
// Cartesian coordinates and fifty rounds back.
TEST(ShellGeoid, IterationSeesTheUndulationInTheSystemsHeights) {
    TSystem const system(TWGS84Description{metre});
    TSystem const gridSystem(TKrasovskyDescription{metre});
    TGrid grid(30);
    TShellGeoid const geoid("a", &grid, &gridSystem);
    double coords[] = {55, 37, 170};
    geoid.GeoidToEllipsoid(&system, coords);
    EXPECT_NEAR(coords[2], 309.812622, 1e-5);
    EXPECT_EQ(grid.lookups, 2);
    double back[] = {55, 37, 200};
    geoid.EllipsoidToGeoid(&system, back);
    EXPECT_NEAR(back[2], 60.187378, 1e-5);
}

TEST(ShellGeoid, OnlyTheWayToTheEllipsoidHasAFastPath) {
    // Two systems in metres without geoids count as preserving heights, although their ellipsoids differ.
    TSystem const system(TWGS84Description{metre});
    TSystem const gridSystem(TKrasovskyDescription{metre});
    TGrid grid(30);
    TShellGeoid geoid("a", &grid, &gridSystem);
    geoid.Preset(&system);
    EXPECT_TRUE(geoid.PresetFast);
    double coords[] = {55, 37, 170};
    geoid.GeoidToEllipsoid(coords);
    EXPECT_EQ(coords[2], 200.0);
    EXPECT_EQ(grid.lookups, 1);
    geoid.EllipsoidToGeoid(coords);
    EXPECT_NEAR(coords[2], 60.187378, 1e-5);
}

TEST(ShellGeoid, SlopingGeoidGoesThereAndBack) {
    TSystem const system(TKrasovskyDescription{foot});
    TSystem const gridSystem(TWGS84Description{metre});
    TGrid grid([](double longitude, double latitude) { return 0.5 * latitude - 0.25 * longitude; });
    TShellGeoid const geoid("a", &grid, &gridSystem);
    for (double const height : {-300.0, 0.0, 100.0, 20000.0}) {
        double coords[] = {55, 37, height};
        geoid.GeoidToEllipsoid(&system, coords);
        EXPECT_GT(std::fabs(coords[2] - height), 1.0);
        geoid.EllipsoidToGeoid(&system, coords);
        EXPECT_NEAR(coords[2], height, 0.001 / 0.3048);
    }
}

TEST(ShellGeoid, FirstRoundGoesOnUnlessTheUndulationIsBelowAMillimetre) {
    TSystem const system(TWGS84Description{metre});
    double coords[] = {55, 37, 100};
    TGrid flat(0.0005);
    TShellGeoid("a", &flat, &system).GeoidToEllipsoid(&system, coords);
    EXPECT_EQ(flat.lookups, 1);
    coords[2] = 100;
    TGrid low(0.002);
    TShellGeoid("a", &low, &system).GeoidToEllipsoid(&system, coords);
    EXPECT_EQ(low.lookups, 2);
}

TEST(ShellGeoid, WithoutConvergenceItThrowsAndKeepsTheLastEstimate) {
    TSystem const system(TWGS84Description{metre});
    int call = 0;
    TGrid grid([&call](double, double) { return ++call % 2 == 0 ? 20.0 : 10.0; });
    TShellGeoid const geoid("a", &grid, &system);
    double coords[] = {55, 37, 100};
    EXPECT_EQ(MessageOf([&] { geoid.GeoidToEllipsoid(&system, coords); }), toEllipsoidMessage);
    EXPECT_EQ(grid.lookups, 100);
    EXPECT_NEAR(coords[2], 120.0, 1e-8);
}

TEST(ShellGeoid, UndulationThatIsNoNumberLosesThePlaceInTheGrid) {
    TSystem const system(TWGS84Description{metre});
    TGrid grid(std::nan(""));
    TShellGeoid const geoid("a", &grid, &system);
    double coords[] = {55, 37, 100};
    // The first round makes the height a NaN, and with it the second round's place, which lies in no grid.
    EXPECT_EQ(MessageOf([&] { geoid.GeoidToEllipsoid(&system, coords); }), undulationMessage);
}

TEST(ShellGeoid, OutsideOfTheGridAllFourConversionsThrow) {
    TSystem const system(TWGS84Description{metre});
    TGrid grid(30);
    TShellGeoid geoid("a", &grid, &system);
    geoid.Preset(&system);
    double coords[] = {-55, 37, 100};
    EXPECT_EQ(MessageOf([&] { geoid.Undulation(coords); }), undulationMessage);
    EXPECT_EQ(MessageOf([&] { geoid.GeoidToEllipsoid(coords); }), undulationMessage);
    EXPECT_EQ(MessageOf([&] { geoid.EllipsoidToGeoid(coords); }), undulationMessage);
    EXPECT_EQ(MessageOf([&] { geoid.GeoidToEllipsoid(&system, coords); }), undulationMessage);
    EXPECT_EQ(MessageOf([&] { geoid.EllipsoidToGeoid(&system, coords); }), undulationMessage);
    EXPECT_EQ(coords[2], 100.0);
}

TEST(ShellGeoid, WithoutAGridThereIsNoUndulation) {
    TSystem const system(TWGS84Description{metre});
    TShellGeoid const geoid("a", nullptr, &system);
    double const coords[] = {55, 37, 100};
    EXPECT_EQ(MessageOf([&] { geoid.Undulation(coords); }), undulationMessage);
}

TEST(ShellGeoid, ConversionsLeaveTheSystemsOwnGeoidOut) {
    TSystem const gridSystem(TWGS84Description{metre});
    TSystem system(TWGS84Description{metre});
    TGrid grid(30);
    ASSERT_TRUE(system.SetGeoid("a.grd", &grid, &gridSystem));
    double coords[] = {55, 37, 100};
    system.Geoid->GeoidToEllipsoid(&system, coords);
    EXPECT_NEAR(coords[2], 130.0, 1e-8);
    system.Geoid->EllipsoidToGeoid(&system, coords);
    EXPECT_NEAR(coords[2], 100.0, 1e-8);
}

TEST(ShellGeoid, AttachedGeoidIsFastWithAScaleOfOne) {
    TSystem const gridSystem(TWGS84Description{metre});
    TSystem system(TWGS84Description{metre});
    TGrid grid(30);
    ASSERT_TRUE(system.SetGeoid("a.grd", &grid, &gridSystem));
    EXPECT_EQ(system.Geoid->PresetSystem, &system);
    EXPECT_TRUE(system.Geoid->PresetFast);
    EXPECT_EQ(system.Geoid->PresetScale, 1.0);
}

TEST(ShellGeoid, GeoTIFFHasTheIdAsACitation) {
    TSystem const system(TWGS84Description{metre});
    TGrid grid(30);
    std::map<int, std::string> keys;
    EXPECT_FALSE(TShellGeoid("", &grid, &system).ExportToGeoTIFF(&keys));
    EXPECT_TRUE(keys.empty());
    EXPECT_TRUE(TShellGeoid("a.grd###2", &grid, &system).ExportToGeoTIFF(&keys));
    std::map<int, std::string> const expected = {{4096, "32767"}, {4097, "a.grd###2"}};
    EXPECT_EQ(keys, expected);
    std::map<int, std::string> taken = {{4096, "x"}, {4097, "y"}};
    std::map<int, std::string> const before = taken;
    EXPECT_TRUE(TShellGeoid("a.grd", &grid, &system).ExportToGeoTIFF(&taken));
    EXPECT_EQ(taken, before);
}

} // namespace
