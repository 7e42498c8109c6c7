#pragma once

/** Receives the progress of a long operation; passed as a pointer that may be null everywhere. */
class TKvProgressHandler {
public:
    virtual ~TKvProgressHandler();

    /** An operation of `steps` steps begins. */
    virtual void OnStart(unsigned long steps) = 0;

    /** `done` of the announced steps have gone by. */
    virtual void OnProgress(unsigned long done) = 0;

    /** The operation has ended. */
    virtual void OnStop() = 0;
};

/** Counts the steps of one operation for a handler; every operation is legal with a null handler. */
class TKvStepProgress {
public:
    /** @param handler receives the progress; may be null; must outlive this object. */
    explicit TKvStepProgress(TKvProgressHandler* handler);
    ~TKvStepProgress();
    TKvStepProgress(TKvStepProgress const&) = delete;
    TKvStepProgress& operator=(TKvStepProgress const&) = delete;

    /** Begins an operation of `steps` steps. */
    void Start(unsigned long steps);

    /** One step has gone by. */
    void Next();

    /** Ends the operation; the destructor does the same if it wasn't called. */
    void Stop();

    /** @return a handler for a sub-task, which reports nothing of its own upward, or null. */
    TKvProgressHandler* Handler() const;

private:
    TKvProgressHandler* handler;
    unsigned long done;
    bool running;
};
