#include "platform/windows/settings/windows_user_state.h"

#include <windows.h>
// After the one above, which it needs.
#include <winternl.h>

#include <utility>

#include "platform/windows/entries/left_writings.h"
#include "platform/windows/entries/opened_entry.h"
#include "platform/windows/entries/private_folder.h"
#include "platform/windows/paths/exact_path.h"
#include "platform/windows/system/environment.h"
#include "platform/windows/system/private_file.h"
#include "platform/windows/system/utf16.h"
#include "platform/windows/system/whole_file.h"

namespace velmora::windows {

namespace {

// Asked each time: the folder may have been removed meanwhile.
std::optional<ExactPath> ownFolder() {
    const std::string local = toUtf8(environmentVariable(L"LOCALAPPDATA"));
    return local.empty() ? std::nullopt : exactPath(local + R"(\Velmora)");
}

bool openFolder(const std::optional<ExactPath>& path, WhenMissing whenMissing,
                OpenedEntry& folder) {
    return path && openPrivateFolder(*path, whenMissing, folder) == ERROR_SUCCESS;
}

std::wstring pathIn(ExactPath folder, const std::string& name) {
    folder.names.push_back(toUtf16(name));
    return folder.text();
}

bool putInPlace(const std::wstring& from, const std::wstring& to) {
    constexpr DWORD flags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    return MoveFileExW(from.c_str(), to.c_str(), flags) != 0;
}

// Itself, and no link.
bool openFile(const OpenedEntry& folder, const std::string& name, OpenedEntry& file) {
    const std::wstring wide = toUtf16(name);
    EntryKind kind{};
    return file.openIn(folder, wide, FILE_GENERIC_READ, FILE_NON_DIRECTORY_FILE) == ERROR_SUCCESS &&
           file.kindIn(folder, wide, kind) == ERROR_SUCCESS && kind == EntryKind::plain;
}

}  // namespace

std::optional<std::string> WindowsUserState::read(const std::string& name) {
    OpenedEntry folder;
    if (!isUserStateName(name) || !openFolder(ownFolder(), WhenMissing::fail, folder))
        return std::nullopt;
    OpenedEntry file;
    std::string content;
    const bool isRead = openFile(folder, name, file) &&
                        readWhole(file.handle(), mostUserState, content) == ERROR_SUCCESS;
    return isRead ? std::optional(std::move(content)) : std::nullopt;
}

bool WindowsUserState::write(const std::string& name, std::string_view content) {
    const auto path = ownFolder();
    OpenedEntry folder;
    const bool isAllowed = isUserStateName(name) && content.size() <= mostUserState;
    if (!isAllowed || !openFolder(path, WhenMissing::make, folder)) return false;
    // Others may be somebody's: an installed program has its settings in the same folder.
    removeLeftWritings(path->text(), name);
    const std::wstring beside = pathIn(*path, ownBesideName(name));
    // After a power failure there is the old content or the new one.
    const bool isDone =
        writePrivateFile(beside, content) && putInPlace(beside, pathIn(*path, name));
    if (!isDone) DeleteFileW(beside.c_str());
    return isDone;
}

bool WindowsUserState::move(const std::string& from, const std::string& to) {
    const auto path = ownFolder();
    OpenedEntry folder;
    return isUserStateName(from) && isUserStateName(to) &&
           openFolder(path, WhenMissing::fail, folder) &&
           putInPlace(pathIn(*path, from), pathIn(*path, to));
}

std::string WindowsUserState::placeOf(const std::string& name) {
    const std::string local = toUtf8(environmentVariable(L"LOCALAPPDATA"));
    return local.empty() ? std::string{} : local + R"(\Velmora\)" + name;
}

}  // namespace velmora::windows
