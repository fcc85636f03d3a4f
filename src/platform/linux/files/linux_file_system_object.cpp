#include "platform/linux/files/linux_file_system_object.h"

#include <optional>
#include <utility>

#include "base/runtime_error.h"
#include "platform/linux/entries/opened_parent.h"
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

bool LinuxFileSystemObject::isFile(const std::string& path, const std::string& hostPath) {
    return !endsInSeparator(path) && volumes_.kindOf(hostPath) == FileKind::file;
}

bool LinuxFileSystemObject::FolderExists(const std::string& path) {
    const Volumes::OneLook look(volumes_);
    return volumes_.kindOf(volumes_.hostPathOf(path)) == FileKind::folder;
}

bool LinuxFileSystemObject::FileExists(const std::string& path) {
    const Volumes::OneLook look(volumes_);
    return isFile(path, volumes_.hostPathOf(path));
}

std::unique_ptr<Folder> LinuxFileSystemObject::GetFolder(const std::string& path) {
    const Volumes::OneLook look(volumes_);
    MappedPath mapped = mapDrivePath(path, volumes_.roots());
    UniqueFd known = volumes_.openKnown(mapped.onHost);
    if (!known.isOpen() && volumes_.kindOf(mapped.onHost) != FileKind::folder)
        throw RuntimeError(error::pathNotFound);
    return makeFolder(volumes_, std::move(mapped.onDrive), std::move(mapped.onHost),
                      std::move(known));
}

std::unique_ptr<File> LinuxFileSystemObject::GetFile(const std::string& path) {
    const Volumes::OneLook look(volumes_);
    MappedPath mapped = mapDrivePath(path, volumes_.roots());
    if (!isFile(path, mapped.onHost)) throw RuntimeError(error::fileNotFound);
    return makeFile(volumes_, std::move(mapped.onDrive), std::move(mapped.onHost));
}

std::string LinuxFileSystemObject::WithoutLinks(const std::string& path) {
    return drivePathWithoutLinks(path, volumes_);
}

}  // namespace velmora::linuxhost
