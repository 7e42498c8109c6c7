#pragma once

#include "tools/accuracy/Cases.h"

#include <vector>

namespace VellariAccuracy {

/** The tables of cases that are measured against PROJ: a family each, the cases numbered through. */
std::vector<TTable> ProjectionTables(std::vector<TFamily> const& families);

/** How they are measured, up to the first table: with a heading of its own. */
std::string ProjectionText();

} // namespace VellariAccuracy
