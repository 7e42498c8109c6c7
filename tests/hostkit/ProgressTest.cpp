#include "frame/imported/Progress.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

/** Keeps the calls as letters: S start, P progress, E end, each with its number. */
class Recorder : public TKvProgressHandler {
public:
    struct Call {
        char kind;
        unsigned long number;
        bool operator==(Call const& other) const { return kind == other.kind && number == other.number; }
    };
    std::vector<Call> calls;

    void OnStart(unsigned long steps) override { calls.push_back({'S', steps}); }
    void OnProgress(unsigned long done) override { calls.push_back({'P', done}); }
    void OnStop() override { calls.push_back({'E', 0}); }
};

using Calls = std::vector<Recorder::Call>;

} // namespace

TEST(StepProgress, CountsTheStepsForTheHandler) {
    Recorder recorder;
    TKvStepProgress progress(&recorder);
    progress.Start(2);
    progress.Next();
    progress.Next();
    progress.Stop();
    EXPECT_EQ(recorder.calls, (Calls{{'S', 2}, {'P', 1}, {'P', 2}, {'E', 0}}));
}

TEST(StepProgress, StopsOnceEvenIfStoppedTwiceOrNotAtAll) {
    Recorder recorder;
    {
        TKvStepProgress progress(&recorder);
        progress.Start(1);
        progress.Stop();
        progress.Stop();
    }
    {
        TKvStepProgress progress(&recorder);
        progress.Start(3);
    }
    EXPECT_EQ(recorder.calls, (Calls{{'S', 1}, {'E', 0}, {'S', 3}, {'E', 0}}));
}

TEST(StepProgress, StepsWithoutAStartAreNotReported) {
    Recorder recorder;
    TKvStepProgress progress(&recorder);
    progress.Next();
    progress.Stop();
    EXPECT_TRUE(recorder.calls.empty());
}

TEST(StepProgress, ASecondStartEndsTheFirstOperation) {
    Recorder recorder;
    TKvStepProgress progress(&recorder);
    progress.Start(5);
    progress.Next();
    progress.Start(7);
    progress.Next();
    EXPECT_EQ(recorder.calls, (Calls{{'S', 5}, {'P', 1}, {'E', 0}, {'S', 7}, {'P', 1}}));
}

TEST(StepProgress, EverythingIsLegalWithANullHandler) {
    TKvStepProgress progress(nullptr);
    progress.Start(5);
    progress.Next();
    progress.Stop();
    EXPECT_EQ(progress.Handler(), nullptr);
}

TEST(StepProgress, ASubTaskReportsNothingOfItsOwn) {
    Recorder recorder;
    TKvStepProgress outer(&recorder);
    outer.Start(1);
    TKvStepProgress inner(outer.Handler());
    inner.Start(100);
    inner.Next();
    inner.Stop();
    EXPECT_EQ(recorder.calls, (Calls{{'S', 1}}));
}

TEST(StepProgress, AHandlerThatFailsAtTheEndDoesNotEndTheProcess) {
    class Failing : public TKvProgressHandler {
    public:
        void OnStart(unsigned long) override {}
        void OnProgress(unsigned long) override {}
        void OnStop() override {
            ++stops;
            throw std::runtime_error("display is gone");
        }
        int stops = 0;
    };
    Failing handler;
    {
        TKvStepProgress progress(&handler);
        progress.Start(1);
    }
    EXPECT_EQ(handler.stops, 1);
}
