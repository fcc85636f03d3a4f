#include "machine_under_test.h"

namespace velmora::contract {
namespace {

constexpr const char* runKey = R"(SOFTWARE\Microsoft\Windows\CurrentVersion\Run)";
constexpr std::uint32_t allAccess = 0xF003F;
constexpr std::uint32_t readAccess = 0x20019;
constexpr std::uint32_t writeAccess = 0x20006;
constexpr std::uint32_t textType = 1;
constexpr std::int32_t sendTo = 9;

class DesktopContract : public ContractTest {
  protected:
    Advapi32& advapi32() { return platform().advapi32; }
    Shell32& shell32() { return platform().shell32; }

    std::int32_t open(const std::string& subKey, RegistryKey& key,
                      std::uint32_t access = allAccess) {
        return advapi32().RegOpenKeyExA(hive::localMachine, subKey, 0, access, key);
    }
    std::int32_t setValue(RegistryKey key, const std::string& data) {
        return advapi32().RegSetValueExA(key, "VelmoraContract", 0, textType, data,
                                         static_cast<std::uint32_t>(data.size()));
    }
};
INSTANTIATE_TEST_SUITE_P(Machines, DesktopContract, everyMachine(), nameOf);

TEST_P(DesktopContract, AValueIsWrittenAmongTheProgramsThatStartWithTheSystem) {
    RegistryKey key = 0;
    ASSERT_EQ(open(runKey, key), 0);
    EXPECT_NE(key, 0u);
    EXPECT_EQ(setValue(key, platform().app.Path + '\\' + platform().app.EXEName), 0);
    EXPECT_EQ(setValue(key, ""), 0);
    EXPECT_EQ(advapi32().RegCloseKey(key), 0);
}

TEST_P(DesktopContract, AValueIsReadAsItWasWritten) {
    RegistryKey key = 0;
    ASSERT_EQ(open(runKey, key), 0);
    std::uint32_t type = 0;
    std::string data = "as before";
    for (const std::string& written : {platform().app.Path + "\\Größe 日本.exe", std::string()}) {
        ASSERT_EQ(setValue(key, written), 0);
        EXPECT_EQ(advapi32().RegQueryValueExA(key, "VelmoraContract", type, data), 0);
        EXPECT_EQ(type, textType);
        EXPECT_EQ(data, written);
    }
    EXPECT_EQ(advapi32().RegCloseKey(key), 0);
}

TEST_P(DesktopContract, AValueThatIsNotThereIsCode2AndGivesNothing) {
    RegistryKey key = 0;
    ASSERT_EQ(open(runKey, key), 0);
    std::uint32_t type = 77;
    std::string data = "as before";
    EXPECT_EQ(advapi32().RegQueryValueExA(key, "Velmora tests: no such value", type, data), 2);
    EXPECT_EQ(type, 77u);
    EXPECT_EQ(data, "as before");
    EXPECT_EQ(advapi32().RegCloseKey(key), 0);
    EXPECT_EQ(advapi32().RegQueryValueExA(0, "VelmoraContract", type, data), 6);
}

TEST_P(DesktopContract, AKeyRefusesWhatItWasNotOpenedFor) {
    RegistryKey key = 0;
    ASSERT_EQ(open(runKey, key, writeAccess), 0);
    ASSERT_EQ(setValue(key, ""), 0);
    std::uint32_t type = 0;
    std::string data;
    EXPECT_EQ(advapi32().RegQueryValueExA(key, "VelmoraContract", type, data), 5);
    EXPECT_EQ(advapi32().RegCloseKey(key), 0);
    ASSERT_EQ(open(runKey, key, readAccess), 0);
    EXPECT_EQ(setValue(key, "x"), 5);
    EXPECT_EQ(advapi32().RegQueryValueExA(key, "VelmoraContract", type, data), 0);
    EXPECT_EQ(advapi32().RegCloseKey(key), 0);
}

TEST_P(DesktopContract, AnEnvironmentVariableThatIsNotSetIsEmpty) {
    EXPECT_EQ(platform().kernel32.GetEnvironmentVariableA("VELMORA_NO_SUCH_VARIABLE"), "");
    EXPECT_EQ(platform().kernel32.GetEnvironmentVariableA(""), "");
    EXPECT_EQ(platform().kernel32.GetEnvironmentVariableA("="), "");
}

TEST_P(DesktopContract, AKeyIsFoundWithoutRegardToCase) {
    RegistryKey key = 0;
    ASSERT_EQ(open(R"(software\microsoft\WINDOWS\currentversion\run)", key), 0);
    EXPECT_EQ(advapi32().RegCloseKey(key), 0);
}

TEST_P(DesktopContract, AKeyThatIsNotThereIsCode2AndGivesNoHandle) {
    RegistryKey key = 7;
    EXPECT_EQ(open(R"(SOFTWARE\Velmora tests\No such key)", key), 2);
    EXPECT_EQ(key, 7u);
}

TEST_P(DesktopContract, AHandleThatNeverWasOneIsNeitherWrittenToNorClosed) {
    EXPECT_EQ(setValue(0, "x"), 6);
    EXPECT_EQ(advapi32().RegCloseKey(0), 6);
}

TEST_P(DesktopContract, TheFolderOfWhatCanBeSentToIsThere) {
    ItemIdList list;
    ASSERT_EQ(shell32().SHGetSpecialFolderLocation(sendTo, list), 0);
    std::string buffer(512, '#');
    ASSERT_TRUE(shell32().SHGetPathFromIDListA(list, buffer));
    ASSERT_EQ(buffer.size(), 512u);
    const std::string folder = buffer.c_str();
    EXPECT_TRUE(fso().FolderExists(folder)) << folder;
    EXPECT_NE(folder.back(), '\\');
    EXPECT_EQ(buffer.substr(folder.size() + 1), std::string(512 - folder.size() - 1, '#'));
}

TEST_P(DesktopContract, ABufferWithoutRoomForThePathAndItsNulIsLeftAlone) {
    ItemIdList list;
    ASSERT_EQ(shell32().SHGetSpecialFolderLocation(sendTo, list), 0);
    std::string buffer(512, '#');
    ASSERT_TRUE(shell32().SHGetPathFromIDListA(list, buffer));
    const auto size = std::string(buffer.c_str()).size();
    for (const auto room : {std::size_t{0}, std::size_t{1}, size}) {
        std::string small(room, '#');
        EXPECT_FALSE(shell32().SHGetPathFromIDListA(list, small));
        EXPECT_EQ(small, std::string(room, '#'));
    }
    std::string exact(size + 1, '#');
    EXPECT_TRUE(shell32().SHGetPathFromIDListA(list, exact));
    EXPECT_EQ(exact, buffer.substr(0, size + 1));
}

TEST_P(DesktopContract, AnUnknownSpecialFolderIsAFailure) {
    ItemIdList list{"as before"};
    EXPECT_NE(shell32().SHGetSpecialFolderLocation(9999, list), 0);
    EXPECT_EQ(list.place, "as before");
}

TEST_P(DesktopContract, APlaceWithoutAPathGivesNone) {
    std::string buffer(512, '#');
    EXPECT_FALSE(shell32().SHGetPathFromIDListA({}, buffer));
    EXPECT_EQ(buffer, std::string(512, '#'));
}

TEST_P(DesktopContract, AShortcutIsAFileOnceItIsSaved) {
    for (const char* name : {"Größe the one.lnk", "page.url"}) {
        const std::string path = inScratch(name);
        const auto shortcut = platform().wscriptShell.CreateShortcut(path);
        ASSERT_TRUE(shortcut);
        shortcut->TargetPath = platform().app.Path + '\\' + platform().app.EXEName + ".exe";
        shortcut->Arguments = "/add";
        shortcut->Description = "For the tests";
        shortcut->WorkingDirectory = platform().app.Path;
        EXPECT_FALSE(fso().FileExists(path));
        shortcut->Save();
        EXPECT_TRUE(fso().FileExists(path));
        shortcut->Save();
        platform().files.remove(path);
    }
}

TEST_P(DesktopContract, OnlyLnkAndUrlAreShortcuts) {
    for (const char* name : {"page.txt", "page", "lnk", "page.lnk.bak"})
        EXPECT_FALSE(platform().wscriptShell.CreateShortcut(inScratch(name))) << name;
    EXPECT_TRUE(platform().wscriptShell.CreateShortcut(inScratch("PAGE.LNK")));
}

TEST_P(DesktopContract, TheSystemsOwnFolderHasNoBackSlashAtItsEnd) {
    const std::string folder = platform().kernel32.GetWindowsDirectoryA();
    ASSERT_FALSE(folder.empty());
    EXPECT_EQ(fso().GetDriveName(folder).size(), 2u) << folder;
    EXPECT_NE(folder.back(), '\\');
}

}  // namespace
}  // namespace velmora::contract
