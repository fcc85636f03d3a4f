// Files and folders of the machine in memory: their facts, listings, moving.
#include <algorithm>

#include "base/runtime_error.h"
#include "fake/fake_parts.h"

namespace velmora::fake {

namespace {

constexpr std::uint32_t pathNotFoundCode = 3;
constexpr std::uint32_t alreadyExistsCode = 183;

std::uint64_t fileTime(const DateTime& time) {
    const std::int64_t seconds = toSeconds(time) - toSeconds({1601, 1, 1, 0, 0, 0});
    return static_cast<std::uint64_t>(seconds) * 10'000'000;
}

DateTime dateTime(std::uint64_t time) {
    return fromSeconds(static_cast<std::int64_t>(time / 10'000'000) +
                       toSeconds({1601, 1, 1, 0, 0, 0}));
}

std::string fullPath(std::string path) {
    std::replace(path.begin(), path.end(), '/', '\\');
    while (path.size() > 3 && path.back() == '\\') path.pop_back();
    return path.size() == 2 ? path + '\\' : path;
}

bool isIn(const std::string& path, const std::string& folder) {
    return keyOf(path).starts_with(keyOf(folder) + '\\');
}

bool isDirectlyIn(const std::string& path, const std::string& folder) {
    return isIn(path, folder) &&
           keyOf(path).find('\\', keyOf(folder).size() + 1) == std::string::npos;
}

}  // namespace

template <typename Kind>
class FakeEntry : public Kind {
  public:
    FakeEntry(FakeMachine& machine, std::string path, std::function<void(const char*)> asked,
              std::function<FakeTimes()> times)
        : machine_(machine),
          path_(std::move(path)),
          asked_(std::move(asked)),
          times_(std::move(times)) {}

    std::string Path() const override { return path_; }
    DateTime DateLastAccessed() override {
        asked_("DateLastAccessed");
        return dateTime(times_().accessed);
    }
    DateTime DateLastModified() override {
        asked_("DateLastModified");
        return dateTime(times_().written);
    }
    DateTime DateCreated() override {
        asked_("DateCreated");
        return dateTime(times_().created);
    }

  protected:
    FakeMachine& machine_;
    std::string path_;
    std::function<void(const char*)> asked_;

  private:
    std::function<FakeTimes()> times_;
};

class FakeMachine::Disks::FileReading final : public FakeEntry<File> {
  public:
    FileReading(Disks& disks, const std::string& path)
        : FakeEntry(
              disks.machine, path,
              [&disks, path](const char* what) {
                  disks.machine.record(std::string(what) + " " + path);
              },
              [&disks, path] { return disks.timesOf(path); }),
          disks_(disks) {}

    double Size() override {
        asked_("Size");
        return disks_.sizeOf(path_);
    }
    std::string Type() override {
        asked_("Type");
        const std::string name = fileNameOf(path_);
        const auto dot = name.rfind('.');
        return dot == std::string::npos ? "File" : upperCase(name.substr(dot + 1)) + " File";
    }

  private:
    static std::string upperCase(std::string text) {
        for (char& c : text) {
            if (c >= 'a' && c <= 'z') c = static_cast<char>(c & ~0x20);
        }
        return text;
    }

    Disks& disks_;
};

class FakeMachine::Disks::FolderReading final : public FakeEntry<Folder> {
  public:
    FolderReading(Disks& disks, const std::string& path)
        : FakeEntry(
              disks.machine, path,
              [&disks, path](const char* what) {
                  disks.machine.record(std::string(what) + " " + path);
              },
              [&disks, path] { return disks.timesOf(path); }),
          disks_(disks) {}

    double Size() override {
        asked_("Size");
        requireFolder();
        double size = 0;
        for (const auto& [file, content] : machine_.files) {
            if (isIn(file, path_)) size += disks_.sizeOf(file);
        }
        return size;
    }
    std::string Type() override {
        asked_("Type");
        return "File Folder";
    }
    double FilesCount() override {
        asked_("FilesCount");
        return counts().first;
    }
    double SubFoldersCount() override {
        asked_("SubFoldersCount");
        return counts().second;
    }
    void Delete(bool force) override {
        asked_(force ? "Delete force" : "Delete");
        requireFolder();
        disks_.removeTree(path_, force);
    }

  private:
    void requireFolder() {
        if (!disks_.hasFolder(path_)) throw RuntimeError(error::pathNotFound);
    }
    const std::pair<double, double>& counts() {
        if (counts_) return *counts_;
        requireFolder();
        counts_.emplace();
        for (const auto& [file, content] : machine_.files) {
            if (isDirectlyIn(file, path_)) ++counts_->first;
        }
        for (const std::string& folder : machine_.folders) {
            if (isDirectlyIn(folder, path_)) ++counts_->second;
        }
        return *counts_;
    }

    Disks& disks_;
    std::optional<std::pair<double, double>> counts_;
};

std::unique_ptr<Folder> FakeMachine::Disks::GetFolder(const std::string& path) {
    machine.record("GetFolder " + path);
    if (!hasFolder(path)) throw RuntimeError(error::pathNotFound);
    return std::make_unique<FolderReading>(*this, fullPath(path));
}

std::unique_ptr<File> FakeMachine::Disks::GetFile(const std::string& path) {
    machine.record("GetFile " + path);
    if (!showsFilesOf(path) || findPath(machine.files, path) == machine.files.end())
        throw RuntimeError(error::fileNotFound);
    return std::make_unique<FileReading>(*this, fullPath(path));
}

double FakeMachine::Disks::sizeOf(const std::string& file) {
    const auto size = findPath(machine.sizes, file);
    if (size != machine.sizes.end()) return size->second;
    const auto found = findPath(machine.files, file);
    if (found == machine.files.end()) throw RuntimeError(error::fileNotFound);
    return static_cast<double>(found->second.size());
}

FakeTimes FakeMachine::Disks::timesOf(const std::string& path) {
    const auto found = findPath(machine.times, path);
    if (found != machine.times.end()) return found->second;
    const std::uint64_t start = fileTime(DateTime{2026, 3, 14, 15, 9, 26});
    return {start, start, start};
}

void FakeMachine::Disks::removeTree(const std::string& folder, bool force) {
    for (const auto& [file, error] : machine.lockedFiles) {
        if (isIn(file, folder)) throw RuntimeError(error::permissionDenied);
    }
    for (const std::string& file : machine.readOnly) {
        if (!force && isIn(file, folder)) throw RuntimeError(error::permissionDenied);
    }
    std::erase_if(machine.files, [&](const auto& file) { return isIn(file.first, folder); });
    std::erase_if(machine.folders, [&](const std::string& each) {
        return keyOf(each) == keyOf(folder) || isIn(each, folder);
    });
}

std::vector<FindData> FakeMachine::Disks::entriesIn(const std::string& folder) {
    const auto listing = findPath(machine.listings, folder);
    if (listing != machine.listings.end()) return listing->second;
    std::vector<FindData> entries;
    const auto add = [&](const std::string& name, const std::string& path, bool isFolder) {
        const FakeTimes times = timesOf(path);
        entries.push_back({.dwFileAttributes = isFolder ? file_attribute::directory : 32,
                           .ftCreationTime = times.created,
                           .ftLastAccessTime = times.accessed,
                           .ftLastWriteTime = times.written,
                           .nFileSize = isFolder ? 0 : static_cast<std::uint64_t>(sizeOf(path)),
                           .cFileName = name});
    };
    if (keyOf(folder).size() > 2) {
        add(".", folder, true);
        add("..", parentFolderOf(folder), true);
    }
    for (const std::string& each : machine.folders) {
        if (isDirectlyIn(each, folder)) add(fileNameOf(each), each, true);
    }
    for (const auto& [file, content] : machine.files) {
        if (isDirectlyIn(file, folder)) add(fileNameOf(file), file, false);
    }
    return entries;
}

FindHandle FakeMachine::Disks::FindFirstFileA(const std::string& pattern, FindData& entry) {
    lastError = static_cast<std::uint32_t>(machine.recordCode("FindFirstFileA " + pattern));
    if (lastError != 0) return 0;
    lastError = pathNotFoundCode;
    const std::string ending = "\\*.*";
    if (!pattern.ends_with(ending)) return 0;
    const std::string folder = pattern.substr(0, pattern.size() - ending.size());
    if (!hasFolder(folder)) return 0;
    const std::vector<FindData> entries = entriesIn(folder);
    if (entries.empty()) return 0;
    entry = entries.front();
    lastError = 0;
    ++machine.openListings;
    listings[++lastListing].assign(entries.begin() + 1, entries.end());
    return lastListing;
}

bool FakeMachine::Disks::FindNextFileA(FindHandle listing, FindData& entry) {
    lastError = static_cast<std::uint32_t>(machine.recordCode("FindNextFileA"));
    if (lastError != 0) return false;
    std::deque<FindData>& rest = listings.at(listing);
    lastError = noMoreFiles;
    if (rest.empty()) return false;
    entry = rest.front();
    rest.pop_front();
    lastError = 0;
    return true;
}

void FakeMachine::Disks::FindClose(FindHandle listing) {
    if (listings.erase(listing) > 0) --machine.openListings;
    machine.recordCode("FindClose");
}

std::int32_t FakeMachine::Disks::MoveFileA(const std::string& from, const std::string& to) {
    lastError = static_cast<std::uint32_t>(machine.recordCode("MoveFileA " + from + " > " + to));
    if (lastError != 0) return 0;
    const auto file = findPath(machine.files, from);
    lastError = 2;
    if (file == machine.files.end()) return 0;
    lastError = alreadyExistsCode;
    if (hasFolder(to) || findPath(machine.files, to) != machine.files.end()) return 0;
    const auto end = to.find_last_of('\\');
    lastError = pathNotFoundCode;
    if (end == std::string::npos || !hasFolder(to.substr(0, end))) return 0;
    lastError = 5;
    if (findPath(machine.lockedFiles, from) != machine.lockedFiles.end()) return 0;
    lastError = 112;
    if (machine.diskFull) return 0;
    lastError = 0;
    std::string content = std::move(file->second);
    machine.moved.emplace_back(file->first, to);
    if (const auto size = findPath(machine.sizes, from); size != machine.sizes.end()) {
        const double bytes = size->second;
        machine.sizes.erase(size);
        machine.sizes[to] = bytes;
    }
    machine.files.erase(file);
    machine.files[to] = std::move(content);
    return 1;
}

std::uint32_t FakeMachine::Disks::WaitForSingleObject(std::uint32_t handle,
                                                      std::uint32_t milliseconds) {
    constexpr std::uint32_t timeOut = 258;
    const std::string call =
        "WaitForSingleObject " + std::to_string(handle) + ' ' + std::to_string(milliseconds);
    if (machine.recordCode(call) != 0) return waitFailed;
    const auto found = machine.notifications.find(handle);
    if (found == machine.notifications.end()) return waitFailed;
    return found->second > 0 ? waitObject0 : timeOut;
}

bool FakeMachine::Disks::FindNextChangeNotification(std::uint32_t handle) {
    if (machine.recordCode("FindNextChangeNotification " + std::to_string(handle)) != 0)
        return false;
    const auto found = machine.notifications.find(handle);
    if (found == machine.notifications.end()) return false;
    if (found->second > 0) --found->second;
    return true;
}

bool FakeMachine::Disks::FindCloseChangeNotification(std::uint32_t handle) {
    if (machine.recordCode("FindCloseChangeNotification " + std::to_string(handle)) != 0)
        return false;
    return machine.notifications.erase(handle) > 0;
}

std::int32_t FakeMachine::Desktop::SHFileOperationA(const FileOperation& operation) {
    const std::int32_t code =
        machine.recordCode("SHFileOperationA " + std::to_string(operation.wFunc) + ' ' +
                           std::to_string(operation.fFlags) + ' ' +
                           operation.pFrom.substr(0, operation.pFrom.find('\0')));
    if (code != 0) return code;
    machine.operations.push_back(operation);
    if (machine.operationResult != 0) return machine.operationResult;
    const std::string path = operation.pFrom.substr(0, operation.pFrom.find('\0'));
    const auto file = findPath(machine.files, path);
    if (file == machine.files.end()) return 2;
    machine.recycled.push_back(file->first);
    machine.files.erase(file);
    return 0;
}

void FakeMachine::Desktop::Shell(const std::string& commandLine, std::int32_t windowState) {
    machine.record("Shell " + commandLine + " | " + std::to_string(windowState));
    if (machine.startError != 0) throw RuntimeError(machine.startError);
    machine.started.push_back(commandLine);
}

std::int16_t FakeMachine::Desktop::sndPlaySoundA(const std::string& file, std::int32_t flags) {
    if (machine.recordCode("sndPlaySoundA " + file + ' ' + std::to_string(flags)) != 0) return 0;
    machine.played.emplace_back(file, flags);
    return machine.playResult;
}

}  // namespace velmora::fake
