#pragma once

#include "frame/imported/StringTree.h"

namespace KvRefSystem {

/** Writes the metre into a tree. @return false at the first tag that is taken; fields before it stay. */
bool FillMeterTree(TStringTree* tree);

/** Writes the radian into a tree; its name is "p" (kept). @return as `FillMeterTree`. */
bool FillRadianTree(TStringTree* tree);

/** Writes the degree into a tree. @return as `FillMeterTree`. */
bool FillDegreeTree(TStringTree* tree);

} // namespace KvRefSystem
