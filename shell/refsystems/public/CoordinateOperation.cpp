#include "shell/refsystems/public/CoordinateOperation.h"

#include <stdexcept>

namespace KvRefSystem {

bool TransformCoords(TShellReferenceSystem const* src, double const& a, double const& b, double const& c,
                     TShellReferenceSystem const* dst, double* x, double* y, double* z) {
    if (!src || !dst) {
        return false;
    }
    double point[3] = {a, b, c};
    try {
        src->OperateShellCoords(*dst, point, false);
    } catch (...) {
        return false;
    }
    *x = point[0];
    *y = point[1];
    *z = point[2];
    return true;
}

bool TransformAxes(TShellReferenceSystem const* src, double const& a, double const& b, double const& c,
                   double* axes, bool ApplyDatumShift) {
    if (!src || !src->CoreRefSystem) {
        return false;
    }
    double const shell[3] = {a, b, c};
    TCoords point;
    src->CoordsShellToCore(shell, &point);
    return src->CoreRefSystem->TransformAxesWorld(point, axes, ApplyDatumShift);
}

int CompareDatums(TShellReferenceSystem const* a, TShellReferenceSystem const* b) {
    if (!a || !b || !a->CoreRefSystem || !b->CoreRefSystem) {
        throw std::logic_error("CompareDatums(const TShellReferenceSystem*, const TShellReferenceSystem*)");
    }
    int const result = a->CoreRefSystem->CompareDatums(*b->CoreRefSystem);
    if (result != dcEqual) {
        return result;
    }
    return a->GetGeoidID() == b->GetGeoidID() ? dcEqual : dcDifferent;
}

} // namespace KvRefSystem
