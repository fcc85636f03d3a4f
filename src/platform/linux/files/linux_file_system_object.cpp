#include "platform/linux/files/linux_file_system_object.h"

#include <optional>
#include <utility>

#include "base/runtime_error.h"
#include "platform/linux/files/linux_entries.h"
#include "platform/linux/paths/path_mapping.h"
#include "platform/measured_drive.h"

namespace velmora::linuxhost {

namespace {

class LinuxDrive final : public MeasuredDrive {
  public:
    LinuxDrive(Volumes& volumes, std::string path)
        : MeasuredDrive(std::move(path)), volumes_(volumes) {}

  private:
    std::optional<DriveSpace> measure() override {
        const auto reading = volumes_.measure(Path());
        if (!reading) return std::nullopt;
        return DriveSpace{reading->freeBytes(), reading->totalBytes()};
    }

    Volumes& volumes_;
};

}  // namespace

std::unique_ptr<Drive> LinuxFileSystemObject::GetDrive(const std::string& designator) {
    return std::make_unique<LinuxDrive>(volumes_, requiredDrive(designator));
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
    const auto roots = volumes_.roots();
    std::string hostPath = hostPathOf(path, roots);
    if (hostPath.empty() || volumes_.kindOf(hostPath) != FileKind::folder)
        throw RuntimeError(error::pathNotFound);
    return makeFolder(volumes_, fullDrivePath(path, roots), std::move(hostPath));
}

std::unique_ptr<File> LinuxFileSystemObject::GetFile(const std::string& path) {
    const auto roots = volumes_.roots();
    std::string hostPath = hostPathOf(path, roots);
    const bool isThere =
        !endsInSeparator(path) && !hostPath.empty() && volumes_.kindOf(hostPath) == FileKind::file;
    if (!isThere) throw RuntimeError(error::fileNotFound);
    return makeFile(volumes_, fullDrivePath(path, roots), std::move(hostPath));
}

}  // namespace velmora::linuxhost
