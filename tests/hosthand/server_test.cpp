#include "companions/hosthand/server.h"

#include <cerrno>
#include <chrono>
#include <random>
#include <thread>

#include <fcntl.h>
#include <unistd.h>

#include "tests/hosthand/hand_test.h"
#include "tests/hosthand/talk.h"

namespace {

using hand::Kind;
using hand::MessageWriter;
using hand::ResultCode;

/// A program and its hand, on two threads.
class ServerTest : public HandTest {
  protected:
    void Start() {
        int ask[2]{}, tell[2]{};
        ASSERT_EQ(pipe2(ask, O_CLOEXEC), 0);
        ASSERT_EQ(pipe2(tell, O_CLOEXEC), 0);
        talk_ = Talk(Descriptor(ask[1]), Descriptor(tell[0]));
        Folder("Own");
        hand_ = std::thread([this, in = ask[0], out = tell[1]] {
            Server(Channel(Descriptor(in), Descriptor(out)), Open("."), At("Own"), At("."), "abc").Run();
        });
    }
    void TearDown() override { End(); }
    void End() {
        talk_.StopTelling();
        if (hand_.joinable())
            hand_.join();
        talk_.End();
    }

    void Say(MessageWriter&& message) { talk_.Say(std::move(message)); }
    void Shout(const std::vector<std::byte>& bytes) { talk_.Shout(bytes); }
    Outcome HearResult(bool yes = true) { return talk_.HearResult(yes); }
    std::uint32_t Units() const { return talk_.units; }
    const std::vector<std::uint32_t>& Questions() const { return talk_.questions; }

  private:
    Talk talk_;
    std::thread hand_;
};

TEST_F(ServerTest, DoesWhatItIsAskedFor) {
    File("My Folder/T/a");
    File("My Folder/T/b");
    Folder("To");
    Start();
    Say(Transferring("my folder", "t", "to", false));
    EXPECT_TRUE(HearResult().IsDone());
    EXPECT_EQ(Units(), 3u);
    Say(Removal("MY FOLDER", "T", true));
    EXPECT_TRUE(HearResult().IsDone());
    EXPECT_EQ(Units(), 6u);
    EXPECT_FALSE(Exists("My Folder/T"));
    EXPECT_TRUE(Exists("To/t/a"));
}

TEST_F(ServerTest, AHeldFolderStaysTheSame) {
    File("A/T/a");
    File("B/T/a");
    Start();
    Say(std::move(MessageWriter(Kind::Hold).Text("A")));
    EXPECT_TRUE(HearResult().IsDone());
    Shell("mv A Was && ln -s B A");
    Say(Removal("A", "T", true));
    EXPECT_TRUE(HearResult().IsDone());
    EXPECT_TRUE(Exists("B/T/a"));
    EXPECT_FALSE(Exists("Was/T"));
}

TEST_F(ServerTest, AsksAndDoesAsItIsTold) {
    File("T/a", "new");
    File("To/T/a", "old");
    Start();
    Say(Transferring("", "T", "To", false));
    EXPECT_TRUE(HearResult(false).IsDone());
    EXPECT_EQ(Questions(), std::vector{static_cast<std::uint32_t>(Kind::AskFolder)});
    EXPECT_EQ(Content("To/T/a"), "old");
    Say(Transferring("", "T", "To", false));
    EXPECT_TRUE(HearResult(true).IsDone());
    EXPECT_EQ(Content("To/T/a"), "new");
}

TEST_F(ServerTest, NoPathLeadsOut) {
    File("T/kept");
    Start();
    for (const char* path : {"..", "T/../..", ".", "T/."}) {
        Say(Removal(path, "T", true));
        EXPECT_FALSE(HearResult().IsDone()) << path;
    }
    for (const char* name : {"", ".", "..", "T/kept", "../T"}) {
        Say(Removal("", name, true));
        EXPECT_FALSE(HearResult().IsDone()) << name;
    }
    EXPECT_TRUE(Exists("T/kept"));
}

TEST_F(ServerTest, SinglePathsAreRenamedAndRemoved) {
    File("a", "a");
    File("b", "b");
    Folder("Sub");
    Link("link", "Sub");
    File("Deep/x");
    Link("Deep/link", "../Sub");
    Start();
    const auto rename = [&](const char* from, const char* into, bool replaces) {
        Say(std::move(MessageWriter(Kind::Rename).Text(from).Text(into).Number(replaces)));
        return HearResult();
    };
    const auto remove = [&](Kind kind, const char* path) {
        Say(std::move(MessageWriter(kind).Text(path)));
        return HearResult();
    };
    EXPECT_EQ(rename("a", "B", false).error, EEXIST);
    EXPECT_TRUE(rename("a", "A", false).IsDone());
    EXPECT_TRUE(Exists("A") && !Exists("a"));
    EXPECT_TRUE(rename("A", "A", false).IsDone());
    EXPECT_TRUE(rename("sub", "SUB", false).IsDone());
    EXPECT_EQ(rename("A", "missing", true).error, ENOENT);
    EXPECT_EQ(rename("A", "SUB", true).error, EISDIR);
    EXPECT_TRUE(rename("A", "b", true).IsDone());
    EXPECT_EQ(Content("b"), "a");
    EXPECT_EQ(remove(Kind::RemoveFolder, "link").error, EACCES); // a card
    EXPECT_TRUE(remove(Kind::RemoveFolder, "deep/LINK").IsDone());
    EXPECT_EQ(remove(Kind::RemoveFolder, "Deep").error, ENOTEMPTY);
    EXPECT_EQ(remove(Kind::RemoveFile, "Deep").error, EISDIR);
    EXPECT_TRUE(remove(Kind::RemoveFile, "Deep/x").IsDone());
    EXPECT_TRUE(remove(Kind::RemoveFolder, "Deep").IsDone());
}

TEST_F(ServerTest, AttributesAreTheEntrysOwn) {
    File("a");
    Link("Sub/link", "../a");
    Start();
    const auto set = [&](const char* path, std::uint32_t attributes) {
        Say(std::move(MessageWriter(Kind::SetAttributes).Text(path).Number(attributes)));
        return HearResult().IsDone();
    };
    const auto mode = [&] { return StatusOf(Open(".").Get(), "a")->st_mode & 0777; };
    Shell("chmod 644 a");
    EXPECT_TRUE(set("Sub/link", 1));
    EXPECT_EQ(mode(), 0644u);
    EXPECT_TRUE(set("a", 1 | 2));
    EXPECT_EQ(mode(), 0444u);
    EXPECT_TRUE(set("a", 0));
    EXPECT_EQ(mode(), 0644u);
    EXPECT_FALSE(set("missing", 0));
}

TEST_F(ServerTest, StopsWhenItIsToldTo) {
    Shell("mkdir T && truncate -s 8G T/large");
    Folder("To");
    Start();
    Say(Transferring("", "T", "To", false));
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    const auto cancelled = std::chrono::steady_clock::now();
    Say(MessageWriter(Kind::Cancel));
    EXPECT_EQ(HearResult().code, ResultCode::Stopped);
    EXPECT_LT(std::chrono::steady_clock::now() - cancelled, std::chrono::seconds(10));
    EXPECT_FALSE(Exists("To/T/large"));
    Shell("test -z \"$(find To -name '~job*')\"");
}

TEST_F(ServerTest, EndsWithTheProgramAndLeavesNothing) {
    Shell("mkdir T && truncate -s 8G T/large");
    Folder("To");
    Start();
    Say(Transferring("", "T", "To", false));
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    End();
    Shell("test -z \"$(find To Own -type f)\"");
}

/// What is no message, and messages of any kind with any fields: the hand refuses or ends, and outside of the
/// folder nothing changes.
TEST_F(ServerTest, NothingThatIsSaidBreaksIt) {
    std::mt19937 random(20061105);
    const auto upTo = [&](std::uint32_t most) { return static_cast<std::uint32_t>(random() % (most + 1)); };
    const char* texts[] = {
        "", "T", "a", "To", "T/Sub", "..", "/", "T//Sub", "\xff\xfe", "very/deep/and missing", "."};
    for (int round = 0; round < 400; ++round) {
        File("T/Sub/a");
        File("a");
        Folder("To");
        Start();
        for (int i = 0; i < 6; ++i) {
            MessageWriter message(static_cast<Kind>(upTo(15)));
            for (std::uint32_t field = upTo(7); field > 0; --field) {
                if (upTo(2) == 0)
                    message.Number(upTo(3));
                else
                    message.Text(texts[upTo(std::size(texts) - 1)]);
            }
            std::vector<std::byte> bytes = message.Finish();
            if (upTo(3) == 0)
                for (std::uint32_t change = upTo(4); change > 0; --change)
                    bytes[upTo(static_cast<std::uint32_t>(bytes.size() - 1))] =
                        static_cast<std::byte>(random());
            if (upTo(9) == 0)
                bytes.resize(upTo(static_cast<std::uint32_t>(bytes.size())));
            if (!bytes.empty())
                Shout(bytes);
            // It may be waiting for an answer.
            Shout(MessageWriter(Kind::Answer).Number(upTo(1)).Finish());
        }
        End();
    }
}

} // namespace
