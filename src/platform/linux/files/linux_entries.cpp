#include "platform/linux/files/linux_entries.h"

#include <sys/stat.h>

#include <optional>
#include <utility>

#include "base/runtime_error.h"
#include "platform/linux/entries/tree_walk.h"
#include "platform/linux/removal/folder_removal.h"
#include "platform/linux/system/linux_clock.h"
#include "platform/linux/system/system_errors.h"

namespace velmora::linuxhost {

namespace {

DateTime localTime(const struct statx_timestamp& time) {
    return LinuxClock::localTime(static_cast<time_t>(time.tv_sec));
}

// Asked once, and not before the first question.
class Status {
  public:
    Status(Volumes& volumes, std::string hostPath, FileKind kind)
        : volumes_(volumes), hostPath_(std::move(hostPath)), kind_(kind) {}

    const std::string& hostPath() const { return hostPath_; }
    /// Raises what a path without such an entry raises.
    const struct statx& get() {
        if (!status_) status_ = read();
        return *status_;
    }

    DateTime accessed() { return localTime(get().stx_atime); }
    DateTime modified() { return localTime(get().stx_mtime); }
    DateTime created() {
        const bool hasBirth = (get().stx_mask & STATX_BTIME) != 0;
        return localTime(hasBirth ? get().stx_btime : get().stx_mtime);
    }

  private:
    struct statx read() {
        const auto status = volumes_.statusOf(hostPath_);
        if (!status || kindOf(*status) != kind_)
            throw RuntimeError(kind_ == FileKind::file ? error::fileNotFound : error::pathNotFound);
        return *status;
    }

    Volumes& volumes_;
    std::string hostPath_;
    FileKind kind_;
    std::optional<struct statx> status_;
};

template <typename Kind, FileKind kind>
class LinuxEntry : public Kind {
  public:
    LinuxEntry(Volumes& volumes, std::string path, std::string hostPath)
        : volumes_(volumes), path_(std::move(path)), status_(volumes, std::move(hostPath), kind) {}

    std::string Path() const override { return path_; }
    DateTime DateLastAccessed() override { return status_.accessed(); }
    DateTime DateLastModified() override { return status_.modified(); }
    DateTime DateCreated() override { return status_.created(); }

  protected:
    Volumes& volumes_;
    std::string path_;
    Status status_;
};

class LinuxFile final : public LinuxEntry<File, FileKind::file> {
  public:
    using LinuxEntry::LinuxEntry;

    double Size() override { return static_cast<double>(status_.get().stx_size); }
    std::string Type() override {
        status_.get();
        return typeOfName(fileNameOf(path_));
    }
};

class LinuxFolder final : public LinuxEntry<Folder, FileKind::folder> {
  public:
    LinuxFolder(Volumes& volumes, std::string path, std::string hostPath, UniqueFd known)
        : LinuxEntry(volumes, std::move(path), std::move(hostPath)), known_(std::move(known)) {}

    double FilesCount() override { return static_cast<double>(counts().files); }
    double SubFoldersCount() override { return static_cast<double>(counts().folders); }
    double Size() override {
        if (!size_) size_ = readSize();
        return *size_;
    }
    std::string Type() override {
        status_.get();
        return "File Folder";
    }
    void Delete(bool force) override {
        const int failure = removeFolder(volumes_, status_.hostPath(), force);
        if (failure != 0) throw RuntimeError(errorOfEntry(failure));
    }

  private:
    const EntryCounts& counts() {
        if (!counts_) counts_ = volumes_.entriesOf(status_.hostPath(), std::exchange(known_, {}));
        if (!counts_) throw RuntimeError(error::pathNotFound);
        return *counts_;
    }
    double readSize() {
        status_.get();
        // The path of the folder itself may end in a link, as with all other properties.
        const OpenFolder folder(status_.hostPath() + "/.");
        double size = 0;
        const auto add = [&](const struct statx& each) {
            if (S_ISREG(each.stx_mode)) size += static_cast<double>(each.stx_size);
            return true;
        };
        const int failure =
            folder.isOpen() ? walkTree(folder, add, Visited::files) : folder.failure();
        if (failure != 0) throw RuntimeError(errorOfEntry(failure));
        return size;
    }

    UniqueFd known_;  // until the first count
    std::optional<EntryCounts> counts_;
    std::optional<double> size_;
};

}  // namespace

std::unique_ptr<File> makeFile(Volumes& volumes, std::string path, std::string hostPath) {
    return std::make_unique<LinuxFile>(volumes, std::move(path), std::move(hostPath));
}

std::unique_ptr<Folder> makeFolder(Volumes& volumes, std::string path, std::string hostPath,
                                   UniqueFd known) {
    return std::make_unique<LinuxFolder>(volumes, std::move(path), std::move(hostPath),
                                         std::move(known));
}

std::string typeOfName(const std::string& name) {
    const auto point = name.rfind('.');
    if (point == std::string::npos || point + 1 == name.size()) return "File";
    std::string extension = name.substr(point + 1);
    for (char& c : extension) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c & ~0x20);
    }
    return extension + " File";
}

}  // namespace velmora::linuxhost
