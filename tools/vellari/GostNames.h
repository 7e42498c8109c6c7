#pragma once

#include <Vellari/Vellari.h>

#include <string>
#include <string_view>

namespace VellariTool {

/** What the standard calls by numbers, by name. Letters of either case; signs between them don't count. */

/** @throws TToolError for a name that is no datum, with those that are. @param option what messages call it. */
KvRefSystem::TGOST51794Datum GostDatum(std::string const& option, std::string const& name);

/** @throws TToolError for a name that is no coordinate type. */
KvRefSystem::TGOST51794RefsystemType GostType(std::string const& option, std::string const& name);

/** @throws TToolError for a year without an edition. */
KvRefSystem::TGOST51794Version GostEdition(std::string const& name);

/** @return "Pulkovo 1942". */
std::string GostDatumTitle(KvRefSystem::TGOST51794Datum datum);

/** @return the names of all datums, with commas. */
std::string GostDatumNames();

} // namespace VellariTool
