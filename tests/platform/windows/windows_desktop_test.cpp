// The registry, special folders and shortcuts, as other programs of the system see them.
#include <gtest/gtest.h>
#include <windows.h>
// Behind the one above, which they need.
#include <commctrl.h>
#include <shlguid.h>
#include <shlobj.h>

#include "base/errors.h"
#include "platform/windows/shortcut_fields.h"
#include "platform/windows/windows_advapi32.h"
#include "platform/windows/windows_shell32.h"
#include "platform/windows/windows_wscript_shell.h"
#include "run_value.h"
#include "scratch_folder.h"

#undef ShellExecuteEx

namespace velmora::windows {
namespace {

constexpr const wchar_t* valueName = L"Velmora tests: Größe";

RegistryKey openRunKey(WindowsAdvapi32& registry) {
    RegistryKey key = 0;
    EXPECT_EQ(registry.RegOpenKeyExA(hive::localMachine, toUtf8(runKey), 0, KEY_ALL_ACCESS, key),
              ERROR_SUCCESS);
    return key;
}

std::int32_t setText(WindowsAdvapi32& registry, RegistryKey key, const std::string& data,
                     std::size_t length) {
    return registry.RegSetValueExA(key, toUtf8(valueName), 0, REG_SZ, data,
                                   static_cast<std::uint32_t>(length));
}

TEST(WindowsAdvapi32, OtherProgramsReadTheTextThatWasWritten) {
    const KeptRunValue kept(valueName);
    WindowsAdvapi32 registry;
    const RegistryKey key = openRunKey(registry);
    const std::string path = R"(C:\Programme\Größe 日本\velmora)";
    EXPECT_EQ(setText(registry, key, path, path.size()), ERROR_SUCCESS);
    EXPECT_EQ(runValue(valueName), toUtf16(path));
    EXPECT_EQ(setText(registry, key, path, path.size() + 1), ERROR_SUCCESS);
    EXPECT_EQ(runValue(valueName), toUtf16(path));
    EXPECT_EQ(setText(registry, key, path, 2), ERROR_SUCCESS);
    EXPECT_EQ(runValue(valueName), L"C:");
    EXPECT_EQ(setText(registry, key, "", 0), ERROR_SUCCESS);
    EXPECT_EQ(runValue(valueName), L"");
    EXPECT_EQ(registry.RegCloseKey(key), ERROR_SUCCESS);
}

TEST(WindowsAdvapi32, OtherKindsOfDataAreWrittenByteByByte) {
    const KeptRunValue kept(valueName);
    WindowsAdvapi32 registry;
    const RegistryKey key = openRunKey(registry);
    const std::string bytes("\x01\0\xff\x7f", 4);
    EXPECT_EQ(registry.RegSetValueExA(key, toUtf8(valueName), 0, REG_BINARY, bytes, 4),
              ERROR_SUCCESS);
    char read[8];
    DWORD size = sizeof read;
    EXPECT_EQ(RegGetValueW(HKEY_LOCAL_MACHINE, runKey, valueName, RRF_RT_REG_BINARY, nullptr, read,
                           &size),
              ERROR_SUCCESS);
    EXPECT_EQ(std::string(read, size), bytes);
    EXPECT_EQ(registry.RegCloseKey(key), ERROR_SUCCESS);
}

TEST(WindowsAdvapi32, EveryHiveIsReached) {
    WindowsAdvapi32 registry;
    for (const std::uint32_t each : {hive::classesRoot, hive::currentUser, hive::users}) {
        RegistryKey key = 0;
        EXPECT_EQ(registry.RegOpenKeyExA(each, "", 0, KEY_READ, key), ERROR_SUCCESS) << each;
        EXPECT_EQ(registry.RegCloseKey(key), ERROR_SUCCESS);
    }
    RegistryKey key = 0;
    EXPECT_NE(registry.RegOpenKeyExA(5, "x", 0, KEY_READ, key), ERROR_SUCCESS);
}

TEST(WindowsShell32, SpecialFoldersAreTheSystems) {
    WindowsShell32 shell;
    wchar_t expected[MAX_PATH];
    ASSERT_EQ(SHGetFolderPathW(nullptr, CSIDL_SENDTO, nullptr, 0, expected), S_OK);
    ItemIdList list;
    EXPECT_EQ(shell.SHGetSpecialFolderLocation(CSIDL_SENDTO, list), S_OK);
    std::string buffer(1024, ' ');
    EXPECT_TRUE(shell.SHGetPathFromIDListA(list, buffer));
    EXPECT_EQ(std::string(buffer.c_str()), toUtf8(expected));
}

TEST(WindowsShell32, APlaceThatIsNoFolderOfADiskHasNoPath) {
    WindowsShell32 shell;
    ItemIdList list;
    ASSERT_EQ(shell.SHGetSpecialFolderLocation(CSIDL_CONTROLS, list), S_OK);
    std::string buffer(1024, ' ');
    EXPECT_FALSE(shell.SHGetPathFromIDListA(list, buffer));
}

TEST(WindowsShell32, WhatIsNotThereIsNotExecuted) {
    const ScratchFolder folder;
    WindowsShell32 shell;
    EXPECT_FALSE(shell.ShellExecuteEx(
        {.mask = 0x44C, .owner = "Form1", .verb = "open", .file = folder / "missing.exe"}));
}

// The fields of a .lnk file, as the shell reads them.
struct Link {
    explicit Link(const std::string& path) {
        IShellLinkW* link = nullptr;
        IPersistFile* file = nullptr;
        EXPECT_EQ(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                                   reinterpret_cast<void**>(&link)),
                  S_OK);
        EXPECT_EQ(link->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&file)), S_OK);
        EXPECT_EQ(file->Load(toUtf16(path).c_str(), STGM_READ), S_OK);
        wchar_t text[1024];
        link->GetPath(text, 1024, nullptr, SLGP_RAWPATH);
        target = toUtf8(text);
        link->GetArguments(text, 1024);
        arguments = toUtf8(text);
        link->GetDescription(text, 1024);
        description = toUtf8(text);
        link->GetWorkingDirectory(text, 1024);
        folder = toUtf8(text);
        link->GetIconLocation(text, 1024, &iconIndex);
        icon = toUtf8(text);
        link->GetHotkey(&hotKey);
        file->Release();
        link->Release();
    }

    std::string target, arguments, description, folder, icon;
    int iconIndex = -1;
    WORD hotKey = 0;
};

TEST(WindowsWScriptShell, TheShellReadsTheFieldsThatWereSaved) {
    const ScratchFolder folder;
    WindowsWScriptShell shell;
    const auto shortcut = shell.CreateShortcut(folder / "Größe.lnk");
    ASSERT_TRUE(shortcut);
    shortcut->TargetPath = R"(C:\Programme\Größe\velmora.exe)";
    shortcut->Arguments = R"(/add "two words")";
    shortcut->Description = "Watches 日本";
    shortcut->WorkingDirectory = R"(C:\Programme)";
    shortcut->IconLocation = R"(C:\Programme\a,b.exe, 2)";
    shortcut->HotKey = "CTRL+ALT+X";
    shortcut->WindowStyle = 7;
    shortcut->Save();
    const Link link(folder / "Größe.lnk");
    EXPECT_EQ(link.target, shortcut->TargetPath);
    EXPECT_EQ(link.arguments, shortcut->Arguments);
    EXPECT_EQ(link.description, shortcut->Description);
    EXPECT_EQ(link.folder, shortcut->WorkingDirectory);
    EXPECT_EQ(link.icon, R"(C:\Programme\a,b.exe)");
    EXPECT_EQ(link.iconIndex, 2);
    EXPECT_EQ(link.hotKey, MAKEWORD('X', HOTKEYF_CONTROL | HOTKEYF_ALT));
    // Read from the file itself: not every version of the shell gives it back.
    EXPECT_EQ(contentsOf(folder / "Größe.lnk")[0x3C], 7);
}

TEST(WindowsWScriptShell, OnlyATargetIsEnough) {
    const ScratchFolder folder;
    WindowsWScriptShell shell;
    const auto shortcut = shell.CreateShortcut(folder / "plain.LNK");
    shortcut->TargetPath = R"(C:\x.exe)";
    shortcut->Save();
    const Link link(folder / "plain.LNK");
    EXPECT_EQ(link.target, R"(C:\x.exe)");
    EXPECT_EQ(link.arguments, "");
    EXPECT_EQ(link.icon, "");
    EXPECT_EQ(link.hotKey, 0);
}

TEST(WindowsWScriptShell, AMissingFolderIsError76) {
    const ScratchFolder folder;
    WindowsWScriptShell shell;
    for (const char* name : {R"(missing\a.lnk)", R"(missing\a.url)"}) {
        const auto shortcut = shell.CreateShortcut(folder / name);
        shortcut->TargetPath = R"(C:\x.exe)";
        EXPECT_EQ(errorOf([&] { shortcut->Save(); }), error::pathNotFound) << name;
    }
}

TEST(WindowsWScriptShell, AnAddressIsKeptAsText) {
    const ScratchFolder folder;
    WindowsWScriptShell shell;
    const auto shortcut = shell.CreateShortcut(folder / "page.url");
    shortcut->TargetPath = "https://velmora.example/";
    shortcut->Save();
    EXPECT_EQ(contentsOf(folder / "page.url"),
              "[InternetShortcut]\r\nURL=https://velmora.example/\r\n");
}

TEST(ShortcutFields, HotKeysAreModifiersAndOneKey) {
    EXPECT_EQ(hotKeyOf("CTRL+ALT+X"), MAKEWORD('X', HOTKEYF_CONTROL | HOTKEYF_ALT));
    EXPECT_EQ(hotKeyOf("Shift + f5"), MAKEWORD(VK_F5, HOTKEYF_SHIFT));
    EXPECT_EQ(hotKeyOf("ext+9"), MAKEWORD('9', HOTKEYF_EXT));
    EXPECT_EQ(hotKeyOf("F24"), VK_F24);
    EXPECT_EQ(hotKeyOf("f"), 'F');
    for (const char* text :
         {"", "CTRL", "CTRL+", "CTRL+A+B", "F0", "F25", "F1x", "Win+X", "+", "ä"})
        EXPECT_EQ(hotKeyOf(text), 0) << text;
}

TEST(ShortcutFields, AnIconIsAPathAndItsIndex) {
    using Icon = std::pair<std::string, int>;
    EXPECT_EQ(iconOf(R"(C:\x.exe,3)"), (Icon{R"(C:\x.exe)", 3}));
    EXPECT_EQ(iconOf(R"(C:\a,b.exe, -1)"), (Icon{R"(C:\a,b.exe)", -1}));
    EXPECT_EQ(iconOf(R"(C:\a,b.exe)"), (Icon{R"(C:\a,b.exe)", 0}));
    EXPECT_EQ(iconOf(R"(C:\x.exe)"), (Icon{R"(C:\x.exe)", 0}));
    EXPECT_EQ(iconOf(""), (Icon{"", 0}));
}

}  // namespace
}  // namespace velmora::windows
