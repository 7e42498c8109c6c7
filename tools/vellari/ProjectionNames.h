#pragma once

#include <Vellari/Vellari.h>

#include <string>

namespace VellariTool {

/** @return the usual name of a type of projection; "unknown" for a number that is none. */
std::string ProjectionMethodName(int type);

/** @return what a parameter is, without the values that it may have: "false easting", "hemisphere". */
std::string ParameterName(KvRefSystem::TMapProjectionParameter const& parameter);

} // namespace VellariTool
