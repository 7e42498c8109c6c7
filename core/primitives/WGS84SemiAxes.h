#pragma once

namespace KvRefSystem {

/**
 * Semi-axes of WGS 84 in metres, or those that the host's options "planet/ellipsoid/a" and
 * "planet/ellipsoid/b" hold when the library runs inside a host application. A leaf that core and shell both
 * use.
 * @param a, b receive the semi-major and the semi-minor axis.
 */
void GetWGS84SemiAxes(double* a, double* b);

} // namespace KvRefSystem
