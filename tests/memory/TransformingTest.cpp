#include "tests/memory/Subjects.h"
#include "tests/memory/Sweep.h"

#include "frame/NumberText.h"
#include "shell/refsystems/public/CoordinateOperation.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/Systems.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace MemorySweep {
namespace {

using namespace KvRefSystem;
using TestSupport::Create;
using TestSupport::Pulkovo1942;
using TestSupport::TLevelGrid;

using TPoint = std::array<double, 3>;

/** A system with a point of it, with and without a geoid. */
struct TPlace {
    std::string name;
    std::unique_ptr<TShellReferenceSystem> system;
    TPoint point;
};

/** A point near (55 N, 37 E) in each kind, in the units of the subjects. */
TPoint PointOf(TShellReferenceSystem const& system) {
    if (system.IsLatLon()) {
        return {55, 37, 100};
    }
    if (system.IsGeocentric()) {
        return {2928000, 2206000, 5201000};
    }
    return {500000, 600000, 100};
}

std::vector<TPlace> Places(TLevelGrid* grid, TShellReferenceSystem const* gridSystem) {
    std::vector<TPlace> places;
    for (auto const* const subjects : {&WholeSystems(), &ProjectedSystems()}) {
        for (TSubject const& subject : *subjects) {
            for (bool const hasGeoid : {false, true}) {
                TPlace place = {subject.name, SystemOf(subject.text), {}};
                if (hasGeoid) {
                    if (!place.system->IsLatLon() && !place.system->IsProjected()) {
                        continue;
                    }
                    place.name += " with a geoid";
                    place.system->SetGeoid("Level", grid, gridSystem);
                }
                place.point = PointOf(*place.system);
                places.push_back(std::move(place));
            }
        }
    }
    return places;
}

bool IsReachable(TPlace const& from, TPlace const& to) {
    return from.system->IsGlobal() == to.system->IsGlobal();
}

TEST(TransformingSweep, APointTakesNoMemoryInAnyPairOfSystems) {
    TLevelGrid grid(30);
    auto const gridSystem = Create(Pulkovo1942());
    std::vector<TPlace> const places = Places(&grid, gridSystem.get());
    int pairs = 0;
    int moved = 0;
    for (TPlace const& from : places) {
        for (TPlace const& to : places) {
            if (!IsReachable(from, to)) {
                continue;
            }
            ++pairs;
            TPoint point = from.point;
            double x = 0;
            double y = 0;
            double z = 0;
            TransformCoords(from.system.get(), point[0], point[1], point[2], to.system.get(), &x, &y, &z);
            std::size_t const before = KvRefSystemTests::AllocationCount();
            bool const isMoved =
                TransformCoords(from.system.get(), point[0], point[1], point[2], to.system.get(), &x, &y, &z);
            std::size_t const used = KvRefSystemTests::AllocationCount() - before;
            if (isMoved) {
                ++moved;
                EXPECT_EQ(used, 0u) << from.name << " to " << to.name;
            }
        }
    }
    EXPECT_GT(pairs, 4000);
    EXPECT_GT(moved, pairs * 9 / 10);
}

TEST(TransformingSweep, APointThatLacksMemoryForItsFailureIsFalseAndTheOutputsStay) {
    // A point without a place in the target: its failure has a text, and the text takes memory.
    std::shared_ptr<TShellReferenceSystem> const global = SystemOf(DatumsAndUnits().front().text);
    std::shared_ptr<TShellReferenceSystem> const local = SystemOf(WholeSystems()[2].text);
    ASSERT_FALSE(local->IsGlobal());
    for (int which = 1; which <= 3; ++which) {
        double out[3] = {1, 2, 3};
        KvRefSystemTests::FailEveryForm(which, KvRefSystemTests::TFailing::Onwards);
        bool const isMoved = TransformCoords(global.get(), 55, 37, 0, local.get(), &out[0], &out[1], &out[2]);
        KvRefSystemTests::FailEveryForm(0, KvRefSystemTests::TFailing::Onwards);
        EXPECT_FALSE(isMoved);
        EXPECT_EQ(out[0], 1);
        EXPECT_EQ(out[1], 2);
        EXPECT_EQ(out[2], 3);
    }
}

std::string DescribePoint(TPoint const& point) {
    return FormatText("%.17lg %.17lg %.17lg", point[0], point[1], point[2]);
}

TEST(TransformingSweep, APointFromTextsEndsAsStated) {
    for (auto const* const subjects : {&WholeSystems(), &DatumsAndUnits()}) {
        for (TSubject const& subject : *subjects) {
            std::shared_ptr<TShellReferenceSystem> const system = SystemOf(subject.text);
            double const shell[3] = {12.34567890123456789, 23.456789012345678901, 34.567890123456789012};
            TShellCoords texts;
            system->OutputCoords(shell, &texts, nullptr, 6, nullptr, 30);
            Sweep("transforming",
                  Fills<TPoint>(
                      subject.name + ", CoordsShellToCore of texts", BadAlloc, TPoint{1, 2, 3},
                      [&](TPoint* point) {
                          TCoords core{1, 2, 3, false};
                          system->CoordsShellToCore(texts, &core);
                          *point = {core.X, core.Y, core.Z};
                          return true;
                      },
                      &DescribePoint));
            Sweep("transforming", Fills<TPoint>(
                                      subject.name + ", InputCoords", False | BadAlloc, TPoint{1, 2, 3},
                                      [&](TPoint* point) {
                                          return system->InputCoords(texts, nullptr, nullptr, point->data());
                                      },
                                      &DescribePoint));
        }
    }
}

TEST(TransformingSweep, AnAreaThatLacksMemoryIsZeroOrThrows) {
    std::shared_ptr<TShellReferenceSystem> const system = SystemOf(WholeSystems()[4].text);
    ASSERT_TRUE(system->IsLatLon());
    std::vector<vec_t_<double, 3>> const corners = {
        {{55, 37, 0}}, {{55, 38, 0}}, {{56, 38, 0}}, {{56, 37, 0}}};
    Sweep("transforming", Fills<double>(
                              "CalculateArea", False | BadAlloc, 0.0,
                              [&](double* area) {
                                  *area = system->CalculateArea(corners);
                                  return *area != 0.0;
                              },
                              [](double const& area) { return FormatText("%.17lg", area); }));
}

} // namespace
} // namespace MemorySweep
