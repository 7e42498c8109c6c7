#pragma once

#include "shell/projections/ParameterisedProjection.h"

/**
 * The shells with free parameters. Members are the texts as the user wrote them, in the order of the tree's
 * keys; angles are in the projection's angular unit, lengths in its linear unit, factors in its scale unit.
 * Each constructor throws std::runtime_error with its own signature as the text for what its class reads;
 * what the base reads throws the base's text. The texts themselves are taken unchecked.
 */
namespace KvRefSystem {

/** Transverse Mercator [EPSG7-2, 9807]. */
class TShellTransverseMercatorMapProjection
    : public TParameterisedMapProjection<TShellTransverseMercatorMapProjection> {
public:
    /** From a description. */
    explicit TShellTransverseMercatorMapProjection(TStringTree* tree);
    /** From XML. */
    explicit TShellTransverseMercatorMapProjection(TKvXIniReader* xml);

    std::string LongitudeOfOrigin;
    std::string LatitudeOfOrigin;
    std::string ScaleFactorAtOrigin;
    std::string FalseEasting;
    std::string FalseNorthing;
};

/** Oblique Mercator by the coordinates of its centre [EPSG7-2, 9815]. */
class TShellObliqueMercatorMapProjection
    : public TParameterisedMapProjection<TShellObliqueMercatorMapProjection> {
public:
    /** From a description. */
    explicit TShellObliqueMercatorMapProjection(TStringTree* tree);
    /** From XML. */
    explicit TShellObliqueMercatorMapProjection(TKvXIniReader* xml);

    std::string LongitudeOfProjectionCentre;
    std::string LatitudeOfProjectionCentre;
    std::string AzimuthOfInitialLine;
    std::string AngleFromRectifiedToSkewGrid;
    std::string ScaleFactor;
    std::string EastingAtProjectionCentre;
    std::string NorthingAtProjectionCentre;
};

/** Hotine Oblique Mercator by its natural origin [EPSG7-2, 9812]. */
class TShellHotineObliqueMercatorMapProjection
    : public TParameterisedMapProjection<TShellHotineObliqueMercatorMapProjection> {
public:
    /** From a description. */
    explicit TShellHotineObliqueMercatorMapProjection(TStringTree* tree);
    /** From XML. */
    explicit TShellHotineObliqueMercatorMapProjection(TKvXIniReader* xml);

    std::string LongitudeOfProjectionCentre;
    std::string LatitudeOfProjectionCentre;
    std::string AzimuthOfInitialLine;
    std::string AngleFromRectifiedToSkewGrid;
    std::string ScaleFactor;
    std::string FalseEasting;
    std::string FalseNorthing;
};

/** New Zealand Map Grid [EPSG7-2, 9811]. Kept: in XML the latitude is written first and read second. */
class TShellNZMGMapProjection : public TParameterisedMapProjection<TShellNZMGMapProjection> {
public:
    /** From a description. */
    explicit TShellNZMGMapProjection(TStringTree* tree);
    /** From XML. */
    explicit TShellNZMGMapProjection(TKvXIniReader* xml);

    std::string LongitudeOfNaturalOrigin;
    std::string LatitudeOfOrigin;
    std::string FalseEasting;
    std::string FalseNorthing;
};

/** Albers' equal-area cone [EPSG7-2, 9822]. Kept: in XML the latitude is written first and read second. */
class TShellAlbersEqualAreaConicMapProjection
    : public TParameterisedMapProjection<TShellAlbersEqualAreaConicMapProjection> {
public:
    /** From a description. */
    explicit TShellAlbersEqualAreaConicMapProjection(TStringTree* tree);
    /** From XML. */
    explicit TShellAlbersEqualAreaConicMapProjection(TKvXIniReader* xml);

    std::string LongitudeOfOrigin;
    std::string LatitudeOfOrigin;
    std::string FirstStandardParallel;
    std::string SecondStandardParallel;
    std::string FalseEasting;
    std::string FalseNorthing;
};

/**
 * Lambert's conformal cone by two parallels [EPSG7-2, 9802]. Kept: in XML the origin is written first and
 * read last.
 */
class TShellLambertConicConformal2SPMapProjection
    : public TParameterisedMapProjection<TShellLambertConicConformal2SPMapProjection> {
public:
    /** From a description. */
    explicit TShellLambertConicConformal2SPMapProjection(TStringTree* tree);
    /** From XML. */
    explicit TShellLambertConicConformal2SPMapProjection(TKvXIniReader* xml);

    std::string FirstStandardParallel;
    std::string SecondStandardParallel;
    std::string LatitudeOfFalseOrigin;
    std::string LongitudeOfFalseOrigin;
    std::string EastingAtFalseOrigin;
    std::string NorthingAtFalseOrigin;
};

/**
 * Lambert's conformal cone by one parallel [EPSG7-2, 9801]. Kept: the MapInfo clause has the latitude of
 * origin three times.
 */
class TShellLambertConicConformal1SPMapProjection
    : public TParameterisedMapProjection<TShellLambertConicConformal1SPMapProjection> {
public:
    /** From a description. */
    explicit TShellLambertConicConformal1SPMapProjection(TStringTree* tree);
    /** From XML. */
    explicit TShellLambertConicConformal1SPMapProjection(TKvXIniReader* xml);

    std::string LatitudeOfOrigin;
    std::string LongitudeOfNaturalOrigin;
    std::string ScaleFactor;
    std::string FalseEasting;
    std::string FalseNorthing;
};

/** Cassini-Soldner [EPSG7-2, 9806]. */
class TShellCassiniSoldnerMapProjection
    : public TParameterisedMapProjection<TShellCassiniSoldnerMapProjection> {
public:
    /** From a description. */
    explicit TShellCassiniSoldnerMapProjection(TStringTree* tree);
    /** From XML. */
    explicit TShellCassiniSoldnerMapProjection(TKvXIniReader* xml);

    std::string LatitudeOfOrigin;
    std::string LongitudeOfNaturalOrigin;
    std::string FalseEasting;
    std::string FalseNorthing;
};

/** Mercator by its standard parallel [EPSG7-2, 9805]. */
class TShellMercator2SPMapProjection : public TParameterisedMapProjection<TShellMercator2SPMapProjection> {
public:
    /** From a description. */
    explicit TShellMercator2SPMapProjection(TStringTree* tree);
    /** From XML. */
    explicit TShellMercator2SPMapProjection(TKvXIniReader* xml);

    std::string FirstStandardParallel;
    std::string LongitudeOfNaturalOrigin;
    std::string FalseEasting;
    std::string FalseNorthing;
};

/** Mercator by its scale at the equator [EPSG7-2, 9804]. */
class TShellMercator1SPMapProjection : public TParameterisedMapProjection<TShellMercator1SPMapProjection> {
public:
    /** From a description. */
    explicit TShellMercator1SPMapProjection(TStringTree* tree);
    /** From XML. */
    explicit TShellMercator1SPMapProjection(TKvXIniReader* xml);

    std::string LatitudeOfOrigin;
    std::string LongitudeOfNaturalOrigin;
    std::string ScaleFactorAtNaturalOrigin;
    std::string FalseEasting;
    std::string FalseNorthing;
};

/** Oblique Stereographic [EPSG7-2, 9809]. */
class TShellObliqueStereographicMapProjection
    : public TParameterisedMapProjection<TShellObliqueStereographicMapProjection> {
public:
    /** From a description. */
    explicit TShellObliqueStereographicMapProjection(TStringTree* tree);
    /** From XML. */
    explicit TShellObliqueStereographicMapProjection(TKvXIniReader* xml);

    std::string LongitudeOfNaturalOrigin;
    std::string LatitudeOfOrigin;
    std::string ScaleFactorAtNaturalOrigin;
    std::string FalseEasting;
    std::string FalseNorthing;
};

/**
 * The older Polar Stereographic, always on the north pole [EPSG7-2, 9810]. Kept: the latitude of origin has a
 * member and an XML key, but none in the tree. No core reads it, but GeoTIFF does, which therefore fails for
 * a projection that comes from a tree.
 */
class TShellPolarStereographicMapProjection
    : public TParameterisedMapProjection<TShellPolarStereographicMapProjection> {
public:
    /** From a description. */
    explicit TShellPolarStereographicMapProjection(TStringTree* tree);
    /** From XML. */
    explicit TShellPolarStereographicMapProjection(TKvXIniReader* xml);

    std::string LongitudeOfNaturalOrigin;
    std::string LatitudeOfOrigin;
    std::string ScaleFactorAtNaturalOrigin;
    std::string FalseEasting;
    std::string FalseNorthing;
};

/** Quasi-stereographic projection by its series. Kept: XML carries no parameters. */
class TShellQuasiStereographicMapProjection
    : public TParameterisedMapProjection<TShellQuasiStereographicMapProjection> {
public:
    /** From a description. */
    explicit TShellQuasiStereographicMapProjection(TStringTree* tree);

    std::string LongitudeOfNaturalOrigin;
    std::string LatitudeOfOrigin;
    std::string ScaleFactorAtNaturalOrigin;
    std::string FalseEasting;
    std::string FalseNorthing;
};

/** American Polyconic [EPSG7-2, 9818]. Kept: XML carries no parameters, and WKT has no scale factor. */
class TShellPolyconicMapProjection : public TParameterisedMapProjection<TShellPolyconicMapProjection> {
public:
    /** From a description. */
    explicit TShellPolyconicMapProjection(TStringTree* tree);

    std::string LongitudeOfNaturalOrigin;
    std::string LatitudeOfOrigin;
    std::string ScaleFactor;
    std::string FalseEasting;
    std::string FalseNorthing;
};

/**
 * Krovak's oblique cone [EPSG7-2, 9819]. Kept: XML is read by other keys than it is written, so the angles
 * and the scale don't come back.
 */
class TShellKrovakMapProjection : public TParameterisedMapProjection<TShellKrovakMapProjection> {
public:
    /** From a description. */
    explicit TShellKrovakMapProjection(TStringTree* tree);
    /** From XML. */
    explicit TShellKrovakMapProjection(TKvXIniReader* xml);

    std::string LatitudeOfProjectionCentre;
    std::string LongitudeOfNaturalOrigin;
    std::string AzimuthOfInitialLine;
    std::string LatitudeOfPseudoStandardParallel;
    std::string ScaleFactorOnPseudoStandardParallel;
    std::string FalseEasting;
    std::string FalseNorthing;
};

/** Hatt's azimuthal projection. Kept: XML carries no parameters. */
class TShellHattMapProjection : public TParameterisedMapProjection<TShellHattMapProjection> {
public:
    /** From a description. */
    explicit TShellHattMapProjection(TStringTree* tree);

    std::string LatitudeOfOrigin;
    std::string LongitudeOfNaturalOrigin;
};

/** Polar Stereographic, variant A, by its scale at the pole [EPSG7-2, 9810]. */
class TShellPolarStereographicBasicMapProjection
    : public TParameterisedMapProjection<TShellPolarStereographicBasicMapProjection> {
public:
    /** From a description. */
    explicit TShellPolarStereographicBasicMapProjection(TStringTree* tree);
    /** From XML. */
    explicit TShellPolarStereographicBasicMapProjection(TKvXIniReader* xml);

    TPole Pole{}; ///< where the origin is
    std::string LongitudeOfNaturalOrigin;
    std::string ScaleFactorAtNaturalOrigin;
    std::string FalseEasting;
    std::string FalseNorthing;
};

/**
 * Polar Stereographic by its scale at the natural origin. Kept: it builds the core of variant A; no shell
 * reaches the core of variant B.
 */
class TShellPolarStereographicNaturalOriginMapProjection
    : public TParameterisedMapProjection<TShellPolarStereographicNaturalOriginMapProjection> {
public:
    /** From a description. */
    explicit TShellPolarStereographicNaturalOriginMapProjection(TStringTree* tree);
    /** From XML. */
    explicit TShellPolarStereographicNaturalOriginMapProjection(TKvXIniReader* xml);

    TPole Pole{}; ///< where the origin is
    std::string LongitudeOfNaturalOrigin;
    std::string ScaleFactorAtNaturalOrigin;
    std::string FalseEasting;
    std::string FalseNorthing;
};

/**
 * Polar Stereographic, variant C, by its standard parallel [EPSG7-2, 9830]. Kept: it has no XML form, reading
 * and writing always fail.
 */
class TShellPolarStereographicFalseOriginMapProjection
    : public TParameterisedMapProjection<TShellPolarStereographicFalseOriginMapProjection> {
public:
    /** From a description. */
    explicit TShellPolarStereographicFalseOriginMapProjection(TStringTree* tree);
    /** From XML. */
    explicit TShellPolarStereographicFalseOriginMapProjection(TKvXIniReader* xml);

    TPole Pole{}; ///< where the origin is
    std::string LongitudeOfNaturalOrigin;
    std::string FirstStandardParallel;
    std::string FalseEasting;
    std::string FalseNorthing;
};

/** Lambert's azimuthal equal-area projection [EPSG7-2, 9820]. */
class TShellLambertAzimuthalEqualAreaMapProjection
    : public TParameterisedMapProjection<TShellLambertAzimuthalEqualAreaMapProjection> {
public:
    /** From a description. */
    explicit TShellLambertAzimuthalEqualAreaMapProjection(TStringTree* tree);
    /** From XML. */
    explicit TShellLambertAzimuthalEqualAreaMapProjection(TKvXIniReader* xml);

    std::string LatitudeOfOrigin;
    std::string LongitudeOfNaturalOrigin;
    std::string FalseEasting;
    std::string FalseNorthing;
};

/**
 * Equidistant cone [EPSG7-2, 1119]. Kept: XML reads the longitude by another key than it writes, so it comes
 * back empty.
 */
class TShellEquidistantConicMapProjection
    : public TParameterisedMapProjection<TShellEquidistantConicMapProjection> {
public:
    /** From a description. */
    explicit TShellEquidistantConicMapProjection(TStringTree* tree);
    /** From XML. */
    explicit TShellEquidistantConicMapProjection(TKvXIniReader* xml);

    std::string FirstStandardParallel;
    std::string SecondStandardParallel;
    std::string LatitudeOfFalseOrigin;
    std::string LongitudeOfFalseOrigin;
    std::string EastingAtFalseOrigin;
    std::string NorthingAtFalseOrigin;
};

/** Orthographic projection [EPSG7-2, 9840]. */
class TShellOrthographicMapProjection : public TParameterisedMapProjection<TShellOrthographicMapProjection> {
public:
    /** From a description. */
    explicit TShellOrthographicMapProjection(TStringTree* tree);
    /** From XML. */
    explicit TShellOrthographicMapProjection(TKvXIniReader* xml);

    std::string LatitudeOfOrigin;
    std::string LongitudeOfNaturalOrigin;
    std::string FalseEasting;
    std::string FalseNorthing;
};

/**
 * Lambert's conformal cone as Belgium used it in 1972 [EPSG7-2, 9803]. Kept: in XML the origin is written
 * first and read last.
 */
class TShellLambertConicConformal2SPBelgiumMapProjection
    : public TParameterisedMapProjection<TShellLambertConicConformal2SPBelgiumMapProjection> {
public:
    /** From a description. */
    explicit TShellLambertConicConformal2SPBelgiumMapProjection(TStringTree* tree);
    /** From XML. */
    explicit TShellLambertConicConformal2SPBelgiumMapProjection(TKvXIniReader* xml);

    std::string FirstStandardParallel;
    std::string SecondStandardParallel;
    std::string LatitudeOfFalseOrigin;
    std::string LongitudeOfFalseOrigin;
    std::string EastingAtFalseOrigin;
    std::string NorthingAtFalseOrigin;
};

/** Mercator of a sphere. Kept: XML carries no parameters; WKT calls it by the ellipsoidal method's name. */
class TShellSphericalMercatorMapProjection
    : public TParameterisedMapProjection<TShellSphericalMercatorMapProjection> {
public:
    /** From a description. */
    explicit TShellSphericalMercatorMapProjection(TStringTree* tree);

    std::string LongitudeOfOrigin;
    std::string ScaleFactorAtOrigin;
    std::string FalseEasting;
    std::string FalseNorthing;
};

} // namespace KvRefSystem
