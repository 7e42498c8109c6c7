#include "tools/vellari/FailureReport.h"

#include "tools/vellari/ToolError.h"

#include <Vellari/Vellari.h>

#include <cstdio>
#include <utility>

namespace VellariTool {

using KvRefSystem::FormatText;

TFailureReport::TFailureReport(std::string sourceName) : name(std::move(sourceName)) {}

void TFailureReport::Add(std::uint64_t lineNumber, std::string_view line, std::string const& reason) {
    ++count;
    if (count > MostReports) {
        return;
    }
    PrintMessage(name + FormatText(", line %llu: ", static_cast<unsigned long long>(lineNumber)) + reason +
                 ", in " + Quoted(line));
    if (count == MostReports) {
        PrintMessage("further lines are only counted");
    }
}

void TFailureReport::Finish(std::uint64_t points) const {
    if (count > 0) {
        PrintMessage(FormatText("%llu of %llu points could not be transformed",
                                static_cast<unsigned long long>(count),
                                static_cast<unsigned long long>(points)));
    }
}

void PrintMessage(std::string const& message) {
    std::string const line = "vellari: " + message + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
}

} // namespace VellariTool
