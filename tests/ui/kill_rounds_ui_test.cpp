// Screens: 240x320
// Limit: 300 seconds

// The program and what works for it on the host killed at once (SIGKILL), at random moments of random jobs:
// nothing is lost, nothing in part has a last name, and the next start removes what was left, and only that.
// TARVIK_KILLS says how many rounds, TARVIK_SEED which.

#include <fstream>
#include <iostream>
#include <random>

#include "tests/ui/job_ui.h"

namespace {

enum class Job { Copy, Move, CopyAcross, MoveAcross, CopyOver, MoveOver, Delete };
constexpr const char* jobNames[] = {"copy",         "move",         "copy across", "move across",
                                    "copy over it", "move over it", "delete"};

class KillRoundsUi : public JobUi {
  protected:
    void SetUp() override {
        JobUi::SetUp();
        RunOnHost("mkdir -p \"$TARVIK_WORK/new/Sub\" From Outside/Sub \"" + disk + "\"\nln -s \"" + disk +
                  "\" Disk\necho kept >Outside/Sub/kept; echo mine >From/~job001.tmp\n"
                  "cd \"$TARVIK_WORK/new\"\n"
                  "head -c 9000000 /dev/zero | tr '\\0' n | split -b 20000 -a 4 -d - f\n"
                  "mv f00?? Sub; truncate -s 150M zlarge\ncp -a . ../old; cd ../old\n"
                  "find . -name 'f*' -exec sed -i 's/n/o/g' {} +; truncate -s 2M zlarge");
        WriteScripts();
    }
    void TearDown() override {
        JobUi::TearDown();
        RunOnHost("rm -rf Disk \"" + disk + "\"");
    }

    static int Number(const char* variable, int otherwise) {
        const std::string text = HostVariable(variable);
        return text.empty() ? otherwise : std::stoi(text);
    }
    static bool GoesAcross(Job job) { return job == Job::CopyAcross || job == Job::MoveAcross; }
    static bool GoesOver(Job job) { return job == Job::CopyOver || job == Job::MoveOver; }
    static bool IsMove(Job job) { return job == Job::Move || job == Job::MoveAcross || job == Job::MoveOver; }

    /// Begins the job; its dialog may be up by then, or it may be over.
    void Begin(Job job) {
        RunOnHost("rm -rf From/Many To Disk/*; mkdir To; cp -a \"$TARVIK_WORK/new\" From/Many" +
                  std::string(GoesOver(job) ? "; cp -a \"$TARVIK_WORK/old\" To/Many" : ""));
        StartIn(L"\\From");
        Select({L"Many"});
        if (job == Job::Delete) {
            Give(IDM_FILE_DELETE);
            WaitForDeleteQuestion().Command(yesKey);
            return;
        }
        program.Command(IsMove(job) ? IDM_TOOLBAR_CUT : IDM_TOOLBAR_COPY);
        Show(GoesAcross(job) ? L"\\Disk" : L"\\To");
        program.PostCommand(IDM_TOOLBAR_PASTE);
        if (GoesOver(job)) {
            AnswerFolder(IDYES);
            WaitForFolderOrFile();
        }
    }
    /// The folder in it is asked about before or after its files, as the disk has them.
    void WaitForFolderOrFile() {
        for (bool answered = false; !answered;) {
            WaitFor("for a question", [&] { return HasQuestion(folderTitle) || HasQuestion(fileTitle); });
            answered = HasQuestion(fileTitle);
            answered ? WaitForFileQuestion().Command(allKey) : AnswerFolder(IDYES);
        }
    }
    /// Has somebody stand by who kills when there is a file of this name.
    static void StandBy() {
        RunOnHost("cd \"$TARVIK_WORK\"; rm -f now done\npython3 kill.py >/dev/null 2>&1 </dev/null &");
    }
    void Kill() {
        const std::string work = "Z:" + HostVariable("TARVIK_WORK");
        std::ofstream(work + "/now").flush();
        std::string hands;
        WaitFor("for the killer", [&] { return static_cast<bool>(std::ifstream(work + "/done") >> hands); });
        metAtWork_ += hands != "0" ? 1 : 0;
        program.Kill();
        WaitForHands(0);
    }
    void Check(Job job) {
        StartIn(L"\\From");
        std::string left;
        const bool isClean = Eventually([&] {
            RunOnHost(
                "find . Disk/ -name '~job*' >\"$TARVIK_WORK/left\"; ls \"$WINEPREFIX/drive_c/windows\" | "
                "grep '^hand[.]' >>\"$TARVIK_WORK/left\" || true\n"
                "cp \"$TARVIK_WORK/left\" left");
            left = device.Content(L"\\left");
            return left == "./From/~job001.tmp\n";
        });
        EXPECT_TRUE(isClean) << "left: " << left;
        RunOnHost("rm left; python3 \"$TARVIK_WORK/check.py\" '" +
                  std::string(GoesAcross(job) ? "Disk" : "To") + "' '" + jobNames[static_cast<int>(job)] +
                  "'\ntest \"$(cat From/~job001.tmp)\" = mine\n"
                  "test \"$(find Outside | sort | tr '\\n' ' ')\" = 'Outside Outside/Sub Outside/Sub/kept '");
        program.Kill();
        WaitForHands(0);
    }

    int MetAtWork() const { return metAtWork_; }

  private:
    static constexpr const wchar_t* fileTitle = L"Replace existing File?";
    static constexpr const wchar_t* folderTitle = L"Replace existing Folder?";

    bool HasQuestion(const wchar_t* title) const {
        for (const HWND dialog : DialogsOf(program.ProcessId()))
            if (TextOf(dialog) == title)
                return true;
        return false;
    }
    static void WriteScripts() {
        RunOnHost(R"sh(cat >"$TARVIK_WORK/kill.py" <<'END'
import os, signal, time
while not os.path.exists('now'):
    time.sleep(0.001)
prefix = os.environ['WINEPREFIX']
doomed = []
for process in filter(str.isdigit, os.listdir('/proc')):
    try:
        at = '/proc/' + process
        is_hand = os.readlink(at + '/exe').startswith(prefix + '/drive_c/windows/hosthand')
        is_program = b'TarvikFileManager.exe' in open(at + '/cmdline', 'rb').read() and \
            b'WINEPREFIX=' + prefix.encode() in open(at + '/environ', 'rb').read()
    except OSError:
        continue
    if is_hand or is_program:
        doomed.append((is_program, int(process)))
hands = 0
for is_program, process in sorted(doomed):
    try:
        os.kill(process, signal.SIGKILL)
        hands += not is_program
    except ProcessLookupError:
        pass
with open('done.new', 'w') as done:
    done.write(f'{hands}\n')
os.rename('done.new', 'done')
END
cat >"$TARVIK_WORK/check.py" <<'END'
import os, sys
def files(folder):
    return {os.path.relpath(os.path.join(at, name), folder): os.path.join(at, name)
            for at, _, names in os.walk(folder) for name in names}
def same(a, b):
    return os.path.getsize(a) == os.path.getsize(b) and ('large' in a or open(a, 'rb').read() == open(b, 'rb').read())
target, job = sys.argv[1:]
work = os.environ['TARVIK_WORK']
new, old = files(work + '/new'), files(work + '/old')
source, made = files('From/Many'), files(target + '/Many')
wrong = [name for name in source if not same(source[name], new[name])]
wrong += [name for name in made if not (same(made[name], new[name]) or 'over' in job and same(made[name], old[name]))]
lost = [] if job == 'delete' else [name for name in new if name not in source and
                                   not (job.startswith('move') and name in made and same(made[name], new[name]))]
if 'over' in job:
    lost += [name for name in old if name not in made]
if wrong or lost:
    sys.exit(f'{job}: in part or another: {wrong[:5]}, lost: {lost[:5]}')
END
)sh");
    }

    int metAtWork_ = 0;
    const std::string disk = "/dev/shm/$(basename \"$(dirname \"$TARVIK_WORK\")\")-card";
};

TEST_F(KillRoundsUi, NothingIsLostAndNothingIsHalfThere) {
    const int rounds = Number("TARVIK_KILLS", 7);
    const int seed = Number("TARVIK_SEED", 1);
    std::mt19937 random(static_cast<unsigned>(seed));
    for (int round = 0; round < rounds && !HasFailure(); ++round) {
        // The first rounds have each job once; most jobs are over within that time.
        const auto drawn = static_cast<int>(random() % std::size(jobNames));
        const Job job = static_cast<Job>(round < static_cast<int>(std::size(jobNames)) ? round : drawn);
        const DWORD moment = random() % 300;
        SCOPED_TRACE("round " + std::to_string(round) + ": " + jobNames[static_cast<int>(job)] + ", after " +
                     std::to_string(moment) + " ms");
        StandBy();
        Begin(job);
        Sleep(moment);
        Kill();
        Check(job);
    }
    std::cout << MetAtWork() << " of " << rounds << " kills met the host's work under way\n";
    EXPECT_GT(MetAtWork(), 0);
}

} // namespace
