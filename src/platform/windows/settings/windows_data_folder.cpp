#include "platform/windows/settings/windows_data_folder.h"

#include <windows.h>
// After the one above, which they need.
#include <shlobj.h>
#include <winternl.h>

#include <cstddef>
#include <string_view>

#include "base/text.h"
#include "platform/windows/entries/left_writings.h"
#include "platform/windows/entries/private_folder.h"
#include "platform/windows/paths/exact_path.h"
#include "platform/windows/system/environment.h"
#include "platform/windows/system/private_file.h"
#include "platform/windows/system/unique_handle.h"
#include "platform/windows/system/utf16.h"
#include "platform/windows/system/whole_file.h"

namespace velmora::windows {

namespace {

constexpr const char* settingsName = "set.dat";
constexpr std::size_t mostSettings = 64 * 1024 * 1024;  // bytes

std::wstring hostPath(const std::string& path) {
    const auto exact = exactPath(path);
    return exact ? exact->text() : std::wstring{};
}

std::string settingsIn(const std::string& folder) {
    return folder + '\\' + settingsName;
}

DWORD attributesOf(const std::string& path) {
    return GetFileAttributesW(hostPath(path).c_str());
}

bool isFolder(const std::string& path) {
    const DWORD attributes = attributesOf(path + '\\');
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// Whole, from the working folder on.
std::string wholePath(const std::string& typed) {
    const std::wstring wide = toUtf16(typed);
    std::wstring whole(GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr), L'\0');
    const DWORD length =
        GetFullPathNameW(wide.c_str(), static_cast<DWORD>(whole.size()), whole.data(), nullptr);
    whole.resize(length < whole.size() ? length : 0);
    std::string path = withoutLongPrefix(toUtf8(whole));
    if (path.ends_with('\\')) path.pop_back();
    return path;
}

// The variable can be missing in the environment of a service.
std::string localFolder() {
    const std::string local = toUtf8(environmentVariable(L"LOCALAPPDATA"));
    if (!local.empty()) return local;
    wchar_t path[MAX_PATH] = L"";
    const HRESULT found = SHGetFolderPathW(nullptr, CSIDL_LOCAL_APPDATA, nullptr, 0, path);
    return SUCCEEDED(found) ? toUtf8(path) : std::string{};
}

bool make(const std::string& path) {
    const auto exact = exactPath(path);
    OpenedEntry folder;
    return exact && openPrivateFolder(*exact, WhenMissing::make, folder) == ERROR_SUCCESS;
}

bool readFirst(const std::string& path, std::string& content, DWORD& failure) {
    const UniqueHandle file(CreateFileW(hostPath(path).c_str(), GENERIC_READ,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                        nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    failure = file.isOpen() ? readWhole(file.get(), mostSettings, content) : GetLastError();
    return failure == ERROR_SUCCESS;
}

// Of two programs that begin at once the first one's stay.
bool putFirst(const std::wstring& from, const std::wstring& to) {
    return MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_WRITE_THROUGH) != 0 ||
           GetLastError() == ERROR_ALREADY_EXISTS || GetLastError() == ERROR_FILE_EXISTS;
}

bool layFirst(const std::string& folder, std::string_view content) {
    const std::wstring made = hostPath(folder + '\\' + ownBesideName(settingsName));
    // They may hold a password later; and after a power failure they are whole or not there.
    const bool isDone =
        writePrivateFile(made, content) && putFirst(made, hostPath(settingsIn(folder)));
    DeleteFileW(made.c_str());
    return isDone;
}

}  // namespace

DataFolders dataFoldersOf(const std::string& program, const std::string& chosen) {
    DataFolders folders{.program = program};
    folders.isInstalled = attributesOf(program + '\\' + installedMarker) != INVALID_FILE_ATTRIBUTES;
    const std::string local = folders.isInstalled ? localFolder() : std::string{};
    if (!local.empty()) folders.ofUser = local + R"(\Velmora)";
    if (chosen.empty()) return folders;
    folders.chosen = wholePath(chosen);
    folders.isUnknown = folders.chosen.empty();
    return folders;
}

DataFolderState prepareDataFolder(const DataFolders& folders) {
    const std::string folder = chooseDataFolder(folders);
    if (folders.isUnknown || folder.empty()) return DataFolderState::notMade;
    if (folder == folders.program) return DataFolderState::ready;
    if (!isFolder(folder) && !make(folder)) return DataFolderState::notMade;
    removeLeftWritings(hostPath(folder), settingsName);
    if (attributesOf(settingsIn(folder)) != INVALID_FILE_ATTRIBUTES) return DataFolderState::ready;
    std::string content;
    DWORD failure = 0;
    if (!readFirst(settingsIn(folders.program), content, failure)) {
        // Without them the start says what is missing.
        return failure == ERROR_FILE_NOT_FOUND ? DataFolderState::ready
                                               : DataFolderState::notFilled;
    }
    return layFirst(folder, content) ? DataFolderState::ready : DataFolderState::notFilled;
}

}  // namespace velmora::windows
