#pragma once

#include <Vellari/Vellari.h>

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace VellariAccuracy {

using TSystem = std::shared_ptr<KvRefSystem::TShellReferenceSystem>;

/** Three numbers in the units and the order of a system. */
using TTriple = std::array<double, 3>;

/** Tags and texts of a subtree. */
using TParameters = std::vector<std::pair<int, std::string>>;

/** The system of an entry of the catalogue. @throws std::runtime_error with its name. */
TSystem FromCatalog(std::string const& name);

/** A grid in metres, easting first, on a geodetic entry of the catalogue. @throws std::runtime_error. */
TSystem Grid(std::string const& base, int method, TParameters const& parameters);

/** A local system of kind 1, or of kind 2 with a radius in metres and a centre. */
struct TLocal {
    bool LeftHanded;
    double UnitSize;   ///< metres
    double Radius = 0; ///< metres; 0: a plane
    double CentreX = 0;
    double CentreY = 0;
};

/** @throws std::runtime_error. */
TSystem Local(TLocal const& local);

/** A point by the road; NaN where it ends in a failure. */
TTriple Moved(TSystem const& source, TTriple const& point, TSystem const& target);

/** A pair of metres. */
struct TApart {
    double Ground; ///< along the great circle
    double Height;
};

/** Between two places in degrees and metres: latitude, longitude, height; on a sphere of that radius. */
TApart ApartBy(TTriple const& first, TTriple const& second, double radius);

} // namespace VellariAccuracy
