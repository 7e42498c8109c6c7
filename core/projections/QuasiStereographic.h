#pragma once

#include "core/projections/MapProjection.h"

namespace KvRefSystem {

/** Parameters of the quasi-stereographic; radians and metres. */
struct TQuasiStereographicMapProjectionParameters {
    /** Angles in radians, lengths in metres. */
    TQuasiStereographicMapProjectionParameters(double const& longitudeOfOrigin,
                                               double const& latitudeOfOrigin, double const& scaleFactor,
                                               double const& falseEasting, double const& falseNorthing);

    double LongitudeOfOrigin;
    double LatitudeOfOrigin;
    double ScaleFactor;
    double FalseEasting;
    double FalseNorthing;
};

/**
 * Coefficients of the quasi-stereographic. Each name tells the powers of its term: of the differences of
 * latitude and longitude (radians) forward, of the eastings X and northings Y from the origin (metres, on the
 * ellipsoid) in reverse.
 */
struct TQuasiStereographicSeries {
    /** @param latitudeOfOrigin radians. */
    TQuasiStereographicSeries(TEllipsoidSemiAxes const& semiAxes, double latitudeOfOrigin);

    double NorthingPhi1;
    double NorthingPhi2;
    double NorthingLambda2;
    double NorthingPhi3;
    double NorthingPhi1Lambda2;
    double NorthingPhi4;
    double NorthingPhi2Lambda2;
    double NorthingLambda4;
    double NorthingPhi5;
    double NorthingPhi3Lambda2;
    double NorthingPhi1Lambda4;

    double EastingLambda1;
    double EastingPhi1Lambda1;
    double EastingPhi2Lambda1;
    double EastingLambda3;
    double EastingPhi3Lambda1;
    double EastingPhi1Lambda3;
    double EastingPhi4Lambda1;
    double EastingPhi2Lambda3;
    double EastingLambda5;

    double LatitudeY1;
    double LatitudeY2;
    double LatitudeX2;
    double LatitudeY3;
    double LatitudeX2Y1;
    double LatitudeY4;
    double LatitudeX2Y2;
    double LatitudeX4;
    double LatitudeY5;
    double LatitudeX2Y3;
    double LatitudeX4Y1;

    double LongitudeX1;
    double LongitudeX1Y1;
    double LongitudeX1Y2;
    double LongitudeX3;
    double LongitudeX1Y3;
    double LongitudeX3Y1;
    double LongitudeX1Y4;
    double LongitudeX3Y2;
    double LongitudeX5;
};

/**
 * Quasi-stereographic: a fixed double power series around the origin, to the fifth order, near the oblique
 * stereographic of the ellipsoid. It has no EPSG number; the coefficients are those of the tables of this
 * system, of which the reverse ones are a set of their own.
 *
 * Good near the origin only. At latitude 46 the map departs from the oblique stereographic by 7 mm at 10 km,
 * 0.9 m at 50 km and 7.3 m at 100 km, and a round trip by 2 cm, 2.7 m and 21.5 m, with the cube of the
 * distance. Farther away the polynomials give what they give; at a pole as origin the results are no use.
 *
 * Kept: three coefficients aren't those of the projection's own series: the easting's second power of
 * latitude by longitude is four times that, the northing's second powers of both lack the tangent, and the
 * longitude's third power of the easting is three times that. Maps made with them exist. Kept: the difference
 * of longitudes isn't wrapped.
 */
class TQuasiStereographicMapProjection : public TMapProjection {
public:
    /** Reads both only while it builds. */
    TQuasiStereographicMapProjection(TEllipsoidSemiAxes const* semiAxes,
                                     TQuasiStereographicMapProjectionParameters const* parameters);
    TQuasiStereographicMapProjection(TQuasiStereographicMapProjection const& source);
    ~TQuasiStereographicMapProjection() override;

    bool operator==(TMapProjection const& other) const override;
    void ProjectedToGeodetic(TCoords* coords) const override;
    void GeodeticToProjected(TCoords* coords) const override;

    TQuasiStereographicMapProjectionParameters* Parameters; ///< owned

private:
    TQuasiStereographicSeries Series;
};

} // namespace KvRefSystem
