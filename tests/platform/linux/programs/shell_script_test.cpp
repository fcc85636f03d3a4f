#include "platform/linux/programs/shell_script.h"

#include <gtest/gtest.h>

namespace velmora::linuxhost {
namespace {

using Arguments = std::vector<std::string>;

TEST(ShellScript, TheProgramGetsTheArgumentsAndTheSelectedFiles) {
    EXPECT_EQ(startingScript("/opt/velmora", {"/add", "two words"}, "Sends it"),
              "#!/bin/sh\n# Sends it\nexec '/opt/velmora' '/add' 'two words' \"$@\"\n");
    EXPECT_EQ(startingScript("/opt/velmora", {}, ""), "#!/bin/sh\nexec '/opt/velmora' \"$@\"\n");
}

TEST(ShellScript, ADescriptionStaysInItsComment) {
    EXPECT_EQ(startingScript("/p", {}, "one\nrm x\r\ny"),
              "#!/bin/sh\n# one rm x  y\nexec '/p' \"$@\"\n");
}

TEST(ShellScript, AWordWithAnyCharactersIsQuoted) {
    EXPECT_EQ(shellWord(""), "''");
    EXPECT_EQ(shellWord("a b$c`d\"e\\f"), "'a b$c`d\"e\\f'");
    EXPECT_EQ(shellWord("it's"), R"('it'\''s')");
}

TEST(ShellScript, ArgumentsArePartedByBlanksOutsideQuotes) {
    EXPECT_EQ(shortcutArguments(""), Arguments{});
    EXPECT_EQ(shortcutArguments("  "), Arguments{});
    EXPECT_EQ(shortcutArguments(" a\tb  c "), (Arguments{"a", "b", "c"}));
    EXPECT_EQ(shortcutArguments(R"("C:\two words" x"y z"w)"),
              (Arguments{R"(C:\two words)", "xy zw"}));
    EXPECT_EQ(shortcutArguments(R"("" a)"), (Arguments{"", "a"}));
    EXPECT_EQ(shortcutArguments(R"(a\"b \)"), (Arguments{"a\"b", "\\"}));
    EXPECT_EQ(shortcutArguments("\"not closed"), Arguments{"not closed"});
}

}  // namespace
}  // namespace velmora::linuxhost
