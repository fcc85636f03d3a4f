// Links to the system's shell: special folders, shortcuts, the folder browser, properties.
#include "persist/shell_links.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "fake/fake_machine.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

struct LinksRig {
    fake::FakeMachine machine;
    ShellLinks links{machine.platform().shell32, machine.platform().wscriptShell};

    LinksRig() { machine.folders.insert("c:\\links"); }
    const fake::FakeShortcut& made() { return machine.shortcuts.at(0); }
};

ShortcutTexts onlyTarget() {
    ShortcutTexts texts;
    texts.description = "What it is";
    texts.target = "C:\\bin\\tool.exe";
    return texts;
}

TEST(SpecialFolder, IsAPathByItsNumber) {
    LinksRig rig;
    rig.machine.specialFolders[16] = "C:\\Users\\user\\Größe";
    EXPECT_EQ(rig.links.fSpecialFolder(9), "C:\\Users\\user\\SendTo");
    EXPECT_EQ(rig.links.fSpecialFolder(16), "C:\\Users\\user\\Größe");
}

TEST(SpecialFolder, IsEmptyOnAnyFailure) {
    LinksRig rig;
    EXPECT_EQ(rig.links.fSpecialFolder(999), "");
    EXPECT_EQ(rig.machine.log.countOf("SHGetPathFromIDListA"), 0);
    rig.machine.log.failCall(1, 5);
    EXPECT_EQ(rig.links.fSpecialFolder(9), "");
    rig.machine.log.failCall(2, 5);
    EXPECT_EQ(rig.links.fSpecialFolder(9), "");
    rig.machine.specialFolders[9] = "";
    EXPECT_EQ(rig.links.fSpecialFolder(9), "");
}

TEST(SpecialFolder, HasABufferOf255Characters) {
    LinksRig rig;
    rig.machine.specialFolders[9] = std::string(254, 'p');
    EXPECT_EQ(rig.links.fSpecialFolder(9), std::string(254, 'p'));
    rig.machine.specialFolders[9] = std::string(255, 'p');
    EXPECT_EQ(rig.links.fSpecialFolder(9), "");
}

TEST(Shortcut, HoldsAllThatItIsGiven) {
    LinksRig rig;
    EXPECT_TRUE(rig.links.fCreateShortcut("C:\\links\\tool", {.description = "What it is",
                                                              .target = "C:\\bin\\tool.exe",
                                                              .arguments = "/now",
                                                              .directory = "C:\\work",
                                                              .hotkey = "CTRL+ALT+V",
                                                              .icon = "C:\\bin\\tool.ico,2",
                                                              .windowStyle = 7}));
    ASSERT_EQ(rig.machine.shortcuts.size(), 1u);
    EXPECT_EQ(rig.made().file, "C:\\links\\tool.lnk");
    EXPECT_EQ(rig.made().Description, "What it is");
    EXPECT_EQ(rig.made().TargetPath, "C:\\bin\\tool.exe");
    EXPECT_EQ(rig.made().Arguments, "/now");
    EXPECT_EQ(rig.made().WorkingDirectory, "C:\\work");
    EXPECT_EQ(rig.made().HotKey, "CTRL+ALT+V");
    EXPECT_EQ(rig.made().IconLocation, "C:\\bin\\tool.ico,2");
    EXPECT_EQ(rig.made().WindowStyle, 7);
}

TEST(Shortcut, MissingTextsAreTakenFromTheTargetOrLeftOut) {
    LinksRig rig;
    EXPECT_TRUE(rig.links.fCreateShortcut("C:\\links\\tool", onlyTarget()));
    EXPECT_EQ(rig.made().IconLocation, "C:\\bin\\tool.exe,1");
    EXPECT_EQ(rig.made().WorkingDirectory, "C:\\bin\\tool.exe");
    EXPECT_EQ(rig.made().Arguments, "");
    EXPECT_EQ(rig.made().HotKey, "");
}

TEST(Shortcut, AnEmptyTextIsNotAMissingOne) {
    LinksRig rig;
    ShortcutTexts texts = onlyTarget();
    texts.icon = "";
    texts.directory = "";
    EXPECT_TRUE(rig.links.fCreateShortcut("C:\\links\\tool", texts));
    EXPECT_EQ(rig.made().IconLocation, "");
    EXPECT_EQ(rig.made().WorkingDirectory, "");
}

TEST(Shortcut, GetsItsEndingUnlessItHasOne) {
    struct Case {
        const char* name;
        const char* file;
    };
    for (const Case& each :
         {Case{"tool", "tool.lnk"}, Case{"tool.lnk", "tool.lnk"}, Case{"tool.LNK", "tool.LNK"},
          Case{"tool.Url", "tool.Url"}, Case{"tool.txt", "tool.txt.lnk"},
          Case{"tool.lnk.exe", "tool.lnk.exe.lnk"}, Case{"lnk", "lnk.lnk"},
          Case{"tool.lnk ", "tool.lnk .lnk"}, Case{".lnk", ".lnk"}}) {
        LinksRig rig;
        const std::string folder = "C:\\links\\";
        EXPECT_TRUE(rig.links.fCreateShortcut(folder + each.name, onlyTarget())) << each.name;
        EXPECT_EQ(rig.made().file, folder + each.file);
    }
}

TEST(Shortcut, IsNotMadeWhereTheShellGivesNone) {
    LinksRig rig;
    rig.machine.log.failCall(1, 5);
    EXPECT_FALSE(rig.links.fCreateShortcut("C:\\links\\tool", onlyTarget()));
    EXPECT_TRUE(rig.machine.shortcuts.empty());
}

TEST(Shortcut, AnErrorOfItsFileGoesToTheCaller) {
    LinksRig rig;
    EXPECT_EQ(errorOf([&] { rig.links.fCreateShortcut("C:\\gone\\tool", onlyTarget()); }),
              error::pathNotFound);
}

TEST(FolderBrowser, GivesTheChosenFolderOrAnEmptyText) {
    LinksRig rig;
    rig.machine.browsed = {"C:\\data", "", "D:\\"};
    EXPECT_EQ(rig.links.prcBrowseForFolder("Form1", "Choose", {}), "C:\\data");
    EXPECT_EQ(rig.links.prcBrowseForFolder("Form1", "Again", {}), "");
    EXPECT_EQ(rig.links.prcBrowseForFolder("Form1", "Again", {}), "D:\\");
    EXPECT_EQ(rig.links.prcBrowseForFolder("Form1", "Again", {}), "");
}

TEST(FolderBrowser, ShowsFoldersOfTheFileSystemAloneForItsOwner) {
    LinksRig rig;
    rig.machine.browsed = {"C:\\data"};
    rig.links.prcBrowseForFolder("dlgAlert", "Choose", {});
    EXPECT_EQ(rig.machine.log.calls(),
              (Texts{"SHBrowseForFolder dlgAlert Choose 3", "SHGetPathFromIDListA C:\\data"}));
}

TEST(FolderBrowser, IsNoAnswerWhereTheSystemHasNone) {
    LinksRig rig;
    rig.machine.browses = false;
    rig.machine.browsed = {"C:\\data"};
    EXPECT_EQ(rig.links.prcBrowseForFolder("Form1", "Choose", {}), std::nullopt);
    EXPECT_EQ(rig.machine.log.countOf("SHGetPathFromIDListA"), 0);
}

TEST(FolderBrowser, AFailureIsAnEmptyText) {
    LinksRig rig;
    for (const int call : {1, 2}) {
        rig.machine.browsed = {"C:\\data"};
        rig.machine.log.failCall(call, 5);
        EXPECT_EQ(rig.links.prcBrowseForFolder("Form1", "Choose", {}), "") << call;
    }
}

TEST(FolderBrowser, HasABufferOf260CharactersWithTheLastOne) {
    LinksRig rig;
    // An emoji takes four bytes, more than any other character.
    for (const std::string letter : {"p", "ö", "日", "\xF0\x9F\x98\x80"}) {
        std::string longest = "C:\\";
        for (int count = 3; count < 259; ++count) longest += letter;
        rig.machine.browsed = {longest, longest + letter};
        EXPECT_EQ(rig.links.prcBrowseForFolder("Form1", "Choose", {}), longest);
        EXPECT_EQ(rig.links.prcBrowseForFolder("Form1", "Choose", {}), "");
    }
}

TEST(FolderBrowser, LetsTheWindowGoOnWhileItIsOpen) {
    LinksRig rig;
    rig.machine.browsed = {"C:\\data"};
    int runs = 0;
    EXPECT_EQ(rig.links.prcBrowseForFolder("Form1", "Choose", [&runs] { ++runs; }), "C:\\data");
    EXPECT_EQ(runs, 1);
}

}  // namespace
}  // namespace velmora::tests
