#include "core/projections/NZMG.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace KvRefSystem {

namespace {

using TComplex = TNZMGMapProjection::complex;

/** Units of 100000 seconds of arc in a degree: the latitude differences of the series. */
constexpr double SeriesUnitsInDegree = 0.036;

// [Reilly73], [EPSG7-2, 9811].
constexpr std::array<double, 10> IsometricTerms = {
    0.6399175073, -0.1358797613, 0.063294409, -0.02526853, 0.0117879,
    -0.0055161,   0.0026906,     -0.001333,   0.00067,     -0.00034,
};
constexpr std::array<double, 9> LatitudeTerms = {
    1.5627014243, 0.5185406398, -0.03333098, -0.1052906, -0.0368594, 0.007317, 0.0122, 0.00394, -0.0013,
};
constexpr std::array<TComplex, 6> PlaneTerms = {{
    {0.7557853228, 0},
    {0.249204646, 0.003371507},
    {-0.001541739, 0.04105856},
    {-0.10162907, 0.01727609},
    {-0.26623489, -0.36249218},
    {-0.6870983, -1.1651967},
}};
constexpr std::array<TComplex, 6> ReverseStartTerms = {{
    {1.3231270439, 0},
    {-0.577245789, -0.007809598},
    {0.508307513, -0.112208952},
    {-0.15094762, 0.18200602},
    {1.01418179, 1.64497696},
    {1.9660549, 2.5127645},
}};

/** x (c1 + c2 x + ... ) by Horner's rule. */
template <std::size_t Count>
double RealSeries(double const* terms, double x) {
    double sum = terms[Count - 1];
    for (std::size_t i = Count - 1; i-- > 0;) {
        sum = sum * x + terms[i];
    }
    return sum * x;
}

/** z (c1 + c2 z + ... + c6 z^5) by Horner's rule. */
TComplex ComplexSeries(TComplex const* terms, TComplex const& z) {
    TComplex sum = terms[5];
    for (std::size_t i = 5; i-- > 0;) {
        TComplex::cmult(&sum, sum, z);
        TComplex::cadd(&sum, sum, terms[i]);
    }
    TComplex::cmult(&sum, sum, z);
    return sum;
}

/** One step of Newton's for B1 theta + ... + B6 theta^6 = z. */
TComplex NewtonStep(TComplex const* terms, TComplex const& z, TComplex const& theta) {
    TComplex above{0, 0}; // sum of (k - 1) Bk theta^(k - 2), k from 6 down to 2
    TComplex below{0, 0}; // sum of k Bk theta^(k - 1), k from 6 down to 1
    TComplex term{};
    for (std::size_t k = 6; k >= 1; --k) {
        TComplex::cmult(&below, below, theta);
        TComplex::cscale(&term, terms[k - 1], static_cast<double>(k));
        TComplex::cadd(&below, below, term);
        if (k >= 2) {
            TComplex::cmult(&above, above, theta);
            TComplex::cscale(&term, terms[k - 1], static_cast<double>(k - 1));
            TComplex::cadd(&above, above, term);
        }
    }
    TComplex::cmult(&above, above, theta);
    TComplex::cmult(&above, above, theta);
    TComplex::cadd(&above, above, z);
    TComplex::cdiv(&above, above, below);
    return above;
}

} // namespace

TNZMGMapProjectionParameters::TNZMGMapProjectionParameters(double const& latitudeOfOrigin,
                                                           double const& longitudeOfOrigin,
                                                           double const& falseEasting,
                                                           double const& falseNorthing)
    : LatitudeOfOrigin(latitudeOfOrigin),
      LongitudeOfOrigin(longitudeOfOrigin),
      FalseEasting(falseEasting),
      FalseNorthing(falseNorthing) {}

void TNZMGMapProjection::complex::cadd(complex* result, complex const& first, complex const& second) {
    *result = {first.Real + second.Real, first.Imaginary + second.Imaginary};
}

void TNZMGMapProjection::complex::csub(complex* result, complex const& first, complex const& second) {
    *result = {first.Real - second.Real, first.Imaginary - second.Imaginary};
}

void TNZMGMapProjection::complex::cmult(complex* result, complex const& first, complex const& second) {
    *result = {first.Real * second.Real - first.Imaginary * second.Imaginary,
               first.Real * second.Imaginary + first.Imaginary * second.Real};
}

void TNZMGMapProjection::complex::cdiv(complex* result, complex const& first, complex const& second) {
    double const norm = second.Real * second.Real + second.Imaginary * second.Imaginary;
    *result = {(first.Real * second.Real + first.Imaginary * second.Imaginary) / norm,
               (first.Imaginary * second.Real - first.Real * second.Imaginary) / norm};
}

void TNZMGMapProjection::complex::cscale(complex* result, complex const& value, double const& factor) {
    *result = {value.Real * factor, value.Imaginary * factor};
}

// The record comes last: should an array's allocation throw, nobody else would free it.
TNZMGMapProjection::TNZMGMapProjection(TEllipsoidSemiAxes const* ellipsoid,
                                       TNZMGMapProjectionParameters const* parameters)
    : TMapProjection(mptNZMG),
      Parameters(nullptr),
      FalseNorthing(parameters->FalseNorthing),
      FalseEasting(parameters->FalseEasting),
      LatitudeOfOrigin(parameters->LatitudeOfOrigin * rad2deg),
      LongitudeOfOrigin(parameters->LongitudeOfOrigin * rad2deg),
      SemiMajorAxis(ellipsoid->a),
      ToIsometric(new double[IsometricTerms.size()]),
      FromIsometric(new double[LatitudeTerms.size()]),
      ToPlane(new complex[PlaneTerms.size()]),
      FromPlane(new complex[ReverseStartTerms.size()]) {
    InitializeProjectionConstants();
    Parameters = new TNZMGMapProjectionParameters(*parameters);
}

TNZMGMapProjection::TNZMGMapProjection(TNZMGMapProjection const& source)
    : TMapProjection(source),
      Parameters(nullptr),
      FalseNorthing(source.FalseNorthing),
      FalseEasting(source.FalseEasting),
      LatitudeOfOrigin(source.LatitudeOfOrigin),
      LongitudeOfOrigin(source.LongitudeOfOrigin),
      SemiMajorAxis(source.SemiMajorAxis),
      ToIsometric(new double[IsometricTerms.size()]),
      FromIsometric(new double[LatitudeTerms.size()]),
      ToPlane(new complex[PlaneTerms.size()]),
      FromPlane(new complex[ReverseStartTerms.size()]) {
    std::copy_n(source.ToIsometric.get(), IsometricTerms.size(), ToIsometric.get());
    std::copy_n(source.FromIsometric.get(), LatitudeTerms.size(), FromIsometric.get());
    std::copy_n(source.ToPlane.get(), PlaneTerms.size(), ToPlane.get());
    std::copy_n(source.FromPlane.get(), ReverseStartTerms.size(), FromPlane.get());
    Parameters = new TNZMGMapProjectionParameters(*source.Parameters);
}

TNZMGMapProjection::~TNZMGMapProjection() {
    delete Parameters;
}

void TNZMGMapProjection::InitializeProjectionConstants() {
    std::copy(IsometricTerms.begin(), IsometricTerms.end(), ToIsometric.get());
    std::copy(LatitudeTerms.begin(), LatitudeTerms.end(), FromIsometric.get());
    std::copy(PlaneTerms.begin(), PlaneTerms.end(), ToPlane.get());
    std::copy(ReverseStartTerms.begin(), ReverseStartTerms.end(), FromPlane.get());
}

bool TNZMGMapProjection::operator==(TMapProjection const& other) const {
    auto const* const same = AsSameClass(*this, other);
    if (!same) {
        return false;
    }
    auto const& theirs = *same->Parameters;
    return Parameters->LatitudeOfOrigin == theirs.LatitudeOfOrigin &&
           Parameters->LongitudeOfOrigin == theirs.LongitudeOfOrigin &&
           Parameters->FalseEasting == theirs.FalseEasting &&
           Parameters->FalseNorthing == theirs.FalseNorthing;
}

void TNZMGMapProjection::ProjectedToGeodetic(TCoords* coords) const {
    complex const z{(coords->Y - FalseNorthing) / SemiMajorAxis, (coords->X - FalseEasting) / SemiMajorAxis};
    complex theta = ComplexSeries(FromPlane.get(), z);
    // Kept: two steps always.
    theta = NewtonStep(ToPlane.get(), z, theta);
    theta = NewtonStep(ToPlane.get(), z, theta);

    double const difference = RealSeries<LatitudeTerms.size()>(FromIsometric.get(), theta.Real);
    coords->X = theta.Imaginary + LongitudeOfOrigin / rad2deg;
    coords->Y = (difference / SeriesUnitsInDegree + LatitudeOfOrigin) / rad2deg;
    NormalizeLatitude(coords->Y);
    NormalizeLongitude(coords->X);
}

void TNZMGMapProjection::GeodeticToProjected(TCoords* coords) const {
    double const difference = (coords->Y * rad2deg - LatitudeOfOrigin) * SeriesUnitsInDegree;
    double const isometric = RealSeries<IsometricTerms.size()>(ToIsometric.get(), difference);
    complex const z{isometric, coords->X - LongitudeOfOrigin / rad2deg};
    complex const w = ComplexSeries(ToPlane.get(), z);
    coords->X = w.Imaginary * SemiMajorAxis + FalseEasting;
    coords->Y = w.Real * SemiMajorAxis + FalseNorthing;
}

} // namespace KvRefSystem
