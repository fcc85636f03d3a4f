// The drives, folders and files of this host, as drives and drive paths.
#pragma once

#include <memory>
#include <string>

#include "platform/file_system_object.h"
#include "platform/linux/drives/volumes.h"

namespace velmora::linuxhost {

class LinuxFileSystemObject final : public FileSystemObject {
  public:
    /// The volumes must outlive this object and its drives.
    explicit LinuxFileSystemObject(Volumes& volumes) : volumes_(volumes) {}

    std::unique_ptr<Drive> GetDrive(const std::string& designator) override;
    bool DriveExists(const std::string& designator) override;
    bool FolderExists(const std::string& path) override;
    bool FileExists(const std::string& path) override;
    std::unique_ptr<Folder> GetFolder(const std::string& path) override;
    std::unique_ptr<File> GetFile(const std::string& path) override;
    std::string WithoutLinks(const std::string& path) override;

  private:
    /// Whether a drive path, which is that path of the host, names a file.
    bool isFile(const std::string& path, const std::string& hostPath);

    Volumes& volumes_;
};

}  // namespace velmora::linuxhost
