#include "core/projections/AlbersEqualAreaConic.h"
#include "core/projections/EquidistantConic.h"
#include "core/projections/GaussKrugerWide.h"
#include "core/projections/LambertAzimuthalEqualArea.h"
#include "core/projections/Polyconic.h"
#include "core/projections/TransverseMercator.h"
#include "tests/core/projections/ProjectionChecks.h"

namespace {

using namespace KvRefSystem;
using namespace ProjectionChecks;

// On the earth the last terms of the series are below a millimetre, so that no place tells whether they are
// right. On a body that is a tenth flat they are metres. Every figure: the cited equations in Python, as
// printed and with as many terms.

constexpr TEllipsoidSemiAxes Flattened = {6378137, 5740323.3};
constexpr double Metres = 1e-7;
constexpr double Radians = 1e-13;

TEST(FlattenedBody, AlbersHasAllTermsOfTheAuthalicLatitude) {
    // [Snyder87, 14-1 to 14-21, 3-18]
    TAlbersEqualAreaConicMapProjectionParameters const states(29.5 * Degree, 45.5 * Degree, 23 * Degree,
                                                              -96 * Degree, 0, 0);
    TAlbersEqualAreaConicMapProjection const projection(&Flattened, &states);
    ExpectNear(Project(projection, 35, -75), 1947117.8608790142, 1374053.595301643, Metres);
    ExpectNear(Unproject(projection, 1900000, 1500000), -1.3124604564005729, 0.633874789930073, Radians);
}

TEST(FlattenedBody, EquidistantConicHasAllTermsOfTheArc) {
    // [Snyder87, 16-1 to 16-11, 3-21, 3-26]
    TEquidistantConicMapProjectionParameters const states(29.5 * Degree, 45.5 * Degree, 23 * Degree,
                                                          -96 * Degree, 0, 0);
    TEquidistantConicMapProjection const projection(&Flattened, &states);
    ExpectNear(Project(projection, 35, -75), 1946772.9295838485, 1377609.7414863408, Metres);
    ExpectNear(Unproject(projection, 1900000, 1500000), -1.3125135207143854, 0.6335744966878851, Radians);
}

TEST(FlattenedBody, LambertAzimuthalHasAllTermsOfTheAuthalicLatitude) {
    // [Snyder87, 24-17 to 24-31, 3-18]
    TLambertAzimuthalEqualAreaMapProjectionParameters const europe(52 * Degree, 10 * Degree, 0, 0);
    TLambertAzimuthalEqualAreaMapProjection const projection(&Flattened, &europe);
    ExpectNear(Project(projection, 60, 25), 900746.4472763017, 975387.5020462001, Metres);
    ExpectNear(Unproject(projection, 800000, 700000), 0.393260894657325, 1.0080059983400689, Radians);
}

TEST(FlattenedBody, TransverseMercatorHasAllTerms) {
    // [Snyder87, 8-9 to 8-21, 3-21, 3-26]
    TTransverseMercatorMapProjectionParameters const zone(10 * Degree, 40 * Degree, 0.9996, 0, 0);
    TTransverseMercatorMapProjection const projection(&Flattened, &zone);
    ExpectNear(Project(projection, 55, 14), 273244.84212498704, 1600810.2260264563, Metres);
    ExpectNear(Unproject(projection, 300000, 1500000), 0.2495930739080679, 0.943826802388804, Radians);
}

TEST(FlattenedBody, PolyconicHasAllTermsOfTheArc) {
    // [Snyder87, 18-12 to 18-14, 3-21]; the reverse ends where the forward equations begin.
    TPolyconicMapProjectionParameters const sheet(10 * Degree, 30 * Degree, 1, 0, 0);
    TPolyconicMapProjection const projection(&Flattened, &sheet);
    ExpectNear(Project(projection, 55, 14), 273275.7070265397, 2595312.768019717, Metres);
    ExpectNear(Unproject(projection, 273275.7070265397, 2595312.768019717), 14 * Degree, 55 * Degree, 1e-10);
}

TEST(FlattenedBody, GaussKrugerWideHasAllTermsOfBothSeries) {
    // [Krueger1912, 12, 18, 21], cut behind the third power of n.
    TGaussKrugerWideMapProjectionParameters const zone(10 * Degree, 0, 0);
    TGaussKrugerWideMapProjection const projection(&Flattened, &zone);
    double north = 0;
    double east = 0;
    projection.LambertToTransverseMercator(0.9, 0.2, &north, &east);
    EXPECT_NEAR(north, 5610881.86164888, Metres);
    EXPECT_NEAR(east, 1195828.1731792071, Metres);
    double xi = 0;
    double eta = 0;
    projection.TransverseMercatorToLambert(5600000, 1200000, &xi, &eta);
    EXPECT_NEAR(xi, 0.8981562520852798, Radians);
    EXPECT_NEAR(eta, 0.20067087012402582, Radians);
}

} // namespace
