#pragma once

#include <Vellari/Vellari.h>

#include <memory>
#include <span>
#include <string>

namespace VellariAccuracy {

/** What a parameter is counted in. */
enum EQuantity : int {
    quDegrees,
    quMetres,
    quRatio,
    quPole,
};

/** One parameter of a class. */
struct TParameter {
    char const* Symbol;
    EQuantity Quantity;
};

/** Parameters of a case in their class's order: degrees, metres, ratios, `TPole`. */
using TValues = std::span<double const>;

/** One class of projections. */
struct TMethod {
    KvRefSystem::TMapProjectionType Type;
    char const* Name;
    int Epsg; ///< number of the coordinate operation method; 0 for none
    std::span<TParameter const> Parameters;
    /** @param values as the class takes them: radians, metres. */
    std::unique_ptr<KvRefSystem::TMapProjection> (*Create)(KvRefSystem::TEllipsoidSemiAxes const& axes,
                                                           double const* values);
};

/** All classes in the order of the document. */
std::span<TMethod const> Methods();

/** @throws std::logic_error for a class that isn't there. */
TMethod const& MethodOf(KvRefSystem::TMapProjectionType type);

/** @throws std::logic_error for a wrong number of values. */
std::unique_ptr<KvRefSystem::TMapProjection>
CreateProjection(TMethod const& method, KvRefSystem::TEllipsoidSemiAxes const& axes, TValues values);

/** The parameters in words, as "φ0 46.5°, λ0 3°, k 0.99987742, FE 600000 m". */
std::string ParametersText(TMethod const& method, TValues values);

} // namespace VellariAccuracy
