#pragma once

#include <ostream>

/** Ellipsoids on which the library is compared with other makers'. */
namespace OracleTests {

/** An ellipsoid and the name that a test shows; semi-axes in metres. */
struct TAxes {
    char const* Name;
    double Major;
    double Minor;
};

inline void PrintTo(TAxes const& axes, std::ostream* out) {
    *out << axes.Name;
}

namespace Ellipsoids {

inline constexpr TAxes Wgs84 = {"Wgs84", 6378137, 6356752.314245179};
inline constexpr TAxes Krassowsky1940 = {"Krassowsky1940", 6378245, 6356863.018773047};
inline constexpr TAxes International1924 = {"International1924", 6378388, 6356911.9461279465};
inline constexpr TAxes Airy1830 = {"Airy1830", 6377563.396, 6356256.909};
inline constexpr TAxes Clarke1880Ign = {"Clarke1880Ign", 6378249.2, 6356515};
inline constexpr TAxes Clarke1880Rgs = {"Clarke1880Rgs", 6378249.145, 6356514.869549776};
inline constexpr TAxes Bessel1841 = {"Bessel1841", 6377397.155, 6356078.962818189};
inline constexpr TAxes Sphere = {"Sphere", 6371007, 6371007};

} // namespace Ellipsoids

} // namespace OracleTests
