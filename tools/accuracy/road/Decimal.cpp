#include "tools/accuracy/road/Decimal.h"

#include <Vellari/Vellari.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>

namespace VellariAccuracy {

namespace {

constexpr std::size_t LimbDigits = 9;
constexpr std::int64_t LimbSize = 1'000'000'000;
constexpr std::size_t WholeLimbs = 2;
constexpr std::size_t FractionLimbs = 7;

/** Nine digits each, the first ones first, all with the number's sign. */
using TLimbs = std::array<std::int64_t, WholeLimbs + FractionLimbs>;

[[noreturn]] void Refuse(std::string_view text) {
    throw std::invalid_argument("\"" + std::string(text) +
                                "\" is no decimal number of up to 18 and 63 digits");
}

TLimbs LimbsOf(std::string_view text) {
    bool const negative = text.starts_with('-');
    std::string_view const digits = text.substr(negative ? 1 : 0);
    std::size_t const point = digits.find('.');
    std::string whole(digits.substr(0, point));
    std::string fraction(point == std::string_view::npos ? "" : digits.substr(point + 1));
    if (whole.empty() || whole.size() > WholeLimbs * LimbDigits ||
        fraction.size() > FractionLimbs * LimbDigits ||
        (whole + fraction).find_first_not_of("0123456789") != std::string::npos) {
        Refuse(text);
    }
    whole.insert(0, WholeLimbs * LimbDigits - whole.size(), '0');
    fraction.resize(FractionLimbs * LimbDigits, '0');
    std::string const all = whole + fraction;
    TLimbs limbs{};
    for (std::size_t place = 0; place < all.size(); ++place) {
        std::int64_t& limb = limbs[place / LimbDigits];
        limb = limb * 10 + (all[place] - '0');
    }
    for (std::int64_t& limb : limbs) {
        limb = negative ? -limb : limb;
    }
    return limbs;
}

bool IsNegative(TLimbs const& limbs) {
    for (std::int64_t const limb : limbs) {
        if (limb != 0) {
            return limb < 0;
        }
    }
    return false;
}

} // namespace

double DistanceFrom(double number, std::string_view exact) {
    constexpr double TooLarge = 1e18;
    TLimbs difference = LimbsOf(exact);
    if (!(std::fabs(number) < TooLarge)) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    TLimbs const ours =
        LimbsOf(KvRefSystem::FormatText("%.*f", static_cast<int>(FractionLimbs * LimbDigits), number));
    for (std::size_t place = 0; place < difference.size(); ++place) {
        difference[place] -= ours[place];
    }
    bool const negative = IsNegative(difference);
    for (std::int64_t& limb : difference) {
        limb = negative ? -limb : limb;
    }
    // Limbs of one sign, so that nothing cancels in the sum.
    for (std::size_t place = difference.size() - 1; place > 0; --place) {
        if (difference[place] < 0) {
            difference[place] += LimbSize;
            --difference[place - 1];
        } else if (difference[place] >= LimbSize) {
            difference[place] -= LimbSize;
            ++difference[place - 1];
        }
    }
    double distance = 0;
    for (std::size_t place = difference.size(); place > 0; --place) {
        distance = distance / static_cast<double>(LimbSize) + static_cast<double>(difference[place - 1]);
    }
    return distance * static_cast<double>(LimbSize);
}

} // namespace VellariAccuracy
