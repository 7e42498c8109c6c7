#include "core/primitives/WGS84SemiAxes.h"

#include "frame/imported/ModuleHooks.h"
#include "frame/imported/OptionTable.h"

namespace KvRefSystem {

namespace {

constexpr double SemiMajorAxis = 6378137.0;
constexpr double SemiMinorAxis = 6356752.314245179;

/**
 * The host's object, of a class that the compiler doesn't know: a host may bring one of its own under this
 * name, and then its table of virtual operations counts, not that of the declared class.
 */
TKvOptionTableAccess* HostTables() {
    TKvOptionTableAccess* volatile const tables = &GlobalOT;
    return tables;
}

} // namespace

void GetWGS84SemiAxes(double* a, double* b) {
    TKvOptionTable* const options = KvApplication != nullptr ? HostTables()->GetTable(1) : nullptr;
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
