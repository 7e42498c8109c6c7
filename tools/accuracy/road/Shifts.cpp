#include "tools/accuracy/Domain.h"
#include "tools/accuracy/road/Geocentric.h"
#include "tools/accuracy/road/Systems.h"
#include "tools/accuracy/road/Tables.h"

#include <Vellari/Vellari.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <stdexcept>

namespace VellariAccuracy {

namespace {

using namespace KvRefSystem;

constexpr double Epsilon = std::numeric_limits<double>::epsilon();
constexpr double MajorAxis = 6378137; ///< metres
constexpr double Second = Degree / 3600;

/** Three coordinates through a matrix, there and back: each product and sum is off by half of the last place. */
constexpr double RoundingOfShifts = 8 * Epsilon;

/** Seven numbers as publishers give them: metres, arc seconds, millionths. */
struct TPublished {
    char const* Name;
    double X;
    double Y;
    double Z;
    double TurnX;
    double TurnY;
    double TurnZ;
    double Scale;

    TBursaWolfDatumShiftParameters Record() const {
        return {X, Y, Z, TurnX * Second, TurnY * Second, TurnZ * Second, 1 + Scale * 1e-6};
    }

    /** Sum of the squares of the rotations: what the product of the two small-angle matrices is off the unit one. */
    double Squares() const { return (TurnX * TurnX + TurnY * TurnY + TurnZ * TurnZ) * Second * Second; }
};

constexpr TPublished ed50 = {"3 parameters of ED50", -87, -98, -121, 0, 0, 0, 0};
constexpr TPublished pulkovo = {"7 parameters of Pulkovo 1942", 23.57, -140.95, -79.8, 0, 0.35, 0.79, -0.22};
constexpr TPublished standard = {
    "7 parameters of Pulkovo 1942 to PZ-90.02", 23.93, -141.03, -79.98, 0, 0.35, 0.79, -0.22};
constexpr TPublished mgi = {"7 parameters of MGI", 577.326, 90.129, 463.919, 5.137, 1.474, 5.297, 2.4232};
constexpr TPublished minutes = {"7 parameters, a minute each", 100, 200, 300, 60, -60, 60, 100};

/** A pair of operations that ought to undo each other, in place. */
class TThereAndBack {
public:
    virtual ~TThereAndBack() = default;
    virtual void Direct(TCoords* point) const = 0;
    virtual void Reverse(TCoords* point) const = 0;
};

template <class TShift>
class TOfShift : public TThereAndBack {
public:
    explicit TOfShift(TPublished const& published) : Shift(published.Record()) {}
    void Direct(TCoords* point) const override { Shift.DirectTransform(point); }
    void Reverse(TCoords* point) const override { Shift.ReverseTransform(point); }

private:
    TShift Shift;
};

/** The way back by the direct transform of the inverted record. */
class TOfInvertedRecord : public TThereAndBack {
public:
    explicit TOfInvertedRecord(TPublished const& published)
        : Shift(published.Record()), Inverse(TBursaWolfDatumShiftParameters(published.Record(), true)) {}
    void Direct(TCoords* point) const override { Shift.DirectTransform(point); }
    void Reverse(TCoords* point) const override { Inverse.DirectTransform(point); }

private:
    TBursaWolfDatumShift Shift;
    TBursaWolfDatumShift Inverse;
};

class TOfTransform : public TThereAndBack {
public:
    explicit TOfTransform(TPublished const& p)
        : Transform(p.X, p.Y, p.Z, p.TurnX * Second, p.TurnY * Second, p.TurnZ * Second, p.Scale * 1e-6) {}
    void Direct(TCoords* point) const override { Transform.BaseToTransformed(nullptr, point); }
    void Reverse(TCoords* point) const override { Transform.TransformedToBase(nullptr, point); }

private:
    TSevenParametersRefSystemTransform Transform;
};

/** The records of GOST R 51794-2008, of which each direction has its own. */
class TOfStandard : public TThereAndBack {
public:
    void Direct(TCoords* point) const override { Move(GOST51794::gdPulkovo42, GOST51794::gdPZ90_02, point); }
    void Reverse(TCoords* point) const override { Move(GOST51794::gdPZ90_02, GOST51794::gdPulkovo42, point); }

private:
    static void Move(GOST51794::TGOST51794Datum from, GOST51794::TGOST51794Datum to, TCoords* point) {
        using namespace GOST51794;
        TGOST51794RefsystemParams const source = {from, grtGeocentric};
        TGOST51794RefsystemParams const target = {to, grtGeocentric};
        if (!GOST51794TransformCoords(gv2008, source, point->X, point->Y, point->Z, target, &point->X,
                                      &point->Y, &point->Z)) {
            throw std::logic_error("no road between two datums of the standard");
        }
    }
};

enum EForm : int {
    foSmallAngles,
    foExact,
    foInvertedRecord,
    foTransform,
    foStandard,
};

std::unique_ptr<TThereAndBack> CreateForm(EForm form, TPublished const& published) {
    switch (form) {
    case foSmallAngles:
        return std::make_unique<TOfShift<TBursaWolfDatumShift>>(published);
    case foExact:
        return std::make_unique<TOfShift<TBursaWolfNonlinearDatumShift>>(published);
    case foInvertedRecord:
        return std::make_unique<TOfInvertedRecord>(published);
    case foTransform:
        return std::make_unique<TOfTransform>(published);
    case foStandard:
        break;
    }
    return std::make_unique<TOfStandard>();
}

struct TShiftRow {
    EForm Form;
    char const* FormText;
    TPublished const* Published;
    double Height; ///< metres, the greatest
    char const* Reason;
};

constexpr double Ground = 1e4;
constexpr double Orbit = 2e7;

constexpr TShiftRow shiftRows[] = {
    {foSmallAngles, "small angles", &ed50, Ground, "Translations are added and subtracted."},
    {foSmallAngles, "small angles", &pulkovo, Ground,
     "The way back takes the transposed small-angle matrix, not the inverse: published parameters are used "
     "both "
     "ways like this. The product of the two is off the unit matrix by the squares of the rotations; times "
     "the "
     "distance from the centre that is the bound."},
    {foSmallAngles, "small angles", &pulkovo, Orbit, ""},
    {foSmallAngles, "small angles", &mgi, Ground, ""},
    {foSmallAngles, "small angles", &minutes, Ground, ""},
    {foInvertedRecord, "small angles, inverted record", &mgi, Ground,
     "The record of the reverse shift has the same transposed matrix and so the same remainder."},
    {foStandard, "small angles of GOST R 51794-2008", &standard, Ground,
     "The standard prints the way back as the same record with all signs turned: besides the squares, of the "
     "scale too, rotations and scale act on the translation."},
    {foExact, "exact rotations", &ed50, Ground,
     "Rounding alone: the transposed matrix of exact rotations is the inverse."},
    {foExact, "exact rotations", &pulkovo, Ground, ""},
    {foExact, "exact rotations", &pulkovo, Orbit, ""},
    {foExact, "exact rotations", &mgi, Ground, ""},
    {foExact, "exact rotations", &minutes, Ground, ""},
    {foTransform, "seven-parameter transform", &mgi, Ground, "Exact rotations, in a chain's form."},
    {foTransform, "seven-parameter transform", &minutes, Ground, ""},
};

bool IsSmallAngles(TShiftRow const& row) {
    return row.Form != foExact && row.Form != foTransform && row.Published->Squares() > 0;
}

double BoundOf(TShiftRow const& row) {
    TPublished const& published = *row.Published;
    double const translation = std::hypot(published.X, published.Y, published.Z);
    // On one of the two ways it is the point less the translation that is turned.
    double const distance = MajorAxis + row.Height + translation;
    double const squares = IsSmallAngles(row) ? published.Squares() : 0;
    double bound = (RoundingOfShifts + squares) * distance;
    if (row.Form == foStandard) {
        double const scale = std::fabs(published.Scale) * 1e-6;
        bound += scale * scale * distance + (std::sqrt(squares) + scale) * translation;
    }
    return bound;
}

/** Points all around the earth, from 10 km deep or, in orbit, at one height. */
std::vector<TCoords> PointsUpTo(double height) {
    TEllipsoid const ellipsoid(MajorAxis, 6356752.314245179);
    std::vector<TCoords> points;
    for (int latitude = -90; latitude <= 90; latitude += 5) {
        for (int longitude = -180; longitude < 180; longitude += 15) {
            for (double const level : {height == Ground ? -Ground : height, height}) {
                TCoords point{longitude * Degree, latitude * Degree, level, false};
                ellipsoid.EllipsoidalToCartesian(&point);
                points.push_back(point);
            }
        }
    }
    return points;
}

double Distance(TCoords const& first, TCoords const& second) {
    return std::hypot(first.X - second.X, first.Y - second.Y, first.Z - second.Z);
}

TNumbers MeasureShift(TShiftRow const& row) {
    auto const form = CreateForm(row.Form, *row.Published);
    double there = 0;
    double back = 0;
    for (TCoords const& point : PointsUpTo(row.Height)) {
        TCoords moved = point;
        form->Direct(&moved);
        form->Reverse(&moved);
        Enlarge(&there, Distance(point, moved));
        moved = point;
        form->Reverse(&moved);
        form->Direct(&moved);
        Enlarge(&back, Distance(point, moved));
    }
    return {there, back};
}

TTable CoreTable() {
    TTable table;
    table.Heading = "## Datum shifts of the core";
    table.Subject = "datum shift:";
    table.Text =
        "Measured by `vellari_accuracy` (tools/accuracy/road/Shifts.cpp), on geocentric coordinates all "
        "around the earth.\n";
    table.KeyHeadings = {"Form", "Numbers", "Height"};
    table.Columns = {{"direct and back", "m", LeastCartesian, true},
                     {"back and direct", "m", LeastCartesian, true}};
    for (TShiftRow const& row : shiftRows) {
        double const bound = BoundOf(row);
        table.Lines.push_back(
            {{row.FormText, row.Published->Name, row.Height == Ground ? "±10 km" : "20,000 km"},
             row.Reason,
             IsSmallAngles(row) ? soMethod : soRounding,
             {bound, bound}});
    }
    table.Measure = [](std::size_t line) { return MeasureShift(shiftRows[line]); };
    return table;
}

// --- The road ----------------------------------------------------------------------------------------------

struct TRoadRow {
    char const* Source; ///< entries of the catalogue
    char const* Target;
    bool Exact; ///< both sides by exact rotations
    char const* Reason;
};

constexpr TRoadRow roadRows[] = {
    {"ed50", "wgs-84", false,
     "Translations. What is left is the stopped passes of the conversion from geocentric coordinates; the "
     "height "
     "takes it times the tangent of the latitude, 57 at 89°."},
    {"ntf-paris", "wgs-84", false, "Grads and the meridian of Paris on the way."},
    {"ed50", "tokyo", false, "Two shifts."},
    {"pulkovo-1942", "wgs-84", false, "The squares of the rotations, as in the core."},
    {"dhdn", "wgs-84", false, ""},
    {"dhdn", "osgb36", false, "Those of both sides."},
    {"pulkovo-1942", "pz-90.11", false, ""},
    {"pulkovo-1942", "wgs-84", true, "Exact rotations: the passes alone."},
    {"dhdn", "osgb36", true, ""},
};

constexpr double GreatestLatitude = 89; ///< degrees
constexpr double LeastHeight = -1e3;    ///< metres
constexpr double GreatestHeight = 9e3;  ///< metres

double SquaresOf(TShellReferenceSystem const& system) {
    double shift[7] = {};
    if (!system.GetDatumShiftParams(&shift[0], &shift[1], &shift[2], &shift[3], &shift[4], &shift[5],
                                    &shift[6])) {
        throw std::runtime_error(system.Name + ": no datum shift");
    }
    return (shift[3] * shift[3] + shift[4] * shift[4] + shift[5] * shift[5]) * Second * Second;
}

struct TRoad {
    TSystem Source;
    TSystem Target;
};

TRoad RoadOf(TRoadRow const& row) {
    TRoad road = {FromCatalog(row.Source), FromCatalog(row.Target)};
    for (TSystem const& system : {road.Source, road.Target}) {
        // Translations have no such form and are exact as they are.
        if (row.Exact && SquaresOf(*system) > 0 && !system->SetNonLinearDatum(true)) {
            throw std::runtime_error(system->Name + ": no exact rotations");
        }
    }
    return road;
}

/** What the squares of the rotations and the passes of both ways leave: on the ground, in height. */
std::vector<double> BoundsOf(TRoadRow const& row) {
    TRoad const road = RoadOf(row);
    double const squares = row.Exact ? 0 : SquaresOf(*road.Source) + SquaresOf(*road.Target);
    double const radius = MajorAxis + GreatestHeight;
    constexpr double Ways = 2;
    // Degrees on either side and a meridian between them.
    double const rounding = 16 * Epsilon * radius;
    return {squares * radius + Ways * LatitudeBound(LeastHeight) * radius + rounding,
            squares * radius + Ways * HeightBound(GreatestLatitude, LeastHeight, GreatestHeight) + rounding};
}

TNumbers MeasureRoad(TRoadRow const& row) {
    TRoad const road = RoadOf(row);
    double const unit = road.Source->GetPlaneUnitCoefToBase() / Degree;
    double ground = 0;
    double height = 0;
    for (TPair const& place : PlacesOf({-GreatestLatitude, GreatestLatitude, 0, 180})) {
        for (double const level : {LeastHeight, GreatestHeight}) {
            TTriple const from = {place.Y / Degree / unit, place.X / Degree / unit, level};
            TTriple const back = Moved(road.Target, Moved(road.Source, from, road.Target), road.Source);
            TApart const apart = ApartBy({from[0] * unit, from[1] * unit, from[2]},
                                         {back[0] * unit, back[1] * unit, back[2]}, MajorAxis);
            Enlarge(&ground, apart.Ground);
            Enlarge(&height, apart.Height);
        }
    }
    return {ground, height};
}

TTable RoadTable() {
    TTable table;
    table.Heading = "## The road between two datums";
    table.Subject = "between datums:";
    table.Text =
        "From one geodetic system of the [catalogue](../catalog/README.md) to the other and back, by "
        "`TransformCoords`; 89° S to\n89° N, all around, at heights of -1 km and 9 km. Measured by "
        "`vellari_accuracy` (tools/accuracy/road/Shifts.cpp).\n";
    table.KeyHeadings = {"Systems", "Rotations"};
    table.Columns = {{"on the ground", "m", LeastFigure, true}, {"height", "m", LeastFigure, true}};
    for (TRoadRow const& row : roadRows) {
        bool const shrinks = !row.Exact && BoundsOf(row)[0] > 1e-6;
        table.Lines.push_back(
            {{std::string(row.Source) + " and " + row.Target, row.Exact ? "exact" : "as described"},
             row.Reason,
             shrinks ? soMethod : soRounding,
             BoundsOf(row)});
    }
    table.Measure = [](std::size_t line) { return MeasureRoad(roadRows[line]); };
    return table;
}

} // namespace

std::vector<TTable> ShiftTables() {
    return {CoreTable(), RoadTable()};
}

} // namespace VellariAccuracy
