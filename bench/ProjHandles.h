#pragma once

#include <proj.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace VellariBench {

struct TFreeContext {
    void operator()(PJ_CONTEXT* context) const { proj_context_destroy(context); }
};
struct TFreeOperation {
    void operator()(PJ* operation) const { proj_destroy(operation); }
};
using TProjContext = std::unique_ptr<PJ_CONTEXT, TFreeContext>;
using TProjObject = std::unique_ptr<PJ, TFreeOperation>;

/** A PROJ object, or an exception that names what failed. */
inline TProjObject Require(PJ* object, std::string const& what) {
    if (object == nullptr) {
        throw std::runtime_error("PROJ can't build " + what);
    }
    return TProjObject(object);
}

/** An operation from a pipeline's text. */
inline TProjObject Pipeline(PJ_CONTEXT* context, std::string const& text) {
    return Require(proj_create(context, text.c_str()), text);
}

} // namespace VellariBench
