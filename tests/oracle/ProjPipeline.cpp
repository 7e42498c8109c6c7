#include "tests/oracle/ProjPipeline.h"

#include "frame/NumberText.h"

#include <stdexcept>

namespace OracleTests {

TProjPipeline::TProjPipeline(std::string const& definition)
    : Context(proj_context_create()), Operation(proj_create(Context.get(), definition.c_str())) {
    if (!Operation) {
        throw std::runtime_error(definition + ": " +
                                 proj_context_errno_string(Context.get(), proj_context_errno(Context.get())));
    }
}

TTriple TProjPipeline::Run(PJ_DIRECTION direction, TTriple const& point) const {
    proj_errno_reset(Operation.get());
    PJ_COORD const result =
        proj_trans(Operation.get(), direction, proj_coord(point[0], point[1], point[2], 0));
    int const error = proj_errno(Operation.get());
    if (error != 0) {
        throw std::runtime_error(proj_context_errno_string(Context.get(), error));
    }
    return {result.xyz.x, result.xyz.y, result.xyz.z};
}

std::string Number(double value) {
    return KvRefSystem::FormatText("%.17g", value);
}

} // namespace OracleTests
