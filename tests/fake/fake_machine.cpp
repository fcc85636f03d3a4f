#include "fake/fake_machine.h"

#include <algorithm>

#include "base/runtime_error.h"
#include "base/text.h"

namespace velmora::fake {

namespace {

std::string programFolder() {
    return "C:\\Program Files\\Velmora";
}

// The form in which paths are compared: lower case, no back-slash behind.
std::string keyOf(const std::string& path) {
    std::string key = lowerCase(path);
    std::replace(key.begin(), key.end(), '/', '\\');
    while (key.size() > 1 && key.back() == '\\') key.pop_back();
    return key;
}

template <typename Map>
auto findPath(Map& map, const std::string& path) {
    const std::string key = keyOf(path);
    return std::find_if(map.begin(), map.end(),
                        [&key](const auto& entry) { return keyOf(entry.first) == key; });
}

class FakeFolder final : public Folder {
  public:
    explicit FakeFolder(std::string path) : path_(std::move(path)) {}
    std::string Path() const override { return path_; }

  private:
    std::string path_;
};

std::string fullPath(std::string path) {
    std::replace(path.begin(), path.end(), '/', '\\');
    while (path.size() > 3 && path.back() == '\\') path.pop_back();
    return path.size() == 2 ? path + '\\' : path;
}

}  // namespace

void CallLog::call(std::string what) {
    calls_.push_back(std::move(what));
    if (!failAt_ || --*failAt_ > 0) return;
    failAt_.reset();
    throw RuntimeError(failWith_);
}

int CallLog::countOf(const std::string& prefix) const {
    return static_cast<int>(
        std::count_if(calls_.begin(), calls_.end(), [&prefix](const std::string& call) {
            return call.compare(0, prefix.size(), prefix) == 0;
        }));
}

void CallLog::failCall(int n, int number) {
    failAt_ = n;
    failWith_ = number;
}

struct FakeMachine::Parts final : FileSystemObject, Kernel32, Clock, TextFiles {
    class Reading;

    explicit Parts(FakeMachine& owner) : machine(owner) {}

    std::string GetDriveName(const std::string& path) override {
        machine.record("GetDriveName " + path);
        return driveNameOf(path);
    }
    std::unique_ptr<Drive> GetDrive(const std::string& specification) override;
    bool DriveExists(const std::string& specification) override {
        machine.record("DriveExists " + specification);
        return findPath(machine.drives, driveOfSpecification(specification)) !=
               machine.drives.end();
    }
    bool FolderExists(const std::string& path) override {
        machine.record("FolderExists " + path);
        return hasFolder(path);
    }
    bool FileExists(const std::string& path) override {
        machine.record("FileExists " + path);
        return showsFilesOf(path) && findPath(machine.files, path) != machine.files.end();
    }
    std::unique_ptr<Folder> GetFolder(const std::string& path) override {
        machine.record("GetFolder " + path);
        if (!hasFolder(path)) throw RuntimeError(error::pathNotFound);
        return std::make_unique<FakeFolder>(fullPath(path));
    }

    std::uint32_t GetLogicalDriveStringsA(std::uint32_t length, std::string& buffer) override;

    DateTime Now() override { return machine.now; }
    std::int64_t GetTickCount() override { return machine.tick; }

    void appendLine(const std::string& path, std::string_view text) override;

    /// What the drive answers now: nothing when it isn't there or doesn't answer.
    std::optional<FakeDrive> measure(const std::string& path);
    bool hasFolder(const std::string& path);
    bool showsFilesOf(const std::string& path);

    FakeMachine& machine;
    std::set<std::string> pending;  // drives with a question that hasn't returned
};

// One reading: measured at the first question.
class FakeMachine::Parts::Reading final : public Drive {
  public:
    Reading(Parts& parts, std::string path) : parts_(parts), path_(std::move(path)) {}

    bool IsReady() override {
        try {
            parts_.machine.record("IsReady " + path_);
        } catch (const RuntimeError&) {
            drive_ = FakeDrive{.ready = false};
        }
        return measured().ready;
    }
    std::string Path() const override { return path_; }
    double FreeSpace() override {
        parts_.machine.record("FreeSpace " + path_);
        return readyDrive().freeBytes;
    }
    double TotalSize() override {
        parts_.machine.record("TotalSize " + path_);
        return readyDrive().totalBytes;
    }

  private:
    const FakeDrive& measured() {
        if (!drive_) drive_ = parts_.measure(path_).value_or(FakeDrive{.ready = false});
        return *drive_;
    }
    const FakeDrive& readyDrive() {
        if (!measured().ready) throw RuntimeError(error::diskNotReady);
        return *drive_;
    }

    Parts& parts_;
    std::string path_;
    std::optional<FakeDrive> drive_;
};

std::unique_ptr<Drive> FakeMachine::Parts::GetDrive(const std::string& specification) {
    machine.record("GetDrive " + specification);
    std::string path = driveOfSpecification(specification);
    if (path.empty()) throw RuntimeError(error::invalidCall);
    return std::make_unique<Reading>(*this, std::move(path));
}

std::uint32_t FakeMachine::Parts::GetLogicalDriveStringsA(std::uint32_t length,
                                                          std::string& buffer) {
    machine.record("GetLogicalDriveStringsA " + std::to_string(length));
    std::string roots;
    for (const auto& [path, drive] : machine.drives) {
        if (path.size() == 2 && path[1] == ':') roots += path + '\\' + '\0';
    }
    const auto used = static_cast<std::uint32_t>(roots.size());
    if (used >= length) return used + 1;
    roots += '\0';
    buffer.replace(0, roots.size(), roots);
    return used;
}

void FakeMachine::Parts::appendLine(const std::string& path, std::string_view text) {
    machine.record("appendLine " + path);
    if (auto locked = findPath(machine.lockedFiles, path); locked != machine.lockedFiles.end())
        throw RuntimeError(locked->second);
    const auto end = path.find_last_of("\\/");
    if (end == std::string::npos || !hasFolder(path.substr(0, end)))
        throw RuntimeError(error::pathNotFound);
    if (hasFolder(path)) throw RuntimeError(error::pathFileAccess);
    auto file = findPath(machine.files, path);
    if (file == machine.files.end()) file = machine.files.emplace(path, "").first;
    file->second.append(text).append(lineEnd);
}

std::optional<FakeDrive> FakeMachine::Parts::measure(const std::string& path) {
    const auto drive = findPath(machine.drives, path);
    const std::string key = keyOf(path);
    if (drive == machine.drives.end()) {
        pending.erase(key);
        return std::nullopt;
    }
    if (!drive->second.hangs) {
        pending.erase(key);
        return drive->second;
    }
    if (pending.insert(key).second) machine.advance(driveDeadline.count());
    return std::nullopt;
}

// A path on a drive that the test hasn't set up is taken as it stands.
bool FakeMachine::Parts::showsFilesOf(const std::string& path) {
    const std::string drive = driveNameOf(path);
    if (findPath(machine.drives, drive) == machine.drives.end()) return true;
    const auto measured = measure(drive);
    return measured && measured->ready;
}

bool FakeMachine::Parts::hasFolder(const std::string& path) {
    if (!showsFilesOf(path)) return false;
    const std::string key = keyOf(path);
    return machine.folders.count(key) > 0 || findPath(machine.drives, key) != machine.drives.end();
}

FakeMachine::FakeMachine()
    : parts_(std::make_unique<Parts>(*this)), platform_{*parts_,    *parts_,
                                                        *parts_,    *parts_,
                                                        Regional{}, {programFolder(), "velmora"}} {
    folders.insert(keyOf(programFolder()));
}

FakeMachine::~FakeMachine() = default;

void FakeMachine::advance(std::int64_t milliseconds) {
    // Fractions of a second stay in the tick count, so that many small steps add up.
    const std::int64_t seconds = (tick + milliseconds) / 1000 - tick / 1000;
    tick += milliseconds;
    now = fromSeconds(toSeconds(now) + seconds);
}

void FakeMachine::record(const std::string& call) {
    if (const auto act = onCall) act(call);
    log.call(call);
}

}  // namespace velmora::fake
