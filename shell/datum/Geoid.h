#pragma once

#include <map>
#include <string>

class TBaseGrid;

namespace KvRefSystem {

class TShellReferenceSystem;

/**
 * A geoid attached to a system: a grid of undulations and the system in which the grid is defined, both the
 * host's, which must outlive this object. Converts heights between geoid and ellipsoid; const operations may
 * run in parallel if the grid allows it.
 */
class TShellGeoid {
public:
    /**
     * @param id identifier, with an optional constant undulation at its end ("a.grd###-0.25", in the grid's
     *         height unit).
     */
    TShellGeoid(std::string const& id, TBaseGrid* grid, TShellReferenceSystem const* gridSystem);

    /** A copy, preset for `system`. */
    TShellGeoid(TShellGeoid const& source, TShellReferenceSystem const* system);

    TShellGeoid(TShellGeoid const&) = delete;
    TShellGeoid& operator=(TShellGeoid const&) = delete;
    ~TShellGeoid() = default;

    /** @return the number behind the first "###" of an id; 0.0 without one. */
    static double ExtractShift(std::string const& id);

    /** Prepares conversions for `system`: finds out whether adding the undulation is enough. */
    void Preset(TShellReferenceSystem const* system);

    /** Forgets what `Preset` prepared. */
    void ClearPreset();

    /**
     * @param gridCoords shell coordinates of the grid's system. @return the undulation in its height unit.
     * @throws std::runtime_error with "double TShellGeoid::Undulation(const double grid_coords[3]) const"
     *         outside the grid.
     */
    double Undulation(double const* gridCoords) const;

    /**
     * Height over the geoid to height over the ellipsoid in `coords[2]`, in `system`'s shell units, by
     * iteration to 1 mm. @throws std::runtime_error with "void TShellGeoid::GeoidToEllipsoid(const
     * TShellReferenceSystem*, double[3]) const" without convergence; as `Undulation`; as the coordinate
     * operation.
     */
    void GeoidToEllipsoid(TShellReferenceSystem const* system, double* coords) const;

    /**
     * Height over the ellipsoid to height over the geoid in `coords[2]`.
     * @throws as `Undulation` and the coordinate operation.
     */
    void EllipsoidToGeoid(TShellReferenceSystem const* system, double* coords) const;

    /**
     * The same for the preset system; one lookup where that is enough.
     * @throws std::runtime_error without a preset system.
     */
    void GeoidToEllipsoid(double* coords) const;

    /** The same for the preset system. @throws std::runtime_error without a preset system. */
    void EllipsoidToGeoid(double* coords) const;

    /** Writes geokeys 4096 and 4097. @return false for an empty id. */
    bool ExportToGeoTIFF(std::map<int, std::string>* keys) const;

    std::string Id;                             ///< identifier
    double Shift;                               ///< added to every undulation
    TBaseGrid* Grid;                            ///< not owned
    TShellReferenceSystem const* GridRefSystem; ///< not owned
    bool GridIsLeft;                            ///< the grid's second coordinate comes first
    double GridHeightCoef;                      ///< the grid system's height unit in metres
    TShellReferenceSystem const* PresetSystem;  ///< not owned; null when none
    bool PresetFast;                            ///< adding the undulation is enough
    double PresetScale;                         ///< factor of the undulation; 0.0 means none
};

} // namespace KvRefSystem
