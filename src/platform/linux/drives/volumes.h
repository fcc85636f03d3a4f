// The drives of this host: which there are now, and their answers.
//
// Drives whose sizes are in memory are asked right here, at the cost of the system call; all other
// questions go to a helper process, one a drive. The mount table is read again only after the
// kernel has reported a change. Looking for that costs as much as the question itself, so for
// drives in memory it is done every 50 ms, and between by the filesystem's identity in each answer.
#pragma once

#include <sys/stat.h>

#include <array>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/drives/drive_letters.h"
#include "platform/linux/drives/drive_mounts.h"
#include "platform/linux/drives/entry_counts.h"
#include "platform/linux/drives/filesystem_reading.h"
#include "platform/linux/drives/helper_process.h"
#include "platform/linux/drives/mount_watch.h"
#include "platform/linux/paths/path_mapping.h"

namespace velmora::linuxhost {

class Volumes {
  public:
    explicit Volumes(std::chrono::milliseconds deadline = driveDeadline);
    ~Volumes();

    /// What the drive ("C:" or "\\host\share") answers; nothing when it isn't mounted or doesn't
    /// answer in time.
    std::optional<FilesystemReading> measure(const std::string& drive);

    /// The mount of the drive; nothing when there is none.
    std::optional<Mount> mountOf(const std::string& drive);
    /// Whether the drive is mounted.
    bool has(const std::string& drive);
    /// The letters of the mounted drives, in the order of the alphabet.
    std::string letters();
    /// The roots of the mounted drives, until another question finds a change of the mount table.
    const std::vector<DriveRoot>& roots();
    /// The absolute path of the host for a drive path; empty when it leads nowhere. No path of the
    /// host is empty, and all questions below take that as one at which nothing lies.
    std::string hostPathOf(const std::string& drivePath);
    /// Whether an absolute path of the host is the root of a mounted drive, or "/".
    bool isMountPoint(const std::string& hostPath);

    /// The status of what lies at an absolute path of the host, of a link that of what it points
    /// to; nothing also when its drive doesn't answer in time.
    std::optional<struct statx> statusOf(const std::string& hostPath);
    /// What lies there; none likewise.
    FileKind kindOf(const std::string& hostPath);
    /// What lies in the folder at that path; nothing when it can't be read in time.
    std::optional<EntryCounts> entriesOf(const std::string& hostPath);

    /// Whether a listing of the folder at that path begins in time, with any result.
    bool beginsListing(const std::string& hostPath);
    /// Whether the drive that holds an absolute path of the host waits for no server; no also when
    /// none holds it.
    bool answersFromMemory(const std::string& hostPath);

    /// The ids of the helper processes that run.
    std::vector<pid_t> helpers() const;

  private:
    struct Volume;

    void update();
    void reload();
    void show(const DriveMount& mount);
    void listRoots();
    Volume* find(const std::string& drive) const;
    /// The volume that an absolute path of the host lies in; null when none holds it.
    Volume* holderOf(const std::string& hostPath);
    bool isUnchanged(Volume& volume, const FilesystemReading& reading);

    std::chrono::milliseconds deadline_;
    MountWatch watch_;
    DriveLetters letters_;
    std::vector<std::unique_ptr<Volume>> volumes_;
    std::vector<DriveRoot> roots_;        // as the table was last read
    std::array<Volume*, 26> byLetter_{};  // mounted ones only
};

}  // namespace velmora::linuxhost
