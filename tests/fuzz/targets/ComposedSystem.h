#pragma once

#include "frame/imported/StringTree.h"
#include "tests/fuzz/targets/InputBytes.h"

namespace Fuzz {

/**
 * Fills a tree with the description of a system that bytes choose: kind, units, datum, projection with its
 * parameters, chain, proxy. Most of them build.
 */
void ComposeSystem(TInputBytes* bytes, KvRefSystem::TStringTree* tree);

/** @return how many methods a map-projected system may have. */
std::size_t MethodCount();

} // namespace Fuzz
