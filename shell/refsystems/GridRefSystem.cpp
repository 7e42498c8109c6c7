#include "shell/transforms/TransformChain.h"

#include <stdexcept>

namespace KvRefSystem {

// The one place where chains meet systems: a grid record may carry the description of a map-projected system.
std::unique_ptr<TReferenceSystem> CreateGridCoreRefSystem(std::string const&) {
    throw std::runtime_error("TShellRefSystemTransform::CreateCoreTransform");
}

} // namespace KvRefSystem
