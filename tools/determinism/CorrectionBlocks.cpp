#include "tools/determinism/Block.h"

#include "tools/determinism/Describe.h"

#include <stdexcept>

namespace VellariDeterminism {

namespace {

using KvRefSystem::FormatText;

constexpr int PointsOfCorrection = 1500;

/** A surface of the second order in degrees, made of products and sums. */
class TBulge : public TBaseGrid {
public:
    bool GetZFastZ(double x, double y, double& z, unsigned int) override {
        z = 40 - 0.3 * x + 0.2 * y - 0.011 * x * y + 0.004 * y * y;
        return true;
    }
};

/** Systems that share a surface, which must outlive them. */
struct TOverGeoid {
    TBulge Surface;
    TSystem Grid;
    TSystem Above;
    TSystem Plane;
};

void Demand(bool done) {
    if (!done) {
        throw std::logic_error("a correction can't be attached");
    }
}

std::shared_ptr<TOverGeoid> OverGeoid() {
    auto all = std::make_shared<TOverGeoid>();
    all->Grid = Build(TGeodetic());
    all->Above = Build(Pulkovo());
    TProjected plane;
    plane.Parameters = {{6101, "33"}, {6102, "0"}, {6103, "0.9999"}, {6104, "500000"}, {6105, "0"}};
    plane.LinearUnit = Foot;
    all->Plane = Build(plane);
    Demand(all->Above->SetGeoid("bulge###0.25", &all->Surface, all->Grid.get()));
    Demand(all->Plane->SetGeoid("bulge", &all->Surface, all->Grid.get()));
    return all;
}

std::string Table(TGenerator& numbers) {
    std::string text = "9 11 50000.5 0 5500000";
    for (int value = 0; value < 99; ++value) {
        text += FormatText(" %.4f", numbers.Between(-20, 20));
    }
    return text;
}

KvRefSystem::TShellRefSystemTransform2DAffineParams Affine(TGenerator& numbers) {
    KvRefSystem::TShellRefSystemTransform2DAffineParams affine(true);
    affine.a11 = numbers.Between(0.9999, 1.0001);
    affine.a12 = numbers.Between(-1e-4, 1e-4);
    affine.a13 = numbers.Between(-50, 50);
    affine.a21 = numbers.Between(-1e-4, 1e-4);
    affine.a22 = numbers.Between(0.9999, 1.0001);
    affine.a23 = numbers.Between(-50, 50);
    return affine;
}

KvRefSystem::TShellRefSystemTransform2DGridParams Grid(TGenerator& numbers) {
    KvRefSystem::TShellRefSystemTransform2DGridParams grid;
    grid.dE = Table(numbers);
    grid.dN = Table(numbers);
    grid.coef = 0.001;
    return grid;
}

KvRefSystem::TShellRefSystemTransformShiftZParams HeightShift(TGenerator& numbers) {
    KvRefSystem::TShellRefSystemTransformShiftZParams shift;
    shift.dH = numbers.Between(-10, 10);
    return shift;
}

TSystem Plane(int zone, TGeodetic const& base) {
    TProjected text;
    text.Type = KvRefSystem::mptGaussKruger6;
    text.Parameters = {{6201, FormatText("%d", zone)}, {6202, "N"}};
    text.Base = base;
    return Build(text);
}

/** A plane system with a chain of its own: turned, bent by tables, raised. */
TSystem Corrected(TGenerator& numbers) {
    TSystem system = Plane(7, Pulkovo());
    auto const affine = Affine(numbers);
    auto const grid = Grid(numbers);
    auto const shift = HeightShift(numbers);
    Demand(system->AppendTransform(&affine));
    Demand(system->AppendTransform(&grid));
    Demand(system->AppendTransform(&shift));
    return system;
}

/** Two systems with chains for one another. */
std::pair<TSystem, TSystem> Pair(TGenerator& numbers) {
    TSystem const first = Plane(6, Pulkovo());
    TSystem const second = Plane(7, TGeodetic());
    for (TSystem const& system : {first, second}) {
        auto const affine = Affine(numbers);
        auto const shift = HeightShift(numbers);
        Demand(system->AppendPairwiseTransform("pair", &affine));
        Demand(system->AppendPairwiseTransform("pair", &shift));
    }
    return {first, second};
}

void PrintTable(TGenerator& numbers, TLine* line) {
    KvRefSystem::T2DTable<float> table;
    Demand(table.LoadFromString2(Table(numbers), nullptr));
    for (int place = 0; place < 8; ++place) {
        auto const x = static_cast<float>(numbers.Between(-1e5, 6e5));
        auto const y = static_cast<float>(numbers.Between(5.4e6, 6.1e6));
        line->Add(static_cast<double>(table.InterpolateValue(x, y)));
    }
}

} // namespace

void AddCorrections(TBlocks* blocks) {
    TSystem const world = Build(TGeodetic());
    auto const over = OverGeoid();
    blocks->push_back({"heights over a geoid, geodetic", PointsOfCorrection,
                       [world, over](TGenerator& numbers, TLine* line) {
                           PrintThereAndBack(*world, *over->Above, EuropeanPlace(numbers), line);
                       }});
    blocks->push_back({"heights over a geoid, from system to system", PointsOfCorrection,
                       [world, over](TGenerator& numbers, TLine* line) {
                           TPoint point = EuropeanPlace(numbers);
                           Transform(*world, *over->Plane, &point);
                           PrintThereAndBack(*over->Plane, *over->Above, point, line);
                       }});
    TGenerator fixed(0);
    blocks->push_back({"chain of corrections", PointsOfCorrection,
                       [world, system = Corrected(fixed)](TGenerator& numbers, TLine* line) {
                           PrintThereAndBack(*world, *system, EuropeanPlace(numbers), line);
                       }});
    blocks->push_back({"chain of corrections, one of its own for every point", PointsOfCorrection / 10,
                       [world](TGenerator& numbers, TLine* line) {
                           TSystem const system = Corrected(numbers);
                           PrintThereAndBack(*world, *system, EuropeanPlace(numbers), line);
                           std::string text;
                           Demand(system->WriteToString(text));
                           text.pop_back();
                           line->AddWord(FormatText("%zu", std::hash<std::string>()(text)));
                       }});
    blocks->push_back({"corrections for a pair", PointsOfCorrection,
                       [world, pair = Pair(fixed)](TGenerator& numbers, TLine* line) {
                           TPoint point = EuropeanPlace(numbers);
                           Transform(*world, *pair.first, &point);
                           PrintThereAndBack(*pair.first, *pair.second, point, line);
                       }});
    blocks->push_back({"tables of corrections", PointsOfCorrection / 5, &PrintTable});
}

} // namespace VellariDeterminism
