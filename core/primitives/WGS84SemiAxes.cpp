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
    // Laundered, since a host may bring an object of a class of its own under this name: its table of virtual
    // operations counts, not the declared class.
    TKvOptionTable* const options = KvApplication != nullptr ? std::launder(&GlobalOT)->GetTable(1) : nullptr;
    if (options == nullptr) {
        *a = SemiMajorAxis;
        *b = SemiMinorAxis;
        return;
    }
    options->RegisterOption<double>("planet/ellipsoid/a", SemiMajorAxis,
                                    TOnOptionChangeEvent<double>::type());
    options->RegisterOption<double>("planet/ellipsoid/b", SemiMinorAxis,
                                    TOnOptionChangeEvent<double>::type());
    *a = options->GetS<double>("planet/ellipsoid/a");
    *b = options->GetS<double>("planet/ellipsoid/b");
}

} // namespace KvRefSystem
