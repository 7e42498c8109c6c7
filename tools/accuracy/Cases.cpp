#include "tools/accuracy/Cases.h"

#include <stdexcept>

namespace VellariAccuracy {

namespace {

constexpr TEllipsoid all[] = {
    {"WGS 84", {6378137, 6356752.314245179}},
    {"Krassowsky 1940", {6378245, 6356863.018773047}},
    {"International 1924", {6378388, 6356911.9461279465}},
    {"Airy 1830", {6377563.396, 6356256.909}},
    {"Clarke 1880 IGN", {6378249.2, 6356515}},
    {"Bessel 1841", {6377397.155, 6356078.962818189}},
};

} // namespace

std::span<TEllipsoid const> EllipsoidsOf(EEllipsoids ellipsoids) {
    switch (ellipsoids) {
    case elAll:
        return all;
    case elInternational:
        return std::span(all).subspan(2, 1);
    case elBessel:
        return std::span(all).subspan(5, 1);
    }
    throw std::logic_error("unknown figures of the earth");
}

std::vector<TFamily> Families() {
    return {
        {"Transverse cylinders", TransverseCases()},
        {"Mercator's cylinders", CylinderCases()},
        {"Cones", ConeCases()},
        {"Oblique cone and polyconic", ObliqueConeCases()},
        {"Stereographic", StereographicCases()},
        {"Other planes", PlaneCases()},
    };
}

} // namespace VellariAccuracy
