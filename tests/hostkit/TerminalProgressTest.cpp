#include "hostkit/TerminalProgress.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <string>

using VellariHostKit::TTerminalProgress;

namespace {

using Milliseconds = std::chrono::milliseconds;

/** A stream that keeps what is written to it. */
class Terminal {
public:
    Terminal() : stream(open_memstream(&buffer, &size)) {}
    Terminal(Terminal const&) = delete;
    Terminal& operator=(Terminal const&) = delete;
    ~Terminal() {
        std::fclose(stream);
        std::free(buffer);
    }

    std::FILE* Stream() { return stream; }

    std::string Text() {
        std::fflush(stream);
        return std::string(buffer, size);
    }

    /** What a person sees: each CR goes back to the beginning of the line and what follows covers it. */
    std::string Line() {
        std::string line;
        std::size_t column = 0;
        for (char const letter : Text()) {
            if (letter == '\r') {
                column = 0;
                continue;
            }
            line.resize(std::max(line.size(), column + 1), ' ');
            line[column++] = letter;
        }
        line.erase(line.find_last_not_of(' ') + 1);
        return line;
    }

private:
    char* buffer = nullptr;
    std::size_t size = 0;
    std::FILE* stream;
};

std::string Bar(std::size_t filled, std::string const& percent) {
    return "[" + std::string(filled, '#') + std::string(40 - filled, '.') + "] " + percent;
}

} // namespace

TEST(TerminalProgress, DrawsABarOnOneLine) {
    Terminal terminal;
    TTerminalProgress progress(terminal.Stream(), "points", Milliseconds(0));
    progress.OnStart(200);
    EXPECT_EQ(terminal.Line(), "points " + Bar(0, "  0%"));
    progress.OnProgress(50);
    EXPECT_EQ(terminal.Line(), "points " + Bar(10, " 25%"));
    progress.OnProgress(200);
    EXPECT_EQ(terminal.Line(), "points " + Bar(40, "100%"));
    EXPECT_EQ(terminal.Text().find('\n'), std::string::npos);
}

TEST(TerminalProgress, ErasesItselfAtTheEnd) {
    Terminal terminal;
    TTerminalProgress progress(terminal.Stream(), "точки", Milliseconds(0));
    progress.OnStart(10);
    progress.OnProgress(5);
    progress.OnStop();
    std::string const text = terminal.Text();
    // The label has 5 characters: 5 + 1 + 42 + 5 cells are covered, not as many as there are bytes.
    EXPECT_EQ(text.substr(text.size() - 55), "\r" + std::string(53, ' ') + "\r");
    progress.OnStop();
    EXPECT_EQ(terminal.Text(), text);
}

TEST(TerminalProgress, ErasesItselfWhenItIsDestroyed) {
    Terminal terminal;
    {
        TTerminalProgress progress(terminal.Stream(), std::string(), Milliseconds(0));
        progress.OnStart(10);
        EXPECT_EQ(terminal.Line(), Bar(0, "  0%"));
    }
    EXPECT_EQ(terminal.Line(), "");
}

TEST(TerminalProgress, DrawsNoMoreOftenThanTheInterval) {
    Terminal terminal;
    TTerminalProgress progress(terminal.Stream(), std::string(), std::chrono::hours(1));
    progress.OnStart(100);
    std::string const text = terminal.Text();
    for (unsigned long done = 1; done <= 100; ++done) {
        progress.OnProgress(done);
    }
    EXPECT_EQ(terminal.Text(), text);
}

TEST(TerminalProgress, DrawsOnlyWhatHasChanged) {
    Terminal terminal;
    TTerminalProgress progress(terminal.Stream(), std::string(), Milliseconds(0));
    progress.OnStart(1000000);
    std::string const text = terminal.Text();
    progress.OnProgress(1);
    EXPECT_EQ(terminal.Text(), text);
}

TEST(TerminalProgress, TakesAbsurdNumbersOfSteps) {
    Terminal terminal;
    TTerminalProgress progress(terminal.Stream(), std::string(), Milliseconds(0));
    progress.OnStart(0);
    EXPECT_EQ(terminal.Line(), Bar(40, "100%"));
    progress.OnStart(ULONG_MAX);
    EXPECT_EQ(terminal.Line(), Bar(0, "  0%"));
    progress.OnProgress(ULONG_MAX / 2 + 1);
    EXPECT_EQ(terminal.Line(), Bar(20, " 50%"));
    progress.OnStart(10);
    progress.OnProgress(11);
    EXPECT_EQ(terminal.Line(), Bar(40, "100%"));
}

TEST(TerminalProgress, ANullStreamDrawsNothing) {
    TTerminalProgress progress(nullptr);
    progress.OnStart(10);
    progress.OnProgress(5);
    EXPECT_NO_THROW(progress.OnStop());
}

TEST(TerminalProgress, IsDrivenByStepProgress) {
    Terminal terminal;
    TTerminalProgress display(terminal.Stream(), std::string(), Milliseconds(0));
    TKvStepProgress progress(&display);
    progress.Start(4);
    progress.Next();
    EXPECT_EQ(terminal.Line(), Bar(10, " 25%"));
    progress.Stop();
    EXPECT_EQ(terminal.Line(), "");
}
