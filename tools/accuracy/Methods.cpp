#include "tools/accuracy/Methods.h"

#include "tools/accuracy/Domain.h"

#include <cstddef>
#include <stdexcept>
#include <utility>
#include <vector>

namespace VellariAccuracy {

namespace {

using namespace KvRefSystem;

using TProjection = std::unique_ptr<TMapProjection>;

template <class TClass, class TRecord, std::size_t... place>
TProjection CreateOf(TEllipsoidSemiAxes const& axes, double const* values, std::index_sequence<place...>) {
    TRecord const record(values[place]...);
    return std::make_unique<TClass>(&axes, &record);
}

/** A class whose record takes `Count` numbers. */
template <class TClass, class TRecord, std::size_t Count>
TProjection Create(TEllipsoidSemiAxes const& axes, double const* values) {
    return CreateOf<TClass, TRecord>(axes, values, std::make_index_sequence<Count>());
}

/** A class whose record takes a pole and four numbers. */
template <class TClass, class TRecord>
TProjection CreatePolar(TEllipsoidSemiAxes const& axes, double const* values) {
    TPole const pole = static_cast<TPole>(static_cast<int>(values[0]));
    TRecord const record(pole, values[1], values[2], values[3], values[4]);
    return std::make_unique<TClass>(&axes, &record);
}

constexpr TParameter meridianFirst[] = {
    {"λ0", quDegrees}, {"φ0", quDegrees}, {"k", quRatio}, {"FE", quMetres}, {"FN", quMetres}};
constexpr TParameter latitudeFirst[] = {
    {"φ0", quDegrees}, {"λ0", quDegrees}, {"k", quRatio}, {"FE", quMetres}, {"FN", quMetres}};
constexpr TParameter meridianOnly[] = {{"λ0", quDegrees}, {"k", quRatio}, {"FE", quMetres}, {"FN", quMetres}};
constexpr TParameter originOnly[] = {
    {"φ0", quDegrees}, {"λ0", quDegrees}, {"FE", quMetres}, {"FN", quMetres}};
constexpr TParameter originWithoutFalseValues[] = {{"φ0", quDegrees}, {"λ0", quDegrees}};
constexpr TParameter oneParallel[] = {
    {"φ1", quDegrees}, {"λ0", quDegrees}, {"FE", quMetres}, {"FN", quMetres}};
constexpr TParameter twoParallels[] = {{"φ1", quDegrees}, {"φ2", quDegrees}, {"φ0", quDegrees},
                                       {"λ0", quDegrees}, {"FE", quMetres},  {"FN", quMetres}};
constexpr TParameter skewCylinder[] = {{"φc", quDegrees}, {"λc", quDegrees}, {"αc", quDegrees},
                                       {"γc", quDegrees}, {"kc", quRatio},   {"E", quMetres},
                                       {"N", quMetres}};
constexpr TParameter obliqueCone[] = {{"φc", quDegrees}, {"λ0", quDegrees}, {"αc", quDegrees},
                                      {"φp", quDegrees}, {"k", quRatio},    {"FE", quMetres},
                                      {"FN", quMetres}};
constexpr TParameter polarByScale[] = {
    {"pole", quPole}, {"λ0", quDegrees}, {"k", quRatio}, {"FE", quMetres}, {"FN", quMetres}};
constexpr TParameter polarByParallel[] = {
    {"pole", quPole}, {"φ1", quDegrees}, {"λ0", quDegrees}, {"FE", quMetres}, {"FN", quMetres}};

// clang-format off
constexpr TMethod methods[] = {
    {mptTransverseMercator, "Transverse Mercator", 9807, meridianFirst,
     Create<TTransverseMercatorMapProjection, TTransverseMercatorMapProjectionParameters, 5>},
    {mptGaussBoaga, "Gauss-Boaga", 9807, meridianOnly,
     Create<TGaussBoagaMapProjection, TGaussBoagaMapProjectionParameters, 4>},
    {mptGaussKrugerWide, "Gauss-Kruger, wide", 9807, meridianOnly,
     Create<TGaussKrugerWideMapProjection, TGaussKrugerWideMapProjectionParameters, 4>},

    {mptMercator2SP, "Mercator, standard parallel", 9805, oneParallel,
     Create<TMercator2SPMapProjection, TMercator2SPMapProjectionParameters, 4>},
    {mptMercator1SP, "Mercator, scale", 9804, latitudeFirst,
     Create<TMercator1SPMapProjection, TMercator1SPMapProjectionParameters, 5>},
    {mptSphericalMercator, "Spherical Mercator", 1024, meridianOnly,
     Create<TSphericalMercatorMapProjection, TSphericalMercatorMapProjectionParameters, 4>},
    {mptHotineObliqueMercator, "Hotine's oblique Mercator", 9812, skewCylinder,
     Create<THotineObliqueMercatorMapProjection, THotineObliqueMercatorMapProjectionParameters, 7>},
    {mptObliqueMercator, "Oblique Mercator", 9815, skewCylinder,
     Create<TObliqueMercatorMapProjection, TObliqueMercatorMapProjectionParameters, 7>},

    {mptLambertConicConformal1SP, "Lambert's conformal cone, one parallel", 9801, latitudeFirst,
     Create<TLambertConicConformal1SPMapProjection, TLambertConicConformal1SPMapProjectionParameters, 5>},
    {mptLambertConicConformal2SP, "Lambert's conformal cone, two parallels", 9802, twoParallels,
     Create<TLambertConicConformal2SPMapProjection, TLambertConicConformal2SPMapProjectionParameters, 6>},
    {mptLambertConicConformal2SPBelgium, "Lambert's conformal cone of Belgium", 9803, twoParallels,
     Create<TLambertConicConformal2SPBelgiumMapProjection, TLambertConicConformal2SPMapProjectionParameters, 6>},
    {mptAlbersEqualAreaConic, "Albers' equal-area cone", 9822, twoParallels,
     Create<TAlbersEqualAreaConicMapProjection, TAlbersEqualAreaConicMapProjectionParameters, 6>},
    {mptEquidistantConic, "Equidistant cone", 1119, twoParallels,
     Create<TEquidistantConicMapProjection, TEquidistantConicMapProjectionParameters, 6>},
    {mptKrovak, "Krovak", 9819, obliqueCone,
     Create<TKrovakMapProjection, TKrovakMapProjectionParameters, 7>},
    {mptPolyconic, "American polyconic", 9818, meridianFirst,
     Create<TPolyconicMapProjection, TPolyconicMapProjectionParameters, 5>},

    {mptObliqueStereographic, "Oblique stereographic", 9809, meridianFirst,
     Create<TObliqueStereographicMapProjection, TObliqueStereographicMapProjectionParameters, 5>},
    {mptQuasiStereographic, "Quasi-stereographic", 0, meridianFirst,
     Create<TQuasiStereographicMapProjection, TQuasiStereographicMapProjectionParameters, 5>},
    {mptPolarStereographic, "Polar stereographic, older", 9810, meridianFirst,
     Create<TPolarStereographicMapProjection, TPolarStereographicMapProjectionParameters, 5>},
    {mptPolarStereographicBasic, "Polar stereographic, scale", 9810, polarByScale,
     CreatePolar<TPolarStereographicBasicMapProjection, TPolarStereographicBasicMapProjectionParameters>},
    {mptPolarStereographicNaturalOrigin, "Polar stereographic, standard parallel", 9829, polarByParallel,
     CreatePolar<TPolarStereographicNaturalOriginMapProjection,
                 TPolarStereographicNaturalOriginMapProjectionParameters>},
    {mptPolarStereographicFalseOrigin, "Polar stereographic, false origin", 9830, polarByParallel,
     CreatePolar<TPolarStereographicFalseOriginMapProjection,
                 TPolarStereographicFalseOriginMapProjectionParameters>},

    {mptLambertAzimuthalEqualArea, "Lambert's azimuthal equal-area", 9820, originOnly,
     Create<TLambertAzimuthalEqualAreaMapProjection, TLambertAzimuthalEqualAreaMapProjectionParameters, 4>},
    {mptOrthographic, "Orthographic", 9840, originOnly,
     Create<TOrthographicMapProjection, TOrthographicMapProjectionParameters, 4>},
    {mptHatt, "Hatt", 0, originWithoutFalseValues,
     Create<THattMapProjection, THattMapProjectionParameters, 2>},
    {mptCassiniSoldner, "Cassini-Soldner", 9806, originOnly,
     Create<TCassiniSoldnerMapProjection, TCassiniSoldnerMapProjectionParameters, 4>},
    {mptNZMG, "New Zealand Map Grid", 9811, originOnly,
     Create<TNZMGMapProjection, TNZMGMapProjectionParameters, 4>},
};
// clang-format on

void RequireCount(TMethod const& method, TValues values) {
    if (values.size() != method.Parameters.size()) {
        throw std::logic_error(FormatText("%s takes %zu parameters, not %zu", method.Name,
                                          method.Parameters.size(), values.size()));
    }
}

std::string ValueText(EQuantity quantity, double value) {
    switch (quantity) {
    case quDegrees:
        return FormatText("%.15g°", value);
    case quMetres:
        return FormatText("%.15g m", value);
    case quPole:
        return static_cast<int>(value) == poleNorth ? "north" : "south";
    case quRatio:
        break;
    }
    return FormatText("%.15g", value);
}

} // namespace

std::span<TMethod const> Methods() {
    return methods;
}

TMethod const& MethodOf(TMapProjectionType type) {
    for (TMethod const& method : methods) {
        if (method.Type == type) {
            return method;
        }
    }
    throw std::logic_error(FormatText("no method of class %d", static_cast<int>(type)));
}

TProjection CreateProjection(TMethod const& method, TEllipsoidSemiAxes const& axes, TValues values) {
    RequireCount(method, values);
    std::vector<double> taken(values.begin(), values.end());
    for (std::size_t place = 0; place < taken.size(); ++place) {
        if (method.Parameters[place].Quantity == quDegrees) {
            taken[place] *= Degree;
        }
    }
    return method.Create(axes, taken.data());
}

std::string ParametersText(TMethod const& method, TValues values) {
    RequireCount(method, values);
    std::string text;
    for (std::size_t place = 0; place < values.size(); ++place) {
        TParameter const& parameter = method.Parameters[place];
        text += place == 0 ? "" : ", ";
        text += parameter.Symbol;
        text += ' ';
        text += ValueText(parameter.Quantity, values[place]);
    }
    return text;
}

} // namespace VellariAccuracy
