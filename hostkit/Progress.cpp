#include "frame/imported/Progress.h"

TKvProgressHandler::~TKvProgressHandler() = default;

TKvStepProgress::TKvStepProgress(TKvProgressHandler* progressHandler)
    : handler(progressHandler), done(0), running(false) {}

TKvStepProgress::~TKvStepProgress() {
    try {
        Stop();
    } catch (...) {
        // The operation is over; a display that fails at its end must not end the process.
    }
}

void TKvStepProgress::Start(unsigned long steps) {
    Stop();
    done = 0;
    running = true;
    if (handler) {
        handler->OnStart(steps);
    }
}

void TKvStepProgress::Next() {
    if (!running) {
        return;
    }
    ++done;
    if (handler) {
        handler->OnProgress(done);
    }
}

void TKvStepProgress::Stop() {
    if (!running) {
        return;
    }
    running = false;
    if (handler) {
        handler->OnStop();
    }
}

// A sub-task is a part of one step, so it has nothing of its own to show.
TKvProgressHandler* TKvStepProgress::Handler() const {
    return nullptr;
}
