#include "core/refsystems/MapProjectedReferenceSystem.h"
#include "shell/projections/MapProjection.h"
#include "tests/support/ProjectedSystems.h"
#include "tests/support/Systems.h"
#include "tests/threads/Places.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace KvRefSystem;
using namespace TestSupport;
using namespace Threads;

using TProjectedSystems = std::vector<std::unique_ptr<TProjectedSystem>>;

/** A system of each type of projection on WGS 84. */
TProjectedSystems OneOfEachType() {
    TProjectedSystems systems;
    for (int const type : AllProjectionTypes) {
        systems.push_back(Projected(On(WithZeroShift(), OfType(type))));
    }
    return systems;
}

TMapProjection const& CoreOf(TProjectedSystem const& system) {
    return *dynamic_cast<TMapProjectedReferenceSystem const&>(*system.CoreRefSystem).Projection;
}

TEST(ProjectionsInThreads, OneSystemOfEachTypeServesAllBothWays) {
    TProjectedSystems const systems = OneOfEachType();
    auto const geodetic = Geodetic(WithZeroShift());
    // Near the parameters' origin 30 N, 9 E; New Zealand and the zones lie elsewhere, which is no matter here.
    TPoint const place = {31, 10, 100};

    auto const outcome = AskTogether(30, [&](int) {
        TMovedPoints moved;
        for (auto const& system : systems) {
            moved.push_back(Move(*geodetic, place, *system));
            moved.push_back(Move(*system, moved.back().point, *geodetic));
        }
        return moved;
    });

    EXPECT_EQ(outcome.deviations, 0);
    int exact = 0;
    std::set<double> eastings;
    for (std::size_t type = 0; type < systems.size(); ++type) {
        TMoved const& back = outcome.alone[2 * type + 1];
        EXPECT_TRUE(outcome.alone[2 * type].done && back.done) << AllProjectionTypes[type];
        eastings.insert(outcome.alone[2 * type].point[0]);
        // 1e-7 degrees are 1 cm.
        exact += std::abs(back.point[0] - place[0]) < 1e-7 && std::abs(back.point[1] - place[1]) < 1e-7;
    }
    // Most methods come back, and they are different methods.
    EXPECT_GT(exact, 20);
    EXPECT_GT(eastings.size(), 20U);
}

TEST(ProjectionsInThreads, OneCoreProjectionOfEachTypeServesAllAndIsCopied) {
    TProjectedSystems const systems = OneOfEachType();

    auto const outcome = AskTogether(30, [&](int) {
        TMovedPoints moved;
        for (auto const& system : systems) {
            TMapProjection const& projection = CoreOf(*system);
            std::unique_ptr<TMapProjection> const copy(CreateCopy(projection));
            TCoords point{0.17, 0.54, 0, false};
            projection.GeodeticToProjected(&point);
            TCoords byCopy{0.17, 0.54, 0, false};
            copy->GeodeticToProjected(&byCopy);
            bool const isSame = point.X == byCopy.X && point.Y == byCopy.Y && *copy == projection;
            projection.ProjectedToGeodetic(&point);
            moved.push_back({isSame, {point.X, point.Y, byCopy.X}});
        }
        return moved;
    });

    EXPECT_EQ(outcome.deviations, 0);
    for (std::size_t type = 0; type < systems.size(); ++type) {
        EXPECT_TRUE(outcome.alone[type].done) << AllProjectionTypes[type];
    }
    EXPECT_NEAR(outcome.alone.front().point[0], 0.17, 1e-9); // Transverse Mercator comes back
    EXPECT_NEAR(outcome.alone.front().point[1], 0.54, 1e-9);
}

TEST(ProjectionsInThreads, OneShellProjectionOfEachTypeIsReadByAll) {
    TProjectedSystems const systems = OneOfEachType();

    auto const outcome = AskTogether(10, [&](int) {
        std::vector<std::string> texts;
        for (auto const& system : systems) {
            TShellMapProjection const& projection = *system->MapProjection;
            TEllipsoidSemiAxes axes = {6378137, 6356752.314245179};
            std::unique_ptr<TMapProjection> const core(projection.CreateCoreMapProjection(&axes));
            std::string text = core && *core == CoreOf(*system) ? "equal " : "different ";
            std::string part;
            projection.GetProjectionTypeWKT(&part);
            text += part;
            projection.GetProjectionParamsWKT(&part);
            text += part;
            projection.ExportToMIFMID(system->LinearUnit, &part);
            text += part;
            VellariHostKit::TXmlIniWriter writer;
            text += projection.SaveToXML(&writer) ? writer.ToString() : "no XML";
            text += projection == projection ? " itself" : " another";
            texts.push_back(text);
        }
        return texts;
    });

    EXPECT_EQ(outcome.deviations, 0);
    for (std::size_t type = 0; type < systems.size(); ++type) {
        EXPECT_EQ(outcome.alone[type].rfind("equal ", 0), 0U) << AllProjectionTypes[type];
    }
    EXPECT_NE(outcome.alone.front().find("Transverse_Mercator"), std::string::npos);
    EXPECT_NE(outcome.alone.front().find("PARAMETER[\"false_easting\",500000"), std::string::npos)
        << outcome.alone.front();
}

} // namespace
