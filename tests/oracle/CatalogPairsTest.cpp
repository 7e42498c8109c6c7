#include "tests/oracle/Road.h"
#include "tests/support/Descriptions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace OracleTests {

namespace {

using namespace KvRefSystem;

/** The geodetic entries that have a datum, by name. */
std::map<std::string, std::unique_ptr<TShellReferenceSystem>> SystemsWithDatum() {
    std::map<std::string, std::unique_ptr<TShellReferenceSystem>> systems;
    for (auto const& file : std::filesystem::directory_iterator(VELLARI_SOURCE_DIR "/catalog")) {
        if (file.path().extension() != ".txt") {
            continue;
        }
        std::string const name = file.path().stem().string();
        std::unique_ptr<TShellReferenceSystem> system(
            CreateShellReferenceSystem(TestSupport::CatalogText(name), nullptr));
        EXPECT_NE(system, nullptr) << name;
        if (system && system->Type == rstGeodetic && system->GetDatumShift()) {
            systems[name] = std::move(system);
        }
    }
    return systems;
}

TEST(CatalogPairs, AllPairsEqualProjsWithTheSameParameters) {
    auto const systems = SystemsWithDatum();
    ASSERT_GE(systems.size(), 15u);
    std::vector<TPlace> const places = EdgesAndDrawn(Ground, 200, 7705);
    for (auto const& [sourceName, source] : systems) {
        for (auto const& [targetName, target] : systems) {
            TProjPipeline const pipeline(PipelineBetween(*source, *target, TShiftStyle{}));
            double distance = 0;
            for (TPlace const& place : places) {
                TPlace const ours = OurWay(*source, place, *target);
                distance = std::max(distance, GroundDistance(ours, ProjsWay(pipeline, place)));
            }
            EXPECT_LT(distance, SameFormulas) << sourceName << " to " << targetName;
        }
    }
}

} // namespace

} // namespace OracleTests
