#pragma once

#include "tools/determinism/Generator.h"
#include "tools/determinism/Line.h"

#include <Vellari/Vellari.h>

#include <array>
#include <map>
#include <memory>
#include <string>

/** Systems from texts, and points in them. */
namespace VellariDeterminism {

using TSystem = std::shared_ptr<KvRefSystem::TShellReferenceSystem>;
using TPoint = std::array<double, 3>; ///< in a system's units and order

/** A unit: code, kind, factor as numerator and denominator. */
struct TUnitRow {
    int Code;
    int Kind;
    char const* Numerator;
    char const* Denominator;
    char const* Name;
};

inline constexpr TUnitRow Metre = {0, 1, "1", "1", "metre"};
inline constexpr TUnitRow Foot = {0, 1, "0.3048", "1", "foot"};
inline constexpr TUnitRow UsFoot = {0, 1, "1200", "3937", "US survey foot"};
inline constexpr TUnitRow Radian = {0, 2, "1", "1", "radian"};
inline constexpr TUnitRow Degrees = {0, 2, "3.14159265358979312", "180", "degree"};
inline constexpr TUnitRow Grad = {0, 2, "3.14159265358979312", "200", "grad"};
inline constexpr TUnitRow ArcSecond = {0, 2, "3.14159265358979312", "648000", "arc-second"};
inline constexpr TUnitRow DegreesMinutesSeconds = {7, 2, "1", "1", "degree minute second"};
inline constexpr TUnitRow WithHemisphere = {8, 2, "1", "1", "degree minute second hemisphere"};
inline constexpr TUnitRow PackedSeconds = {10, 2, "1", "1", "sexagesimal degree"};
inline constexpr TUnitRow PackedMinutes = {11, 2, "1", "1", "degree decimal minute"};
inline constexpr TUnitRow Factor = {0, 3, "1", "1", "unity"};
inline constexpr TUnitRow Millionth = {0, 3, "1", "1000000", "parts per million"};

/** A geodetic system; the default is WGS 84 with a shift of zero. */
struct TGeodetic {
    std::string MajorAxis = "6378137";
    std::string InverseFlattening = "298.257223563";
    std::string Meridian = "0";
    TUnitRow MeridianUnit = Degrees;
    TUnitRow AngularUnit = Degrees;
    TUnitRow HeightUnit = Metre;
    int ShiftForm = 1; ///< a `TShellDatumShiftType`; 0: no datum, an ellipsoid only
    std::array<std::string, 7> Shift = {"0", "0", "0", "0", "0", "0", "0"}; ///< metres, arc seconds, ppm
};

/** The Krasovsky ellipsoid with a shift of seven parameters. */
TGeodetic Pulkovo();

/** A map-projected system. */
struct TProjected {
    int Type = 1; ///< a `TMapProjectionType`
    std::map<int, std::string> Parameters;
    TGeodetic Base;
    TUnitRow LinearUnit = Metre;
    int Flip = 0;
    int FirstSign = 1;
    int SecondSign = 1;
};

/** A system of one of the kinds without an angle among its coordinates. */
struct TCartesian {
    int Kind = 3; ///< a `TReferenceSystemType`
    TGeodetic Base;
    TUnitRow LinearUnit = Metre;
    int Swap = 0;
    std::array<std::string, 3> Origin = {"0", "0", "0"}; ///< topocentric: place; local curved: centre
    std::string Azimuth = "0";                           ///< of a topocentric one
    std::string Radius = "6371000";                      ///< of a local curved one
};

void FillUnit(KvRefSystem::TStringTree* tree, TUnitRow const& unit);

/** @throws std::logic_error when the description gives no system. */
TSystem Build(TGeodetic const& text);
TSystem Build(TProjected const& text);
TSystem Build(TCartesian const& text);

/** A place anywhere but near the poles, latitude first: degrees, metres. */
TPoint WorldPlace(TGenerator& numbers);

/** A place between the Atlantic and the Urals. */
TPoint EuropeanPlace(TGenerator& numbers);

/** In place. @throws std::runtime_error when the transformation fails. */
void Transform(KvRefSystem::TShellReferenceSystem const& from, KvRefSystem::TShellReferenceSystem const& to,
               TPoint* point);

/** The numbers of a point and its texts. */
void PrintPoint(KvRefSystem::TShellReferenceSystem const& system, TPoint const& point, TLine* line);

/** A place of `from`, what it is in `to`, and what that is in `from`. */
void PrintThereAndBack(KvRefSystem::TShellReferenceSystem const& from,
                       KvRefSystem::TShellReferenceSystem const& to, TPoint point, TLine* line);

} // namespace VellariDeterminism
