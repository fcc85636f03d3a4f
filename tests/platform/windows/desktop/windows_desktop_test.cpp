// The registry, special folders and shortcuts, as other programs of the system see them.
#include "platform/windows/desktop/windows_shell32.h"

#include <gtest/gtest.h>
// After the one of the shell: the system's headers give names in it to their wide versions.
#include <windows.h>
// After the one above, which they need.
#include <commctrl.h>
#include <shlguid.h>
#include <shlobj.h>

#include "base/errors.h"
#include "platform/windows/desktop/shortcut_fields.h"
#include "platform/windows/desktop/windows_wscript_shell.h"
#include "platform/windows/files/windows_kernel32.h"
#include "platform/windows/settings/windows_advapi32.h"
#include "platform/windows/support/run_value.h"
#include "platform/windows/support/scratch_folder.h"

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

TEST(WindowsAdvapi32, ValuesOfOtherProgramsAreRead) {
    constexpr const wchar_t* keyName = LR"(Software\Velmora tests)";
    const struct Removed {
        ~Removed() { RegDeleteKeyW(HKEY_CURRENT_USER, keyName); }
    } removed;
    const auto write = [](const wchar_t* name, DWORD type, const void* data, std::size_t size) {
        EXPECT_EQ(
            RegSetKeyValueW(HKEY_CURRENT_USER, keyName, name, type, data, static_cast<DWORD>(size)),
            ERROR_SUCCESS);
    };
    const std::wstring longText(5000, L'ö');
    write(L"text", REG_SZ, L"Größe 日本", 9 * sizeof(wchar_t));
    write(L"without NUL", REG_SZ, L"Größe", 5 * sizeof(wchar_t));
    write(L"with more", REG_SZ, L"ab\0cd", 6 * sizeof(wchar_t));
    write(L"odd", REG_SZ, L"ab", 3);
    write(L"", REG_EXPAND_SZ, L"%x%", 4 * sizeof(wchar_t));
    write(L"long", REG_SZ, longText.c_str(), (longText.size() + 1) * sizeof(wchar_t));
    write(L"bytes", REG_BINARY, "\1\0\xff", 3);
    write(L"number", REG_DWORD, "\2\0\0\0", 4);
    WindowsAdvapi32 registry;
    RegistryKey key = 0;
    ASSERT_EQ(registry.RegOpenKeyExA(hive::currentUser, toUtf8(keyName), 0, 0x20019, key),
              ERROR_SUCCESS);
    const auto read = [&](const std::string& name) {
        std::uint32_t type = 0;
        std::string data;
        EXPECT_EQ(registry.RegQueryValueExA(key, name, type, data), ERROR_SUCCESS) << name;
        return std::pair{type, data};
    };
    using Value = std::pair<std::uint32_t, std::string>;
    EXPECT_EQ(read("text"), (Value{1, "Größe 日本"}));
    EXPECT_EQ(read("without NUL"), (Value{1, "Größe"}));
    EXPECT_EQ(read("with more"), (Value{1, "ab"}));
    EXPECT_EQ(read("odd"), (Value{1, "a"}));
    EXPECT_EQ(read(""), (Value{2, "%x%"}));
    EXPECT_EQ(read("long"), (Value{1, toUtf8(longText)}));
    EXPECT_EQ(read("bytes"), (Value{3, std::string("\1\0\xff", 3)}));
    EXPECT_EQ(read("number"), (Value{4, std::string("\2\0\0\0", 4)}));
    EXPECT_EQ(registry.RegCloseKey(key), ERROR_SUCCESS);
}

TEST(WindowsAdvapi32, TheSystemsOwnKeysAreReadWithReadAccess) {
    WindowsAdvapi32 registry;
    RegistryKey key = 0;
    ASSERT_EQ(
        registry.RegOpenKeyExA(hive::localMachine,
                               R"(SOFTWARE\Microsoft\Windows NT\CurrentVersion)", 0, 0x20019, key),
        ERROR_SUCCESS);
    std::uint32_t type = 0;
    std::string version;
    EXPECT_EQ(registry.RegQueryValueExA(key, "CurrentVersion", type, version), ERROR_SUCCESS);
    EXPECT_EQ(type, 1u);
    EXPECT_FALSE(version.empty());
    EXPECT_EQ(registry.RegCloseKey(key), ERROR_SUCCESS);
}

TEST(WindowsKernel32, EnvironmentVariablesHaveNoCase) {
    WindowsKernel32 kernel32;
    for (const std::wstring& text : {std::wstring(L"Größe 日本"), std::wstring(259, L'x'),
                                     std::wstring(260, L'x'), std::wstring(5000, L'ö')}) {
        SetEnvironmentVariableW(L"VELMORA_TESTS", text.c_str());
        EXPECT_EQ(kernel32.GetEnvironmentVariableA("velmora_Tests"), toUtf8(text));
    }
    SetEnvironmentVariableW(L"VELMORA_TESTS", nullptr);
    EXPECT_EQ(kernel32.GetEnvironmentVariableA("VELMORA_TESTS"), "");
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
struct SavedLink {
    explicit SavedLink(const std::string& path) {
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
    const SavedLink link(folder / "Größe.lnk");
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
    const SavedLink link(folder / "plain.LNK");
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
