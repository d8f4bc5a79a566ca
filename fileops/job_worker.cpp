#include "fileops/job_worker.h"

JobWorker::~JobWorker() {
    Finish();
    if (!thread_)
        return;
    ce::EventModify(startEvent_.Get(), EVENT_SET);
    WaitForSingleObject(thread_.Get(), INFINITE);
}

bool JobWorker::Prepare() {
    if (thread_)
        return true;
    startEvent_.Reset(CreateEventW(nullptr, FALSE, FALSE, nullptr));
    doneEvent_.Reset(CreateEventW(nullptr, FALSE, FALSE, nullptr));
    if (startEvent_ && doneEvent_)
        thread_.Reset(CreateThread(nullptr, 0, ThreadProcedure, this, 0, nullptr));
    return static_cast<bool>(thread_);
}

bool JobWorker::Start(Steps steps, void* job) {
    if (steps_ || !Prepare())
        return false;
    steps_ = steps;
    job_ = job;
    ce::EventModify(startEvent_.Get(), EVENT_SET);
    return true;
}

void JobWorker::Finish() {
    if (!steps_)
        return;
    WaitForSingleObject(doneEvent_.Get(), INFINITE);
    steps_ = nullptr;
}

DWORD WINAPI JobWorker::ThreadProcedure(void* worker) {
    static_cast<JobWorker*>(worker)->Run();
    return 0;
}

void JobWorker::Run() {
    while (WaitForSingleObject(startEvent_.Get(), INFINITE) == WAIT_OBJECT_0 && steps_) {
        steps_(job_);
        ce::EventModify(doneEvent_.Get(), EVENT_SET);
    }
}
