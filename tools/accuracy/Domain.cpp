#include "tools/accuracy/Domain.h"

#include <Vellari/Vellari.h>

#include <algorithm>
#include <cmath>

namespace VellariAccuracy {

namespace {

/** Degrees on one of two sides, as "16.5° S". */
std::string AngleText(double degrees, char const* positive, char const* negative) {
    std::string text = KvRefSystem::FormatText("%.7f", std::fabs(degrees));
    text.resize(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) {
        text.pop_back();
    }
    return text + "°" + (degrees > 0 ? positive : degrees < 0 ? negative : "");
}

std::string LatitudeText(double degrees) {
    return AngleText(degrees, " N", " S");
}

std::string LongitudeText(double degrees) {
    return AngleText(degrees, " E", " W");
}

} // namespace

std::vector<TPair> PlacesOf(TDomain const& domain) {
    int const rows = domain.South < domain.North ? LatitudeIntervals : 0;
    int const columns = domain.Reach > 0 ? LongitudeIntervals : 0;
    std::vector<TPair> places;
    for (int row = 0; row <= rows; ++row) {
        double const share = rows > 0 ? static_cast<double>(row) / rows : 0;
        double const latitude = domain.South + (domain.North - domain.South) * share;
        for (int column = 0; column <= columns; ++column) {
            double const side = columns > 0 ? 2.0 * column / columns - 1 : 0;
            TPair const place = {(domain.Middle + domain.Reach * side) * Degree, latitude * Degree};
            TPair const origin = {domain.Middle * Degree, domain.OriginLatitude * Degree};
            constexpr double Earth = 6371; // kilometres
            if (domain.Radius == 0 || GroundDistance(place, origin, Earth) <= domain.Radius) {
                places.push_back(place);
            }
        }
    }
    return places;
}

std::string DomainText(TDomain const& domain) {
    if (domain.Radius > 0) {
        return KvRefSystem::FormatText("within %.12g km of ", domain.Radius) +
               LatitudeText(domain.OriginLatitude) + ' ' + LongitudeText(domain.Middle);
    }
    std::string text = LatitudeText(domain.South);
    if (domain.South < domain.North) {
        text += " to " + LatitudeText(domain.North);
    }
    if (domain.Reach > 0) {
        return text + KvRefSystem::FormatText(", within %.12g° of ", domain.Reach) +
               LongitudeText(domain.Middle);
    }
    return text + ", on " + LongitudeText(domain.Middle);
}

double GroundDistance(TPair const& first, TPair const& second, double radius) {
    double const north = std::sin((second.Y - first.Y) / 2);
    double const east = std::sin((second.X - first.X) / 2);
    double const half = north * north + std::cos(first.Y) * std::cos(second.Y) * east * east;
    // A NaN stays one.
    return 2 * radius * std::asin(std::sqrt(half > 1 ? 1 : half));
}

} // namespace VellariAccuracy
