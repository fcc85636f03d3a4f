#include "base/runtime_error.h"
#include "platform/file_system_object.h"

namespace velmora {

namespace {

bool isLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool isShare(std::string_view path) {
    return path.starts_with("\\\\");
}

// "\\host\share" of a path that begins so; empty when the host or the share is missing.
std::string_view shareOf(std::string_view path) {
    const auto host = path.find('\\', 2);
    if (host == std::string_view::npos || host == 2) return {};
    const auto end = path.find('\\', host + 1);
    const auto share = path.substr(0, end);
    return share.size() == host + 1 ? std::string_view{} : share;
}

}  // namespace

std::string_view driveNameIn(std::string_view path) {
    if (isShare(path)) return shareOf(path);
    if (path.size() >= 2 && isLetter(path[0]) && path[1] == ':') return path.substr(0, 2);
    return {};
}

std::string driveNameOf(const std::string& path) {
    return std::string(driveNameIn(path));
}

std::string fileNameOf(const std::string& path) {
    std::string rest = path.substr(driveNameOf(path).size());
    while (endsInSeparator(rest)) rest.pop_back();
    const auto separator = rest.find_last_of("\\/");
    return separator == std::string::npos ? rest : rest.substr(separator + 1);
}

bool beginsAtRoot(const std::string& path) {
    if (path.starts_with('\\') || path.starts_with('/')) return true;
    const std::string drive = driveNameOf(path);
    if (drive.empty()) return false;
    // A name right behind a letter is one in the drive's own working folder.
    const std::string rest = path.substr(drive.size());
    return rest.empty() || rest.starts_with('\\') || rest.starts_with('/');
}

bool endsInSeparator(const std::string& path) {
    return path.ends_with('\\') || path.ends_with('/');
}

std::string parentFolderOf(const std::string& path) {
    const std::string drive = driveNameOf(path);
    std::string rest = path.substr(drive.size());
    while (rest.size() > 1 && endsInSeparator(rest)) rest.pop_back();
    if (rest.empty() || rest == "\\" || rest == "/") return {};
    rest.resize(rest.find_last_of("\\/") + 1);
    const bool isRoot = rest.size() <= 1;
    // The root of a letter keeps its back-slash, that of a share has none.
    if (isRoot) return isShare(path) ? drive : drive + rest;
    rest.pop_back();
    return drive + rest;
}

std::string FileSystemObject::GetDriveName(const std::string& path) {
    return driveNameOf(path);
}

std::string FileSystemObject::GetFileName(const std::string& path) const {
    return fileNameOf(path);
}

std::string PathEntry::ParentFolder() const {
    return parentFolderOf(Path());
}

std::string Drive::DriveLetter() const {
    const std::string path = Path();
    return isShare(path) ? std::string{} : path.substr(0, 1);
}

std::string driveOfDesignator(const std::string& designator) {
    std::string bare = designator;
    if (isShare(bare)) {
        if (bare.back() == '\\') bare.pop_back();
        return bare == shareOf(bare) ? bare : std::string{};
    }
    if (bare.size() == 3 && (bare[2] == '\\' || bare[2] == '/')) bare.pop_back();
    if (bare.size() == 2 && bare[1] == ':') bare.pop_back();
    if (bare.size() != 1 || !isLetter(bare[0])) return {};
    return std::string{static_cast<char>(bare[0] & ~0x20), ':'};
}

std::string requiredDrive(const std::string& designator) {
    std::string drive = driveOfDesignator(designator);
    if (drive.empty()) throw RuntimeError(error::invalidCall);
    return drive;
}

}  // namespace velmora
