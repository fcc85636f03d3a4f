#include "platform/windows/volumes/windows_raw_volumes.h"

#include <algorithm>
#include <cctype>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "platform/windows/system/halves.h"
#include "platform/windows/system/quiet_errors.h"
#include "platform/windows/system/system_errors.h"
#include "platform/windows/system/utf16.h"

namespace velmora::windows {

namespace {

constexpr std::uint32_t noPosition = 0xFFFFFFFF;
constexpr DWORD noHandle = ERROR_INVALID_HANDLE;
constexpr std::string_view devicePrefix = R"(\\.\)";

struct Piece {
    DWORD error = ERROR_SUCCESS;
    std::string bytes;
};

struct Names {
    DWORD error = ERROR_SUCCESS;
    std::wstring label;
    std::wstring fileSystem;
};

struct Space {
    DWORD error = ERROR_SUCCESS;
    DiskFreeSpace clusters;
    SpaceInBytes bytes;
};

std::string inWords(const std::string& drive, DWORD error) {
    if (error != ERROR_ACCESS_DENIED) return textOf(error);
    return "the right to read " + drive + " is missing: start the program as administrator";
}

// "C:" of "\\.\C:". Any other path could be a file, a pipe or a whole disk.
std::string driveOfVolume(std::string_view path) {
    if (path.size() != devicePrefix.size() + 2 || !path.starts_with(devicePrefix)) return {};
    const std::string_view drive = path.substr(devicePrefix.size());
    const bool isLetter = std::isalpha(static_cast<unsigned char>(drive[0])) != 0;
    return isLetter && drive[1] == ':' ? std::string(drive) : std::string();
}

// The name by which the drive of a root is asked: "C:" or "\\host\share". Empty for what the system
// would read as something else.
std::string driveOfRoot(std::string_view root) {
    if (root.find('\0') != std::string_view::npos) return {};
    if (root.ends_with('\\')) root.remove_suffix(1);
    return std::string(root);
}

std::wstring rootOf(const std::string& drive) {
    return toUtf16(drive) + L'\\';
}

bool putInFront(std::string& buffer, const std::string& text) {
    if (text.size() >= buffer.size()) return false;
    buffer.replace(0, text.size() + 1, text + '\0');
    return true;
}

// As many whole characters as a buffer can take with a NUL behind them.
std::string cutFor(const std::string& buffer, const std::string& text) {
    std::size_t size = 0;
    while (size < text.size()) {
        const std::size_t next = size + characterSize(text, size);
        if (next >= buffer.size()) break;
        size = next;
    }
    return text.substr(0, size);
}

}  // namespace

// Closed with its last owner. A question that is pending is one of them, so a volume is never
// closed under a call.
struct WindowsRawVolumes::OpenVolume {
    OpenVolume(std::shared_ptr<VolumeCalls> system, std::string itsDrive, HANDLE opened)
        : calls(std::move(system)), drive(std::move(itsDrive)), handle(opened) {}
    ~OpenVolume() { calls->close(handle); }
    OpenVolume(const OpenVolume&) = delete;
    OpenVolume& operator=(const OpenVolume&) = delete;

    std::shared_ptr<VolumeCalls> calls;
    std::string drive;
    HANDLE handle;
    bool isGivenUp = false;  // a call that missed the deadline may still move the position
};

struct WindowsRawVolumes::Opening {
    DWORD error = ERROR_SUCCESS;
    std::shared_ptr<OpenVolume> volume;
};

WindowsRawVolumes::WindowsRawVolumes(std::shared_ptr<DriveQuestions> questions,
                                     std::shared_ptr<VolumeCalls> calls)
    : questions_(std::move(questions)), calls_(std::move(calls)) {}

WindowsRawVolumes::~WindowsRawVolumes() {
    while (!open_.empty()) CloseHandle(open_.begin()->first);
}

std::shared_ptr<WindowsRawVolumes::OpenVolume> WindowsRawVolumes::opened(
    VolumeHandle volume) const {
    const auto found = open_.find(volume);
    return found == open_.end() ? nullptr : found->second;
}

VolumeHandle WindowsRawVolumes::fail(const std::string& why) {
    failure_ = why;
    return raw_volume::invalid;
}

bool WindowsRawVolumes::succeeds(const std::string& drive, const DWORD* error) {
    failure_.clear();
    if (error == nullptr) failure_ = drive + " doesn't answer";
    if (error != nullptr && *error != ERROR_SUCCESS) failure_ = inWords(drive, *error);
    return failure_.empty();
}

// `question` takes the calls and gives an Answer. It may run when this object is long gone.
template <typename Answer, typename Question>
std::optional<Answer> WindowsRawVolumes::ask(const std::string& drive, Question question) {
    return questions_->ask<Answer>(drive, [calls = calls_, question = std::move(question)] {
        const QuietErrors quiet;
        return question(calls);
    });
}

VolumeHandle WindowsRawVolumes::CreateFileA(const std::string& path, std::uint32_t access,
                                            std::uint32_t share, std::uint32_t disposition) {
    if (access != raw_volume::genericRead || disposition != raw_volume::openExisting)
        return fail("a volume is opened for reading only");
    const std::string drive = driveOfVolume(path);
    if (drive.empty()) return fail("no volume: " + path);
    auto opening = ask<Opening>(drive, [=](const std::shared_ptr<VolumeCalls>& calls) {
        HANDLE handle = nullptr;
        const DWORD error = calls->open(toUtf16(path), share, handle);
        if (error != ERROR_SUCCESS) return Opening{error, nullptr};
        return Opening{error, std::make_shared<OpenVolume>(calls, drive, handle)};
    });
    if (!succeeds(drive, opening ? &opening->error : nullptr)) return raw_volume::invalid;
    open_[++last_] = std::move(opening->volume);
    return last_;
}

bool WindowsRawVolumes::ReadFile(VolumeHandle volume, std::string& buffer, std::uint32_t bytes,
                                 std::uint32_t& read) {
    const auto open = opened(volume);
    if (!open) return succeeds({}, &noHandle);
    if (open->isGivenUp) return succeeds(open->drive, nullptr);
    const auto wanted = static_cast<DWORD>(std::min<std::size_t>(bytes, buffer.size()));
    const auto piece = ask<Piece>(open->drive, [open, wanted](const auto& calls) {
        Piece content{.bytes = std::string(wanted, '\0')};
        DWORD size = 0;
        content.error = calls->read(open->handle, content.bytes.data(), wanted, size);
        content.bytes.resize(size);
        return content;
    });
    open->isGivenUp = !piece;
    if (!succeeds(open->drive, piece ? &piece->error : nullptr)) return false;
    buffer.replace(0, piece->bytes.size(), piece->bytes);
    read = static_cast<std::uint32_t>(piece->bytes.size());
    return true;
}

std::uint32_t WindowsRawVolumes::SetFilePointer(VolumeHandle volume, std::int32_t low,
                                                std::int32_t high, std::uint32_t method) {
    const auto open = opened(volume);
    if (!open || open->isGivenUp || method != raw_volume::fromStart) return noPosition;
    const std::uint64_t position = wholeOf(static_cast<DWORD>(high), static_cast<DWORD>(low));
    const auto error = ask<DWORD>(open->drive, [open, position](const auto& calls) {
        return calls->seek(open->handle, position);
    });
    open->isGivenUp = !error;
    return error == DWORD{ERROR_SUCCESS} ? static_cast<std::uint32_t>(low) : noPosition;
}

bool WindowsRawVolumes::CloseHandle(VolumeHandle volume) {
    auto found = open_.extract(volume);
    if (found.empty()) return false;
    const std::string drive = found.mapped()->drive;
    questions_->finish(drive, [open = std::move(found.mapped())]() mutable { open.reset(); });
    return true;
}

bool WindowsRawVolumes::GetVolumeInformationA(const std::string& root, std::string& volumeName,
                                              std::string& fileSystemName) {
    const std::string drive = driveOfRoot(root);
    if (drive.empty()) return false;
    const auto names = ask<Names>(drive, [drive](const auto& calls) {
        Names answer;
        answer.error = calls->information(rootOf(drive), answer.label, answer.fileSystem);
        return answer;
    });
    if (!names || names->error != ERROR_SUCCESS) return false;
    if (!putInFront(fileSystemName, toUtf8(names->fileSystem))) return false;
    putInFront(volumeName, cutFor(volumeName, toUtf8(names->label)));
    return true;
}

std::uint32_t WindowsRawVolumes::GetDriveTypeA(const std::string& root) {
    const std::string drive = driveOfRoot(root);
    if (drive.empty()) return DRIVE_NO_ROOT_DIR;
    return ask<std::uint32_t>(
               drive, [drive](const auto& calls) { return calls->driveType(rootOf(drive)); })
        .value_or(DRIVE_UNKNOWN);
}

bool WindowsRawVolumes::GetDiskFreeSpaceA(const std::string& root, DiskFreeSpace& space) {
    const std::string drive = driveOfRoot(root);
    if (drive.empty()) return false;
    const auto answer = ask<Space>(drive, [drive](const auto& calls) {
        Space own;
        own.error = calls->space(rootOf(drive), own.clusters, own.bytes);
        return own;
    });
    if (!answer || answer->error != ERROR_SUCCESS) return false;
    space = allClusters(answer->clusters, answer->bytes);
    return true;
}

}  // namespace velmora::windows
