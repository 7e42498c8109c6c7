#include "shell/projections/ZonedProjections.h"

#include "frame/NumberText.h"
#include "shell/projections/ParameterTextDetail.h"
#include "shell/projections/ProjectionTagsDetail.h"
#include "shell/projections/ReportFailureDetail.h"
#include "shell/projections/TransverseGridDetail.h"

#include <cstdint>
#include <stdexcept>

namespace KvRefSystem {

namespace {

using TransverseGrid::CoreOrNull;
using TransverseGrid::TGrid;

constexpr int ZoneWidth = 6;       ///< degrees
constexpr int FullTurn = 360;      ///< degrees
constexpr int GeoTiffDecimals = 9; ///< of the central meridian
constexpr int ZoneInEasting = 1000000;
constexpr int EastingOfMeridian = 500000;
constexpr double SouthernNorthing = 10000000;

/** A family's central meridians, and its other numbers. Degrees are whole, and wide enough for any zone. */
struct TGaussKruger6Rules {
    static constexpr char const* Constructor =
        "TShellGaussKruger6MapProjection::TShellGaussKruger6MapProjection(TStringTree *tree)";
    static constexpr double ScaleFactor = 1;
    static constexpr char const* ScaleText = "1.0"; ///< of GeoTIFF; kept with its point

    static std::int64_t FalseEasting(std::int64_t zone) { return zone * ZoneInEasting + EastingOfMeridian; }

    /** As WKT and GeoTIFF have it. */
    static std::int64_t Meridian(std::int64_t zone) { return ZoneWidth * zone - 3; }
    static std::int64_t CoreMeridian(std::int64_t zone) {
        return ZoneWidth * zone < 184 ? Meridian(zone) : Meridian(zone) - FullTurn;
    }
    static std::int64_t MifMeridian(std::int64_t zone) {
        return ZoneWidth * zone > 183 ? Meridian(zone) - FullTurn : Meridian(zone);
    }
};

struct TUtmRules {
    static constexpr char const* Constructor =
        "TShellUTMMapProjection::TShellUTMMapProjection(TStringTree *tree)";
    static constexpr double ScaleFactor = 0.9996;
    static constexpr char const* ScaleText = "0.9996";

    static std::int64_t FalseEasting(std::int64_t) { return EastingOfMeridian; }

    static std::int64_t Meridian(std::int64_t zone) { return ZoneWidth * zone - 183; }
    static std::int64_t CoreMeridian(std::int64_t zone) { return Meridian(zone); }
    static std::int64_t MifMeridian(std::int64_t zone) {
        return Meridian(zone) > 180 ? Meridian(zone) - FullTurn : Meridian(zone);
    }
};

/** What both classes do, by the rules of one. */
template <class Rules, class Shell>
struct TZoned {
    static void Read(TStringTree const& tree, Shell* shell) {
        std::optional<int> const zone = TransverseGrid::ReadCount(tree, ProjectionTag::Zone);
        std::string hemisphere;
        if (!zone || !tree.GetString(ProjectionTag::Hemisphere, 0, &hemisphere)) {
            throw std::runtime_error(Rules::Constructor);
        }
        // Kept: one upper-case letter decides, "North" is as good as "N".
        bool const isNorth = hemisphere.starts_with('N');
        if (!isNorth && !hemisphere.starts_with('S')) {
            throw std::runtime_error(Rules::Constructor);
        }
        shell->Zone = *zone;
        shell->North = isNorth;
    }

    static TGrid Grid(Shell const& shell, std::int64_t (*meridian)(std::int64_t)) {
        if (shell.Zone < 1) {
            throw TUnusableProjection();
        }
        return {static_cast<double>(meridian(shell.Zone)), Rules::ScaleFactor,
                static_cast<double>(Rules::FalseEasting(shell.Zone)), shell.North ? 0 : SouthernNorthing};
    }

    static bool IsEqual(Shell const& one, TShellMapProjection const& other) {
        auto const* const same = AsSameClass(one, other);
        return same && one.Zone == same->Zone && one.North == same->North;
    }

    static TMapProjection* CreateCore(Shell const& shell, TEllipsoidSemiAxes const* semiAxes) {
        return CoreOrNull([&] {
            return TransverseGrid::CreateTransverseMercator(semiAxes, Grid(shell, Rules::CoreMeridian));
        });
    }

    static bool WktParameters(Shell const& shell, std::string* text) {
        return ReportFailure([&] {
            *text = TransverseGrid::WktParameters(Grid(shell, Rules::Meridian));
            return true;
        });
    }

    static bool Mif(Shell const& shell, TShellLinearUnit const* unit, std::string* text) {
        return ReportFailure([&] {
            TGrid const grid = Grid(shell, Rules::MifMeridian);
            *text += FormatText(", %lg, %lg, %lg, ", grid.CentralMeridian, 0.0, grid.ScaleFactor) +
                     ParameterText::LengthText(unit, grid.FalseEasting) + ", " +
                     ParameterText::LengthText(unit, grid.FalseNorthing);
            return true;
        });
    }

    static bool GeoTiff(Shell const& shell, std::map<int, std::string>* keys,
                        TShellAngularUnit const* angularUnit, TShellLinearUnit const* linearUnit) {
        return ReportFailure([&] {
            if (!angularUnit) {
                return false;
            }
            TGrid const grid = Grid(shell, Rules::Meridian);
            std::string const meridian = angularUnit->DegreesToString(grid.CentralMeridian, GeoTiffDecimals);
            std::string const easting = ParameterText::LengthText(linearUnit, grid.FalseEasting);
            std::string const northing = ParameterText::LengthText(linearUnit, grid.FalseNorthing);
            // Kept: the longitude under the natural origin's key, the other cylinders have the centre's.
            keys->insert({ProjectionGeoKey::NaturalOriginLatitude, "0"});
            keys->insert({ProjectionGeoKey::NaturalOriginLongitude, meridian});
            keys->insert({ProjectionGeoKey::ScaleAtNaturalOrigin, Rules::ScaleText});
            keys->insert({ProjectionGeoKey::FalseEasting, easting});
            keys->insert({ProjectionGeoKey::FalseNorthing, northing});
            return true;
        });
    }
};

using TGaussKruger6 = TZoned<TGaussKruger6Rules, TShellGaussKruger6MapProjection>;
using TUtm = TZoned<TUtmRules, TShellUTMMapProjection>;

} // namespace

// --- Gauss-Kruger ------------------------------------------------------------------------------------------

TShellGaussKruger6MapProjection::TShellGaussKruger6MapProjection(TStringTree* tree)
    : TShellMapProjection(tree) {
    TGaussKruger6::Read(*tree, this);
}

TMapProjection* TShellGaussKruger6MapProjection::CreateCoreMapProjection(TEllipsoidSemiAxes* semiAxes) const {
    return TGaussKruger6::CreateCore(*this, semiAxes);
}

bool TShellGaussKruger6MapProjection::operator==(TShellMapProjection const& other) const {
    return EqualsInBase(other) && TGaussKruger6::IsEqual(*this, other);
}

bool TShellGaussKruger6MapProjection::GetProjectionTypeWKT(std::string* text) const {
    *text = TransverseGrid::WktMethod;
    return true;
}

bool TShellGaussKruger6MapProjection::GetProjectionParamsWKT(std::string* text) const {
    return TGaussKruger6::WktParameters(*this, text);
}

bool TShellGaussKruger6MapProjection::ExportToMIFMID(TShellLinearUnit* outputUnit, std::string* text) const {
    return TGaussKruger6::Mif(*this, outputUnit, text);
}

void TShellGaussKruger6MapProjection::Reset() {
    TShellMapProjection::Reset();
    Zone = 0;
    North = false;
}

bool TShellGaussKruger6MapProjection::ExportMapProjParamsToGeoTIFF(std::map<int, std::string>* keys,
                                                                   TShellAngularUnit const* angularUnit,
                                                                   TShellLinearUnit const* linearUnit) const {
    return TGaussKruger6::GeoTiff(*this, keys, angularUnit, linearUnit);
}

// --- UTM ---------------------------------------------------------------------------------------------------

TShellUTMMapProjection::TShellUTMMapProjection(TStringTree* tree) : TShellMapProjection(tree) {
    TUtm::Read(*tree, this);
}

TMapProjection* TShellUTMMapProjection::CreateCoreMapProjection(TEllipsoidSemiAxes* semiAxes) const {
    return TUtm::CreateCore(*this, semiAxes);
}

bool TShellUTMMapProjection::operator==(TShellMapProjection const& other) const {
    return EqualsInBase(other) && TUtm::IsEqual(*this, other);
}

bool TShellUTMMapProjection::GetProjectionTypeWKT(std::string* text) const {
    *text = TransverseGrid::WktMethod;
    return true;
}

bool TShellUTMMapProjection::GetProjectionParamsWKT(std::string* text) const {
    return TUtm::WktParameters(*this, text);
}

bool TShellUTMMapProjection::ExportToMIFMID(TShellLinearUnit* outputUnit, std::string* text) const {
    return TUtm::Mif(*this, outputUnit, text);
}

void TShellUTMMapProjection::Reset() {
    TShellMapProjection::Reset();
    Zone = 0;
    North = false;
}

bool TShellUTMMapProjection::ExportMapProjParamsToGeoTIFF(std::map<int, std::string>* keys,
                                                          TShellAngularUnit const* angularUnit,
                                                          TShellLinearUnit const* linearUnit) const {
    return TUtm::GeoTiff(*this, keys, angularUnit, linearUnit);
}

} // namespace KvRefSystem
