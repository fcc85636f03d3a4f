#include "platform/linux/files/linux_kernel32.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "platform/linux/moving/move_file.h"
#include "platform/linux/paths/path_mapping.h"

namespace velmora::linuxhost {

namespace {

constexpr std::uint32_t fileNotFound = 2;
constexpr std::uint32_t pathNotFound = 3;
constexpr std::uint32_t invalidHandle = 6;

bool endsInSeparator(const std::string& path) {
    return path.ends_with('\\') || path.ends_with('/');
}

bool isRoot(const std::string& hostPath, const std::vector<DriveRoot>& roots) {
    return std::any_of(roots.begin(), roots.end(),
                       [&](const DriveRoot& each) { return each.mountPoint == hostPath; });
}

}  // namespace

std::uint32_t LinuxKernel32::GetLogicalDriveStringsA(std::uint32_t length, std::string& buffer) {
    std::string roots;
    for (const char letter : volumes_.letters()) {
        roots += letter;
        roots += ":\\";
        roots += '\0';
    }
    const auto used = static_cast<std::uint32_t>(roots.size());
    if (used >= length) return used + 1;
    roots += '\0';
    buffer.replace(0, roots.size(), roots);
    return used;
}

std::string LinuxKernel32::GetWindowsDirectoryA() {
    std::string folder = drivePathOf("/usr/share/sounds", volumes_.roots());
    if (folder.ends_with('\\')) folder.pop_back();
    return folder;
}

std::string LinuxKernel32::GetEnvironmentVariableA(const std::string& name) {
    // The system's look-up would take the front of a value for a part of the name.
    if (name.find_first_of(std::string_view("=\0", 2)) != std::string::npos) return {};
    const char* text = std::getenv(name.c_str());
    return text ? text : "";
}

FindHandle LinuxKernel32::FindFirstFileA(const std::string& pattern, FindData& entry) {
    constexpr std::string_view everything = "\\*.*";
    lastError_ = pathNotFound;
    if (!pattern.ends_with(everything)) return 0;
    const auto roots = volumes_.roots();
    const std::string folder =
        hostPathOf(pattern.substr(0, pattern.size() - everything.size()), roots);
    // Asked first, since opening would wait for a drive that doesn't answer.
    const bool asksServer = !volumes_.answersFromMemory(folder);
    const bool canBegin =
        asksServer ? volumes_.beginsListing(folder) : volumes_.kindOf(folder) == FileKind::folder;
    if (folder.empty() || !canBegin) return 0;
    const auto listing =
        listings_.try_emplace(++lastListing_, folder, !isRoot(folder, roots), asksServer).first;
    lastError_ = listing->second.next(entry);
    if (lastError_ == 0) return lastListing_;
    listings_.erase(listing);
    if (lastError_ == noMoreFiles) lastError_ = fileNotFound;
    return 0;
}

bool LinuxKernel32::FindNextFileA(FindHandle listing, FindData& entry) {
    const auto found = listings_.find(listing);
    lastError_ = found == listings_.end() ? invalidHandle : found->second.next(entry);
    return lastError_ == 0;
}

std::int32_t LinuxKernel32::MoveFileA(const std::string& from, const std::string& to) {
    const auto roots = volumes_.roots();
    const std::string source = hostPathOf(from, roots);
    const std::string target = hostPathOf(to, roots);
    // Only a folder's path may have a separator behind.
    const auto isNoFolder = [&](const std::string& path, const std::string& hostPath) {
        return endsInSeparator(path) && volumes_.kindOf(hostPath) != FileKind::folder;
    };
    if (source.empty() || isNoFolder(from, source)) {
        lastError_ = fileNotFound;
    } else if (target.empty() ||
               (isNoFolder(to, target) && volumes_.kindOf(source) != FileKind::folder)) {
        lastError_ = pathNotFound;
    } else {
        lastError_ = moveFile(volumes_, source, target);
    }
    return lastError_ == 0 ? 1 : 0;
}

}  // namespace velmora::linuxhost
