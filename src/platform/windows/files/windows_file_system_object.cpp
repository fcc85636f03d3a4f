#include "platform/windows/files/windows_file_system_object.h"

#include <windows.h>

#include <utility>

#include "base/runtime_error.h"
#include "platform/windows/drives/windows_drive.h"
#include "platform/windows/files/windows_file.h"
#include "platform/windows/files/windows_folder.h"
#include "platform/windows/paths/exact_path.h"
#include "platform/windows/system/utf16.h"

namespace velmora::windows {

namespace {

std::string withoutEndingSlash(std::string path) {
    const bool isRoot = path.size() == 3 && path[1] == ':';
    if (!isRoot && path.size() > 1 && path.back() == '\\') path.pop_back();
    return path;
}

std::string absolutePath(const std::string& path) {
    return withoutEndingSlash(withoutLongPrefix(toUtf8(fullPath(path))));
}

}  // namespace

WindowsFileSystemObject::WindowsFileSystemObject(std::shared_ptr<DriveQuestions> questions)
    : questions_(std::move(questions)) {}

std::unique_ptr<Drive> WindowsFileSystemObject::GetDrive(const std::string& designator) {
    return std::make_unique<WindowsDrive>(questions_, requiredDrive(designator));
}

bool WindowsFileSystemObject::DriveExists(const std::string& designator) {
    const std::string drive = driveOfDesignator(designator);
    if (drive.empty()) return false;
    const bool isLetter = drive.size() == 2;
    if (isLetter) return (GetLogicalDrives() >> (drive.front() - 'A') & 1U) != 0;
    return attributesOf(drive + '\\', drive) != INVALID_FILE_ATTRIBUTES;
}

std::uint32_t WindowsFileSystemObject::attributesOf(const std::string& path,
                                                    const std::string& drive) {
    // The system would read a path up to its first NUL and so answer for another one.
    if (path.empty() || path.find('\0') != std::string::npos) return INVALID_FILE_ATTRIBUTES;
    const auto answer = questions_->ask<DWORD>(
        drive, [wide = systemPath(path)] { return GetFileAttributesW(wide.c_str()); });
    return answer.value_or(INVALID_FILE_ATTRIBUTES);
}

bool WindowsFileSystemObject::FolderExists(const std::string& path) {
    return kindOf(attributesOf(path, driveOfPath(path))) == PathKind::folder;
}

bool WindowsFileSystemObject::FileExists(const std::string& path) {
    return kindOf(attributesOf(path, driveOfPath(path))) == PathKind::file;
}

EntryReading WindowsFileSystemObject::readingOf(const std::string& path, PathKind kind,
                                                int missing) {
    std::string absolute = absolutePath(path);
    std::string drive = driveOfDesignator(driveNameOf(absolute));
    if (kindOf(attributesOf(path, drive)) != kind) throw RuntimeError(missing);
    return {questions_, std::move(drive), std::move(absolute)};
}

std::unique_ptr<Folder> WindowsFileSystemObject::GetFolder(const std::string& path) {
    EntryReading reading = readingOf(path, PathKind::folder, error::pathNotFound);
    // Now, since a path without a drive starts at the current folder.
    const auto exact = exactPath(path);
    std::string asWritten = exact ? toUtf8(exact->text()) : path;
    return std::make_unique<WindowsFolder>(std::move(reading), std::move(asWritten));
}

std::unique_ptr<File> WindowsFileSystemObject::GetFile(const std::string& path) {
    return std::make_unique<WindowsFile>(readingOf(path, PathKind::file, error::fileNotFound));
}

}  // namespace velmora::windows
