#pragma once

#include <proj.h>

#include <array>
#include <memory>
#include <string>

namespace OracleTests {

using TTriple = std::array<double, 3>;

/** One operation of PROJ with a context of its own; angles in radians unless its steps convert them. */
class TProjPipeline {
public:
    /** @param definition a pipeline or another operation. @throws std::runtime_error with PROJ's reason. */
    explicit TProjPipeline(std::string const& definition);

    /** @throws std::runtime_error when PROJ can't transform the point, as `Inverse`. */
    TTriple Forward(TTriple const& point) const { return Run(PJ_FWD, point); }
    TTriple Inverse(TTriple const& point) const { return Run(PJ_INV, point); }

private:
    struct TFreeContext {
        void operator()(PJ_CONTEXT* context) const { proj_context_destroy(context); }
    };
    struct TFreeOperation {
        void operator()(PJ* operation) const { proj_destroy(operation); }
    };

    TTriple Run(PJ_DIRECTION direction, TTriple const& point) const;

    std::unique_ptr<PJ_CONTEXT, TFreeContext> Context;
    std::unique_ptr<PJ, TFreeOperation> Operation;
};

/** A number as PROJ reads it, every bit kept. */
std::string Number(double value);

} // namespace OracleTests
