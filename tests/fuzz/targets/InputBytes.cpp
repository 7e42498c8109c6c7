#include "tests/fuzz/targets/InputBytes.h"

#include "frame/NumberText.h"

#include <bit>
#include <iterator>
#include <limits>

namespace Fuzz {

namespace {

constexpr double commonNumbers[] = {
    0,
    -0.0,
    1,
    -1,
    30,
    -30,
    45,
    55.75,
    37.62,
    60,
    89.999999,
    90,
    -90,
    179,
    180,
    181,
    -180,
    200,
    359.999,
    360,
    500000,
    -500000,
    6e6,
    1e7,
    1e8,
    1e12,
    1e300,
    -1e300,
    4294967296.0,
    2147483647.5,
    1e-9,
    1.570796326794897,
    3.141592653589793,
    std::numeric_limits<double>::infinity(),
    -std::numeric_limits<double>::infinity(),
    std::numeric_limits<double>::quiet_NaN(),
    std::numeric_limits<double>::denorm_min(),
    std::numeric_limits<double>::max(),
};

} // namespace

std::uint8_t TInputBytes::Byte() {
    if (rest.empty()) {
        return 0;
    }
    auto const byte = static_cast<std::uint8_t>(rest.front());
    rest.remove_prefix(1);
    return byte;
}

double TInputBytes::Number() {
    constexpr std::size_t RawKinds = 64;
    std::size_t const kind = Byte();
    if (kind < 2 * RawKinds) {
        return commonNumbers[kind % std::size(commonNumbers)];
    }
    std::uint64_t bits = 0;
    if (kind < 3 * RawKinds) {
        for (int byte = 0; byte < 4; ++byte) {
            bits = bits << 8 | Byte();
        }
        // Numbers as coordinates have them: up to 20,000 km and up to 200 degrees.
        double const signedBits = static_cast<std::int32_t>(static_cast<std::uint32_t>(bits));
        return signedBits * (kind % 2 == 0 ? 1e-2 : 1e-7);
    }
    for (int byte = 0; byte < 8; ++byte) {
        bits = bits << 8 | Byte();
    }
    return std::bit_cast<double>(bits);
}

std::string TInputBytes::NumberText() {
    constexpr std::uint8_t BytesFollow = 0xF0;
    std::uint8_t const kind = Byte();
    if (kind < BytesFollow) {
        return KvRefSystem::FormatText("%.17g", Number());
    }
    std::string const text(rest.substr(0, kind - BytesFollow));
    rest.remove_prefix(text.size());
    return text;
}

} // namespace Fuzz
