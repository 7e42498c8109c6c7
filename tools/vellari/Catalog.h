#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace VellariTool {

/** A text that the tool carries inside. */
struct EmbeddedFile {
    std::string_view name; ///< name of the entry
    std::string_view text; ///< description text
};

/** @return all entries of the catalogue, by name. */
std::span<EmbeddedFile const> embeddedCatalog();

/** @return the entry of that name, letters of either case, or null. */
EmbeddedFile const* FindCatalogEntry(std::string_view name);

/** @return the entry's title, the header of its description. */
std::string_view CatalogTitle(EmbeddedFile const& entry);

/** @return names of entries that `name` may have been meant for, the nearest first, three at most. */
std::vector<std::string> SimilarCatalogEntries(std::string_view name);

} // namespace VellariTool
