#include "hostkit/TerminalProgress.h"

#include "frame/NumberText.h"

#include <algorithm>
#include <utility>

namespace VellariHostKit {

namespace {

/** Cells of the bar between its brackets. */
constexpr unsigned long barWidth = 40;

/** Share of `done` in `total` as a number from 0 to `whole`; an operation without steps is complete. */
unsigned long Share(unsigned long done, unsigned long total, unsigned long whole) {
    if (done >= total) {
        return whole;
    }
    // As doubles, since the product of whole numbers may leave their range.
    double const share = static_cast<double>(done) / static_cast<double>(total);
    return std::min(whole, static_cast<unsigned long>(share * static_cast<double>(whole)));
}

/** Number of characters of a UTF-8 text. */
std::size_t CharacterCount(std::string const& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
    }));
}

} // namespace

TTerminalProgress::TTerminalProgress(std::FILE* terminal, std::string title, std::chrono::milliseconds delay)
    : stream(terminal), label(std::move(title)), interval(delay), total(0) {}

TTerminalProgress::~TTerminalProgress() {
    // Qualified: the object is no longer anything that derives from it.
    TTerminalProgress::OnStop();
}

void TTerminalProgress::OnStart(unsigned long steps) {
    total = steps;
    Draw(0);
}

void TTerminalProgress::OnProgress(unsigned long done) {
    if (std::chrono::steady_clock::now() - lastDrawing >= interval) {
        Draw(done);
    }
}

void TTerminalProgress::OnStop() {
    if (shown.empty() || !stream) {
        return;
    }
    std::string const erasure = "\r" + std::string(CharacterCount(shown), ' ') + "\r";
    std::fwrite(erasure.data(), 1, erasure.size(), stream);
    std::fflush(stream);
    shown.clear();
}

void TTerminalProgress::Draw(unsigned long done) {
    lastDrawing = std::chrono::steady_clock::now();
    unsigned long const filled = Share(done, total, barWidth);
    std::string line = label.empty() ? "[" : label + " [";
    line.append(filled, '#').append(barWidth - filled, '.');
    line += KvRefSystem::FormatText("] %3lu%%", Share(done, total, 100));
    if (line == shown || !stream) {
        return;
    }
    // A line is as long as the last one, since label and bar have fixed widths: it covers all of that.
    std::string const text = "\r" + line;
    std::fwrite(text.data(), 1, text.size(), stream);
    std::fflush(stream);
    shown = std::move(line);
}

} // namespace VellariHostKit
