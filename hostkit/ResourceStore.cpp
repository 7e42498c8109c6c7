#include "hostkit/ResourceStore.h"

#include "frame/NumberText.h"
#include "frame/imported/StringTree.h"
#include "frame/imported/Strings.h"
#include "hostkit/EmbeddedResources.h"
#include "hostkit/FileText.h"
#include "hostkit/Utf8.h"

#include <map>
#include <mutex>
#include <set>
#include <shared_mutex>
#include <stdexcept>
#include <utility>

namespace VellariHostKit {

namespace {

constexpr char const* defaultLanguage = "en";

/** Module and key. */
using Name = std::pair<std::string, std::string>;

struct Row {
    std::string language;
    Name name;
    std::string text;
};

[[noreturn]] void Refuse(std::string const& source, int line, std::string const& reason) {
    throw std::runtime_error(source + KvRefSystem::FormatText(", line %d: ", line) + reason);
}

Row ParseRow(std::string const& line, std::string const& source, int number) {
    if (FindInvalidUtf8(line) != std::string::npos || line.find('\0') != std::string::npos) {
        Refuse(source, number, "the line is not UTF-8 text");
    }
    std::size_t const equals = line.find('=');
    std::string const left = line.substr(0, equals);
    std::string words[4];
    unsigned int const count = LumCommonUtils::SplitString(left.c_str(), " \t", words, 4, nullptr, false);
    if (equals == std::string::npos || count != 3) {
        Refuse(source, number, "\"" + line + "\" is not of the form LANGUAGE MODULE KEY = TEXT");
    }
    Row row = {words[0], {words[1], words[2]}, std::string()};
    LumCommonUtils::Decode(LumCommonUtils::trim(line.substr(equals + 1)), &row.text);
    return row;
}

std::vector<Row> ParseRows(std::string_view text, std::string const& source) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.substr(0, byteOrderMark.size()) == byteOrderMark) {
        text.remove_prefix(byteOrderMark.size());
    }
    std::vector<Row> rows;
    for (int number = 1; !text.empty(); ++number) {
        std::size_t const end = text.find('\n');
        std::string const line = LumCommonUtils::trim(std::string(text.substr(0, end)));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (!line.empty() && line.front() != '#') {
            rows.push_back(ParseRow(line, source, number));
        }
    }
    return rows;
}

} // namespace

struct TResourceStore::State {
    using Texts = std::map<Name, std::string const*>;

    mutable std::shared_mutex guard;
    std::set<std::string> pool; ///< every text that was ever known: the addresses that are given away
    std::map<std::string, Texts> languages;
    std::string language = defaultLanguage;

    std::string const* Find(std::string const& wanted, Name const& name) const {
        auto const texts = languages.find(wanted);
        if (texts == languages.end()) {
            return nullptr;
        }
        auto const found = texts->second.find(name);
        return found == texts->second.end() ? nullptr : found->second;
    }
};

TResourceStore::TResourceStore() : state(std::make_unique<State>()) {
    LoadText(embeddedResources(), "<embedded texts>");
}

TResourceStore::~TResourceStore() = default;

TResourceStore& TResourceStore::Process() {
    static auto* const store = new TResourceStore();
    return *store;
}

void TResourceStore::LoadFile(std::string const& path) {
    LoadText(ReadWholeFile(path), path);
}

void TResourceStore::LoadText(std::string_view text, std::string const& source) {
    std::vector<Row> const rows = ParseRows(text, source);
    std::unique_lock<std::shared_mutex> const lock(state->guard);
    std::map<std::string, State::Texts> next = state->languages;
    for (Row const& row : rows) {
        next[row.language][row.name] = &*state->pool.insert(row.text).first;
    }
    state->languages.swap(next);
}

void TResourceStore::SetLanguage(std::string const& language) {
    std::unique_lock<std::shared_mutex> const lock(state->guard);
    if (!state->languages.contains(language)) {
        std::string known;
        for (auto const& [name, texts] : state->languages) {
            known += (known.empty() ? "\"" : ", \"") + name + "\"";
        }
        throw std::runtime_error("there are no texts in the language \"" + language + "\"; there are " +
                                 known);
    }
    state->language = language;
}

std::string TResourceStore::Language() const {
    std::shared_lock<std::shared_mutex> const lock(state->guard);
    return state->language;
}

std::vector<std::string> TResourceStore::Languages() const {
    std::shared_lock<std::shared_mutex> const lock(state->guard);
    std::vector<std::string> names;
    for (auto const& [name, texts] : state->languages) {
        names.push_back(name);
    }
    return names;
}

std::string const* TResourceStore::Find(std::string const& module, std::string const& key) const {
    Name const name(module, key);
    std::shared_lock<std::shared_mutex> const lock(state->guard);
    std::string const* const text = state->Find(state->language, name);
    return text ? text : state->Find(defaultLanguage, name);
}

} // namespace VellariHostKit
