#include "tests/docs/Document.h"

#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>
#include <stdexcept>

namespace Documents {

namespace {

constexpr char const* Fence = "```";

std::string Trimmed(std::string const& text) {
    std::size_t const first = text.find_first_not_of(' ');
    return first == std::string::npos ? std::string()
                                      : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

TRow CellsOf(std::string const& line) {
    TRow cells;
    std::string cell;
    for (char const c : line.substr(1)) {
        if (c == '|') {
            cells.push_back(Trimmed(cell));
            cell.clear();
        } else if (c != '`') {
            cell += c;
        }
    }
    return cells;
}

/** A line and what it is. */
struct TLine {
    std::string text;
    std::string language; ///< of the fenced text that begins here
    bool opens;
    bool closes;
    bool quoted;
};

/** @param visit gets each line of the document, the fences included. */
template <class Visit>
void ForLines(std::string const& name, Visit visit) {
    std::istringstream text(ReadSource("docs/" + name));
    bool quoted = false;
    for (std::string line; std::getline(text, line);) {
        bool const isFence = line.rfind(Fence, 0) == 0;
        visit(TLine{line, isFence ? line.substr(3) : std::string(), isFence && !quoted, isFence && quoted,
                    quoted && !isFence});
        quoted = quoted != isFence;
    }
    if (quoted) {
        throw std::runtime_error("docs/" + name + ": a fenced text isn't closed");
    }
}

} // namespace

std::string ReadSource(std::string const& path) {
    std::ifstream file(std::string(VELLARI_SOURCE_DIR "/") + path, std::ios::binary);
    if (!file) {
        throw std::runtime_error(path + ": can't be read");
    }
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<TSection> ReadDocument(std::string const& name) {
    std::vector<TSection> sections(1);
    bool inTable = false;
    ForLines(name, [&](TLine const& line) {
        TSection& section = sections.back();
        bool const isRow = !line.quoted && !line.text.empty() && line.text.front() == '|';
        if (line.opens) {
            section.quotes.emplace_back();
        } else if (line.quoted) {
            section.quotes.back() += line.text + '\n';
        } else if (line.text.rfind('#', 0) == 0) {
            std::size_t const begin = line.text.find_first_not_of("# ");
            sections.push_back({line.text.substr(begin == std::string::npos ? 0 : begin), {}, {}});
        } else if (isRow && inTable && line.text.rfind("|-", 0) != 0) {
            section.rows.push_back(CellsOf(line.text)); // the line that begins a table is its head
        }
        inTable = isRow;
    });
    return sections;
}

TSection const& SectionOf(std::vector<TSection> const& document, std::string const& heading) {
    for (TSection const& section : document) {
        if (section.heading == heading) {
            return section;
        }
    }
    throw std::runtime_error("no section \"" + heading + "\"");
}

std::vector<std::string> QuotesOf(std::string const& name, std::string const& language) {
    std::vector<std::string> quotes;
    bool isWanted = false;
    ForLines(name, [&](TLine const& line) {
        if (line.opens) {
            isWanted = line.language == language;
            if (isWanted) {
                quotes.emplace_back();
            }
        } else if (line.quoted && isWanted) {
            quotes.back() += line.text + '\n';
        }
    });
    return quotes;
}

std::vector<std::string> NumbersIn(std::string const& text) {
    static std::regex const number("[0-9]+");
    std::vector<std::string> numbers;
    for (std::sregex_iterator found(text.begin(), text.end(), number), end; found != end; ++found) {
        numbers.push_back(found->str());
    }
    return numbers;
}

} // namespace Documents
