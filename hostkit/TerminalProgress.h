#pragma once

#include "frame/imported/Progress.h"

#include <chrono>
#include <cstdio>
#include <string>

namespace VellariHostKit {

/**
 * Draws the progress of one operation as a bar on one line of a terminal, and takes it away at the end.
 *
 * Whether the stream is a terminal is for the caller to ask. The bar is drawn anew only when its text changes
 * and the interval has gone by, so that a fast operation isn't slowed down. Not to be used from two threads
 * at once.
 */
class TTerminalProgress : public TKvProgressHandler {
public:
    /** Time between two drawings, so short that the bar seems to move. */
    static constexpr std::chrono::milliseconds DefaultInterval{100};

    /**
     * @param terminal stream to draw on; not owned; null draws nothing.
     * @param title    what stands before the bar, UTF-8, at most some 30 characters; may be empty.
     * @param delay    shortest time between two drawings.
     */
    explicit TTerminalProgress(std::FILE* terminal = stderr, std::string title = std::string(),
                               std::chrono::milliseconds delay = DefaultInterval);

    /** Takes away a bar that still stands. */
    ~TTerminalProgress() override;

    TTerminalProgress(TTerminalProgress const&) = delete;
    TTerminalProgress& operator=(TTerminalProgress const&) = delete;

    void OnStart(unsigned long steps) override;
    void OnProgress(unsigned long done) override;
    void OnStop() override;

private:
    void Draw(unsigned long done);

    std::FILE* stream;
    std::string label;
    std::chrono::milliseconds interval;
    unsigned long total;
    std::chrono::steady_clock::time_point lastDrawing;
    std::string shown;
};

} // namespace VellariHostKit
