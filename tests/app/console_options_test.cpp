// The console's options: a script, JSON from the beginning, a watch without commands.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>

#include "console_session.h"

namespace velmora::tests {
namespace {

const std::string settings = "C:\\Program Files\\Velmora\\set.dat";

/// A file that is removed at the end, with a letter in its name that only UTF-8 has.
class ScriptFile {
  public:
    ~ScriptFile() { std::filesystem::remove(path_); }
    void write(const std::string& lines) { std::ofstream(path_, std::ios::binary) << lines; }
    /// In UTF-8.
    std::string name() const {
        const std::u8string text = path_.u8string();
        return {text.begin(), text.end()};
    }

  private:
    std::filesystem::path path_ =
        std::filesystem::temp_directory_path() /
        std::filesystem::path(u8"velmora-\u0142-" + std::u8string(1, u8'a'))
            .concat(std::to_string(std::random_device{}()));
};

struct ConsoleOptions : testing::Test {
    ConsoleOptions() {
        machine.drives["C:"] = {50e9, 100e9};
        machine.files[settings] = prcEn("txtTime=60\r\n") + "\r\n";
    }
    StartOptions& options() { return machine.platform().app.Options; }
    /// A file of these lines is the script.
    void script(const std::string& lines) {
        file.write(lines);
        options().script = file.name();
    }
    /// What the program prints; a watch is ended after this many looks.
    std::string run(const std::string& input = "", int looks = 0) {
        std::istringstream in(input);
        std::ostringstream out;
        status = runConsole(machine, {.input = in,
                                      .output = out,
                                      .sleep = [this](std::int64_t ms) { machine.advance(ms); },
                                      .isEndRequested = [&] { return looks-- <= 0; }});
        return out.str();
    }
    static bool has(const std::string& text, const std::string& part) {
        return text.find(part) != std::string::npos;
    }

    ScriptFile file;
    fake::FakeMachine machine;
    int status = -1;
};

TEST_F(ConsoleOptions, AScriptIsReadInsteadOfTheInput) {
    script("get txtTime\r\nget txtAmt");
    const std::string printed = run("get txtSpace\n");
    EXPECT_TRUE(printed.starts_with("shell: Shell_NotifyIconA")) << printed;
    EXPECT_TRUE(printed.ends_with("$\"60\\r\\n\"\n50\n")) << printed;
    EXPECT_FALSE(has(printed, "50000"));
    EXPECT_EQ(status, 0);
}

TEST_F(ConsoleOptions, AFailedCommandOfAScriptIsSeenInTheStatus) {
    script("get txtAmt\nnonsense\nget txtAmt\n");
    EXPECT_TRUE(run().ends_with("50\nerror: unknown command: nonsense\n50\n"));
    EXPECT_EQ(status, 3);
}

TEST_F(ConsoleOptions, AFailedCommandOfTheInputIsNot) {
    run("nonsense\n");
    EXPECT_EQ(status, 0);
}

TEST_F(ConsoleOptions, AnEmptyScriptDoesNothing) {
    script("");
    EXPECT_FALSE(has(run(), "Nothing to read"));
    EXPECT_EQ(status, 0);
}

TEST_F(ConsoleOptions, AScriptThatCanNotBeReadEndsTheStart) {
    options().script = file.name();
    testing::internal::CaptureStderr();
    EXPECT_EQ(run("get txtAmt\n"), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "velmora-console: the script can't be read: " + file.name() + "\n");
    EXPECT_EQ(status, 2);
}

TEST_F(ConsoleOptions, WithJsonEachLineIsAnObject) {
    options().json = true;
    std::istringstream lines(run("get txtAmt\nnonsense\n"));
    std::string line;
    int count = 0;
    while (std::getline(lines, line)) {
        EXPECT_TRUE(line.starts_with('{')) << line;
        ++count;
    }
    EXPECT_GE(count, 3);  // the icon and two replies
}

TEST_F(ConsoleOptions, AWatchReadsNothingAndEndsByARequest) {
    options().watch = true;
    const std::string printed = run("get txtAmt\n", 200);
    EXPECT_FALSE(has(printed, "50\n"));
    EXPECT_TRUE(has(printed, "box: Velmora | question | Exit the program? | ok cancel -> ok\n"));
    EXPECT_EQ(status, 0);
}

TEST_F(ConsoleOptions, AScriptComesBeforeTheWatch) {
    script("answer cancel\nset txtSpace.Text 99999999\ntick ListView1 1 on\n");
    options().watch = true;
    const std::string printed = run("", 200);
    EXPECT_TRUE(has(printed, "ok\nok\nok\n"));
    EXPECT_TRUE(has(printed, "\nalert: ")) << printed;
    // The answer that is left over isn't for the end.
    EXPECT_TRUE(has(printed, "Exit the program? | ok cancel -> ok\n"));
    EXPECT_EQ(status, 0);
}

TEST_F(ConsoleOptions, ARequestEndsAScriptThatWaits) {
    script("wait forever\nget txtAmt\n");
    options().watch = true;
    const std::string printed = run("", 5);
    EXPECT_TRUE(has(printed, "Exit the program? | ok cancel -> ok\n"));
    EXPECT_FALSE(has(printed, "50\n"));
    EXPECT_EQ(status, 0);
}

TEST_F(ConsoleOptions, AFailedCommandBeforeTheWatchShowsAtItsEnd) {
    script("nonsense\n");
    options().watch = true;
    run("", 5);
    EXPECT_EQ(status, 3);
}

TEST_F(ConsoleOptions, AFailedCommandBeforeTheExitOfAScriptShowsToo) {
    script("nonsense\nanswer ok\nexit\n");
    run();
    EXPECT_EQ(status, 3);
}

TEST_F(ConsoleOptions, AFolderIsNoScript) {
    options().script = std::filesystem::temp_directory_path().string();
    EXPECT_EQ(run(), "");
    EXPECT_EQ(status, 2);
}

TEST_F(ConsoleOptions, NothingToReadIsNoReplyInJson) {
    options().json = true;
    EXPECT_FALSE(has(run(), "Nothing to read"));
    options().json = false;
    EXPECT_TRUE(has(run(), "Nothing to read"));
}

TEST_F(ConsoleOptions, ARequestEndsALockedProgramToo) {
    script("set frmLock.Text1.Text secret\nclick frmLock.Command1(0)\n");
    options().watch = true;
    run("", 3);
    EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace velmora::tests
