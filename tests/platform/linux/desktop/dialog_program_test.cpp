#include "platform/linux/desktop/dialog_program.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>

#include "platform/linux/support/test_folder.h"

namespace velmora::linuxhost {
namespace {

std::optional<DialogAnswer> runScript(const std::string& script,
                                      const std::function<void()>& whileOpen = {}) {
    return runDialog({"sh", "-c", script}, whileOpen);
}

// The present children of this process, those that ended and weren't waited for included.
std::set<pid_t> children() {
    std::set<pid_t> all;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        std::ifstream file(entry.path() / "stat");
        std::string line;
        if (!std::getline(file, line)) continue;
        // The name is in parentheses and may hold blanks; the state and the parent follow.
        std::istringstream rest(line.substr(line.rfind(')') + 1));
        std::string state;
        pid_t parent = 0;
        rest >> state >> parent;
        if (parent == getpid()) all.insert(std::stoi(line));
    }
    return all;
}

class DialogProgram : public testing::Test {
  protected:
    // Helpers of other tests may not have ended yet.
    bool hasNoNewChild() {
        const std::set<pid_t> now = children();
        return std::includes(before_.begin(), before_.end(), now.begin(), now.end());
    }

  private:
    std::set<pid_t> before_ = children();
};

TEST_F(DialogProgram, ItsChildrenAreSeen) {
    const pid_t child = fork();
    if (child == 0) _exit(0);
    EXPECT_FALSE(hasNoNewChild());
    EXPECT_EQ(waitpid(child, nullptr, 0), child);
    EXPECT_TRUE(hasNoNewChild());
}

TEST_F(DialogProgram, GivesItsOutputAndWhetherItWasAccepted) {
    const auto accepted = runScript("printf 'an answer\\n'");
    ASSERT_TRUE(accepted);
    EXPECT_TRUE(accepted->isAccepted);
    EXPECT_EQ(accepted->output, "an answer\n");
    for (const char* script : {"exit 1", "echo text; exit 1", "exit 255", "kill -9 $$"}) {
        const auto other = runScript(script);
        ASSERT_TRUE(other) << script;
        EXPECT_FALSE(other->isAccepted) << script;
    }
    EXPECT_TRUE(hasNoNewChild());
}

TEST_F(DialogProgram, OneThatIsNotThereGivesNothing) {
    EXPECT_FALSE(runDialog({"velmora-no-such-program"}, {}));
    EXPECT_TRUE(hasNoNewChild());
}

TEST_F(DialogProgram, TakesItsArgumentsAsTheyAre) {
    const auto answer =
        runDialog({"printf", "%s|", "a b", "$HOME", "'\"`x`", "--title=Größe", ""}, {});
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->output, "a b|$HOME|'\"`x`|--title=Größe||");
}

TEST_F(DialogProgram, TheProgramGoesOnBesideIt) {
    const TestFolder folder;
    const std::string mark = folder / "go on";
    int runs = 0;
    // It ends only because of what runs beside it.
    const auto answer =
        runScript("until [ -e '" + mark + "' ]; do sleep 0.01; done; echo done", [&] {
            if (++runs == 3) std::ofstream(mark) << "x";
        });
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->output, "done\n");
    EXPECT_GE(runs, 3);
}

// Of this process, in seconds.
double processorTime() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

TEST_F(DialogProgram, TheProgramGoesOnAlsoOnceTheOutputIsClosed) {
    const double before = processorTime();
    const TestFolder folder;
    const std::string mark = folder / "go on";
    int runs = 0;
    const auto answer = runScript("echo text; sleep 0.1; exec >&-; until [ -e '" + mark +
                                      "' ]; do sleep 0.01; done; sleep 0.6",
                                  [&] {
                                      if (++runs == 3) std::ofstream(mark) << "x";
                                  });
    ASSERT_TRUE(answer);
    EXPECT_TRUE(answer->isAccepted);
    EXPECT_EQ(answer->output, "text\n");
    EXPECT_LT(processorTime() - before, 0.25) << "it waits between two looks, seconds";
}

TEST_F(DialogProgram, IsEndedWhenWhatRunsBesideItThrows) {
    const TestFolder folder;
    const auto run = [&] {
        runScript("echo $$ >'" + (folder / "id") + "'; exec sleep 1000", [&] {
            if (!contentsOf(folder / "id").empty()) throw std::runtime_error("end");
        });
    };
    EXPECT_THROW(run(), std::runtime_error);
    EXPECT_TRUE(hasNoNewChild());
    EXPECT_EQ(kill(std::stoi(contentsOf(folder / "id")), 0), -1);
}

TEST_F(DialogProgram, EndlessOutputIsNoAnswerAndTakesNoRoom) {
    const auto flood = runScript("head -c 10000000 /dev/zero");
    ASSERT_TRUE(flood);
    EXPECT_FALSE(flood->isAccepted);
    EXPECT_LT(flood->output.size(), 2 * longestAnswer);
    const auto longest = runScript("head -c " + std::to_string(longestAnswer) + " /dev/zero");
    ASSERT_TRUE(longest);
    EXPECT_TRUE(longest->isAccepted);
    EXPECT_EQ(longest->output, std::string(longestAnswer, '\0'));
}

TEST_F(DialogProgram, AChildOfItsOwnIsNotWaitedFor) {
    const auto answer = runScript("sleep 1000 & echo $!");
    ASSERT_TRUE(answer);
    EXPECT_TRUE(answer->isAccepted);
    EXPECT_EQ(kill(std::stoi(answer->output), SIGKILL), 0);
}

}  // namespace
}  // namespace velmora::linuxhost
