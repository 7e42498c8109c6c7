#pragma once

#include <array>
#include <string>
#include <vector>

/** What the EPSG register says, as `projinfo` (Debian `proj-bin`) prints it; independent of the library. */
namespace VellariTest {

/** A coordinate operation. */
struct TRegisterOperation {
    std::string Name;
    int Method = 0;                     ///< EPSG code of the method, such as 9606
    std::array<double, 7> Parameters{}; ///< dx, dy, dz (metres), rx, ry, rz (seconds of arc), scale (ppm)
    double Accuracy = 0;                ///< metres
};

/** A geographic system. */
struct TRegisterSystem {
    std::string EllipsoidName;
    double SemiMajorAxis = 0;     ///< metres
    double InverseFlattening = 0; ///< 0 for a sphere
    std::string MeridianName;
    double MeridianLongitude = 0; ///< radians, east positive
    double AngularUnit = 0;       ///< radians in one unit of the axes
    double EnsembleAccuracy = 0;  ///< metres, 0 where the datum is no ensemble
};

/** A parameter of a projection. */
struct TRegisterParameter {
    std::string Name;
    std::string Unit; ///< "ANGLEUNIT", "LENGTHUNIT" or "SCALEUNIT"
    double Value = 0; ///< radians, metres or a plain factor
};

/** A projected system. */
struct TRegisterGrid {
    std::string Name;
    int Base = 0; ///< EPSG code of the geographic system
    std::string BaseName;
    int Method = 0; ///< EPSG code of the method, such as 9807
    std::string MethodName;
    std::vector<TRegisterParameter> Parameters;
    std::vector<std::string> Axes; ///< "north", "south", "east" or "west"; of a polar grid those of its rows
};

/** @param code EPSG code. @throws std::runtime_error when the register or a part of its answer is missing. */
TRegisterOperation ReadRegisterOperation(int code);

/** @param code EPSG code. @throws std::runtime_error as above. */
TRegisterSystem ReadRegisterSystem(int code);

/** @param code EPSG code. @throws std::runtime_error as above. */
TRegisterGrid ReadRegisterGrid(int code);

/** @param kind "datum" or "ellipsoid". @param code EPSG code. @throws std::runtime_error as above. */
std::string ReadRegisterName(std::string const& kind, std::string const& code);

} // namespace VellariTest
