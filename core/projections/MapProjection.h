#pragma once

#include "core/refsystems/Coords.h"
#include "core/refsystems/FamilyEquality.h"

namespace KvRefSystem {

/** Class of a map projection, as stored in descriptions. 0 means that a stored value isn't valid. */
enum TMapProjectionType : int {
    mptTransverseMercator = 1,
    mptObliqueMercator = 2,
    mptHotineObliqueMercator = 3,
    mptNZMG = 4,
    mptAlbersEqualAreaConic = 5,
    mptLambertConicConformal2SP = 6,
    mptLambertConicConformal1SP = 7,
    mptCassiniSoldner = 8,
    mptMercator2SP = 9,
    mptMercator1SP = 10,
    mptObliqueStereographic = 11,
    mptPolarStereographic = 12,
    mptQuasiStereographic = 13,
    mptPolyconic = 14,
    mptGaussBoaga = 15,
    mptKrovak = 16,
    mptHatt = 17,
    mptPolarStereographicBasic = 21,
    mptPolarStereographicNaturalOrigin = 22,
    mptPolarStereographicFalseOrigin = 23,
    mptLambertAzimuthalEqualArea = 24,
    mptEquidistantConic = 25,
    mptOrthographic = 26,
    mptGaussKrugerWide = 101,
    mptGaussKruger6 = 1001, ///< no core class: builds a Transverse Mercator
    mptUTM = 1002,          ///< no core class: builds a Transverse Mercator
    mptMSKxx = 1003,        ///< no core class: builds a Transverse Mercator
    mptSK63 = 1004,         ///< no core class: builds a Transverse Mercator
    mptLambertConicConformal2SPBelgium = 1201,
    mptSphericalMercator = 1313,
};

/** Pole of a polar projection; other values are refused where they are used. */
enum TPole : int {
    poleNorth = 1,
    poleSouth = 2,
};

/** The ellipsoid that a projection is built on; only read during construction. */
struct TEllipsoidSemiAxes {
    double a; ///< semi-major axis, metres
    double b; ///< semi-minor axis, metres
};

/**
 * A map projection: geodetic to plane coordinates and back, in place. `X` is the longitude (radians) or the
 * easting (metres), `Y` the latitude (radians) or the northing (metres); `Z` and `ZUndefined` are neither
 * read nor written.
 *
 * All that depends only on the ellipsoid and the parameters is computed at construction; afterwards an object
 * never changes and may be shared between threads. The operations allocate nothing and report no failure but
 * where a class says so: a point outside of the method's domain gives what the formulas give. Reverse results
 * are normalised, the latitude first.
 */
class TMapProjection {
public:
    virtual ~TMapProjection();
    TMapProjection& operator=(TMapProjection const&) = delete;

    /** Same class and exactly the same parameters; the ellipsoid never counts (kept). */
    virtual bool operator==(TMapProjection const& other) const = 0;

    /** Easting and northing (metres) to longitude and latitude (radians). */
    virtual void ProjectedToGeodetic(TCoords* coords) const = 0;

    /** Longitude and latitude (radians) to easting and northing (metres). */
    virtual void GeodeticToProjected(TCoords* coords) const = 0;

    /** @return the class of a stored number: itself, 16 for the older 18, 0 for what isn't one. */
    static TMapProjectionType IntToType(int value);

    TMapProjectionType Type; ///< class

protected:
    /** @param projectionType class. */
    explicit TMapProjection(TMapProjectionType projectionType);
    TMapProjection(TMapProjection const&) = default;
};

/** Compares two classes of the family by the first one's operator. */
template <class A, ComparableThrough<A, TMapProjection> C>
bool operator==(A const& first, C const& second) {
    return static_cast<TMapProjection const&>(first).operator==(static_cast<TMapProjection const&>(second));
}

/**
 * @return a new object of the same class, owned by the caller; null for a type without a class or when the
 *         copy failed (the exception is swallowed).
 */
TMapProjection* CreateCopy(TMapProjection const& source);

/**
 * @return how many values describe a projection that can be given by a short list: 5 for the Transverse
 *         Mercator, 2 (zone, hemisphere) for Gauss-Kruger and UTM; 0 for all others.
 */
int GetMapProjectionParametersNumber(TMapProjectionType type);

/** The arc sine (radians) of a number clamped to [-1, 1]; a NaN stays one. */
double arcsin(double value);

} // namespace KvRefSystem
