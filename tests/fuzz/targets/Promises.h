#pragma once

#include <string>
#include <string_view>
#include <type_traits>

namespace Fuzz {

/**
 * Ends the process with a message on standard error unless `holds`.
 * @param promise what should be. @param shown bytes that tell more; may be empty.
 */
void Require(bool holds, char const* promise, std::string_view shown = {});

/** Ends the process with the first line that two texts don't share unless they are the same. */
void RequireSameText(std::string const& first, std::string const& second, char const* promise);

/**
 * Runs what may throw.
 * @tparam Failures the exceptions that the host is told of; any other one ends the process.
 * @return whether nothing was thrown.
 */
template <class... Failures, class Run>
bool Succeeds(Run const& run) {
    try {
        run();
        return true;
    } catch (...) {
        bool isPromised = false;
        auto const look = [&isPromised](auto const* kind) {
            using TKind = std::remove_pointer_t<decltype(kind)>;
            try {
                throw;
            } catch (TKind&) {
                isPromised = true;
            } catch (...) {}
        };
        (look(static_cast<Failures const*>(nullptr)), ...);
        if (!isPromised) {
            throw;
        }
        return false;
    }
}

/** Two numbers of which either may be a NaN: the same bits, or both NaN. */
bool IsSame(double first, double second);

} // namespace Fuzz
