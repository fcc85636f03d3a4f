#include "platform/linux/drives/volumes.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <utility>

#include "base/text.h"
#include "platform/linux/drives/cached_path.h"
#include "platform/linux/paths/path_names.h"

namespace velmora::linuxhost {

struct Volumes::Volume {
    explicit Volume(std::chrono::milliseconds deadline) : helper(deadline) {}

    DriveMount drive;
    std::string shareKey;  // the share in lower case
    char letter = 0;       // 0 for none
    bool isMounted = false;
    std::optional<FilesystemReading> identity;  // the first reading since the table was read
    HelperProcess helper;
};

namespace {

bool isFolder(const std::string& mountPoint) {
    struct stat status {};
    // One that this user may not look at is a mount all the same.
    return stat(mountPoint.c_str(), &status) != 0 || S_ISDIR(status.st_mode);
}

}  // namespace

Volumes::Volumes(std::chrono::milliseconds deadline, FolderMemory::Clock now)
    : deadline_(deadline), memory_(now) {
    reload();
}

Volumes::~Volumes() = default;

void Volumes::update() {
    if (looks_ == 0 && watch_.hasChanged()) reload();
}

void Volumes::reload() {
    assert(looks_ == 0);
    memory_.clear();
    const auto table = parseMountTable(watch_.read());
    memoryMounts_.clear();
    for (const Mount& mount : table) {
        if (isMemoryType(mount.type)) memoryMounts_.insert(static_cast<std::uint64_t>(mount.id));
    }
    const auto mounts = driveMounts(table, isFolder);
    std::vector<std::string> mountPoints;
    for (const DriveMount& each : mounts) mountPoints.push_back(each.mount.mountPoint);
    letters_.update(mountPoints);

    for (const auto& volume : volumes_) volume->isMounted = false;
    for (const DriveMount& each : mounts) show(each);
    byLetter_.fill(nullptr);
    for (const auto& volume : volumes_) {
        volume->letter = letters_.letterOf(volume->drive.mount.mountPoint);
        if (!volume->isMounted) volume->helper.stop();
        if (volume->isMounted && volume->letter != 0)
            byLetter_[static_cast<std::size_t>(volume->letter - 'A')] = volume.get();
    }
    // With a letter the volume is kept, and its helper is reaped later; without one nothing asks
    // for the volume again.
    std::erase_if(volumes_,
                  [](const auto& volume) { return !volume->isMounted && volume->letter == 0; });
    listRoots();
}

void Volumes::listRoots() {
    roots_.clear();
    for (const auto& volume : volumes_) {
        if (!volume->isMounted) continue;
        const std::string& mountPoint = volume->drive.mount.mountPoint;
        if (volume->letter != 0) roots_.push_back({std::string{volume->letter, ':'}, mountPoint});
        if (!volume->drive.share.empty()) roots_.push_back({volume->drive.share, mountPoint});
    }
}

void Volumes::show(const DriveMount& mount) {
    auto at = std::find_if(volumes_.begin(), volumes_.end(), [&mount](const auto& each) {
        return each->drive.mount.mountPoint == mount.mount.mountPoint;
    });
    if (at == volumes_.end()) at = volumes_.insert(at, std::make_unique<Volume>(deadline_));
    Volume& volume = **at;
    // Another filesystem: a pending answer of the old one would be wrong for it.
    if (!(volume.drive == mount)) volume.helper.stop();
    volume.drive = mount;
    volume.shareKey = lowerCase(mount.share);
    volume.isMounted = true;
    volume.identity.reset();
}

Volumes::Volume* Volumes::find(const std::string& drive) const {
    if (drive.size() == 2) {
        const auto index = static_cast<std::size_t>(drive[0] - 'A');
        return index < byLetter_.size() ? byLetter_[index] : nullptr;
    }
    const std::string key = lowerCase(drive);
    const auto found = std::find_if(volumes_.begin(), volumes_.end(), [&key](const auto& each) {
        return each->isMounted && !key.empty() && each->shareKey == key;
    });
    return found == volumes_.end() ? nullptr : found->get();
}

bool Volumes::isUnchanged(Volume& volume, const FilesystemReading& reading) {
    if (volume.identity) return volume.identity->isSameFilesystem(reading);
    if (watch_.hasChanged()) return false;
    volume.identity = reading;
    return true;
}

std::optional<FilesystemReading> Volumes::measure(const std::string& drive) {
    Volume* volume = find(drive);
    const bool inMemory = volume && volume->drive.answersFromMemory;
    if (inMemory ? watch_.hasChangedLately() : watch_.hasChanged()) {
        reload();
        volume = find(drive);
    }
    for (int tries = 0; volume && tries < 3; ++tries) {
        const std::string& mountPoint = volume->drive.mount.mountPoint;
        if (!volume->drive.answersFromMemory) {
            const auto reply = volume->helper.ask(HelperQuestion::space, mountPoint);
            if (!reply || reply->error != 0) return std::nullopt;
            return reply->reading;
        }
        FilesystemReading reading;
        if (readFilesystem(mountPoint.c_str(), reading) == 0 && isUnchanged(*volume, reading))
            return reading;
        reload();
        volume = find(drive);
    }
    return std::nullopt;
}

std::optional<Mount> Volumes::mountOf(const std::string& drive) {
    update();
    const Volume* volume = find(drive);
    if (!volume) return std::nullopt;
    return volume->drive.mount;
}

bool Volumes::has(const std::string& drive) {
    update();
    return find(drive) != nullptr;
}

std::string Volumes::letters() {
    update();
    std::string letters;
    for (const Volume* volume : byLetter_) {
        if (volume) letters += volume->letter;
    }
    return letters;
}

const std::vector<DriveRoot>& Volumes::roots() {
    update();
    return roots_;
}

std::string Volumes::hostPathOf(const std::string& drivePath) {
    return linuxhost::hostPathOf(drivePath, roots());
}

bool Volumes::isMountPoint(const std::string& hostPath) {
    update();
    return hostPath == "/" ||
           std::any_of(roots_.begin(), roots_.end(),
                       [&hostPath](const DriveRoot& each) { return each.mountPoint == hostPath; });
}

Volumes::Volume* Volumes::holderOf(const std::string& hostPath) {
    update();
    return knownHolderOf(hostPath);
}

Volumes::Volume* Volumes::knownHolderOf(const std::string& hostPath) const {
    Volume* holder = nullptr;
    for (const auto& volume : volumes_) {
        const std::string& mountPoint = volume->drive.mount.mountPoint;
        if (!volume->isMounted || !isWithin(hostPath, mountPoint)) continue;
        if (!holder || mountPoint.size() > holder->drive.mount.mountPoint.size())
            holder = volume.get();
    }
    return holder;
}

// What the kernel knows of a filesystem that answers from memory needs no helper.
Volumes::Known Volumes::knownStatus(const std::string& hostPath, struct statx& status) const {
    const UniqueFd place = openCached(hostPath);
    if (!place.isOpen())
        return errno == ENOENT || errno == ENOTDIR ? Known::isNotThere : Known::nothing;
    constexpr int flags = AT_EMPTY_PATH | AT_STATX_DONT_SYNC;
    constexpr unsigned wanted = STATX_BASIC_STATS | STATX_BTIME | STATX_MNT_ID;
    const bool isRead = statx(place.get(), "", flags, wanted, &status) == 0;
    return isRead && isFromMemory(status) ? Known::status : Known::nothing;
}

std::optional<struct statx> Volumes::statusOf(const std::string& hostPath) {
    Volume* holder = holderOf(hostPath);
    if (!holder) return std::nullopt;
    if (holder->drive.answersFromMemory && !holder->helper.isPending()) {
        struct statx status {};
        const Known known = knownStatus(hostPath, status);
        if (known == Known::status) return status;
        if (known == Known::isNotThere) return std::nullopt;
    }
    const auto reply = holder->helper.ask(HelperQuestion::status, hostPath);
    if (!reply || reply->error != 0) return std::nullopt;
    return reply->status;
}

FileKind Volumes::kindOf(const std::string& hostPath) {
    const auto status = statusOf(hostPath);
    return status ? linuxhost::kindOf(*status) : FileKind::none;
}

UniqueFd Volumes::openKnown(const std::string& hostPath) {
    const Volume* holder = holderOf(hostPath);
    if (!holder || holder->helper.isPending()) return {};
    return memory_.open(hostPath);
}

UniqueFd Volumes::openWithoutLinks(const std::string& hostPath) {
    const Volume* holder = holderOf(hostPath);
    if (!holder || holder->helper.isPending()) return {};
    UniqueFd place = openCachedWithoutLinks(hostPath);
    return isInMemory(place) ? std::move(place) : UniqueFd();
}

std::optional<EntryCounts> Volumes::entriesOf(const std::string& hostPath, const UniqueFd& known) {
    if (known.isOpen()) {
        if (const auto counts = memory_.countsOf(hostPath, known.get())) return counts;
    }
    Volume* holder = holderOf(hostPath);
    if (!holder) return std::nullopt;
    const auto asked = memory_.moment();
    const auto reply = holder->helper.ask(HelperQuestion::entries, hostPath);
    if (!reply || reply->error != 0) return std::nullopt;
    memory_.keep(hostPath, reply->counted, asked);
    return reply->counted.counts;
}

bool Volumes::isInMemory(const UniqueFd& place) const {
    struct statx status {};
    constexpr int flags = AT_EMPTY_PATH | AT_STATX_DONT_SYNC;
    return place.isOpen() && statx(place.get(), "", flags, STATX_MNT_ID, &status) == 0 &&
           isFromMemory(status);
}

bool Volumes::isFromMemory(const struct statx& status) const {
    return (status.stx_mask & STATX_MNT_ID) != 0 && memoryMounts_.count(status.stx_mnt_id) > 0;
}

// The way to a folder that the kernel doesn't know may still wait for its disk. So that drive is
// asked for it first, with its deadline; the kernel knows the way then.
UniqueFd Volumes::openQuick(const std::string& hostPath) {
    Volume* holder = holderOf(hostPath);
    if (!holder || holder->helper.isPending()) return {};
    UniqueFd place = openCached(hostPath, O_DIRECTORY);
    if (!place.isOpen() && holder->drive.answersFromMemory &&
        holder->helper.ask(HelperQuestion::status, hostPath))
        place = openCached(hostPath, O_DIRECTORY);
    return isInMemory(place) ? std::move(place) : UniqueFd();
}

bool Volumes::readListing(ListingQuestion& question, ListingBlock& block) {
    Volume* holder = holderOf(question.path);
    return holder && holder->helper.readListing(question, block);
}

void Volumes::endListing(const ListingQuestion& question) {
    if (Volume* holder = knownHolderOf(question.path)) holder->helper.endListing(question);
}

std::vector<pid_t> Volumes::helpers() const {
    std::vector<pid_t> processes;
    for (const auto& volume : volumes_) {
        if (volume->helper.id() > 0) processes.push_back(volume->helper.id());
    }
    return processes;
}

}  // namespace velmora::linuxhost
