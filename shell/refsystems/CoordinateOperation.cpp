#include "core/refsystems/DatumShift.h"
#include "shell/refsystems/DescriptionTags.h"
#include "shell/refsystems/ReferenceSystem.h"

#include <memory>
#include <stdexcept>

namespace KvRefSystem {

namespace {

/**
 * The datum shift's subtree of a description, whose base system lies deeper in the kinds that contain one.
 */
TStringTree* FindDatumShiftSettings(TStringTree* tree, bool insidePrimarySystem) {
    if (tree && insidePrimarySystem) {
        tree = tree->FindSubtree(DescriptionTag::PrimarySystem, 0);
    }
    TStringTree* const datum = tree ? tree->FindSubtree(DescriptionTag::Datum, 0) : nullptr;
    return datum ? datum->FindSubtree(DescriptionTag::DatumShift, 0) : nullptr;
}

TReferenceSystem const& CoreOf(TShellReferenceSystem const& system) {
    if (!system.CoreRefSystem) {
        throw std::runtime_error(
            "void TShellReferenceSystem::OperateShellCoords(const TShellReferenceSystem&, "
            "double*, bool) const");
    }
    return *system.CoreRefSystem;
}

} // namespace

void TShellReferenceSystem::OperateShellCoords(TShellReferenceSystem const& dst, double* coords,
                                               bool SkipGeoid) const {
    if (!SkipGeoid && Geoid) {
        Geoid->GeoidToEllipsoid(coords);
    }
    TCoords point;
    CoordsShellToCore(coords, &point);

    TReferenceSystem const* current = &CoreOf(*this);
    if (ProxyRefSys) {
        TReferenceSystem const& proxy = CoreOf(*ProxyRefSys);
        current->OperateCoords(proxy, &point);
        current = &proxy;
    }
    if (dst.ProxyRefSys) {
        TReferenceSystem const& proxy = CoreOf(*dst.ProxyRefSys);
        current->OperateCoords(proxy, &point);
        current = &proxy;
    }
    current->OperateCoords(CoreOf(dst), &point);

    dst.CoordsCoreToShell(point, coords);
    if (!SkipGeoid && dst.Geoid) {
        dst.Geoid->EllipsoidToGeoid(coords);
    }
}

void TShellReferenceSystem::OperateShellCoords(double const* src, TShellReferenceSystem const& dst,
                                               double* out, bool SkipGeoid) const {
    double const point[3] = {src[0], src[1], src[2]};
    out[0] = point[0];
    out[1] = point[1];
    out[2] = point[2];
    OperateShellCoords(dst, out, SkipGeoid);
}

bool TShellReferenceSystem::PreservesHeights(TShellReferenceSystem const& dst) const {
    double const target = dst.GetHeightUnitCoefToBase();
    double const source = GetHeightUnitCoefToBase();
    bool const sameGeoid = dst.GetGeoidID() == GetGeoidID();
    if (target == source && !sameGeoid) {
        if (ContainsGeoid() || dst.ContainsGeoid()) {
            return false;
        }
        return CoreOf(*this).PreservesHeights(CoreOf(dst));
    }
    return target == source && sameGeoid;
}

bool TShellReferenceSystem::SetNonLinearDatum(bool NonLinear) {
    TShellDatumShift* const shellShift = GetDatumShift();
    if (!shellShift || !shellShift->SetNonLinear(NonLinear)) {
        return false;
    }
    std::unique_ptr<TDatumShift> const shift(shellShift->Create());
    if (!shift || !CoreRefSystem || !CoreRefSystem->ReplaceDatumShift(shift.get())) {
        return false;
    }

    TStringTree* settings = nullptr;
    switch (Type) {
    case rstLocalCartesian:
    case rstLocalCurved:
        return false;
    case rstGeocentric:
    case rstGeodetic:
        settings = FindDatumShiftSettings(SavedTree, false);
        break;
    case rstMapProjected:
    case rstTopocentricHorizontal:
        settings = FindDatumShiftSettings(SavedTree, true);
        break;
    default:
        return true;
    }
    if (!settings) {
        return false;
    }
    settings->DeleteField(DescriptionTag::NonLinear, 0);
    return !NonLinear || settings->InsertInteger("Non-linear", DescriptionTag::NonLinear, 0, 1);
}

bool TShellReferenceSystem::GetDatumShiftParams(double* dx, double* dy, double* dz, double* rx, double* ry,
                                                double* rz, double* ds) const {
    return DatumShift && DatumShift->GetDatumShiftParams(dx, dy, dz, rx, ry, rz, ds);
}

} // namespace KvRefSystem
