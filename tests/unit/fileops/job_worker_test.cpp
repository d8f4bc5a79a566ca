#include "fileops/job_worker.h"

#include <gtest/gtest.h>

namespace {

/// What the steps of a test see and leave.
struct Record {
    DWORD thread = 0;
    int runs = 0;
};

void Note(void* record) {
    auto* seen = static_cast<Record*>(record);
    seen->thread = GetCurrentThreadId();
    ++seen->runs;
}

void NoteLate(void* record) {
    Sleep(200);
    Note(record);
}

TEST(JobWorker, DoesTheStepsOnAnotherThread) {
    Record record;
    JobWorker worker;
    ASSERT_TRUE(worker.Start(Note, &record));
    worker.Finish();
    EXPECT_EQ(record.runs, 1);
    EXPECT_NE(record.thread, GetCurrentThreadId());
}

TEST(JobWorker, KeepsItsThreadFromOneJobToTheNext) {
    Record first, second;
    JobWorker worker;
    ASSERT_TRUE(worker.Prepare());
    ASSERT_TRUE(worker.Start(Note, &first));
    worker.Finish();
    ASSERT_TRUE(worker.Start(Note, &second));
    worker.Finish();
    EXPECT_EQ(second.runs, 1);
    EXPECT_EQ(first.thread, second.thread);
}

TEST(JobWorker, IsWaitedForUntilItIsDone) {
    Record record;
    JobWorker worker;
    ASSERT_TRUE(worker.Start(NoteLate, &record));
    worker.Finish();
    EXPECT_EQ(record.runs, 1);
    worker.Finish(); // there is nothing to wait for any more
}

TEST(JobWorker, EndsItsThreadAfterTheStepsUnderWay) {
    Record record;
    {
        JobWorker worker;
        ASSERT_TRUE(worker.Start(NoteLate, &record));
    }
    EXPECT_EQ(record.runs, 1);
    HANDLE thread = OpenThread(SYNCHRONIZE, FALSE, record.thread);
    EXPECT_TRUE(thread == nullptr || WaitForSingleObject(thread, 0) == WAIT_OBJECT_0);
    CloseHandle(thread);
}

TEST(JobWorker, TakesOneJobAtATime) {
    Record first, second;
    JobWorker worker;
    ASSERT_TRUE(worker.Start(NoteLate, &first));
    EXPECT_FALSE(worker.Start(Note, &second));
    worker.Finish();
    EXPECT_EQ(first.runs, 1);
    EXPECT_EQ(second.runs, 0);
    EXPECT_TRUE(worker.Start(Note, &second));
    worker.Finish();
    EXPECT_EQ(second.runs, 1);
}

TEST(JobWorker, HasNothingToEndWithoutAThread) {
    JobWorker worker;
    worker.Finish();
}

} // namespace
