#include "tools/determinism/Block.h"

#include <Vellari/Vellari.h>

#include <vector>

namespace VellariDeterminism {

namespace {

using namespace KvRefSystem;

constexpr int PointsOfPrimitive = 3000;
constexpr double HalfTurn = 3.141592653589793;

TEllipsoid Figure(TGenerator& numbers) {
    double const major = numbers.Between(6.377e6, 6.379e6);
    return {major, major - major / numbers.Between(293, 301)};
}

void AddCoords(TCoords const& point, TLine* line) {
    line->Add(point.X, point.Y, point.Z);
}

void PrintEllipsoid(TGenerator& numbers, TLine* line) {
    TEllipsoid const figure = Figure(numbers);
    line->Add(figure.Eccentricity, figure.SecondEccentricity, figure.PolarQ, figure.AuthalicRadius,
              figure.AuthalicRadiusSeries, figure.AuthalicSin2Coefficient, figure.AuthalicSin4Coefficient,
              figure.AuthalicInverse2, figure.AuthalicInverse4, figure.AuthalicInverse6);
    TCoords point{numbers.Between(-HalfTurn, HalfTurn), numbers.Between(-HalfTurn / 2, HalfTurn / 2),
                  numbers.Between(-1e4, 1e6), false};
    line->Add(figure.Calculate_q(point.Y));
    double latitude = 0;
    double longitude = 0;
    figure.AuthalicTransformationOntoSphere(point.Y, point.X, &latitude, &longitude);
    line->Add(latitude, longitude);
    figure.EllipsoidalToCartesian(&point);
    AddCoords(point, line);
    figure.CartesianToEllipsoidal(&point);
    AddCoords(point, line);
}

void PrintArea(TGenerator& numbers, TLine* line) {
    TEllipsoid const figure = Figure(numbers);
    double const latitude = numbers.Between(-1.3, 1.3);
    double const longitude = numbers.Between(-3, 3);
    double const reach = numbers.Between(1e-4, 0.2);
    std::vector<vec_t_<double, 2>> corners;
    constexpr int Corners = 6;
    corners.reserve(Corners);
    for (int corner = 0; corner < Corners; ++corner) {
        corners.push_back(
            {{latitude + numbers.Between(-reach, reach), longitude + numbers.Between(-reach, reach)}});
    }
    line->Add(figure.CalculateArea(corners), CalcSignedFigureArea(corners));
}

void PrintShift(TGenerator& numbers, TLine* line) {
    TBursaWolfDatumShiftParameters const parameters{
        numbers.Between(-800, 800),     numbers.Between(-800, 800),   numbers.Between(-800, 800),
        numbers.Between(-1e-4, 1e-4),   numbers.Between(-1e-4, 1e-4), numbers.Between(-1e-4, 1e-4),
        numbers.Between(0.9999, 1.0001)};
    TBursaWolfDatumShift const linear(parameters);
    TBursaWolfNonlinearDatumShift const exact(parameters);
    TCoords const start{numbers.Between(-7e6, 7e6), numbers.Between(-7e6, 7e6), numbers.Between(-7e6, 7e6),
                        false};
    for (TDatumShift const* const shift :
         {static_cast<TDatumShift const*>(&linear), static_cast<TDatumShift const*>(&exact)}) {
        TCoords point = start;
        shift->DirectTransform(&point);
        AddCoords(point, line);
        shift->ReverseTransform(&point);
        AddCoords(point, line);
    }
}

T7Params Similarity(TGenerator& numbers) {
    T7Params params;
    for (double* const angle : {&params.wx, &params.wy, &params.wz}) {
        *angle = numbers.Between(-HalfTurn, HalfTurn);
    }
    params.m = numbers.Between(-0.01, 0.01);
    for (double* const shift : {&params.dX, &params.dY, &params.dZ}) {
        *shift = numbers.Between(-1000, 1000);
    }
    return params;
}

void AddParams(T7Params const& params, TLine* line) {
    line->Add(params.wx, params.wy, params.wz, params.m, params.dX, params.dY, params.dZ);
}

void PrintSimilarity(TGenerator& numbers, TLine* line) {
    T7Params const first = Similarity(numbers);
    T7Params const second = Similarity(numbers);
    T7Params result;
    LumCommonUtils::Combine7Params(first, second, &result);
    AddParams(result, line);
    LumCommonUtils::Combine7ParamsLinearized(first, second, &result);
    AddParams(result, line);
    LumCommonUtils::InvertParams(first, &result);
    AddParams(result, line);
    LumCommonUtils::T7ParamsTransform transform;
    line->AddWord(transform.Initialize(first) ? "set" : "refused");
    double x = numbers.Between(-7e6, 7e6);
    double y = numbers.Between(-7e6, 7e6);
    double z = numbers.Between(-7e6, 7e6);
    transform.DirectTransform(x, y, z, &x, &y, &z);
    line->Add(x, y, z);
    transform.InverseTransform(x, y, z, &x, &y, &z);
    line->Add(x, y, z);
}

TLSR Frame(TGenerator& numbers) {
    TEllipsoid const figure = Figure(numbers);
    double const latitude = numbers.Between(-1.57, 1.57);
    double const longitude = numbers.Between(-HalfTurn, HalfTurn);
    double const height = numbers.Between(-100, 5000);
    return {figure.SemiMajorAxis,    figure.SemiMinorAxis, latitude, longitude, height,
            numbers.Between(0, 6.28)};
}

void PrintFrame(TGenerator& numbers, TLine* line) {
    TLSR const frame = Frame(numbers);
    TLSR const other = Frame(numbers);
    double x = numbers.Between(-1e5, 1e5);
    double y = numbers.Between(-1e5, 1e5);
    double z = numbers.Between(-1e4, 1e4);
    double azimuth = 0;
    double elevation = 0;
    Dir2AzimuthElevation(x, y, z, &azimuth, &elevation);
    line->Add(azimuth, elevation);
    frame.GeocDir2AzimuthElevation(x, y, z, &azimuth, &elevation);
    line->Add(azimuth, elevation);
    double direction[3] = {};
    frame.AzimuthElevation2GeocDir(azimuth, elevation, &direction[0], &direction[1], &direction[2]);
    line->Add(direction[0], direction[1], direction[2]);
    T7Params params;
    LSR2LSR7Params(frame, other, &params);
    AddParams(params, line);
    frame.Get7ParamsToGeocentric(&params);
    AddParams(params, line);
    LSR2LSR(frame, x, y, z, other, &direction[0], &direction[1], &direction[2]);
    line->Add(direction[0], direction[1], direction[2]);
    frame.LSR2Geocentric(x, y, z, &direction[0], &direction[1], &direction[2]);
    line->Add(direction[0], direction[1], direction[2]);
    frame.LSR2Geodetic(x, y, z, &x, &y, &z);
    line->Add(x, y, z);
    frame.Geodetic2LSR(x, y, z, &x, &y, &z);
    line->Add(x, y, z);
}

void PrintTransforms(TGenerator& numbers, TLine* line) {
    TPlaneRotationRefSystemTransform const turn(numbers.Between(-HalfTurn, HalfTurn));
    T7Params const p = Similarity(numbers);
    TSevenParametersRefSystemTransform const seven(p.dX, p.dY, p.dZ, p.wx, p.wy, p.wz, p.m);
    double const matrix[4] = {numbers.Between(0.5, 1), numbers.Between(-0.5, 0.5), numbers.Between(-0.5, 0.5),
                              numbers.Between(0.5, 1)};
    double const shift[2] = {numbers.Between(-1e3, 1e3), numbers.Between(-1e3, 1e3)};
    TPlaneAffineRefSystemTransform const affine(matrix, shift);
    TCoords point{numbers.Between(-1e6, 1e6), numbers.Between(-1e6, 1e6), numbers.Between(-1e3, 1e3), false};
    for (TRefSystemTransform const* const transform :
         {static_cast<TRefSystemTransform const*>(&turn), static_cast<TRefSystemTransform const*>(&seven),
          static_cast<TRefSystemTransform const*>(&affine)}) {
        transform->BaseToTransformed(nullptr, &point);
        AddCoords(point, line);
        TCoords back = point;
        transform->TransformedToBase(nullptr, &back);
        AddCoords(back, line);
    }
}

void PrintSphere(TGenerator& numbers, TLine* line) {
    TEllipsoid const figure = Figure(numbers);
    TEllipsoidToSphereMollweideProjection const sphere(figure.SemiMajorAxis, figure.SemiMinorAxis,
                                                       numbers.Between(-1.4, 1.4), 1e-12);
    double latitude = numbers.Between(-1.5, 1.5);
    double longitude = numbers.Between(-HalfTurn, HalfTurn);
    NormalizeLongitude(longitude);
    NormalizeLatitude(latitude);
    line->Add(latitude, longitude, arcsin(numbers.Between(-1.1, 1.1)));
    sphere.EllipsoidToSphere(latitude, longitude, &latitude, &longitude);
    line->Add(latitude, longitude);
    sphere.SphereToEllipsoid(latitude, longitude, &latitude, &longitude);
    line->Add(latitude, longitude);
}

} // namespace

void AddPrimitives(TBlocks* blocks) {
    blocks->push_back({"ellipsoid", PointsOfPrimitive, &PrintEllipsoid});
    blocks->push_back({"areas", PointsOfPrimitive, &PrintArea});
    blocks->push_back({"datum shifts of the core", PointsOfPrimitive, &PrintShift});
    blocks->push_back({"seven parameters", PointsOfPrimitive, &PrintSimilarity});
    blocks->push_back({"local spatial reference", PointsOfPrimitive, &PrintFrame});
    blocks->push_back({"transforms of the core", PointsOfPrimitive, &PrintTransforms});
    blocks->push_back({"ellipsoid onto a sphere", PointsOfPrimitive, &PrintSphere});
}

} // namespace VellariDeterminism
