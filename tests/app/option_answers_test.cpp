// Options that are answered instead of a start.
#include "app/option_answers.h"

#include <gtest/gtest.h>

#include <sstream>

namespace velmora::tests {
namespace {

struct Answer {
    std::optional<int> status;
    std::string printed;
    std::string failed;
};

Answer answerTo(const StartOptions& options, ProgramKind kind) {
    std::ostringstream output;
    std::ostringstream errors;
    const auto status = answerOptions(options, kind, output, errors);
    return {.status = status, .printed = output.str(), .failed = errors.str()};
}

TEST(OptionAnswers, APlainStartGetsNone) {
    for (const ProgramKind kind : {ProgramKind::window, ProgramKind::console}) {
        const Answer answer = answerTo({.watch = true, .script = "a"}, kind);
        EXPECT_FALSE(answer.status);
        EXPECT_EQ(answer.printed + answer.failed, "");
    }
}

TEST(OptionAnswers, TheVersionHasTheProgramsName) {
    const Answer window = answerTo({.version = true}, ProgramKind::window);
    EXPECT_EQ(window.status, 0);
    EXPECT_EQ(window.printed, "velmora 1.0.0\n");
    EXPECT_EQ(answerTo({.version = true}, ProgramKind::console).printed, "velmora-console 1.0.0\n");
}

TEST(OptionAnswers, HelpNamesTheOptionsOfTheProgram) {
    const Answer window = answerTo({.help = true}, ProgramKind::window);
    EXPECT_EQ(window.status, 0);
    EXPECT_EQ(window.failed, "");
    const Answer console = answerTo({.help = true, .version = true}, ProgramKind::console);
    EXPECT_EQ(console.status, 0);
    for (const char* word : {"--keep-running", "--settings FOLDER", "--metrics-file FILE",
                             "--restore-settings", "--help", "--version"}) {
        EXPECT_NE(window.printed.find(word), std::string::npos) << word;
        EXPECT_NE(console.printed.find(word), std::string::npos) << word;
    }
    for (const char* word : {"--single", "--minimized"}) {
        EXPECT_NE(window.printed.find(word), std::string::npos) << word;
        EXPECT_EQ(console.printed.find(word), std::string::npos) << word;
    }
    for (const char* word : {"--watch", "--script FILE", "--json"}) {
        EXPECT_EQ(window.printed.find(word), std::string::npos) << word;
        EXPECT_NE(console.printed.find(word), std::string::npos) << word;
    }
}

TEST(OptionAnswers, HelpTellsTheExitStatusOfTheConsole) {
    const Answer console = answerTo({.help = true}, ProgramKind::console);
    EXPECT_NE(
        console.printed.find(
            "Exit status: 0 at the end of the input, after \"exit\" and after a signal under"
            " --watch; 1 after a\nrun-time error; 2 for wrong options; 3 when a command of a script"
            " failed.\n"),
        std::string::npos);
}

TEST(OptionAnswers, AFaultIsToldWhateverElseIsAsked) {
    const Answer answer =
        answerTo({.help = true, .fault = "--script needs a file."}, ProgramKind::console);
    EXPECT_EQ(answer.status, 2);
    EXPECT_EQ(answer.printed, "");
    EXPECT_EQ(answer.failed, "velmora-console: --script needs a file. --help tells more.\n");
}

}  // namespace
}  // namespace velmora::tests
