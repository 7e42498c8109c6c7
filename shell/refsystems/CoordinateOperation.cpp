#include "core/refsystems/DatumShift.h"
#include "shell/datum/BursaWolfDatumShift.h"
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

/** The flag of a shift for exact rotations as it is now: unless the change is kept, it is so again. */
class TFlagBackup {
public:
    /** @param shift may be null; a form without the flag has nothing to be put back. */
    explicit TFlagBackup(TShellDatumShift* shift) {
        if (auto* const bursaWolf = dynamic_cast<TShellBursaWolfDatumShift*>(shift)) {
            flag = &bursaWolf->NonLinear;
        } else if (auto* const inverse = dynamic_cast<TShellBursaWolfInvRotDatumShift*>(shift)) {
            flag = &inverse->NonLinear;
        }
        before = flag && *flag;
    }
    TFlagBackup(TFlagBackup const&) = delete;
    TFlagBackup& operator=(TFlagBackup const&) = delete;
    ~TFlagBackup() {
        if (flag && !isKept) {
            *flag = before;
        }
    }

    void Keep() { isKept = true; }

private:
    bool* flag = nullptr;
    bool before = false;
    bool isKept = false;
};

/** The flag's field in a description, made before it is certain that it stands there. */
class TNewFlagField {
public:
    /** @param tree the shift's; may be null. @param isSet whether there is to be a field. */
    TNewFlagField(TStringTree* tree, bool isSet) : settings(tree) {
        if (settings && isSet) {
            settings->fields.Append(settings->CreateField(DescriptionTag::NonLinear, 0, "1", "Non-linear"));
            isAdded = true;
        }
    }
    TNewFlagField(TNewFlagField const&) = delete;
    TNewFlagField& operator=(TNewFlagField const&) = delete;
    ~TNewFlagField() {
        if (isAdded) {
            settings->fields.Delete(settings->fields.Size() - 1);
        }
    }

    /** Takes the old field away and lets the new one stay. @return false without a tree. */
    bool Keep() {
        if (!settings) {
            return false;
        }
        TStringField const* const first = settings->FindField(DescriptionTag::NonLinear, 0);
        if (!isAdded || first != settings->fields[settings->fields.Size() - 1]) {
            settings->DeleteField(DescriptionTag::NonLinear, 0);
        }
        isAdded = false;
        return true;
    }

private:
    TStringTree* settings;
    bool isAdded = false;
};

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
    // Kept: the cores aren't asked, so equal units without geoids are enough whatever the ellipsoids.
    return target == source && dst.GetGeoidID() == GetGeoidID();
}

bool TShellReferenceSystem::SetNonLinearDatum(bool NonLinear) {
    TShellDatumShift* const shellShift = GetDatumShift();
    TFlagBackup flag(shellShift);
    if (!shellShift || !shellShift->SetNonLinear(NonLinear)) {
        return false;
    }
    std::unique_ptr<TDatumShift> const shift(shellShift->Create());
    bool const isInside = Type == rstMapProjected || Type == rstTopocentricHorizontal;
    TNewFlagField field(FindDatumShiftSettings(SavedTree, isInside), NonLinear);
    flag.Keep();
    if (!shift || !CoreRefSystem || !CoreRefSystem->ReplaceDatumShift(shift.get())) {
        return false;
    }

    switch (Type) {
    case rstLocalCartesian:
    case rstLocalCurved:
        return false;
    case rstGeocentric:
    case rstGeodetic:
    case rstMapProjected:
    case rstTopocentricHorizontal:
        return field.Keep();
    default:
        return true;
    }
}

bool TShellReferenceSystem::GetDatumShiftParams(double* dx, double* dy, double* dz, double* rx, double* ry,
                                                double* rz, double* ds) const {
    return DatumShift && DatumShift->GetDatumShiftParams(dx, dy, dz, rx, ry, rz, ds);
}

} // namespace KvRefSystem
