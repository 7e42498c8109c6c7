#include "bench/Points.h"
#include "bench/Runs.h"
#include "bench/Tasks.h"

#include <Vellari/Vellari.h>

#include <GeographicLib/AlbersEqualArea.hpp>
#include <GeographicLib/LambertConformalConic.hpp>
#include <GeographicLib/PolarStereographic.hpp>
#include <GeographicLib/TransverseMercator.hpp>

#include <cmath>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace VellariBench {

namespace {

using namespace KvRefSystem;

constexpr TEllipsoidSemiAxes Axes = {6378137, 6356752.314245179};
constexpr TEllipsoidSemiAxes Bessel = {6377397.155, 6356078.962818189};     // of Krovak in PROJ
constexpr TEllipsoidSemiAxes International = {6378388, 6356911.9461279465}; // of the New Zealand Map Grid
constexpr double Flattening = 1 / 298.257223563;

/** Degrees; the points of a method are drawn here. */
struct TRegion {
    double South;
    double North;
    double West;
    double East;
};

/** GeographicLib's form of a method: latitude and longitude (degrees) to easting and northing, and back. */
struct TPeer {
    std::function<void(double, double, double*, double*)> Forward;
    std::function<void(double, double, double*, double*)> Reverse;
};

struct TMethod {
    std::string Name;
    std::unique_ptr<TMapProjection> Ours;
    std::vector<std::string> Proj; ///< PROJ's form or forms, on WGS 84 unless they say otherwise
    TRegion Region;
    double Tolerance; ///< metres that the first of PROJ's forms may differ from ours
    std::optional<TPeer> Peer = std::nullopt;
};

template <class Projection, class Record, class... Values>
std::unique_ptr<TMapProjection> MakeOn(TEllipsoidSemiAxes const& axes, Values... values) {
    Record const record(values...);
    return std::make_unique<Projection>(&axes, &record);
}

template <class Projection, class Record, class... Values>
std::unique_ptr<TMapProjection> Make(Values... values) {
    return MakeOn<Projection, Record>(Axes, values...);
}

TPeer TransverseMercatorPeer(double meridian) {
    using GeographicLib::TransverseMercator;
    auto const series = std::make_shared<TransverseMercator const>(Axes.a, Flattening, 0.9996);
    return {[=](double latitude, double longitude, double* x, double* y) {
                series->Forward(meridian, latitude, longitude, *x, *y);
            },
            [=](double x, double y, double* latitude, double* longitude) {
                series->Reverse(meridian, x, y, *latitude, *longitude);
            }};
}

TPeer PolarPeer() {
    using GeographicLib::PolarStereographic;
    auto const polar = std::make_shared<PolarStereographic const>(Axes.a, Flattening, 0.994);
    return {[=](double latitude, double longitude, double* x, double* y) {
                polar->Forward(true, latitude, longitude, *x, *y);
            },
            [=](double x, double y, double* latitude, double* longitude) {
                polar->Reverse(true, x, y, *latitude, *longitude);
            }};
}

template <class Cone>
TPeer ConePeer(double first, double second, double meridian) {
    auto const cone = std::make_shared<Cone const>(Axes.a, Flattening, first, second, 1.0);
    return {[=](double latitude, double longitude, double* x, double* y) {
                cone->Forward(meridian, latitude, longitude, *x, *y);
            },
            [=](double x, double y, double* latitude, double* longitude) {
                cone->Reverse(meridian, x, y, *latitude, *longitude);
            }};
}

/** All methods that both libraries have, each on the ground for which it is made. */
std::vector<TMethod> Methods() {
    constexpr double D = Degree;
    std::vector<TMethod> all;
    all.push_back({"Transverse Mercator (UTM)",
                   Make<TTransverseMercatorMapProjection, TTransverseMercatorMapProjectionParameters>(
                       3 * D, 0.0, 0.9996, 500000.0, 0.0),
                   {"+proj=tmerc +approx +lon_0=3 +k_0=0.9996 +x_0=500000",
                    "+proj=tmerc +lon_0=3 +k_0=0.9996 +x_0=500000"},
                   {-80, 84, 0, 6},
                   2e-3,
                   TransverseMercatorPeer(3)});
    all.push_back(
        {"Gauss-Boaga",
         Make<TGaussBoagaMapProjection, TGaussBoagaMapProjectionParameters>(9 * D, 0.9996, 1500000.0, 0.0),
         {"+proj=tmerc +lon_0=9 +k_0=0.9996 +x_0=1500000"},
         {36, 47, 6, 12},
         0.1});
    all.push_back({"Gauss-Kruger, wide",
                   Make<TGaussKrugerWideMapProjection, TGaussKrugerWideMapProjectionParameters>(
                       39 * D, 1.0, 7500000.0, 0.0),
                   {"+proj=tmerc +lon_0=39 +x_0=7500000"},
                   {-80, 84, 24, 54},
                   1e-3});
    all.push_back(
        {"Lambert, two parallels",
         Make<TLambertConicConformal2SPMapProjection, TLambertConicConformal2SPMapProjectionParameters>(
             49 * D, 44 * D, 46.5 * D, 3 * D, 700000.0, 6600000.0),
         {"+proj=lcc +lat_1=49 +lat_2=44 +lat_0=46.5 +lon_0=3 +x_0=700000 +y_0=6600000"},
         {41, 52, -6, 10},
         1e-5,
         ConePeer<GeographicLib::LambertConformalConic>(49, 44, 3)});
    all.push_back(
        {"Lambert, one parallel",
         Make<TLambertConicConformal1SPMapProjection, TLambertConicConformal1SPMapProjectionParameters>(
             46.8 * D, 2.337 * D, 0.99987742, 600000.0, 2200000.0),
         {"+proj=lcc +lat_1=46.8 +lat_0=46.8 +lon_0=2.337 +k_0=0.99987742 +x_0=600000 +y_0=2200000"},
         {41, 52, -6, 10},
         1e-5});
    all.push_back({"Albers",
                   Make<TAlbersEqualAreaConicMapProjection, TAlbersEqualAreaConicMapProjectionParameters>(
                       29.5 * D, 45.5 * D, 23 * D, -96 * D, 0.0, 0.0),
                   {"+proj=aea +lat_1=29.5 +lat_2=45.5 +lat_0=23 +lon_0=-96"},
                   {24, 50, -125, -66},
                   1e-4,
                   ConePeer<GeographicLib::AlbersEqualArea>(29.5, 45.5, -96)});
    all.push_back({"Equidistant conic",
                   Make<TEquidistantConicMapProjection, TEquidistantConicMapProjectionParameters>(
                       29.5 * D, 45.5 * D, 23 * D, -96 * D, 0.0, 0.0),
                   {"+proj=eqdc +lat_1=29.5 +lat_2=45.5 +lat_0=23 +lon_0=-96"},
                   {24, 50, -125, -66},
                   0.1});
    all.push_back({"Oblique stereographic (RD)",
                   Make<TObliqueStereographicMapProjection, TObliqueStereographicMapProjectionParameters>(
                       5.3876388888889 * D, 52.1561605555556 * D, 0.9999079, 155000.0, 463000.0),
                   {"+proj=sterea +lat_0=52.1561605555556 +lon_0=5.3876388888889 +k=0.9999079 +x_0=155000 "
                    "+y_0=463000"},
                   {50, 54, 3, 8},
                   1e-4});
    all.push_back(
        {"Polar stereographic (UPS)",
         Make<TPolarStereographicBasicMapProjection, TPolarStereographicBasicMapProjectionParameters>(
             poleNorth, 0.0, 0.994, 2000000.0, 2000000.0),
         {"+proj=stere +lat_0=90 +k=0.994 +x_0=2000000 +y_0=2000000"},
         {60, 89.9, -180, 180},
         1e-5,
         PolarPeer()});
    all.push_back(
        {"Mercator",
         Make<TMercator2SPMapProjection, TMercator2SPMapProjectionParameters>(42 * D, 51 * D, 0.0, 0.0),
         {"+proj=merc +lat_ts=42 +lon_0=51"},
         {-80, 80, -120, 179},
         1e-4});
    all.push_back(
        {"Mercator of a sphere (web)",
         Make<TSphericalMercatorMapProjection, TSphericalMercatorMapProjectionParameters>(0.0, 1.0, 0.0, 0.0),
         {"+proj=webmerc"},
         {-85, 85, -179, 179},
         1e-5});
    all.push_back(
        {"Oblique Mercator",
         Make<TObliqueMercatorMapProjection, TObliqueMercatorMapProjectionParameters>(
             4 * D, 115 * D, 53.31582 * D, 53.1301 * D, 0.99984, 590476.87, 442857.65),
         {"+proj=omerc +lat_0=4 +lonc=115 +alpha=53.31582 +gamma=53.1301 +k_0=0.99984 +x_0=590476.87 "
          "+y_0=442857.65"},
         {0, 8, 109, 120},
         1e-3});
    all.push_back(
        {"Krovak",
         MakeOn<TKrovakMapProjection, TKrovakMapProjectionParameters>(
             Bessel, 49.5 * D, 24.833333333333333 * D, 30.28813975277778 * D, 78.5 * D, 0.9999, 0.0, 0.0),
         {"+proj=krovak +lat_0=49.5 +lon_0=24.833333333333333 +k=0.9999 +ellps=bessel"},
         {47, 52, 12, 23},
         0.1});
    all.push_back({"Cassini-Soldner",
                   Make<TCassiniSoldnerMapProjection, TCassiniSoldnerMapProjectionParameters>(
                       10.44 * D, -61.33 * D, 0.0, 0.0),
                   {"+proj=cass +lat_0=10.44 +lon_0=-61.33"},
                   {10, 11, -62, -60},
                   1e-2});
    all.push_back({"Polyconic",
                   Make<TPolyconicMapProjection, TPolyconicMapProjectionParameters>(-54 * D, 0.0, 1.0,
                                                                                    5000000.0, 10000000.0),
                   {"+proj=poly +lon_0=-54 +x_0=5000000 +y_0=10000000"},
                   {-34, 5, -74, -35},
                   1e-2});
    all.push_back(
        {"Lambert azimuthal equal-area",
         Make<TLambertAzimuthalEqualAreaMapProjection, TLambertAzimuthalEqualAreaMapProjectionParameters>(
             52 * D, 10 * D, 4321000.0, 3210000.0),
         {"+proj=laea +lat_0=52 +lon_0=10 +x_0=4321000 +y_0=3210000"},
         {35, 70, -10, 40},
         1e-3});
    all.push_back(
        {"Orthographic",
         Make<TOrthographicMapProjection, TOrthographicMapProjectionParameters>(55 * D, 5 * D, 0.0, 0.0),
         {"+proj=ortho +lat_0=55 +lon_0=5"},
         {45, 65, -5, 15},
         1e-3});
    all.push_back({"New Zealand Map Grid",
                   MakeOn<TNZMGMapProjection, TNZMGMapProjectionParameters>(International, -41 * D, 173 * D,
                                                                            2510000.0, 6023150.0),
                   {"+proj=nzmg +lat_0=-41 +lon_0=173 +x_0=2510000 +y_0=6023150 +ellps=intl"},
                   {-47, -34, 166, 179},
                   1e-3});
    return all;
}

/** The points of a method in all forms that are needed. */
struct TStage {
    TStage(TMethod method, PJ_CONTEXT* context) : Method(std::move(method)) {
        for (std::string const& form : Method.Proj) {
            bool const isOnWgs84 = form.find("+ellps") == std::string::npos;
            Operations.push_back(Pipeline(context, form + (isOnWgs84 ? " +ellps=WGS84" : "")));
        }
        TRegion const& region = Method.Region;
        for (TTriple const& drawn : GeodeticPoints()) {
            double const latitude = region.South + (drawn[0] + 85) / 170 * (region.North - region.South);
            double const longitude = region.West + (drawn[1] + 180) / 360 * (region.East - region.West);
            Degrees.push_back({latitude, longitude, drawn[2]});
            Geodetic.push_back({longitude * Degree, latitude * Degree, 0, false});
            Plane.push_back(Geodetic.back());
            Method.Ours->GeodeticToProjected(&Plane.back());
        }
        Compare();
        GeodeticForProj = InProjsForm(Geodetic);
        PlaneForProj = InProjsForm(Plane);
    }

    /** A comparison of speeds means nothing unless both do the same. @throws std::runtime_error otherwise. */
    void Compare() const {
        for (std::size_t number = 0; number < Geodetic.size(); ++number) {
            TCoords const& source = Geodetic[number];
            PJ_COORD const theirs =
                proj_trans(Operations.front().get(), PJ_FWD, proj_coord(source.X, source.Y, 0, 0));
            if (!(std::hypot(theirs.xy.x - Plane[number].X, theirs.xy.y - Plane[number].Y) <
                  Method.Tolerance)) {
                throw std::runtime_error(Method.Name + " differs from PROJ");
            }
        }
    }

    TMethod Method;
    std::vector<TProjObject> Operations;
    std::vector<TTriple> Degrees;
    std::vector<TCoords> Geodetic;
    std::vector<TCoords> Plane;
    std::vector<PJ_COORD> GeodeticForProj;
    std::vector<PJ_COORD> PlaneForProj;
};

void RegisterMethod(std::shared_ptr<TStage const> const& stage, bool forward) {
    TMapProjection const* const ours = stage->Method.Ours.get();
    std::string const task = stage->Method.Name + (forward ? ", forward" : ", reverse") + ", ns a point";
    Register(task, "Vellari", [stage, ours, forward](benchmark::State& state) {
        RunPoints(state, forward ? stage->Geodetic : stage->Plane, [&](TCoords coords) {
            forward ? ours->GeodeticToProjected(&coords) : ours->ProjectedToGeodetic(&coords);
            return coords;
        });
    });
    for (std::size_t form = 0; form < stage->Operations.size(); ++form) {
        std::string const contender = form == 0 ? "PROJ" : "PROJ, its other algorithm";
        Register(task, contender, [stage, form, forward](benchmark::State& state) {
            RunProj(state, stage->Operations[form].get(), forward ? PJ_FWD : PJ_INV,
                    forward ? stage->GeodeticForProj : stage->PlaneForProj);
        });
    }
    if (!stage->Method.Peer) {
        return;
    }
    Register(task, "GeographicLib", [stage, forward](benchmark::State& state) {
        TPeer const& peer = *stage->Method.Peer;
        if (forward) {
            RunPoints(state, stage->Degrees, [&](TTriple out) {
                peer.Forward(out[0], out[1], &out[0], &out[1]);
                return out;
            });
        } else {
            RunPoints(state, stage->Plane, [&](TCoords out) {
                peer.Reverse(out.X, out.Y, &out.X, &out.Y);
                return out;
            });
        }
    });
}

} // namespace

void RegisterProjections() {
    static TProjContext const context(proj_context_create());
    for (TMethod& method : Methods()) {
        auto const stage = std::make_shared<TStage const>(std::move(method), context.get());
        RegisterMethod(stage, true);
        RegisterMethod(stage, false);
    }
}

} // namespace VellariBench
