// The options in front of the paths of a command line.
#include "platform/start_options.h"

#include <gtest/gtest.h>

#include <utility>

namespace velmora::tests {
namespace {

struct Taken {
    StartOptions options;
    std::string rest;
};

Taken taken(std::string command) {
    const StartOptions options = takeStartOptions(command);
    return {.options = options, .rest = std::move(command)};
}

TEST(StartOptions, AnEmptyLineHasNone) {
    EXPECT_FALSE(taken("").options.keepRunning);
    EXPECT_EQ(taken("").rest, "");
}

TEST(StartOptions, AWordInFrontIsTakenBareAndInQuotes) {
    for (const char* line :
         {"--keep-running", "\"--keep-running\"", "--keep-running  ",
          "--keep-running --keep-running", "\"--keep-running\" --keep-running"}) {
        EXPECT_TRUE(taken(line).options.keepRunning) << line;
        EXPECT_EQ(taken(line).rest, "") << line;
    }
}

TEST(StartOptions, EachWordSetsItsOwn) {
    const Taken all = taken("--single \"--restore-settings\" --keep-running \"C:\\a\"");
    EXPECT_TRUE(all.options.single && all.options.restoreSettings && all.options.keepRunning);
    EXPECT_EQ(all.rest, "\"C:\\a\"");
    const StartOptions one = taken("--single").options;
    EXPECT_TRUE(one.single && !one.restoreSettings && !one.keepRunning);
    EXPECT_TRUE(taken("--restore-settings").options.restoreSettings);
}

TEST(StartOptions, TheConsolesAndTheWindowsWordsAreTakenByBoth) {
    const StartOptions options = taken("--minimized --json --watch --help --version").options;
    EXPECT_TRUE(options.minimized && options.json && options.watch && options.help &&
                options.version);
    const StartOptions none = taken("--keep-running").options;
    EXPECT_FALSE(none.minimized || none.json || none.watch || none.help || none.version);
}

TEST(StartOptions, AScriptIsTheWordBehindItsOption) {
    for (const char* line : {"--script \"a b.txt\" --json \"C:\\a\"",
                             "\"--script\" \"a b.txt\" \"--json\" \"C:\\a\""}) {
        const Taken both = taken(line);
        EXPECT_EQ(both.options.script, "a b.txt");
        EXPECT_TRUE(both.options.json);
        EXPECT_EQ(both.options.fault, "");
        EXPECT_EQ(both.rest, "\"C:\\a\"");
    }
    // Whatever it is.
    EXPECT_EQ(taken("--script --json").options.script, "--json");
    EXPECT_FALSE(taken("--script --json").options.json);
    EXPECT_EQ(taken("--script one --script two").options.script, "two");
}

TEST(StartOptions, TheFolderOfTheSettingsAndTheMetricsLikewise) {
    const Taken folder = taken("--settings \"a b\" --single \"C:\\a\"");
    EXPECT_EQ(folder.options.settings, "a b");
    EXPECT_TRUE(folder.options.single);
    EXPECT_EQ(folder.options.script, "");
    EXPECT_EQ(folder.rest, "\"C:\\a\"");
    EXPECT_EQ(taken("--settings").options.fault, "--settings needs a folder.");
    EXPECT_EQ(startOptionLength("--settings"), 2U);
    EXPECT_EQ(taken("--metrics-file \"a b\" x").options.metricsFile, "a b");
    EXPECT_EQ(taken("--settings --version").options.fault, "--settings needs a folder.");
    EXPECT_EQ(taken("--metrics-file").options.fault, "--metrics-file needs a file.");
}

TEST(StartOptions, AnOptionWithoutItsWordIsAFault) {
    for (const char* line : {"--script", "--script \"\"", "--json --script "}) {
        EXPECT_EQ(taken(line).options.fault, "--script needs a file.") << line;
    }
}

TEST(StartOptions, EachWordHasItsLength) {
    EXPECT_EQ(startOptionLength("--json"), 1U);
    EXPECT_EQ(startOptionLength("--script"), 2U);
    for (const char* word : {"", "--", "--jso", "--jsonx", "C:\\a"}) {
        EXPECT_EQ(startOptionLength(word), 0U) << word;
    }
}

TEST(StartOptions, ThePathsBehindItStayAsTheyAre) {
    EXPECT_EQ(taken("--keep-running \"C:\\a b\" \"D:\\c\"").rest, "\"C:\\a b\" \"D:\\c\"");
    EXPECT_EQ(taken("\"--keep-running\"\t\"C:\\a\"").rest, "\"C:\\a\"");
    EXPECT_EQ(taken("--keep-running C:\\a  b").rest, "C:\\a  b");
    EXPECT_EQ(taken("--keep-running\"C:\\a\"").rest, "\"C:\\a\"");
}

TEST(StartOptions, BehindTheFirstPathEverythingIsAPath) {
    for (const char* line :
         {"\"C:\\a\" \"--keep-running\"", "C:\\a --keep-running", "\"\" --keep-running"}) {
        EXPECT_FALSE(taken(line).options.keepRunning) << line;
        EXPECT_EQ(taken(line).rest, line);
    }
}

TEST(StartOptions, AnyOtherWordIsAPath) {
    for (const char* line :
         {"--keep", "--keep-running-on", "-keep-running", "--Keep-Running", "--keep-running=1",
          "\"--keep-running \"", "\"--keep-running C:\\a\"", "--", "keep-running"}) {
        EXPECT_FALSE(taken(line).options.keepRunning) << line;
        EXPECT_EQ(taken(line).rest, line);
    }
}

}  // namespace
}  // namespace velmora::tests
