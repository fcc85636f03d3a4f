#include "platform/linux/drives/volumes.h"

#include <sys/stat.h>

#include <algorithm>

#include "base/text.h"
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

Volumes::Volumes(std::chrono::milliseconds deadline) : deadline_(deadline) {
    reload();
}

Volumes::~Volumes() = default;

void Volumes::update() {
    if (watch_.hasChanged()) reload();
}

void Volumes::reload() {
    const auto mounts = driveMounts(parseMountTable(watch_.read()), isFolder);
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
    Volume* holder = nullptr;
    for (const auto& volume : volumes_) {
        const std::string& mountPoint = volume->drive.mount.mountPoint;
        if (!volume->isMounted || !isWithin(hostPath, mountPoint)) continue;
        if (!holder || mountPoint.size() > holder->drive.mount.mountPoint.size())
            holder = volume.get();
    }
    return holder;
}

std::optional<struct statx> Volumes::statusOf(const std::string& hostPath) {
    Volume* holder = holderOf(hostPath);
    if (!holder) return std::nullopt;
    const auto reply = holder->helper.ask(HelperQuestion::status, hostPath);
    if (!reply || reply->error != 0) return std::nullopt;
    return reply->status;
}

FileKind Volumes::kindOf(const std::string& hostPath) {
    const auto status = statusOf(hostPath);
    return status ? linuxhost::kindOf(*status) : FileKind::none;
}

std::optional<EntryCounts> Volumes::entriesOf(const std::string& hostPath) {
    Volume* holder = holderOf(hostPath);
    if (!holder) return std::nullopt;
    const auto reply = holder->helper.ask(HelperQuestion::entries, hostPath);
    if (!reply || reply->error != 0) return std::nullopt;
    return reply->entries;
}

bool Volumes::beginsListing(const std::string& hostPath) {
    Volume* holder = holderOf(hostPath);
    return holder && holder->helper.ask(HelperQuestion::listing, hostPath).has_value();
}

bool Volumes::answersFromMemory(const std::string& hostPath) {
    const Volume* holder = holderOf(hostPath);
    return holder && holder->drive.answersFromMemory;
}

std::vector<pid_t> Volumes::helpers() const {
    std::vector<pid_t> processes;
    for (const auto& volume : volumes_) {
        if (volume->helper.id() > 0) processes.push_back(volume->helper.id());
    }
    return processes;
}

}  // namespace velmora::linuxhost
