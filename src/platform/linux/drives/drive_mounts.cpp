#include "platform/linux/drives/drive_mounts.h"

#include <algorithm>
#include <array>
#include <unordered_set>

#include "platform/linux/paths/path_names.h"

namespace velmora::linuxhost {

namespace {

using std::string_view;

template <std::size_t count>
bool isAmong(const std::array<string_view, count>& words, string_view word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

constexpr std::array<string_view, 10> memoryTypes{"ext2",  "ext3",  "ext4", "xfs",     "btrfs",
                                                  "tmpfs", "ramfs", "f2fs", "overlay", "rootfs"};

constexpr std::array<string_view, 21> networkTypes{
    "nfs",  "nfs4",     "cifs",   "smb3",   "smbfs",  "ncpfs",     "9p",
    "ceph", "afs",      "coda",   "lustre", "gfs2",   "ocfs2",     "beegfs",
    "gpfs", "virtiofs", "vboxsf", "prl_fs", "vmhgfs", "glusterfs", "davfs"};

// Filesystems of their own kind without a device number: pools and flash.
constexpr std::array<string_view, 5> otherDiskTypes{"btrfs", "zfs", "bcachefs", "ubifs", "jffs2"};

// Views of other things by way of FUSE, and package images.
constexpr std::array<string_view, 8> pseudoFuseTypes{
    "fuse.gvfsd-fuse", "fuse.portal",        "fuse.lxcfs",          "fuse.snapfuse",
    "fuse.squashfuse", "fuse.squashfuse_ll", "fuse.vmware-vmblock", "fuse.overlayfs"};

constexpr std::array<string_view, 4> kernelFolders{"/dev", "/run", "/proc", "/sys"};

bool isFuse(string_view type) {
    return type == "fuse" || type == "fuseblk" || type.substr(0, 5) == "fuse.";
}

bool mayKeepWaiting(string_view type) {
    return isFuse(type) || isAmong(networkTypes, type);
}

bool isBlock(const Mount& mount) {
    const bool hasDeviceNumber = mount.device.substr(0, 2) != "0:";
    return hasDeviceNumber || mount.source.substr(0, 5) == "/dev/";
}

bool isSizedTmpfs(const Mount& mount) {
    if (mount.type != "tmpfs") return false;
    if (hasOption(mount.options, "ro") || hasOption(mount.fsOptions, "ro")) return false;
    const auto size = optionValue(mount.fsOptions, "size");
    if (size.find_first_of("123456789") == string_view::npos) return false;
    return std::none_of(kernelFolders.begin(), kernelFolders.end(), [&mount](string_view folder) {
        return isWithin(mount.mountPoint, folder);
    });
}

bool holdsFiles(const Mount& mount) {
    const string_view type = mount.type;
    if (type == "squashfs" || type == "devtmpfs" || isAmong(pseudoFuseTypes, type)) return false;
    if (type == "tmpfs") return isSizedTmpfs(mount);
    if (isFuse(type) || isAmong(networkTypes, type) || isAmong(otherDiskTypes, type)) return true;
    return type != "overlay" && isBlock(mount);
}

// Knows for each mount whether all filesystems on the way to it answer from memory.
class WayThere {
  public:
    explicit WayThere(const std::vector<Mount>& reachable) {
        for (const Mount& mount : reachable) {
            if (!isAmong(memoryTypes, mount.type)) slow_.insert(mount.mountPoint);
        }
    }
    bool isQuick(const Mount& mount) const {
        string_view path = mount.mountPoint;
        while (path.size() > 1) {
            const auto slash = path.rfind('/');
            path = path.substr(0, slash == 0 ? 1 : slash);
            if (slow_.count(path) > 0) return false;
        }
        return true;
    }

  private:
    std::unordered_set<string_view> slow_;
};

Mount rootAmong(const std::vector<Mount>& reachable) {
    const auto root = std::find_if(reachable.begin(), reachable.end(),
                                   [](const Mount& mount) { return mount.mountPoint == "/"; });
    if (root != reachable.end()) return *root;
    // After chroot into a folder that is no mount point: the root exists, of an unknown type.
    Mount unknown;
    unknown.mountPoint = "/";
    return unknown;
}

string_view withoutUser(string_view host) {
    const auto at = host.rfind('@');
    return at == string_view::npos ? host : host.substr(at + 1);
}

string_view trimmedSlashes(string_view path) {
    while (!path.empty() && path.front() == '/') path.remove_prefix(1);
    while (!path.empty() && path.back() == '/') path.remove_suffix(1);
    return path;
}

std::string shareName(string_view host, string_view path) {
    if (host.empty()) return {};
    std::string name(trimmedSlashes(path));
    for (char& c : name) {
        if (c == '/' || c == '\\') c = '_';
    }
    if (name.empty()) name = "_";
    return "\\\\" + std::string(host) + '\\' + name;
}

// "host:/path"; the host may be a numeric address in brackets, with colons of its own.
std::string shareOfColonForm(string_view source) {
    const auto bracket = source.find("]:");
    const auto colon = bracket != string_view::npos ? bracket + 1 : source.find(':');
    if (colon == string_view::npos) return {};
    return shareName(withoutUser(source.substr(0, colon)), source.substr(colon + 1));
}

}  // namespace

std::string shareOfMount(string_view type, string_view source) {
    if (type == "cifs" || type == "smb3" || type == "smbfs") {
        if (source.substr(0, 2) != "//") return {};
        const auto bare = source.substr(2);
        const auto slash = bare.find('/');
        if (slash == string_view::npos) return {};
        return shareName(bare.substr(0, slash), bare.substr(slash));
    }
    constexpr std::array<string_view, 5> colonTypes{"nfs", "nfs4", "ceph", "fuse.sshfs",
                                                    "fuse.glusterfs"};
    return isAmong(colonTypes, type) ? shareOfColonForm(source) : std::string{};
}

bool isMemoryType(string_view type) {
    return isAmong(memoryTypes, type);
}

bool isNetworkType(string_view type) {
    constexpr std::array<string_view, 10> byFuse{
        "fuse.sshfs",   "fuse.glusterfs", "fuse.rclone", "fuse.davfs2",    "fuse.s3fs",
        "fuse.gcsfuse", "fuse.curlftpfs", "fuse.httpfs", "fuse.ceph-fuse", "fuse.smbnetfs"};
    return isAmong(networkTypes, type) || isAmong(byFuse, type);
}

bool isDiskType(string_view type) {
    return isAmong(otherDiskTypes, type);
}

std::vector<DriveMount> driveMounts(const std::vector<Mount>& mounts,
                                    const std::function<bool(const std::string&)>& isFolder) {
    const auto reachable = reachableMounts(mounts);
    const WayThere way(reachable);
    std::vector<DriveMount> drives;
    std::unordered_set<std::string> devices;
    const auto add = [&](const Mount& mount) {
        devices.insert(mount.device);
        drives.push_back({mount, shareOfMount(mount.type, mount.source),
                          isAmong(memoryTypes, mount.type) && way.isQuick(mount)});
    };
    add(rootAmong(reachable));
    for (const Mount& mount : reachable) {
        if (mount.mountPoint == "/" || !holdsFiles(mount)) continue;
        if (devices.count(mount.device) > 0) continue;
        const bool canAsk = !mayKeepWaiting(mount.type) && way.isQuick(mount);
        if (canAsk && !isFolder(mount.mountPoint)) continue;
        add(mount);
    }
    return drives;
}

}  // namespace velmora::linuxhost
