#include "monitor/pass_drives.h"

#include <cstddef>

#include "base/text.h"

namespace velmora {

namespace {

// Milliseconds that a reading serves: others write to the drives too.
constexpr std::int64_t longest = 50;

}  // namespace

std::shared_ptr<Drive> PassDrives::of(std::string_view path) {
    path = trimmed(path);
    const std::string_view name = driveNameIn(path);
    if (name.empty()) return get(path);
    Known& known = knownAs(name);
    const std::int64_t tick = clock_.GetTickCount();
    if (known.drive && known.pass == pass_ && tick - known.tick < longest) return known.drive;
    if (!known.drive || !known.drive->renew()) known.drive = get(path);
    known.pass = pass_;
    known.tick = tick;
    return known.drive;
}

PassDrives::Known& PassDrives::knownAs(std::string_view name) {
    if (name.size() == 2) return byLetter_[static_cast<std::size_t>((name[0] | 0x20) - 'a')];
    const auto found = shares_.find(name);
    return found != shares_.end() ? found->second : shares_[std::string(name)];
}

std::shared_ptr<Drive> PassDrives::get(std::string_view path) {
    return fso_.GetDrive(fso_.GetDriveName(std::string(path)));
}

}  // namespace velmora
