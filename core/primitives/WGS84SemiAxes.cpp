#include "core/primitives/WGS84SemiAxes.h"

#include "frame/imported/ModuleHooks.h"
#include "frame/imported/OptionTable.h"

#include <new>

namespace KvRefSystem {

namespace {

constexpr double SemiMajorAxis = 6378137.0;
constexpr double SemiMinorAxis = 6356752.314245179;

} // namespace

void GetWGS84SemiAxes(double* a, double* b) {
    if (KvApplication == nullptr) {
        *a = SemiMajorAxis;
        *b = SemiMinorAxis;
        return;
    }
    // Laundered, since a host may bring an object of a class of its own under this name: its table of virtual
    // operations counts, not the declared class.
    TKvOptionTableAccess* const access = std::launder(&GlobalOT);
    TKvOptionTable* const options = access->GetTable(1);
    options->RegisterOption<double>("planet/ellipsoid/a", SemiMajorAxis, TOnOptionChangeEvent<double>::type());
    options->RegisterOption<double>("planet/ellipsoid/b", SemiMinorAxis, TOnOptionChangeEvent<double>::type());
    *a = options->GetS<double>("planet/ellipsoid/a");
    *b = options->GetS<double>("planet/ellipsoid/b");
}

} // namespace KvRefSystem
