#include "platform/linux/files/linux_kernel32.h"

#include <cstdlib>
#include <string_view>

#include "platform/linux/moving/move_file.h"
#include "platform/linux/paths/path_mapping.h"
#include "platform/linux/system/memory_status.h"
#include "platform/linux/system/read_whole.h"
#include "platform/linux/system/system_errors.h"

namespace velmora::linuxhost {

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
    // The system's look-up would take the start of a value for a part of the name.
    if (name.find_first_of(std::string_view("=\0", 2)) != std::string::npos) return {};
    const char* text = std::getenv(name.c_str());
    return text ? text : "";
}

// The version whose snapshots of processes the host can serve: 4.10 of the first platform.
std::int32_t LinuxKernel32::GetVersionExA(OsVersionInfo& version) {
    if (version.dwOSVersionInfoSize != os_version::recordLength) return 0;
    version = {.dwOSVersionInfoSize = os_version::recordLength,
               .dwMajorVersion = 4,
               .dwMinorVersion = 10,
               .dwPlatformId = os_version::windows9x};
    return 1;
}

void LinuxKernel32::GlobalMemoryStatus(MemoryStatus& status) {
    if (status.dwLength != memory_status::recordLength) return;
    status = memoryStatusOf(contentOfFile("/proc/meminfo"));
}

// Read right here where nothing can keep it waiting, and otherwise by the drive's helper.
FolderListing LinuxKernel32::beginListing(const std::string& folder) {
    const bool hasDots = !volumes_.isMountPoint(folder);
    const UniqueFd place = volumes_.openQuick(folder);
    if (place.isOpen()) return {place, hasDots};
    return {volumes_, folder, hasDots};
}

FindHandle LinuxKernel32::FindFirstFileA(const std::string& pattern, FindData& entry) {
    constexpr std::string_view everything = "\\*.*";
    lastError_ = code::pathNotFound;
    if (!pattern.ends_with(everything)) return 0;
    const std::string folder =
        volumes_.hostPathOf(pattern.substr(0, pattern.size() - everything.size()));
    if (folder.empty()) return 0;
    const auto listing = listings_.try_emplace(++lastListing_, beginListing(folder)).first;
    if (listed_) listed_->begin();
    lastError_ = listing->second.next(entry);
    if (lastError_ == 0) {
        noteTimes(entry);
        return lastListing_;
    }
    listings_.erase(listing);
    // A drive that doesn't answer has no such folder.
    if (lastError_ == code::notReady) lastError_ = code::pathNotFound;
    if (lastError_ == noMoreFiles) lastError_ = code::fileNotFound;
    return 0;
}

bool LinuxKernel32::FindNextFileA(FindHandle listing, FindData& entry) {
    const auto found = listings_.find(listing);
    lastError_ = found == listings_.end() ? code::invalidHandle : found->second.next(entry);
    if (lastError_ == 0) noteTimes(entry);
    return lastError_ == 0;
}

void LinuxKernel32::noteTimes(const FindData& entry) {
    if (!listed_) return;
    listed_->add(entry.ftLastWriteTime);
    listed_->add(entry.ftCreationTime);
}

std::int32_t LinuxKernel32::MoveFileA(const std::string& from, const std::string& to) {
    const Volumes::OneLook look(volumes_);
    const std::string source = volumes_.hostPathOf(from);
    const std::string target = volumes_.hostPathOf(to);
    // Only a folder's path may end in a separator.
    const auto isNoFolder = [&](const std::string& path, const std::string& hostPath) {
        return endsInSeparator(path) && volumes_.kindOf(hostPath) != FileKind::folder;
    };
    if (source.empty() || isNoFolder(from, source)) {
        lastError_ = code::fileNotFound;
    } else if (target.empty() || !beginsAtRoot(to) ||
               (isNoFolder(to, target) && volumes_.kindOf(source) != FileKind::folder)) {
        lastError_ = code::pathNotFound;
    } else {
        lastError_ = moveFile(volumes_, source, target);
    }
    return lastError_ == 0 ? 1 : 0;
}

}  // namespace velmora::linuxhost
