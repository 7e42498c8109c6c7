#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Fuzz {

/** An input that is taken apart from its beginning; what is beyond the end reads as zeros. */
class TInputBytes {
public:
    explicit TInputBytes(std::string_view input) : rest(input) {}

    std::uint8_t Byte();

    /** @return 0 to `count` - 1. */
    std::size_t Below(std::size_t count) { return Byte() % count; }

    /** @return any double: eight bytes as they are, or where the first byte says so a common one. */
    double Number();

    /** @return a text that is mostly a number: one that descriptions have, or up to 15 of the bytes. */
    std::string NumberText();

    /** @return what is left. */
    std::string_view Rest() const { return rest; }

private:
    std::string_view rest;
};

} // namespace Fuzz
