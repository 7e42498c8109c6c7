#pragma once

/** A surface over the plane that answers heights, for example a geoid. */
class TBaseGrid {
public:
    virtual ~TBaseGrid();

    /**
     * @param x, y plane coordinates in the grid's own system.
     * @param z    receives the surface's value at the point; untouched outside.
     * @param mode kind of interpolation, 0 for the default.
     * @return false outside the grid.
     */
    virtual bool GetZFastZ(double x, double y, double& z, unsigned int mode) = 0;
};
