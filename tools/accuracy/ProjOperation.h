#pragma once

#include <proj.h>

#include <memory>
#include <string>

namespace VellariAccuracy {

/** A pair of PROJ's: longitude and latitude (radians), or easting and northing (metres). */
struct TPair {
    double X;
    double Y;
};

/** An operation of PROJ with a context of its own; angles in radians. */
class TProjOperation {
public:
    /** @throws std::runtime_error with the definition and PROJ's reason. */
    explicit TProjOperation(std::string const& definition);

    /** @throws std::runtime_error when PROJ can't transform the pair, as `Reverse`. */
    TPair Forward(TPair const& place) const { return Run(PJ_FWD, place); }
    TPair Reverse(TPair const& plane) const { return Run(PJ_INV, plane); }

private:
    struct TFreeContext {
        void operator()(PJ_CONTEXT* context) const { proj_context_destroy(context); }
    };
    struct TFreeOperation {
        void operator()(PJ* operation) const { proj_destroy(operation); }
    };

    TPair Run(PJ_DIRECTION direction, TPair const& pair) const;

    std::string Definition;
    std::unique_ptr<PJ_CONTEXT, TFreeContext> Context;
    std::unique_ptr<PJ, TFreeOperation> Operation;
};

/** PROJ's release, as "9.1.1". */
std::string ProjRelease();

} // namespace VellariAccuracy
