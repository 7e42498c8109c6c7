#pragma once

#include <cmath>

namespace KvRefSystem {

/**
 * The geodetic latitude phi of a conformal latitude chi, as the series to e^8 [Snyder87, 3-5]: phi = chi +
 * Sin2 sin 2chi + Sin4 sin 4chi + Sin6 sin 6chi + Sin8 sin 8chi. On the ellipsoids of the earth it stays
 * within 2.2e-12 radians of the closed relation.
 */
struct TConformalLatitudeSeries {
    /** @param e2 square of the eccentricity, 0 for a sphere. */
    explicit TConformalLatitudeSeries(double e2) {
        double const e4 = e2 * e2;
        double const e6 = e4 * e2;
        double const e8 = e6 * e2;
        Sin2 = e2 / 2 + 5 * e4 / 24 + e6 / 12 + 13 * e8 / 360;
        Sin4 = 7 * e4 / 48 + 29 * e6 / 240 + 811 * e8 / 11520;
        Sin6 = 7 * e6 / 120 + 81 * e8 / 1120;
        Sin8 = 4279 * e8 / 161280;
    }

    /** @param chi conformal latitude (radians). @return geodetic latitude (radians). */
    double Latitude(double chi) const {
        // Clenshaw's recurrence: one sine and one cosine serve all four terms.
        double const sin2 = std::sin(2 * chi);
        double const cos2 = std::cos(2 * chi);
        double const third = Sin6 + 2 * cos2 * Sin8;
        double const second = Sin4 + 2 * cos2 * third - Sin8;
        double const first = Sin2 + 2 * cos2 * second - third;
        return chi + sin2 * first;
    }

    double Sin2; ///< coefficient of sin 2chi
    double Sin4; ///< coefficient of sin 4chi
    double Sin6; ///< coefficient of sin 6chi
    double Sin8; ///< coefficient of sin 8chi
};

} // namespace KvRefSystem
