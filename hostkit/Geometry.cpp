#include "frame/imported/Geometry.h"

double CalcSignedFigureArea(std::vector<vec_t_<double, 2>> const& vertices) {
    if (vertices.size() < 3) {
        return 0.0;
    }
    // Differences to the first corner, since products of large map coordinates would cost the area its
    // digits.
    vec_t_<double, 2> const origin = vertices.front();
    double twice = 0.0;
    for (std::size_t index = 1; index + 1 < vertices.size(); ++index) {
        vec_t_<double, 2> const& here = vertices[index];
        vec_t_<double, 2> const& next = vertices[index + 1];
        twice +=
            (here[0] - origin[0]) * (next[1] - origin[1]) - (next[0] - origin[0]) * (here[1] - origin[1]);
    }
    return 0.5 * twice;
}
