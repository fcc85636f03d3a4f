#include "fake/fake_machine.h"

#include <algorithm>

#include "base/runtime_error.h"
#include "fake/fake_parts.h"

namespace velmora::fake {

namespace {

std::string programFolder() {
    return "C:\\Program Files\\Velmora";
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

// One reading: measured at the first question.
class FakeMachine::Disks::Reading final : public Drive {
  public:
    Reading(Disks& disks, std::string path) : disks_(disks), path_(std::move(path)) {}

    bool IsReady() override {
        try {
            disks_.machine.record("IsReady " + path_);
        } catch (const RuntimeError&) {
            drive_ = FakeDrive{.ready = false};
        }
        return measured().ready;
    }
    std::string Path() const override { return path_; }
    double FreeSpace() override {
        disks_.machine.record("FreeSpace " + path_);
        return readyDrive().freeBytes;
    }
    double TotalSize() override {
        disks_.machine.record("TotalSize " + path_);
        return readyDrive().totalBytes;
    }

  private:
    const FakeDrive& measured() {
        if (!drive_) drive_ = disks_.measure(path_).value_or(FakeDrive{.ready = false});
        return *drive_;
    }
    const FakeDrive& readyDrive() {
        if (!measured().ready) throw RuntimeError(error::diskNotReady);
        return *drive_;
    }

    Disks& disks_;
    std::string path_;
    std::optional<FakeDrive> drive_;
};

bool FakeMachine::Disks::DriveExists(const std::string& designator) {
    machine.record("DriveExists " + designator);
    return findPath(machine.drives, driveOfDesignator(designator)) != machine.drives.end();
}

bool FakeMachine::Disks::FolderExists(const std::string& path) {
    machine.record("FolderExists " + path);
    return hasFolder(path);
}

bool FakeMachine::Disks::FileExists(const std::string& path) {
    machine.record("FileExists " + path);
    return showsFilesOf(path) && findPath(machine.files, path) != machine.files.end();
}

std::unique_ptr<Drive> FakeMachine::Disks::GetDrive(const std::string& designator) {
    machine.record("GetDrive " + designator);
    return std::make_unique<Reading>(*this, requiredDrive(designator));
}

std::uint32_t FakeMachine::Disks::GetLogicalDriveStringsA(std::uint32_t length,
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

std::string FakeMachine::Disks::GetEnvironmentVariableA(const std::string& name) {
    if (machine.recordCode("GetEnvironmentVariableA " + name) != 0) return {};
    const auto variable = machine.environment.find(name);
    return variable == machine.environment.end() ? "" : variable->second;
}

void FakeMachine::Disks::GlobalMemoryStatus(MemoryStatus& status) {
    machine.record("GlobalMemoryStatus " + std::to_string(status.dwLength));
    if (status.dwLength != memory_status::recordLength) return;
    status = machine.memory;
    status.dwLength = memory_status::recordLength;
}

std::int32_t FakeMachine::Disks::GetVersionExA(OsVersionInfo& version) {
    machine.record("GetVersionExA " + std::to_string(version.dwOSVersionInfoSize));
    if (version.dwOSVersionInfoSize != os_version::recordLength) return 0;
    version = machine.version;
    version.dwOSVersionInfoSize = os_version::recordLength;
    return 1;
}

// The fake clock knows no time zones: its local time is UTC.
std::uint64_t FakeMachine::Disks::GetSystemTimeAsFileTime() {
    const std::int64_t seconds = toSeconds(machine.now) - toSeconds({1601, 1, 1, 0, 0, 0});
    return static_cast<std::uint64_t>(seconds * 1000 + machine.tick % 1000) * 10'000;
}

std::optional<FakeDrive> FakeMachine::Disks::measure(const std::string& path) {
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

// A path on a drive that the test hasn't set up stays as it is.
bool FakeMachine::Disks::showsFilesOf(const std::string& path) {
    const std::string drive = driveNameOf(path);
    if (findPath(machine.drives, drive) == machine.drives.end()) return true;
    const auto measured = measure(drive);
    return measured && measured->ready;
}

bool FakeMachine::Disks::hasFolder(const std::string& path) {
    if (!showsFilesOf(path)) return false;
    const std::string key = keyOf(path);
    return machine.folders.count(key) > 0 || findPath(machine.drives, key) != machine.drives.end();
}

FakeMachine::FakeMachine()
    : disks_(std::make_unique<Disks>(*this)),
      desktop_(std::make_unique<Desktop>(*this)),
      platform_{.fso = *disks_,
                .kernel32 = *disks_,
                .clock = *disks_,
                .files = *disks_,
                .advapi32 = *desktop_,
                .shell32 = *desktop_,
                .winmm = *desktop_,
                .wscriptShell = *desktop_,
                .winsock = winsock,
                .internet = internet,
                .rasapi32 = rasapi32,
                .smtpClient = smtpClient,
                .processes = processes,
                .wmi = wmi,
                .rawVolumes = rawVolumes,
                .userState = userState,
                .otherStarts = otherStarts,
                .regional = {},
                .app = {.Path = programFolder(),
                        .EXEName = "velmora",
                        .Command = "",
                        .DataPath = programFolder(),
                        .FolderKey = programFolder()}} {
    folders = {keyOf(programFolder()), keyOf(specialFolders[9]), keyOf(windowsFolder)};
    runKey();
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

std::int32_t FakeMachine::recordCode(const std::string& call) {
    try {
        record(call);
        return 0;
    } catch (const RuntimeError& planned) {
        return planned.number();
    }
}

}  // namespace velmora::fake
