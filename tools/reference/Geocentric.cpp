#include "tools/reference/Geocentric.h"

#include <array>
#include <stdexcept>

namespace VellariReference {

namespace {

struct TFigure {
    char const* Name;
    TAxes Axes;
};

constexpr TFigure figures[] = {
    {"WGS 84", {6378137, 6356752.314245179}},
    {"Krassowsky 1940", {6378245, 6356863.018773047}},
    {"Clarke 1880 IGN", {6378249.2, 6356515}},
    {"Sphere", {6371007, 6371007}},
};

/** Degrees as texts, so that they are exact before they become radians. */
constexpr char const* latitudes[] = {
    "0",    "1e-12", "1e-9",  "0.000001", "0.01", "5",   "15",   "30",     "44.9",     "45",
    "45.1", "54.7",  "65",    "75",       "85",   "89",  "89.9", "89.99",  "89.9999",  "89.999999",
    "90",   "-1e-9", "-0.01", "-30",      "-45",  "-65", "-89",  "-89.99", "-89.9999", "-90",
};

/** Their number and that of a figure's places have no common divisor: each meets all latitudes and heights. */
constexpr char const* longitudes[] = {
    "0", "17.3", "-90", "133.7", "180", "-1e-9", "45", "-179.999999", "90", "-61.9", "1e-9",
};

/** Metres. */
constexpr double heights[] = {-6e6, -3e6, -1e6, -1e4, 0, 8848.86, 1e5, 1e6, 5e6, 2e7};

constexpr int PointDecimals = 25;  ///< of metres
constexpr int AngleDecimals = 50;  ///< of radians
constexpr int HeightDecimals = 43; ///< of metres, which have up to eight digits before the point

/** The radius of the meridian and that of the prime vertical, metres. */
struct TRadii {
    TNumber Meridian;
    TNumber Vertical;
};

TNumber SquaredEccentricity(TAxes const& axes) {
    TNumber const ratio = TNumber(axes.Minor) / TNumber(axes.Major);
    return 1 - ratio * ratio;
}

TRadii RadiiAt(TAxes const& axes, TNumber const& sine) {
    TNumber const e2 = SquaredEccentricity(axes);
    TNumber const w2 = 1 - e2 * sine * sine;
    TNumber const vertical = TNumber(axes.Major) / sqrt(w2);
    return {vertical * (1 - e2) / w2, vertical};
}

double RadiansOf(char const* degrees) {
    return NearestDouble(TNumber(degrees) * Pi() / 180);
}

double Rounded(TNumber const& metres) {
    return NearestDouble(FixedText(metres, PointDecimals));
}

std::string Line(TAxes const& axes, std::array<double, 3> const& place) {
    TPlace const from = {place[0], place[1], place[2]};
    TPoint const there = ToCartesian(axes, from);
    TPoint const given = {Rounded(there.X), Rounded(there.Y), Rounded(there.Z)};
    TPlace const back = ToEllipsoidal(axes, given, from);
    std::string line;
    for (double const number : place) {
        line += ShortestText(number) + ' ';
    }
    for (TNumber const& number : {there.X, there.Y, there.Z}) {
        line += FixedText(number, PointDecimals) + ' ';
    }
    return line + FixedText(back.Latitude, AngleDecimals) + ' ' + FixedText(back.Longitude, AngleDecimals) +
           ' ' + FixedText(back.Height, HeightDecimals) + '\n';
}

} // namespace

TPoint ToCartesian(TAxes const& axes, TPlace const& place) {
    TNumber const sine = sin(place.Latitude);
    TNumber const vertical = RadiiAt(axes, sine).Vertical;
    TNumber const p = (vertical + place.Height) * cos(place.Latitude);
    TNumber const z = ((1 - SquaredEccentricity(axes)) * vertical + place.Height) * sine;
    return {p * cos(place.Longitude), p * sin(place.Longitude), z};
}

TPlace ToEllipsoidal(TAxes const& axes, TPoint const& point, TPlace const& near) {
    constexpr int MostSteps = 50;
    // Far below the last digit that is written, and above what 80 digits leave of the earth's radius.
    TNumber const smallest("1e-65");
    TNumber const p = sqrt(point.X * point.X + point.Y * point.Y);
    TNumber latitude = near.Latitude;
    TNumber height = near.Height;
    for (int step = 0; step < MostSteps; ++step) {
        TNumber const sine = sin(latitude);
        TNumber const cosine = cos(latitude);
        TRadii const radii = RadiiAt(axes, sine);
        TNumber const across = p - (radii.Vertical + height) * cosine;
        TNumber const along = point.Z - ((1 - SquaredEccentricity(axes)) * radii.Vertical + height) * sine;
        // What is missing, turned into north and up.
        TNumber const turn = (cosine * along - sine * across) / (radii.Meridian + height);
        TNumber const rise = cosine * across + sine * along;
        latitude += turn;
        height += rise;
        if (abs(turn) < smallest && abs(rise) < smallest * TNumber(axes.Major)) {
            return {latitude, atan2(point.Y, point.X), height};
        }
    }
    throw std::runtime_error("no place for the point " + point.X.str(20) + " " + point.Y.str(20) + " " +
                             point.Z.str(20));
}

std::string GeocentricData() {
    std::string text =
        "# Ellipsoidal and Cartesian coordinates, exact to the last digit that is written: made by\n"
        "# vellari_reference in decimal arithmetic of 80 digits, not to be edited.\n"
        "# A line \"ellipsoid A B NAME\" counts for the lines behind it. A line of nine numbers holds: "
        "latitude,\n"
        "# longitude (radians) and height (metres), each the double nearest to the text; their X, Y, Z "
        "(metres);\n"
        "# latitude, longitude and height of the doubles that are nearest to those X, Y, Z.\n";
    std::size_t number = 0;
    for (TFigure const& figure : figures) {
        text += "ellipsoid " + ShortestText(figure.Axes.Major) + ' ' + ShortestText(figure.Axes.Minor) + ' ' +
                figure.Name + '\n';
        for (char const* const latitude : latitudes) {
            for (double const height : heights) {
                char const* const longitude = longitudes[number++ % std::size(longitudes)];
                text += Line(figure.Axes, {RadiansOf(latitude), RadiansOf(longitude), height});
            }
        }
    }
    return text;
}

} // namespace VellariReference
