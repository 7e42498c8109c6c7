#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace VellariTool {

/**
 * Reports lines that can't be transformed on standard error: the first ones one by one, then their number.
 */
class TFailureReport {
public:
    /** Lines that are reported one by one. */
    static constexpr std::uint64_t MostReports = 20;

    /** @param sourceName what messages call the points. */
    explicit TFailureReport(std::string sourceName);

    /** @param lineNumber from 1. @param line its text. @param reason what is wrong, a part of a sentence. */
    void Add(std::uint64_t lineNumber, std::string_view line, std::string const& reason);

    /** Tells how many of `points` points failed, if any did. */
    void Finish(std::uint64_t points) const;

    /** @return how many failed. */
    std::uint64_t Count() const { return count; }

private:
    std::string name;
    std::uint64_t count = 0;
};

/** Writes "vellari: MESSAGE" and a line end to standard error. */
void PrintMessage(std::string const& message);

} // namespace VellariTool
