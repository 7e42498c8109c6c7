#include "tools/accuracy/Domain.h"
#include "tools/accuracy/Methods.h"
#include "tools/accuracy/road/Systems.h"
#include "tools/accuracy/road/Tables.h"

#include <Vellari/Vellari.h>

#include <cmath>
#include <memory>
#include <stdexcept>
#include <utility>

namespace VellariAccuracy {

namespace {

using namespace KvRefSystem;

constexpr double MajorAxis = 6378137; ///< metres
constexpr double Height = 100;        ///< metres
constexpr char BaseSystem[] = "ed50";

struct TProjectedRow {
    int Method;
    char const* Name;
    TParameters Parameters;
    TDomain Domain;
    char const* Reason;
    ESource Source = soMethod;
};

char const* NameOf(TMapProjectionType type) {
    return MethodOf(type).Name;
}

std::vector<TProjectedRow> const& Rows() {
    static constexpr char Arc[] = "The series of the meridian's arc ends early.";
    static constexpr char Latitude[] =
        "The series of the latitude on the way back ends with the eighth power of e.";
    static std::vector<TProjectedRow> const rows = {
        {1,
         NameOf(mptTransverseMercator),
         {{6101, "39"}, {6102, "0"}, {6103, "0.9996"}, {6104, "500000"}, {6105, "0"}},
         {-84, 84, 39, 3},
         "The series of the meridian's arc end early and unlike, and so do the powers of the longitude's "
         "difference."},
        {1001, "Gauss-Kruger, zone of six degrees", {{6201, "7"}, {6202, "N"}}, {0, 84, 39, 3}, "As that."},
        {1002, "UTM", {{6201, "37"}, {6202, "N"}}, {0, 84, 39, 3}, ""},
        {1003, "MSK, region 50", {{6201, "2"}, {6206, "3"}, {6205, "50"}}, {50, 60, 38.5, 1.5}, ""},
        {1004, "SK-63, block C", {{6201, "2"}, {6206, "3"}, {6204, "C"}}, {45, 65, 28, 1.5}, ""},
        {15,
         NameOf(mptGaussBoaga),
         {{6101, "39"}, {6103, "0.9996"}, {6104, "500000"}, {6105, "0"}},
         {-84, 84, 39, 3},
         "The closed forms hold the first term alone of the ellipsoid's part."},
        {101,
         NameOf(mptGaussKrugerWide),
         {{6101, "39"}, {6103, "0.9996"}, {6104, "500000"}, {6105, "0"}},
         {-84, 84, 39, 30},
         "The series end with the third power of n."},
        {9,
         NameOf(mptMercator2SP),
         {{6114, "42"}, {6106, "51"}, {6104, "1000"}, {6105, "2000"}},
         {-89, 89, 51, 128},
         Latitude},
        {10,
         NameOf(mptMercator1SP),
         {{6102, "20"}, {6106, "110"}, {6120, "0.997"}, {6104, "3900000"}, {6105, "900000"}},
         {-89, 89, 45, 114},
         ""},
        {1313,
         NameOf(mptSphericalMercator),
         {{6101, "-10"}, {6103, "1"}, {6104, "0"}, {6105, "0"}},
         {-89, 89, 0, 179},
         "Closed forms: the road's passes alone."},
        {3,
         NameOf(mptHotineObliqueMercator),
         {{6108, "-78"},
          {6107, "36"},
          {6109, "40"},
          {6110, "30"},
          {6111, "0.9996"},
          {6104, "0"},
          {6105, "5000000"}},
         {10, 60, -78, 30},
         Latitude},
        {2,
         NameOf(mptObliqueMercator),
         {{6108, "115"},
          {6107, "4"},
          {6109, "53.3158204722"},
          {6110, "53.1301023611"},
          {6111, "0.99984"},
          {6112, "590476.87"},
          {6113, "442857.65"}},
         {-26, 34, 115, 30},
         ""},
        {7,
         NameOf(mptLambertConicConformal1SP),
         {{6102, "46.5"}, {6106, "3"}, {6111, "0.99987742"}, {6104, "600000"}, {6105, "2200000"}},
         {-60, 89, 3, 176.5},
         "The passes of the way back end at a change of 1e-10 radians, of which the share e2 is left."},
        {6,
         NameOf(mptLambertConicConformal2SP),
         {{6114, "35"}, {6115, "65"}, {6116, "52"}, {6117, "10"}, {6118, "4000000"}, {6119, "2800000"}},
         {-60, 89, 10, 115},
         ""},
        {1201,
         NameOf(mptLambertConicConformal2SPBelgium),
         {{6114, "49.833333333333333"},
          {6115, "51.166666666666667"},
          {6116, "90"},
          {6117, "4.356939722222222"},
          {6118, "150000.01256"},
          {6119, "5400088.4378"}},
         {-60, 89, 4, 175},
         ""},
        {5,
         NameOf(mptAlbersEqualAreaConic),
         {{6101, "-96"}, {6102, "23"}, {6114, "29.5"}, {6115, "45.5"}, {6104, "1000000"}, {6105, "-500000"}},
         {-60, 89, -96, 179},
         "The series from the authalic latitude ends with the sixth power of e."},
        {25,
         NameOf(mptEquidistantConic),
         {{6114, "40"}, {6115, "50"}, {6116, "45"}, {6117, "10"}, {6118, "500000"}, {6119, "-500000"}},
         {-60, 89, 10, 126},
         Arc},
        {16,
         NameOf(mptKrovak),
         {{6107, "49.5"},
          {6106, "24.833333333333333"},
          {6109, "30.288139752777778"},
          {6121, "78.5"},
          {6122, "0.9999"},
          {6104, "0"},
          {6105, "0"}},
         {47.5, 51.5, 17.35, 5.35},
         "Closed relations and passes that end early enough."},
        {14,
         NameOf(mptPolyconic),
         {{6106, "-54"}, {6102, "0"}, {6111, "1"}, {6104, "0"}, {6105, "0"}},
         {-35, 6, -54, 20},
         "The passes of the way back end at a change of the latitude; near the equator they lose digits."},
        {11,
         NameOf(mptObliqueStereographic),
         {{6106, "25"}, {6102, "46"}, {6120, "0.99975"}, {6104, "500000"}, {6105, "500000"}},
         {19, 73, 25, 70, 3000, 46},
         "Closed relations and passes that end early enough."},
        {13,
         NameOf(mptQuasiStereographic),
         {{6106, "25"}, {6102, "46"}, {6120, "0.99975"}, {6104, "500000"}, {6105, "500000"}},
         {45.5, 46.5, 25, 0.7, 50, 46},
         "Coefficients of the tables for both ways aren't inverse to each other; the departure grows with "
         "the "
         "cube of the distance. So far off the shift isn't quite the same any more, on the ground and in "
         "height."},
        {12,
         NameOf(mptPolarStereographic),
         {{6106, "10"}, {6120, "0.994"}, {6104, "2000000"}, {6105, "2000000"}},
         {60, 89, 10, 179},
         Latitude},
        {21,
         NameOf(mptPolarStereographicBasic),
         {{6106, "10"}, {6203, "N"}, {6120, "0.994"}, {6104, "2000000"}, {6105, "2000000"}},
         {60, 89, 10, 179},
         ""},
        {22,
         "Polar stereographic, natural origin",
         {{6106, "70"}, {6203, "S"}, {6120, "0.97"}, {6104, "6000000"}, {6105, "6000000"}},
         {-89, -60, 70, 179},
         "Computed as the one by its scale."},
        {23,
         NameOf(mptPolarStereographicFalseOrigin),
         {{6106, "140"}, {6203, "S"}, {6114, "-67"}, {6104, "300000"}, {6105, "200000"}},
         {-89, -60, 140, 179},
         Latitude},
        {24,
         NameOf(mptLambertAzimuthalEqualArea),
         {{6102, "52"}, {6106, "10"}, {6104, "4321000"}, {6105, "3210000"}},
         {24, 85, 10, 46},
         "The series from the authalic latitude ends with the sixth power of e."},
        {26,
         NameOf(mptOrthographic),
         {{6102, "55"}, {6106, "5"}, {6104, "0"}, {6105, "0"}},
         {10, 80, 5, 45},
         "The last step of the way back, the one within 1e-12 radians, isn't applied."},
        {17,
         NameOf(mptHatt),
         {{6102, "38"}, {6106, "23.5"}},
         {37.5, 38.5, 23.5, 0.5},
         "The ellipsoid's share of the cubic terms of the way back isn't that of the inverse."},
        {8,
         NameOf(mptCassiniSoldner),
         {{6102, "40"}, {6106, "10"}, {6104, "0"}, {6105, "0"}},
         {-80, 80, 10, 1},
         Arc},
        {4,
         NameOf(mptNZMG),
         {{6106, "173"}, {6102, "-41"}, {6104, "2510000"}, {6105, "6023150"}},
         {-48, -34, 172.5, 6.5},
         "Two polynomials that are nearly inverse, and two steps of Newton's."},
    };
    return rows;
}

/** The core's projection of a grid. */
std::unique_ptr<TMapProjection> ProjectionOf(TShellReferenceSystem const& grid) {
    TEllipsoidSemiAxes axes{};
    auto const* const projected = dynamic_cast<TShellMapProjectedReferenceSystem const*>(&grid);
    if (projected == nullptr || !projected->BaseGeodetic->GetEllipsoidSemiAxesMeters(&axes.a, &axes.b)) {
        throw std::runtime_error(grid.Name + ": no grid on an ellipsoid");
    }
    std::unique_ptr<TMapProjection> projection(projected->MapProjection->CreateCoreMapProjection(&axes));
    if (!projection) {
        throw std::runtime_error(grid.Name + ": no projection");
    }
    return projection;
}

TNumbers MeasureRow(TProjectedRow const& row) {
    TSystem const wgs84 = FromCatalog("wgs-84");
    TSystem const base = FromCatalog(BaseSystem);
    TSystem const grid = Grid(BaseSystem, row.Method, row.Parameters);
    auto const projection = ProjectionOf(*grid);
    double ground = 0;
    double height = 0;
    double alone = 0;
    double share = 0;
    for (TPair const& place : PlacesOf(row.Domain)) {
        TTriple const from = {place.Y / Degree, place.X / Degree, Height};
        TApart const road = ApartBy(from, Moved(grid, Moved(wgs84, from, grid), wgs84), MajorAxis);
        TTriple const onBase = Moved(wgs84, from, base);
        TCoords point{onBase[1] * Degree, onBase[0] * Degree, 0, false};
        projection->GeodeticToProjected(&point);
        projection->ProjectedToGeodetic(&point);
        TTriple const left = {point.Y / Degree, point.X / Degree, onBase[2]};
        double const ofProjection = ApartBy(onBase, left, MajorAxis).Ground;
        Enlarge(&ground, road.Ground);
        Enlarge(&height, road.Height);
        Enlarge(&alone, ofProjection);
        Enlarge(&share, std::fabs(road.Ground - ofProjection));
    }
    return {ground, height, alone, share};
}

} // namespace

TTable ProjectedTable() {
    TTable table;
    table.Heading = "## Projections on the road";
    table.Subject = "on the road:";
    table.Text =
        "From WGS 84 to a grid on ED50 (International 1924, three translations, whose way back is exact) and "
        "back, by\n`TransformCoords`, for every method that a description may name; 100 m high, where such a "
        "grid is used: where a projection\ndoesn't come back at all is told by [its own "
        "table](#projections-against-proj). Measured by "
        "`vellari_accuracy`\n(tools/accuracy/road/Projected.cpp). "
        "What the projection leaves alone is measured in the core at the same places; the\nroad's share is "
        "the "
        "greatest difference between the two.\n";
    table.KeyHeadings = {"Method", "Projection", "Domain"};
    table.Columns = {
        {"on the ground", "m"}, {"height", "m"}, {"of it the projection's", "m"}, {"the road's", "m"}};
    for (TProjectedRow const& row : Rows()) {
        table.Lines.push_back(
            {{FormatText("%d", row.Method), row.Name, DomainText(row.Domain)}, row.Reason, row.Source});
    }
    table.Measure = [](std::size_t line) { return MeasureRow(Rows().at(line)); };
    return table;
}

} // namespace VellariAccuracy
