#include "platform/linux/settings/desktop_entry.h"

#include <gtest/gtest.h>

namespace velmora::linuxhost {
namespace {

TEST(DesktopEntry, AProgramIsStarted) {
    EXPECT_EQ(autostartEntry("Velmora", "/opt/my programs/velmora"),
              "[Desktop Entry]\nType=Application\nName=Velmora\n"
              "Exec=\"/opt/my programs/velmora\"\nHidden=false\n");
}

TEST(DesktopEntry, ANameThatDesktopsDoNotTakeIsStartedByWayOfTheShell) {
    for (const std::string program : {"/100% x", "/a=b"})
        EXPECT_NE(autostartEntry("Velmora", program)
                      .find("\nExec=/bin/sh -c \"exec \\\\\"\\\\$0\\\\\"\" " +
                            execArgument(program) + '\n'),
                  std::string::npos);
}

TEST(DesktopEntry, WithoutAProgramItIsEmptyAndHidden) {
    EXPECT_EQ(autostartEntry("Velmora", ""),
              "[Desktop Entry]\nType=Application\nName=Velmora\nExec=\nHidden=true\n");
}

TEST(DesktopEntry, WhatMeansSomethingInsideQuotesIsEscapedAndTheEscapesToo) {
    EXPECT_EQ(execArgument("/a\"b"), R"("/a\\"b")");
    EXPECT_EQ(execArgument("/a`b$c"), R"("/a\\`b\\$c")");
    EXPECT_EQ(execArgument("/a\\b"), R"("/a\\\\b")");
    EXPECT_EQ(execArgument("/100%"), R"("/100%%")");
    EXPECT_EQ(execArgument("/Größe 日本"), R"("/Größe 日本")");
}

TEST(DesktopEntry, AValueIsOneLine) {
    EXPECT_EQ(entryString(" a\nb\rc\td\\e f"), R"(\sa\nb\rc\td\\e f)");
    EXPECT_EQ(execArgument("/a\nHidden=true"), R"("/a\nHidden=true")");
}

}  // namespace
}  // namespace velmora::linuxhost
