#pragma once

#include "core/projections/MapProjection.h"

#include <memory>

namespace KvRefSystem {

/** What defines a New Zealand Map Grid. A plain record. */
struct TNZMGMapProjectionParameters {
    /** Angles in radians, lengths in metres. */
    TNZMGMapProjectionParameters(double const& latitudeOfOrigin, double const& longitudeOfOrigin,
                                 double const& falseEasting, double const& falseNorthing);
    TNZMGMapProjectionParameters(TNZMGMapProjectionParameters const&) = default;

    double LatitudeOfOrigin;  ///< radians
    double LongitudeOfOrigin; ///< radians
    double FalseEasting;      ///< metres
    double FalseNorthing;     ///< metres
};

/**
 * The New Zealand Map Grid, a complex polynomial of the sixth degree over the isometric latitude [EPSG7-2,
 * 9811], [Reilly73]. Of the ellipsoid only the semi-major axis counts: the others are in the coefficients,
 * which hold for the International 1924 and the origin 41 S, 173 E.
 *
 * Good for New Zealand's land (34 to 48 S, 166 to 179 E), where it agrees with PROJ to 1e-8 m and a round
 * trip closes to 0.4 mm. There is no range check: elsewhere the polynomials' values come out, which soon are
 * far from any map.
 *
 * Kept, as hosts rely on these numbers: the reverse makes exactly two Newton steps, whatever they leave.
 * Kept: longitude differences aren't wrapped. Kept: the degree is that of `rad2deg`.
 */
class TNZMGMapProjection : public TMapProjection {
public:
    /**
     * A complex number. Each operation writes into its first argument, which may also be one of the others.
     */
    struct complex {
        double Real;
        double Imaginary;

        /** first + second. */
        static void cadd(complex* result, complex const& first, complex const& second);
        /** first - second. */
        static void csub(complex* result, complex const& first, complex const& second);
        /** first * second. */
        static void cmult(complex* result, complex const& first, complex const& second);
        /** first / second. */
        static void cdiv(complex* result, complex const& first, complex const& second);
        /** value * factor. */
        static void cscale(complex* result, complex const& value, double const& factor);
    };

    /**
     * Degrees in a radian. Kept: 180 / pi ends in 323, but hosts rely on what this one gives.
     */
    static constexpr double rad2deg = 57.295779513082195;

    /** @param ellipsoid only read. @param parameters copied. */
    TNZMGMapProjection(TEllipsoidSemiAxes const* ellipsoid, TNZMGMapProjectionParameters const* parameters);
    TNZMGMapProjection(TNZMGMapProjection const& source);
    ~TNZMGMapProjection() override;

    bool operator==(TMapProjection const& other) const override;
    void ProjectedToGeodetic(TCoords* coords) const override;
    void GeodeticToProjected(TCoords* coords) const override;

    /** Fills the four arrays of coefficients; the constructor has done so already. */
    void InitializeProjectionConstants();

    TNZMGMapProjectionParameters* Parameters; ///< owned

private:
    double FalseNorthing;     ///< metres
    double FalseEasting;      ///< metres
    double LatitudeOfOrigin;  ///< degrees
    double LongitudeOfOrigin; ///< degrees
    double SemiMajorAxis;     ///< metres

    std::unique_ptr<double[]> ToIsometric;   ///< A1 to A10, of the latitude difference
    std::unique_ptr<double[]> FromIsometric; ///< D1 to D9, of the isometric latitude difference
    std::unique_ptr<complex[]> ToPlane;      ///< B1 to B6
    std::unique_ptr<complex[]> FromPlane;    ///< C1 to C6, the start of the reverse
};

} // namespace KvRefSystem
