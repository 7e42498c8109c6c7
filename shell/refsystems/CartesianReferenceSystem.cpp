#include "shell/refsystems/CartesianReferenceSystem.h"

#include "shell/refsystems/Exports.h"
#include "shell/refsystems/GeocentricReferenceSystem.h"
#include "shell/refsystems/KindsDetail.h"
#include "shell/refsystems/LocalReferenceSystems.h"
#include "shell/refsystems/TopocentricHorizontalReferenceSystem.h"

#include <stdexcept>
#include <utility>

namespace KvRefSystem {

namespace {

template <class Shell>
constexpr char const* ClassName = nullptr;
template <>
constexpr char const* ClassName<TShellGeocentricReferenceSystem> = "TShellGeocentricReferenceSystem";
template <>
constexpr char const* ClassName<TShellTopocentricHorizontalReferenceSystem> =
    "TShellTopocentricHorizontalReferenceSystem";
template <>
constexpr char const* ClassName<TShellLocalCartesianReferenceSystem> = "TShellLocalCartesianReferenceSystem";
template <>
constexpr char const* ClassName<TShellLocalCurvedReferenceSystem> = "TShellLocalCurvedReferenceSystem";

[[noreturn]] void Fail(char const* className, char const* operation) {
    throw std::runtime_error(std::string(className) + "::" + operation);
}

template <class Shell>
TShellLinearUnit const& UnitOf(TCartesianReferenceSystem<Shell> const& system) {
    TShellLinearUnit const* const unit = static_cast<Shell const&>(system).LinearUnit;
    if (!unit) {
        throw std::runtime_error(std::string("const TShellLinearUnit& ") + ClassName<Shell> +
                                 "::GetLinearUnit() const");
    }
    return *unit;
}

/** Metres in the order of the user's axes. */
struct TPoint {
    double first;
    double second;
    double third;
};

TCoords ToCore(TPoint const& point, bool isLeft) {
    return {isLeft ? point.second : point.first, isLeft ? point.first : point.second, point.third, false};
}

TPoint FromCore(TCoords const& core, bool isLeft, double fromMetres) {
    return {(isLeft ? core.Y : core.X) * fromMetres, (isLeft ? core.X : core.Y) * fromMetres,
            core.Z * fromMetres};
}

} // namespace

template <class Shell>
void TCartesianReferenceSystem<Shell>::CoordsShellToCore(double const* shell, TCoords* core) const {
    double const toMetres = UnitOf(*this).CoefToBase;
    *core = ToCore({shell[0] * toMetres, shell[1] * toMetres, shell[2] * toMetres}, IsLeft());
}

template <class Shell>
void TCartesianReferenceSystem<Shell>::CoordsCoreToShell(TCoords const& core, double* shell) const {
    if (core.ZUndefined) {
        Fail(ClassName<Shell>, "CoordsCoreToShell");
    }
    TPoint const point = FromCore(core, IsLeft(), UnitOf(*this).CoefFromBase);
    shell[0] = point.first;
    shell[1] = point.second;
    shell[2] = point.third;
}

template <class Shell>
void TCartesianReferenceSystem<Shell>::CoordsShellToCore(TShellCoords const& shell, TCoords* core) const {
    if (shell.Coord[2].empty()) {
        Fail(ClassName<Shell>, "CoordsShellToCore");
    }
    TShellLinearUnit const& unit = UnitOf(*this);
    double point[3];
    for (int axis = 0; axis < 3; ++axis) {
        point[axis] = unit.StringToValue(shell.Coord[axis]);
    }
    CoordsShellToCore(point, core);
}

template <class Shell>
void TCartesianReferenceSystem<Shell>::CoordsCoreToShell(TCoords const& core, TShellCoords* shell) const {
    double point[3];
    CoordsCoreToShell(core, point);
    OutputCoords(point, shell, nullptr, -1, nullptr, -1);
}

template <class Shell>
bool TCartesianReferenceSystem<Shell>::InputCoords(TShellCoords const& texts, TShellUnit const* plane,
                                                   TShellUnit const*, double* shell) const {
    TShellLinearUnit const* const unit = static_cast<Shell const&>(*this).LinearUnit;
    return unit && Kinds::ParseTexts(texts, 3, {*unit, plane}, shell);
}

template <class Shell>
void TCartesianReferenceSystem<Shell>::OutputCoords(double const* shell, TShellCoords* texts,
                                                    TShellUnit const* plane, int planePrecision,
                                                    TShellUnit const*, int) const {
    TShellLinearUnit const& unit = UnitOf(*this);
    TShellCoords printed;
    for (int axis = 0; axis < 3; ++axis) {
        printed.Coord[axis] = Kinds::PrintText(shell[axis], {unit, plane}, planePrecision);
    }
    *texts = std::move(printed);
}

template <class Shell>
void TCartesianReferenceSystem<Shell>::OutputCoordsDef(double const* shell, TShellCoords* texts) const {
    OutputCoords(shell, texts, nullptr, UnitOf(*this).Precision, nullptr, -1);
}

template <class Shell>
double TCartesianReferenceSystem<Shell>::GetPlaneUnitCoefToBase() const {
    return UnitOf(*this).CoefToBase;
}

template <class Shell>
std::string TCartesianReferenceSystem<Shell>::GetPlaneUnitName() const {
    return UnitOf(*this).Name;
}

template <class Shell>
std::string TCartesianReferenceSystem<Shell>::GetPlaneUnitShortName() const {
    return Kinds::ShortName(UnitOf(*this));
}

template <class Shell>
int TCartesianReferenceSystem<Shell>::GetPlaneUnitDefPrec() const {
    return UnitOf(*this).Precision;
}

template <class Shell>
double TCartesianReferenceSystem<Shell>::GetHeightUnitCoefToBase() const {
    return GetPlaneUnitCoefToBase();
}

template <class Shell>
std::string TCartesianReferenceSystem<Shell>::GetHeightUnitName() const {
    return GetPlaneUnitName();
}

template <class Shell>
std::string TCartesianReferenceSystem<Shell>::GetHeightUnitShortName() const {
    return GetPlaneUnitShortName();
}

template <class Shell>
int TCartesianReferenceSystem<Shell>::GetHeightUnitDefPrec() const {
    return GetPlaneUnitDefPrec();
}

template <class Shell>
bool TCartesianReferenceSystem<Shell>::InsertCoreTransforms() {
    return Kinds::InsertOwnChain(this, {IsLeft(), 1, 1});
}

template <class Shell>
bool TCartesianReferenceSystem<Shell>::InsertCorePairwiseTransforms(std::string const& name) {
    return Kinds::InsertPairwiseChain(this, name, {IsLeft(), 1, 1});
}

template <class Shell>
bool TCartesianReferenceSystem<Shell>::ExportToMIFMID(std::string* text) const {
    if (this->ExportToMIFMID(text, false)) {
        return true;
    }
    TShellLinearUnit const* const unit = static_cast<Shell const&>(*this).LinearUnit;
    if (!unit) {
        return false;
    }
    *text = NonearthClause(unit->Abbreviation);
    return true;
}

template class TCartesianReferenceSystem<TShellGeocentricReferenceSystem>;
template class TCartesianReferenceSystem<TShellTopocentricHorizontalReferenceSystem>;
template class TCartesianReferenceSystem<TShellLocalCartesianReferenceSystem>;
template class TCartesianReferenceSystem<TShellLocalCurvedReferenceSystem>;

} // namespace KvRefSystem
