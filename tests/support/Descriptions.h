#pragma once

#include "frame/imported/StringTree.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace KvRefSystem {
class TShellReferenceSystem;
class TShellGeodeticReferenceSystem;
} // namespace KvRefSystem

/** Builds description trees for tests, field by field. */
namespace TestSupport {

using KvRefSystem::TStringTree;

/** Fields of a unit. */
struct TUnitText {
    int code;
    int type;
    std::string numerator;
    std::string denominator;
    std::string name;
    std::string abbreviation;
};

TUnitText Metre();
TUnitText Foot();
TUnitText Degree();
TUnitText Grad();
TUnitText Radian();
TUnitText ArcSecond();
TUnitText PartsPerMillion();
/** A plain factor. */
TUnitText Unity();
/** Degrees, minutes, seconds and a hemisphere letter. */
TUnitText HemisphereDegree();

/** Texts of a geodetic description; the defaults are WGS 84 on Greenwich without a datum. */
struct TGeodeticText {
    std::string name = "Test system";
    std::string description = "";
    std::string majorAxis = "6378137";
    std::string minorAxis = "";
    std::string inverseFlattening = "298.257223563";
    std::string meridian = "0";
    TUnitText meridianUnit = Degree();
    TUnitText angularUnit = Degree();
    TUnitText heightUnit = Metre();
    int shiftType = 0;                                          ///< 0: an ellipsoid only
    std::string shift[7] = {"0", "0", "0", "0", "0", "0", "0"}; ///< metres, arc seconds, ppm
    std::string datumName = "Test datum";
};

/** WGS 84 with a shift of zero. */
TGeodeticText WithZeroShift();

/** Pulkovo 1942 with the parameters of GOST R 51794-2008. */
TGeodeticText Pulkovo1942();

/** Texts of a map-projected description; the defaults are WGS 84 without a datum, metres, no flip. */
struct TProjectedText {
    std::string name = "Test projection";
    std::string description = "";
    TGeodeticText base;                                  ///< the primary system
    int type = 1;                                        ///< of the projection
    std::vector<std::pair<int, std::string>> parameters; ///< tags and texts of the projection
    std::string projectionName = "Test method";
    TUnitText projectionLinearUnit = Metre();
    TUnitText projectionAngularUnit = Degree();
    TUnitText projectionScaleUnit = Unity();
    TUnitText linearUnit = Metre(); ///< of the two plane coordinates
    int flip = 0;
    int firstSign = 1;
    int secondSign = 1;
    bool datumAtRoot = false; ///< the base's meridian and datum stand at the root as well
};

/** Texts of a geocentric description; the defaults are WGS 84 on Greenwich without a datum, metres. */
struct TGeocentricText {
    std::string name = "Test geocentric";
    std::string description = "";
    TGeodeticText base; ///< its meridian and its datum or ellipsoid
    TUnitText linearUnit = Metre();
};

/** Texts of a topocentric description; the defaults lie at latitude 0, longitude 0, height 0. */
struct TTopocentricText {
    std::string name = "Test horizon";
    std::string description = "";
    TGeodeticText base; ///< the primary system
    TUnitText linearUnit = Metre();
    int swap = 0;                            ///< 0: right-handed
    std::string origin[3] = {"0", "0", "0"}; ///< latitude, longitude, height in units of the base
    std::string azimuth = "";                ///< no field when it is empty
};

/** Texts of a description of one of the two local kinds. */
struct TLocalText {
    std::string name = "Test plan";
    std::string description = "";
    int type = 1; ///< 1: Cartesian; 2: curved
    TUnitText linearUnit = Metre();
    int swap = 0;                   ///< 0: right-handed
    std::string radius = "6371000"; ///< of a curved one, like the three below
    TUnitText radiusUnit = Metre();
    bool hasCentre = false;
    std::string centre[2] = {"0", "0"};
};

/** The curved kind with its radius in metres. */
TLocalText Curved(std::string const& radius);

/** A zone of UTM. @param hemisphere 'N' or 'S'. */
TProjectedText UtmZone(int zone, char hemisphere);

/** Transverse Mercator from the equator. @param meridian degrees. @param falseEasting metres. */
TProjectedText TransverseMercator(std::string const& meridian, std::string const& scale,
                                  std::string const& falseEasting);

/** The child (tag, idx), made if it isn't there. */
TStringTree* Child(TStringTree* tree, int tag, int idx = 0, std::string const& header = "subtree");

/** Writes or replaces a field. */
void SetField(TStringTree* tree, int tag, std::string const& value, int idx = 0);

void FillUnit(TStringTree* tree, TUnitText const& unit);
void FillGeodetic(TStringTree* tree, TGeodeticText const& text);
/** Fills the subtree of a projection, without the placement of the axes. */
void FillProjection(TStringTree* tree, TProjectedText const& text);
void FillProjected(TStringTree* tree, TProjectedText const& text);
void FillGeocentric(TStringTree* tree, TGeocentricText const& text);
void FillTopocentric(TStringTree* tree, TTopocentricText const& text);
void FillLocal(TStringTree* tree, TLocalText const& text);

/**
 * A description of one plane affine record under the own chain (tag 1108): x' = x + shiftX, y' = y + shiftY
 * in core units.
 */
void AddPlaneShift(TStringTree* tree, double shiftX, double shiftY);

/** The text form of a tree. */
std::string TextOf(TStringTree const& tree);

/** The system of a description; null when the factory gives null. */
std::unique_ptr<KvRefSystem::TShellReferenceSystem> Create(TGeodeticText const& text);
std::unique_ptr<KvRefSystem::TShellReferenceSystem> Create(TProjectedText const& text);
std::unique_ptr<KvRefSystem::TShellReferenceSystem> Create(TGeocentricText const& text);
std::unique_ptr<KvRefSystem::TShellReferenceSystem> Create(TTopocentricText const& text);
std::unique_ptr<KvRefSystem::TShellReferenceSystem> Create(TLocalText const& text);
std::unique_ptr<KvRefSystem::TShellReferenceSystem> Create(TStringTree* tree);

/** The whole text of a file of the repository. */
std::string ReadFile(std::string const& pathFromRoot);

/** The catalogue's text of a system. */
std::string CatalogText(std::string const& name);

} // namespace TestSupport
