#include "tools/accuracy/ProjOperation.h"

#include <Vellari/Vellari.h>

#include <stdexcept>

namespace VellariAccuracy {

TProjOperation::TProjOperation(std::string const& definition)
    : Definition(definition),
      Context(proj_context_create()),
      Operation(proj_create(Context.get(), definition.c_str())) {
    if (!Operation) {
        throw std::runtime_error("PROJ can't build \"" + Definition + "\": " +
                                 proj_context_errno_string(Context.get(), proj_context_errno(Context.get())));
    }
}

TPair TProjOperation::Run(PJ_DIRECTION direction, TPair const& pair) const {
    proj_errno_reset(Operation.get());
    PJ_COORD const result = proj_trans(Operation.get(), direction, proj_coord(pair.X, pair.Y, 0, 0));
    int const error = proj_errno(Operation.get());
    if (error != 0) {
        throw std::runtime_error(KvRefSystem::FormatText("PROJ can't transform (%.9g, %.9g) by \"%s\": %s",
                                                         pair.X, pair.Y, Definition.c_str(),
                                                         proj_context_errno_string(Context.get(), error)));
    }
    return {result.xy.x, result.xy.y};
}

std::string ProjRelease() {
    PJ_INFO const information = proj_info();
    return KvRefSystem::FormatText("%d.%d.%d", information.major, information.minor, information.patch);
}

} // namespace VellariAccuracy
