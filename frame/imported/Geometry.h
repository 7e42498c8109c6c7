#pragma once

#include <cstddef>
#include <vector>

/** A small vector of N numbers. */
template <class T, unsigned long N>
struct vec_t_ {
    T Elements[N] = {}; ///< the numbers

    /** @param index below N, unchecked. @return the number. */
    T& operator[](std::size_t index) { return Elements[index]; }
    /** The same for reading. */
    T const& operator[](std::size_t index) const { return Elements[index]; }
};

/**
 * Signed area of a closed planar polygon.
 *
 * @param vertices corners in order; the last is joined to the first.
 * @return the area in the square of the coordinates' unit, positive when the corners run from the first axis
 *         to the second; 0 for fewer than three corners.
 */
double CalcSignedFigureArea(std::vector<vec_t_<double, 2>> const& vertices);
