#include "platform/linux/files/linux_file_system_object.h"

#include <optional>
#include <utility>

#include "base/runtime_error.h"
#include "platform/linux/files/linux_entries.h"
#include "platform/linux/paths/path_mapping.h"

namespace velmora::linuxhost {

namespace {

class LinuxDrive final : public Drive {
  public:
    LinuxDrive(Volumes& volumes, std::string path) : volumes_(volumes), path_(std::move(path)) {}

    bool IsReady() override { return reading().has_value(); }
    std::string Path() const override { return path_; }
    double FreeSpace() override { return readyReading().freeBytes(); }
    double TotalSize() override { return readyReading().totalBytes(); }

  private:
    const std::optional<FilesystemReading>& reading() {
        if (!isMeasured_) reading_ = volumes_.measure(path_);
        isMeasured_ = true;
        return reading_;
    }
    const FilesystemReading& readyReading() {
        if (!reading()) throw RuntimeError(error::diskNotReady);
        return *reading_;
    }

    Volumes& volumes_;
    std::string path_;
    bool isMeasured_ = false;
    std::optional<FilesystemReading> reading_;
};

bool endsInSeparator(const std::string& path) {
    return !path.empty() && (path.back() == '\\' || path.back() == '/');
}

}  // namespace

std::unique_ptr<Drive> LinuxFileSystemObject::GetDrive(const std::string& designator) {
    std::string drive = driveOfDesignator(designator);
    if (drive.empty()) throw RuntimeError(error::invalidCall);
    return std::make_unique<LinuxDrive>(volumes_, std::move(drive));
}

bool LinuxFileSystemObject::DriveExists(const std::string& designator) {
    const std::string drive = driveOfDesignator(designator);
    return !drive.empty() && volumes_.has(drive);
}

FileKind LinuxFileSystemObject::kindOf(const std::string& path) {
    const std::string hostPath = hostPathOf(path, volumes_.roots());
    return hostPath.empty() ? FileKind::none : volumes_.kindOf(hostPath);
}

bool LinuxFileSystemObject::FolderExists(const std::string& path) {
    return kindOf(path) == FileKind::folder;
}

bool LinuxFileSystemObject::FileExists(const std::string& path) {
    return !endsInSeparator(path) && kindOf(path) == FileKind::file;
}

std::unique_ptr<Folder> LinuxFileSystemObject::GetFolder(const std::string& path) {
    if (!FolderExists(path)) throw RuntimeError(error::pathNotFound);
    const auto roots = volumes_.roots();
    return makeFolder(volumes_, fullDrivePath(path, roots), hostPathOf(path, roots));
}

std::unique_ptr<File> LinuxFileSystemObject::GetFile(const std::string& path) {
    if (!FileExists(path)) throw RuntimeError(error::fileNotFound);
    const auto roots = volumes_.roots();
    return makeFile(volumes_, fullDrivePath(path, roots), hostPathOf(path, roots));
}

}  // namespace velmora::linuxhost
