#pragma once

#include <string_view>

namespace VellariHostKit {

/** @return the texts of `hostkit/resources`, in the form that `TResourceStore` reads. */
std::string_view embeddedResources();

} // namespace VellariHostKit
