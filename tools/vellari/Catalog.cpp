#include "tools/vellari/Catalog.h"

#include "tools/vellari/NameMatch.h"

#include <algorithm>
#include <utility>

namespace VellariTool {

namespace {

/** Names farther away than this share of their letters aren't worth a mention. */
constexpr std::size_t lettersPerMistake = 2;

constexpr std::size_t mostSuggestions = 3;

} // namespace

EmbeddedFile const* FindCatalogEntry(std::string_view name) {
    std::string const wanted = LowerCase(name);
    for (EmbeddedFile const& entry : embeddedCatalog()) {
        if (LowerCase(entry.name) == wanted) {
            return &entry;
        }
    }
    return nullptr;
}

std::string_view CatalogTitle(EmbeddedFile const& entry) {
    std::string_view const line = entry.text.substr(0, entry.text.find('\n'));
    std::size_t const end = line.find(')');
    return end == std::string_view::npos ? line : line.substr(end + 1);
}

std::vector<std::string> SimilarCatalogEntries(std::string_view name) {
    std::string const wanted = LowerCase(name);
    std::vector<std::pair<std::size_t, std::string>> found;
    for (EmbeddedFile const& entry : embeddedCatalog()) {
        std::string const candidate = LowerCase(entry.name);
        bool const isPart = wanted.size() >= 2 && candidate.find(wanted) != std::string::npos;
        std::size_t const distance = isPart ? 0 : EditDistance(wanted, candidate);
        if (isPart || distance <= std::max(wanted.size(), std::size_t{2}) / lettersPerMistake) {
            found.emplace_back(distance, std::string(entry.name));
        }
    }
    std::sort(found.begin(), found.end());
    std::vector<std::string> names;
    for (auto& [distance, candidate] : found) {
        if (names.size() < mostSuggestions) {
            names.push_back(std::move(candidate));
        }
    }
    return names;
}

} // namespace VellariTool
