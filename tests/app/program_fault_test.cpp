// The whole program from its start to its end while one call of the machine fails: each call once,
// with several errors.
#include <gtest/gtest.h>

#include <cstddef>
#include <iostream>
#include <string>
#include <vector>

#include "base/runtime_error.h"
#include "console_session.h"

namespace velmora::tests {
namespace {

constexpr int faults[] = {error::invalidCall,      error::deviceIo,       error::diskFull,
                          error::permissionDenied, error::pathFileAccess, error::pathNotFound};

const std::string settingsPath = "C:\\Program Files\\Velmora\\set.dat";
const std::string keptPath = "C:\\data\\kept.txt";
const std::string listedPath = "C:\\data\\listed.txt";
const std::string otherListedPath = "C:\\data\\other.txt";

// A check with an action, operations by hand, the log, a saving and the reports; the last answer
// shows that the program has gone on.
const std::string commands =
    "set chkAutoSave.Value on\nset txtSpace.Text 50000\ntick ListView1 1 on\n"
    "tick lstAct 2 on\nset DTPInterval.Value 0:00:05\nfire Timer1\n"
    "select LVFile 1\nclick lblSF(3)\n"
    "answer yes\nclick lblAl(0)\nclick Command8\nreport drive C:\nreport watch\nget txtAmt\n";

struct FaultySession : ConsoleSession {
    FaultySession() {
        machine.platform().app.Options.keepRunning = true;
        machine.platform().app.Command = "\"" + listedPath + "\" \"" + otherListedPath + "\"";
        machine.drives["C:"].freeBytes = 1e6;
        machine.folders.insert("c:\\data");
        for (const std::string& path : {keptPath, listedPath, otherListedPath})
            machine.files[path] = "content of " + path;
    }

    /// The same without what it says on standard error.
    std::vector<std::string> runQuietly(const std::string& input) {
        testing::internal::CaptureStderr();
        auto lines = run(input);
        testing::internal::GetCapturedStderr();
        return lines;
    }

    std::string settings() { return machine.files[settingsPath]; }
    bool isWholeOrGone(const std::string& path) {
        return machine.files.count(path) == 0 || machine.files[path] == "content of " + path;
    }
};

// A start may end with an error that is told, and leaves everything as it was.
void expectToldEnd(FaultySession& session, const std::vector<std::string>& lines) {
    ASSERT_FALSE(lines.empty());
    EXPECT_NE(lines.back().find("Run-time error '"), std::string::npos) << lines.back();
    EXPECT_EQ(session.settings(), FaultySession().settings());
    EXPECT_EQ(session.machine.files.count(listedPath), 1u);
}

TEST(ProgramFault, EveryCallMayFailAndNothingElseIsTouched) {
    FaultySession beginning;
    beginning.runQuietly("");
    const int callsOfStart = beginning.machine.log.count();
    FaultySession whole;
    ASSERT_EQ(whole.runQuietly(commands).back(), "50");
    const int calls = whole.machine.log.count();
    ASSERT_GT(calls, callsOfStart + 20);
    ASSERT_EQ(whole.machine.files.count(listedPath), 0u);
    ASSERT_NE(whole.settings(), FaultySession().settings());

    int failed = 0;
    for (const int number : faults) {
        for (int n = 1; n <= calls; ++n, ++failed) {
            FaultySession session;
            session.machine.log.failCall(n, number);
            const auto lines = session.runQuietly(commands);
            SCOPED_TRACE("error " + std::to_string(number) + " at call " + std::to_string(n));
            if (session.status != 0) {
                EXPECT_LE(n, callsOfStart);
                expectToldEnd(session, lines);
            } else {
                EXPECT_EQ(lines.back(), "50");
            }
            EXPECT_EQ(session.machine.files[keptPath], "content of " + keptPath);
            EXPECT_TRUE(session.isWholeOrGone(listedPath));
            EXPECT_TRUE(session.isWholeOrGone(otherListedPath));
            // What fails to close stays open.
            const std::string& call = session.machine.log.calls()[static_cast<std::size_t>(n - 1)];
            if (call.starts_with("RegCloseKey") || call.starts_with("FindClose")) continue;
            EXPECT_EQ(session.machine.openListings, 0);
            EXPECT_EQ(session.machine.openKeys(), 0);
        }
    }
    std::cout << "calls that failed: " << failed << "\n";
}

}  // namespace
}  // namespace velmora::tests
