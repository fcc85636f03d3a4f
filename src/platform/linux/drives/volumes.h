// The drives of this host: which there are now, and their answers.
//
// Drives whose sizes are in memory are asked right here, at the cost of the system call, and so is
// what the kernel or the memory of folders already knows; all other questions go to a helper
// process, one a drive. The mount table is read again only after the
// kernel has reported a change. Looking for that costs as much as the question itself, so for
// drives in memory it is done every 50 ms, and between by the filesystem's identity in each answer.
#pragma once

#include <sys/stat.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "platform/linux/drives/drive_letters.h"
#include "platform/linux/drives/drive_mounts.h"
#include "platform/linux/drives/entry_counts.h"
#include "platform/linux/drives/filesystem_reading.h"
#include "platform/linux/drives/folder_memory.h"
#include "platform/linux/drives/helper_process.h"
#include "platform/linux/drives/mount_watch.h"
#include "platform/linux/paths/path_mapping.h"
#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

class Volumes {
  public:
    /// `now` is the clock by which changes of folders are dated.
    explicit Volumes(std::chrono::milliseconds deadline = driveDeadline,
                     FolderMemory::Clock now = changeClock);
    ~Volumes();

    /// While one lives the mount table is as it was at its start, so that all questions of one call
    /// are answered by one state, and at the cost of one look. Nothing is measured meanwhile.
    class OneLook {
      public:
        explicit OneLook(Volumes& volumes) : volumes_(volumes) {
            volumes.update();
            ++volumes.looks_;
        }
        ~OneLook() { --volumes_.looks_; }
        OneLook(const OneLook&) = delete;
        OneLook& operator=(const OneLook&) = delete;

      private:
        Volumes& volumes_;
    };

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
    /// The folder at that path, as a mere place, when it is known to be there without asking its
    /// drive; closed otherwise. It keeps its drive from being unmounted.
    UniqueFd openKnown(const std::string& hostPath);
    /// The folder at that path, as a mere place, when that is known without waiting and no
    /// component of the path is a link; closed otherwise.
    UniqueFd openWithoutLinks(const std::string& hostPath);
    /// What lies in the folder at that path; nothing when it can't be read in time. `known` is what
    /// the call above gave for it.
    std::optional<EntryCounts> entriesOf(const std::string& hostPath, const UniqueFd& known = {});

    /// The folder at that path, as a mere place, when it can be read without waiting for a server;
    /// closed otherwise. Nothing is asked of a folder that may keep the asker waiting.
    UniqueFd openQuick(const std::string& hostPath);
    /// Whether the next entries of a listing come in time from the drive that holds it.
    bool readListing(ListingQuestion& question, ListingBlock& block);
    /// Closes a listing that hasn't come to its end. Never fails, since it ends in a destructor.
    void endListing(const ListingQuestion& question);

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
    /// The same, by the mount table as it was last read.
    Volume* knownHolderOf(const std::string& hostPath) const;
    /// What the kernel can tell without waiting: nothing certain, that nothing lies there, or the
    /// status, which is filled in then.
    enum class Known { nothing, isNotThere, status };
    Known knownStatus(const std::string& hostPath, struct statx& status) const;
    /// Whether the opened place lies in a mount that answers from memory.
    bool isInMemory(const UniqueFd& place) const;
    /// Whether its status, which says what mount that is, was read from one.
    bool isFromMemory(const struct statx& status) const;
    bool isUnchanged(Volume& volume, const FilesystemReading& reading);

    std::chrono::milliseconds deadline_;
    MountWatch watch_;
    int looks_ = 0;  // that live
    FolderMemory memory_;
    DriveLetters letters_;
    std::vector<std::unique_ptr<Volume>> volumes_;
    std::vector<DriveRoot> roots_;                    // as the table was last read
    std::unordered_set<std::uint64_t> memoryMounts_;  // by their ids
    std::array<Volume*, 26> byLetter_{};              // mounted ones only
};

}  // namespace velmora::linuxhost
