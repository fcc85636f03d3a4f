#include "platform/linux/linux_file_system_object.h"

#include <optional>
#include <utility>

#include "base/runtime_error.h"
#include "platform/linux/path_mapping.h"

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

class LinuxFolder final : public Folder {
  public:
    LinuxFolder(Volumes& volumes, std::string path, std::string hostPath)
        : volumes_(volumes), path_(std::move(path)), hostPath_(std::move(hostPath)) {}

    std::string Path() const override { return path_; }
    double FilesCount() override { return static_cast<double>(counts().files); }
    double SubFoldersCount() override { return static_cast<double>(counts().folders); }

  private:
    const EntryCounts& counts() {
        if (!counts_) counts_ = volumes_.entriesOf(hostPath_);
        if (!counts_) throw RuntimeError(error::pathNotFound);
        return *counts_;
    }

    Volumes& volumes_;
    std::string path_;
    std::string hostPath_;
    std::optional<EntryCounts> counts_;
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
    return std::make_unique<LinuxFolder>(volumes_, fullDrivePath(path, roots),
                                         hostPathOf(path, roots));
}

}  // namespace velmora::linuxhost
