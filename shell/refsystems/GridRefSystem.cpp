#include "frame/imported/StringTree.h"
#include "shell/refsystems/MapProjectedReferenceSystem.h"
#include "shell/transforms/TransformChain.h"

#include <utility>

namespace KvRefSystem {

// The one place where chains meet systems: a grid record may carry the description of a map-projected system.
std::unique_ptr<TReferenceSystem> CreateGridCoreRefSystem(std::string const& text) {
    TStringTree tree;
    tree.ReadFromString(text.c_str(), nullptr, nullptr);
    TShellMapProjectedReferenceSystem system(&tree, nullptr);
    return std::unique_ptr<TReferenceSystem>(std::exchange(system.CoreRefSystem, nullptr));
}

} // namespace KvRefSystem
