#include "shell/projections/TransverseCylinders.h"

#include "core/projections/GaussBoaga.h"
#include "core/projections/GaussKrugerWide.h"
#include "frame/NumberText.h"
#include "shell/projections/ParameterTextDetail.h"
#include "shell/projections/ProjectionTagsDetail.h"
#include "shell/projections/ReportFailureDetail.h"
#include "shell/projections/TransverseGridDetail.h"

#include <stdexcept>

namespace KvRefSystem {

namespace {

using ParameterText::InUnit;
using ParameterText::ToBase;

double ScaleOf(TShellGaussBoagaMapProjection const& shell) {
    return ToBase(shell.ScaleUnit, shell.ScaleFactor);
}

double ScaleOf(TShellGaussKrugerWideMapProjection const& shell) {
    return shell.ScaleUnit && !shell.ScaleFactor.empty() ? ToBase(shell.ScaleUnit, shell.ScaleFactor) : 1.0;
}

template <class Shell>
double MeridianOf(Shell const& shell) {
    return ToBase(shell.AngularUnit, shell.CentralMeridian);
}

template <class Core, class Record, class Shell>
TMapProjection* CreateCore(Shell const& shell, TEllipsoidSemiAxes const* semiAxes) {
    return TransverseGrid::CoreOrNull([&]() -> TMapProjection* {
        if (!semiAxes) {
            return nullptr;
        }
        double const meridian = MeridianOf(shell);
        double const scale = ScaleOf(shell);
        double const easting = ToBase(shell.LinearUnit, shell.FalseEasting);
        double const northing = ToBase(shell.LinearUnit, shell.FalseNorthing);
        Record const parameters(meridian, scale, easting, northing);
        return new Core(semiAxes, &parameters);
    });
}

template <class Shell>
bool HasSameTexts(Shell const& one, TShellMapProjection const& other) {
    auto const* const same = AsSameClass(one, other);
    return same && one.CentralMeridian == same->CentralMeridian && one.ScaleFactor == same->ScaleFactor &&
           one.FalseEasting == same->FalseEasting && one.FalseNorthing == same->FalseNorthing;
}

template <class Shell>
bool ExportParametersToWkt(Shell const& shell, std::string* text) {
    return ReportFailure([&] {
        *text = TransverseGrid::WktParameters({ParameterText::ToDegrees(MeridianOf(shell)), ScaleOf(shell),
                                               ToBase(shell.LinearUnit, shell.FalseEasting),
                                               ToBase(shell.LinearUnit, shell.FalseNorthing)});
        return true;
    });
}

template <class Shell>
bool ExportToMif(Shell const& shell, TShellLinearUnit const* unit, std::string* text) {
    return ReportFailure([&] {
        double const meridian = ParameterText::RoundDegrees(ParameterText::ToDegrees(MeridianOf(shell)),
                                                            ParameterText::TMifRounding::Ten);
        double const easting = ToBase(shell.LinearUnit, shell.FalseEasting);
        double const northing = ToBase(shell.LinearUnit, shell.FalseNorthing);
        *text += FormatText(", %.16lg, %.16lg, %.16lg, ", meridian, 0.0, ScaleOf(shell)) +
                 ParameterText::LengthText(unit, easting) + ", " + ParameterText::LengthText(unit, northing);
        return true;
    });
}

template <class Shell>
void ClearTexts(Shell* shell) {
    shell->CentralMeridian.clear();
    shell->ScaleFactor.clear();
    shell->FalseEasting.clear();
    shell->FalseNorthing.clear();
}

} // namespace

// --- Gauss-Boaga -------------------------------------------------------------------------------------------

TShellGaussBoagaMapProjection::TShellGaussBoagaMapProjection(TStringTree* tree) : TShellMapProjection(tree) {
    if (!tree->GetString(ProjectionTag::LongitudeOfOrigin, 0, &CentralMeridian) ||
        !tree->GetString(ProjectionTag::ScaleFactorAtOrigin, 0, &ScaleFactor) ||
        !tree->GetString(ProjectionTag::FalseEasting, 0, &FalseEasting) ||
        !tree->GetString(ProjectionTag::FalseNorthing, 0, &FalseNorthing)) {
        throw std::runtime_error(
            "TShellGaussBoagaMapProjection::TShellGaussBoagaMapProjection(TStringTree *tree)");
    }
}

TMapProjection* TShellGaussBoagaMapProjection::CreateCoreMapProjection(TEllipsoidSemiAxes* semiAxes) const {
    return CreateCore<TGaussBoagaMapProjection, TGaussBoagaMapProjectionParameters>(*this, semiAxes);
}

bool TShellGaussBoagaMapProjection::operator==(TShellMapProjection const& other) const {
    return EqualsInBase(other) && HasSameTexts(*this, other);
}

bool TShellGaussBoagaMapProjection::GetProjectionTypeWKT(std::string* text) const {
    *text = TransverseGrid::WktMethod;
    return true;
}

bool TShellGaussBoagaMapProjection::GetProjectionParamsWKT(std::string* text) const {
    return ExportParametersToWkt(*this, text);
}

bool TShellGaussBoagaMapProjection::ExportToMIFMID(TShellLinearUnit* outputUnit, std::string* text) const {
    return ExportToMif(*this, outputUnit, text);
}

void TShellGaussBoagaMapProjection::Reset() {
    TShellMapProjection::Reset();
    ClearTexts(this);
}

bool TShellGaussBoagaMapProjection::ExportMapProjParamsToGeoTIFF(std::map<int, std::string>* keys,
                                                                 TShellAngularUnit const*,
                                                                 TShellLinearUnit const* linearUnit) const {
    return ReportFailure([&] {
        std::string const meridian = FormatText("%.10lg", ParameterText::ToDegrees(MeridianOf(*this)));
        std::string const scale = FormatText("%.10lg", ScaleOf(*this));
        std::string const easting = InUnit(LinearUnit, FalseEasting, linearUnit);
        std::string const northing = InUnit(LinearUnit, FalseNorthing, linearUnit);
        keys->insert({ProjectionGeoKey::NaturalOriginLatitude, FormatText("%.10lg", 0.0)});
        // Kept: in degrees under the centre's key; readers of these files take it from there.
        keys->insert({ProjectionGeoKey::CentreLongitude, meridian});
        keys->insert({ProjectionGeoKey::ScaleAtNaturalOrigin, scale});
        keys->insert({ProjectionGeoKey::FalseEasting, easting});
        keys->insert({ProjectionGeoKey::FalseNorthing, northing});
        return true;
    });
}

// --- Wide Gauss-Kruger -------------------------------------------------------------------------------------

TShellGaussKrugerWideMapProjection::TShellGaussKrugerWideMapProjection(TStringTree* tree)
    : TShellMapProjection(tree) {
    if (!tree->GetString(ProjectionTag::LongitudeOfOrigin, 0, &CentralMeridian) ||
        !tree->GetString(ProjectionTag::FalseEasting, 0, &FalseEasting) ||
        !tree->GetString(ProjectionTag::FalseNorthing, 0, &FalseNorthing)) {
        throw std::runtime_error(
            "TShellGaussKrugerWideMapProjection::TShellGaussKrugerWideMapProjection(TStringTree *tree)");
    }
    if (!tree->GetString(ProjectionTag::ScaleFactorAtOrigin, 0, &ScaleFactor)) {
        ScaleFactor = "1";
    }
}

TMapProjection*
TShellGaussKrugerWideMapProjection::CreateCoreMapProjection(TEllipsoidSemiAxes* semiAxes) const {
    return CreateCore<TGaussKrugerWideMapProjection, TGaussKrugerWideMapProjectionParameters>(*this,
                                                                                              semiAxes);
}

bool TShellGaussKrugerWideMapProjection::operator==(TShellMapProjection const& other) const {
    return EqualsInBase(other) && HasSameTexts(*this, other);
}

bool TShellGaussKrugerWideMapProjection::GetProjectionTypeWKT(std::string* text) const {
    *text = TransverseGrid::WktMethod;
    return true;
}

bool TShellGaussKrugerWideMapProjection::GetProjectionParamsWKT(std::string* text) const {
    return ExportParametersToWkt(*this, text);
}

bool TShellGaussKrugerWideMapProjection::ExportToMIFMID(TShellLinearUnit* outputUnit,
                                                        std::string* text) const {
    return ExportToMif(*this, outputUnit, text);
}

void TShellGaussKrugerWideMapProjection::Reset() {
    TShellMapProjection::Reset();
    ClearTexts(this);
}

bool TShellGaussKrugerWideMapProjection::ExportMapProjParamsToGeoTIFF(
    std::map<int, std::string>* keys, TShellAngularUnit const* angularUnit,
    TShellLinearUnit const* linearUnit) const {
    return ReportFailure([&] {
        std::string const meridian = InUnit(AngularUnit, CentralMeridian, angularUnit);
        std::string const easting = InUnit(LinearUnit, FalseEasting, linearUnit);
        std::string const northing = InUnit(LinearUnit, FalseNorthing, linearUnit);
        // Kept: the point behind the zero, and the centre's key; readers of these files know both.
        keys->insert({ProjectionGeoKey::NaturalOriginLatitude, "0."});
        keys->insert({ProjectionGeoKey::CentreLongitude, meridian});
        keys->insert({ProjectionGeoKey::ScaleAtNaturalOrigin, ScaleFactor});
        keys->insert({ProjectionGeoKey::FalseEasting, easting});
        keys->insert({ProjectionGeoKey::FalseNorthing, northing});
        return true;
    });
}

} // namespace KvRefSystem
