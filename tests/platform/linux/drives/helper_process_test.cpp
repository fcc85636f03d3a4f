#include "platform/linux/drives/helper_process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <string>

#include "platform/linux/support/test_folder.h"
#include "support/wait.h"

namespace velmora::linuxhost {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

// A stopped process is what a drive that doesn't answer looks like from here.
class StoppedProcess {
  public:
    explicit StoppedProcess(pid_t process) : process_(process) { kill(process_, SIGSTOP); }
    ~StoppedProcess() { kill(process_, SIGCONT); }

  private:
    pid_t process_;
};

// The first answer may miss a short deadline: the process has to begin before.
bool isStarted(HelperProcess& helper) {
    return waitUntil([&helper] { return helper.ask(HelperQuestion::space, "/").has_value(); });
}

TEST(HelperProcess, ReportsTheSpaceOfAFilesystem) {
    HelperProcess helper;
    const auto reply = helper.ask(HelperQuestion::space, "/");
    ASSERT_TRUE(reply);
    FilesystemReading expected;
    ASSERT_EQ(readFilesystem("/", expected), 0);
    EXPECT_EQ(reply->error, 0);
    EXPECT_EQ(reply->reading.totalBytes(), expected.totalBytes());
}

TEST(HelperProcess, ReportsFoldersFilesAndWhatIsMissing) {
    const TestFolder folder;
    std::ofstream(folder / "file") << "x";
    HelperProcess helper;
    EXPECT_EQ(kindOf(helper.ask(HelperQuestion::status, folder.path())->status), FileKind::folder);
    const auto file = helper.ask(HelperQuestion::status, folder / "file");
    EXPECT_EQ(kindOf(file->status), FileKind::file);
    EXPECT_EQ(file->status.stx_size, 1u);
    EXPECT_EQ(helper.ask(HelperQuestion::status, folder / "missing")->error, ENOENT);
    EXPECT_EQ(helper.ask(HelperQuestion::space, folder / "missing")->error, ENOENT);
}

TEST(HelperProcess, IsStartedByTheFirstQuestionAndKept) {
    HelperProcess helper;
    EXPECT_EQ(helper.id(), -1);
    helper.ask(HelperQuestion::space, "/");
    const pid_t first = helper.id();
    EXPECT_GT(first, 0);
    helper.ask(HelperQuestion::status, "/");
    EXPECT_EQ(helper.id(), first);
}

TEST(HelperProcess, PathsThatTheHostCanNotTakeHaveNoAnswer) {
    HelperProcess helper;
    EXPECT_FALSE(helper.ask(HelperQuestion::status, '/' + std::string(PATH_MAX, 'x')));
    EXPECT_FALSE(helper.ask(HelperQuestion::status, std::string("/\0x", 3)));
    EXPECT_FALSE(helper.isPending());
    const auto longest = helper.ask(HelperQuestion::status, '/' + std::string(PATH_MAX - 2, 'x'));
    ASSERT_TRUE(longest);
    EXPECT_EQ(longest->error, ENAMETOOLONG);
}

TEST(HelperProcess, WithoutAnAnswerTheDeadlineIsKept) {
    HelperProcess helper(100ms);
    ASSERT_TRUE(isStarted(helper));
    const StoppedProcess stopped(helper.id());
    const auto start = steady_clock::now();
    EXPECT_FALSE(helper.ask(HelperQuestion::space, "/"));
    const auto taken = steady_clock::now() - start;
    EXPECT_GE(taken, 95ms);
    EXPECT_LT(taken, 2s);
    EXPECT_TRUE(helper.isPending());
}

TEST(HelperProcess, WhileAQuestionIsPendingFurtherOnesCostNothing) {
    HelperProcess helper(1s);
    ASSERT_TRUE(isStarted(helper));
    const StoppedProcess stopped(helper.id());
    EXPECT_FALSE(helper.ask(HelperQuestion::space, "/"));
    const pid_t process = helper.id();
    const auto start = steady_clock::now();
    for (int i = 0; i < 100; ++i) EXPECT_FALSE(helper.ask(HelperQuestion::space, "/"));
    EXPECT_LT(steady_clock::now() - start, 900ms);
    EXPECT_EQ(helper.id(), process);
}

TEST(HelperProcess, TheLateAnswerIsThrownAwayAndTheQuestionAskedAgain) {
    const TestFolder folder;
    HelperProcess helper(100ms);
    ASSERT_TRUE(isStarted(helper));
    {
        const StoppedProcess stopped(helper.id());
        EXPECT_FALSE(helper.ask(HelperQuestion::status, "/no/such/folder"));
    }
    std::optional<HelperReply> reply;
    ASSERT_TRUE(waitUntil([&] {
        reply = helper.ask(HelperQuestion::status, folder.path());
        return reply.has_value();
    }));
    EXPECT_EQ(reply->error, 0);
    EXPECT_EQ(kindOf(reply->status), FileKind::folder);
    EXPECT_FALSE(helper.isPending());
}

TEST(HelperProcess, OneThatDiedIsReplacedByTheNextQuestion) {
    HelperProcess helper;
    ASSERT_TRUE(helper.ask(HelperQuestion::space, "/"));
    const pid_t first = helper.id();
    kill(first, SIGKILL);
    std::optional<HelperReply> reply;
    ASSERT_TRUE(waitUntil([&] {
        reply = helper.ask(HelperQuestion::space, "/");
        return helper.id() != first && reply.has_value();
    }));
    EXPECT_GT(reply->reading.totalBytes(), 0);
}

TEST(HelperProcess, OneThatDiedWhileItsAnswerWasPendingIsReplaced) {
    HelperProcess helper(50ms);
    ASSERT_TRUE(isStarted(helper));
    const pid_t first = helper.id();
    kill(first, SIGSTOP);
    EXPECT_FALSE(helper.ask(HelperQuestion::space, "/"));
    kill(first, SIGKILL);
    ASSERT_TRUE(waitUntil([&] { return helper.ask(HelperQuestion::space, "/").has_value(); }));
    EXPECT_NE(helper.id(), first);
}

TEST(HelperProcess, HoldsNoneOfTheProgramsFilesOpen) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    HelperProcess helper;
    ASSERT_TRUE(helper.ask(HelperQuestion::space, "/"));
    close(ends[1]);
    pollfd reader{ends[0], POLLIN, 0};
    ASSERT_EQ(poll(&reader, 1, 5000), 1);
    EXPECT_TRUE(reader.revents & POLLHUP);
    close(ends[0]);
    int open = 0;
    for (const auto& file :
         std::filesystem::directory_iterator("/proc/" + std::to_string(helper.id()) + "/fd")) {
        EXPECT_EQ(file.path().filename(), "0");
        ++open;
    }
    EXPECT_EQ(open, 1);
}

TEST(HelperProcess, StaysInNoFolderThatSomebodyMayWantToUnmount) {
    HelperProcess helper;
    ASSERT_TRUE(helper.ask(HelperQuestion::space, "/"));
    const std::string own = "/proc/" + std::to_string(helper.id());
    EXPECT_EQ(std::filesystem::read_symlink(own + "/cwd"), "/");
}

TEST(HelperProcess, RunsNoneOfTheProgramsSignalHandlers) {
    struct sigaction quiet {};
    quiet.sa_handler = [](int) {};
    struct sigaction before {};
    sigaction(SIGTERM, &quiet, &before);
    HelperProcess helper;
    ASSERT_TRUE(helper.ask(HelperQuestion::space, "/"));
    sigaction(SIGTERM, &before, nullptr);
    const pid_t process = helper.id();
    EXPECT_NE(getsid(process), getsid(0));
    kill(process, SIGTERM);
    int status = 0;
    ASSERT_TRUE(waitUntil([&] { return waitpid(process, &status, WNOHANG) == process; }));
    EXPECT_TRUE(WIFSIGNALED(status));
}

TEST(HelperProcess, EndsWhenItIsLetGo) {
    HelperProcess helper;
    ASSERT_TRUE(helper.ask(HelperQuestion::space, "/"));
    const pid_t process = helper.id();
    helper.stop();
    EXPECT_EQ(helper.id(), -1);
    EXPECT_NE(kill(process, 0), 0);
    EXPECT_TRUE(helper.ask(HelperQuestion::space, "/"));
}

TEST(HelperProcess, OneThatIsKeptWaitingIsLetGoWithoutWaiting) {
    HelperProcess helper(1s);
    ASSERT_TRUE(isStarted(helper));
    const pid_t process = helper.id();
    {
        const StoppedProcess stopped(process);
        EXPECT_FALSE(helper.ask(HelperQuestion::space, "/"));
        const auto start = steady_clock::now();
        helper.stop();
        EXPECT_LT(steady_clock::now() - start, 900ms);
        EXPECT_FALSE(helper.isPending());
    }
    // It is reaped later, in passing.
    EXPECT_TRUE(waitUntil([&] {
        helper.stop();
        return kill(process, 0) != 0;
    }));
}

}  // namespace
}  // namespace velmora::linuxhost
