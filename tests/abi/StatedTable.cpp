#include "tests/abi/StatedTable.h"

#include <charconv>
#include <stdexcept>

namespace Abi {
namespace {

/** Collects the rows of a table, each in the block above it. */
class TTableReader {
public:
    explicit TTableReader(std::string const& file) : File(file) {}

    void Row(std::string_view row) {
        ++Line;
        row = Trim(row.substr(0, row.find('#')));
        if (row.empty()) {
            return;
        }
        std::size_t const blank = row.find(' ');
        std::string_view const rest = blank == std::string_view::npos ? "" : Trim(row.substr(blank));
        std::string_view const keyword = row.substr(0, blank);
        if (keyword == "class") {
            Class(rest);
        } else if (keyword == "enum") {
            Table.enumerations.push_back({std::string(rest), {}, Where()});
            Block = TBlock::enumeration;
        } else if (Block == TBlock::enumeration && keyword == "value") {
            Value(rest);
        } else if (Block == TBlock::ofClass && !rest.empty()) {
            ClassRow(keyword, rest, row);
        } else {
            Refuse(row);
        }
    }

    TStatedTable Table;

private:
    enum class TBlock { none, ofClass, enumeration };

    std::string Where() const { return File + ":" + std::to_string(Line); }

    [[noreturn]] void Refuse(std::string_view row) const {
        throw std::runtime_error(Where() + ": `" + std::string(row) + "` is no row of this block");
    }

    void Class(std::string_view heading) {
        TStatedClass added;
        std::size_t const colon = heading.find(" : ");
        added.name = TypeName(heading.substr(0, colon));
        if (colon != std::string_view::npos) {
            std::string_view const base = heading.substr(colon + 3);
            std::size_t const via = base.find(" via ");
            added.base = TypeName(base.substr(0, via));
            added.via = via == std::string_view::npos ? "" : Trim(base.substr(via + 5));
        }
        added.where = Where();
        Table.classes.push_back(added);
        Block = TBlock::ofClass;
    }

    void ClassRow(std::string_view keyword, std::string_view rest, std::string_view row) {
        TStatedClass& block = Table.classes.back();
        std::size_t const colon = row.find(": ");
        std::string const reason(colon == std::string_view::npos ? "" : Trim(row.substr(colon + 1)));
        if (keyword == "member") {
            std::size_t const blank = rest.rfind(' ');
            if (blank == std::string_view::npos) {
                Refuse(row);
            }
            block.members.push_back({TypeName(rest.substr(0, blank)), std::string(rest.substr(blank + 1))});
        } else if (keyword == "slot") {
            block.slots.push_back(rest == "destructor" ? TStatedSlot() : ReadSignature(rest));
        } else if (keyword == "virtual") {
            block.virtuals.push_back(ReadSignature(rest));
        } else if (row.starts_with("own members: ")) {
            block.ownMembers = reason;
        } else if (row.starts_with("destructor may follow: ")) {
            block.destructorMayFollow = reason;
        } else if (row.starts_with("open: ")) {
            block.open = reason;
        } else {
            Refuse(row);
        }
    }

    void Value(std::string_view rest) {
        TStatedEnumeration::TValue value;
        char const* const end = rest.data() + rest.size();
        std::from_chars_result const read = std::from_chars(rest.data(), end, value.value);
        value.name = Trim(std::string_view(read.ptr, static_cast<std::size_t>(end - read.ptr)));
        if (read.ec != std::errc() || value.name.empty()) {
            Refuse(rest);
        }
        Table.enumerations.back().values.push_back(value);
    }

    std::string const& File;
    int Line = 0;
    TBlock Block = TBlock::none;
};

} // namespace

TStatedTable ReadStatedTable(std::string_view text, std::string const& file) {
    TTableReader reader(file);
    while (!text.empty()) {
        std::size_t const end = text.find('\n');
        reader.Row(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return reader.Table;
}

} // namespace Abi
