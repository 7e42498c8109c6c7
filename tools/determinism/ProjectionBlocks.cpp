#include "tools/determinism/Block.h"

#include "tools/accuracy/Cases.h"
#include "tools/accuracy/Domain.h"
#include "tools/accuracy/Methods.h"

#include <Vellari/Vellari.h>

#include <memory>

namespace VellariDeterminism {

namespace {

using namespace VellariAccuracy;
using KvRefSystem::TCoords;
using KvRefSystem::TEllipsoidSemiAxes;
using KvRefSystem::TMapProjection;

constexpr int PointsOfDomain = 600;
constexpr int VariedProjections = 400;

/** A place of the domain's latitudes and longitudes; radians. */
TCoords PlaceOf(TDomain const& domain, TGenerator& numbers) {
    double const longitude = numbers.Between(domain.Middle - domain.Reach, domain.Middle + domain.Reach);
    return {longitude * Degree, numbers.Between(domain.South, domain.North) * Degree, 0, false};
}

/** Forward, and back from there and from a place beside it. */
void PrintBothWays(TMapProjection const& projection, TCoords const& place, TGenerator& numbers, TLine* line) {
    TCoords plane = place;
    projection.GeodeticToProjected(&plane);
    TCoords back = plane;
    projection.ProjectedToGeodetic(&back);
    TCoords beside{plane.X + numbers.Between(-1e4, 1e4), plane.Y + numbers.Between(-1e4, 1e4), 0, false};
    projection.ProjectedToGeodetic(&beside);
    line->Add(plane.X, plane.Y, back.X, back.Y, beside.X, beside.Y);
}

/** The case's numbers, each a little off: what a constructor derives is put to the test with them. */
std::vector<double> Varied(TMethod const& method, std::vector<double> values, TGenerator& numbers) {
    for (std::size_t place = 0; place < values.size(); ++place) {
        switch (method.Parameters[place].Quantity) {
        case quDegrees:
            values[place] += numbers.Between(-0.5, 0.5);
            break;
        case quMetres:
            values[place] += numbers.Between(-1000, 1000);
            break;
        case quRatio:
            values[place] *= numbers.Between(0.999, 1.001);
            break;
        case quPole:
            break;
        }
    }
    return values;
}

void PrintVaried(TMethod const& method, TCase const& measured, TGenerator& numbers, TLine* line) {
    double const majorAxis = numbers.Between(6.35e6, 6.4e6);
    double const inverseFlattening = numbers.Between(290, 302);
    TEllipsoidSemiAxes const axes{majorAxis, majorAxis - majorAxis / inverseFlattening};
    auto const projection = CreateProjection(method, axes, Varied(method, measured.Values, numbers));
    PrintBothWays(*projection, PlaceOf(measured.Rows.front().Domain, numbers), numbers, line);
}

} // namespace

void AddProjections(TBlocks* blocks) {
    for (TFamily const& family : Families()) {
        int caseNumber = 0;
        for (TCase const& measured : family.Cases) {
            TMethod const& method = MethodOf(measured.Type);
            std::string const name =
                KvRefSystem::FormatText("projection %s, case %d", method.Name, ++caseNumber);
            for (TEllipsoid const& ellipsoid : EllipsoidsOf(measured.Ellipsoids)) {
                std::shared_ptr<TMapProjection const> const projection =
                    CreateProjection(method, ellipsoid.Axes, measured.Values);
                for (std::size_t row = 0; row < measured.Rows.size(); ++row) {
                    blocks->push_back(
                        {name + KvRefSystem::FormatText(", row %zu, ", row + 1) + ellipsoid.Name,
                         PointsOfDomain / static_cast<int>(measured.Rows.size()),
                         [projection, domain = measured.Rows[row].Domain](TGenerator& numbers, TLine* line) {
                             PrintBothWays(*projection, PlaceOf(domain, numbers), numbers, line);
                         }});
                }
            }
            blocks->push_back({name + ", parameters of its own at every place", VariedProjections,
                               [&method, measured](TGenerator& numbers, TLine* line) {
                                   PrintVaried(method, measured, numbers, line);
                               }});
        }
    }
}

} // namespace VellariDeterminism
