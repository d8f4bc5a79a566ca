#pragma once
// The thread that jobs on files do their steps on. It stays when a job is over: a thread that has waited gets
// its processor sooner than a new one, which makes many small file calls a quarter faster on the desktop.

#include "platform/handles.h"

class JobWorker {
  public:
    JobWorker() = default;
    JobWorker(const JobWorker&) = delete;
    JobWorker& operator=(const JobWorker&) = delete;
    /// Waits for the steps and ends the thread.
    ~JobWorker();

    /// Has `steps` done with `job`, on a thread that is made when there is none yet. False when that cannot
    /// be made, or is at another job. User-interface thread, as all of these.
    using Steps = void (*)(void* job);
    bool Start(Steps steps, void* job);

    /// Makes the thread long before the first job, so that it has waited then. False when it cannot be made.
    bool Prepare();

    /// Waits until the steps have been done, if any.
    void Finish();

  private:
    static DWORD WINAPI ThreadProcedure(void* worker);
    void Run();

    ObjectHandle startEvent_; // both go back by themselves
    ObjectHandle doneEvent_;
    ObjectHandle thread_;
    Steps steps_ = nullptr; // of the job under way; without any a start ends the thread
    void* job_ = nullptr;
};
