#include "platform/windows/files/windows_text_files.h"

#include <windows.h>

#include <algorithm>
#include <chrono>
#include <limits>
#include <thread>
#include <utility>

#include "base/runtime_error.h"
#include "base/text.h"
#include "platform/windows/entries/entry_facts.h"
#include "platform/windows/removal/removal.h"
#include "platform/windows/system/private_security.h"
#include "platform/windows/system/system_errors.h"
#include "platform/windows/system/unique_handle.h"
#include "platform/windows/system/utf16.h"
#include "platform/windows/system/whole_file.h"

namespace velmora::windows {

namespace {

bool isFolder(const std::wstring& path) {
    return kindOf(GetFileAttributesW(path.c_str())) == PathKind::folder;
}

// The system denies access to a folder, as it does to a file.
int errorOfOpening(DWORD reason, const std::wstring& path) {
    const bool isNoFile = reason == ERROR_ACCESS_DENIED && isFolder(path);
    return isNoFile ? error::pathFileAccess : runtimeErrorOf(reason);
}

// A missing file in a folder that is there has an error of its own. The system's code doesn't
// always differ from that of a missing drive.
int errorOfReading(DWORD reason, const std::wstring& path) {
    const bool isMissing = reason == ERROR_FILE_NOT_FOUND;
    const auto name = path.find_last_of(L"\\/");
    const bool hasFolder = name == std::wstring::npos || isFolder(path.substr(0, name + 1));
    return isMissing && hasFolder ? error::fileNotFound : errorOfOpening(reason, path);
}

std::wstring systemPathOrError(const std::string& path) {
    // The system would read a path up to its first NUL and so take another file.
    if (path.find('\0') != std::string::npos) throw RuntimeError(error::pathNotFound);
    return systemPath(path);
}

class OpenFile {
  public:
    explicit OpenFile(UniqueHandle handle) : handle_(std::move(handle)) {}

    LARGE_INTEGER goToEnd() {
        LARGE_INTEGER end{};
        if (!SetFilePointerEx(handle_.get(), {}, &end, FILE_END))
            throw RuntimeError(error::deviceIo);
        return end;
    }

    /// Removes the bytes that were written from the front.
    DWORD write(std::string_view& bytes) { return writeAll(handle_.get(), bytes); }

    DWORD cutTo(LARGE_INTEGER size) {
        const bool isCut = SetFilePointerEx(handle_.get(), size, nullptr, FILE_BEGIN) &&
                           SetEndOfFile(handle_.get());
        return isCut ? ERROR_SUCCESS : GetLastError();
    }

    /// Writes the content in place of the old one, in one write, and cuts it.
    DWORD writeOver(std::string_view content, LONGLONG oldSize) {
        std::string padded(content);
        const auto old = static_cast<std::size_t>(oldSize);
        if (content.size() < old) padded += blankLines(old - content.size());
        std::string_view rest = padded;
        const DWORD failure = write(rest);
        const std::size_t written = padded.size() - rest.size();
        const DWORD cutFailure = cutTo(sizeOf(std::min(written, content.size())));
        return failure != ERROR_SUCCESS ? failure : cutFailure;
    }

    /// Takes the room for a content of that size by blank lines behind the old one; where it isn't
    /// there, the file stays as it was.
    DWORD growTo(std::size_t size, LARGE_INTEGER oldEnd) {
        const auto old = static_cast<std::size_t>(oldEnd.QuadPart);
        if (size <= old) return ERROR_SUCCESS;
        const std::string lines = blankLines(size - old);
        std::string_view rest = lines;
        const DWORD failure = write(rest);
        if (failure != ERROR_SUCCESS) cutTo(oldEnd);
        return failure;
    }

    DWORD goToBegin() {
        return SetFilePointerEx(handle_.get(), {}, nullptr, FILE_BEGIN) ? ERROR_SUCCESS
                                                                        : GetLastError();
    }

    DWORD sync() { return FlushFileBuffers(handle_.get()) ? ERROR_SUCCESS : GetLastError(); }

    /// Keeps readers away until it is closed, where the system can.
    void lock() {
        OVERLAPPED begin{};
        LockFileEx(handle_.get(), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, MAXDWORD,
                   MAXDWORD, &begin);
    }

    /// 0, or why the file couldn't be read.
    DWORD readToEnd(std::string& content) {
        content.clear();
        constexpr auto anySize = std::numeric_limits<std::size_t>::max();
        const DWORD failure = goToBegin();
        return failure != ERROR_SUCCESS ? failure : readWhole(handle_.get(), anySize, content);
    }

  private:
    static LARGE_INTEGER sizeOf(std::size_t size) {
        LARGE_INTEGER large{};
        large.QuadPart = static_cast<LONGLONG>(size);
        return large;
    }

    UniqueHandle handle_;
};

using namespace std::chrono_literals;

// How long another program is waited for that writes the same file: a whole content, or a line.
constexpr auto longestWait = 2s;
constexpr auto longestWaitForLine = 200ms;
constexpr auto pause = 5ms;

// A file open for writing, made if need be. Other programs may read it meanwhile, but not write;
// one that writes now is waited for.
UniqueHandle openInTurn(const std::wstring& path, SECURITY_ATTRIBUTES* whenMade,
                        std::chrono::milliseconds wait) {
    const auto end = std::chrono::steady_clock::now() + wait;
    while (true) {
        // Appending rights alone would not allow to cut a half-written line off again.
        UniqueHandle handle(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, whenMade,
                                        OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
        if (handle.isOpen()) return handle;
        const DWORD failure = GetLastError();
        const bool waits =
            failure == ERROR_SHARING_VIOLATION && std::chrono::steady_clock::now() < end;
        if (!waits) throw RuntimeError(errorOfOpening(failure, path));
        std::this_thread::sleep_for(pause);
    }
}

UniqueHandle openToRead(const std::wstring& path) {
    UniqueHandle handle(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!handle.isOpen()) throw RuntimeError(errorOfReading(GetLastError(), path));
    return handle;
}

}  // namespace

void WindowsTextFiles::appendLine(const std::string& path, std::string_view text) {
    std::string line(text);
    line += lineEnd;
    OpenFile file(openInTurn(systemPathOrError(path), nullptr, longestWaitForLine));
    const LARGE_INTEGER oldEnd = file.goToEnd();
    std::string_view rest = line;
    if (const DWORD failure = file.write(rest); failure != ERROR_SUCCESS) {
        file.cutTo(oldEnd);
        throw RuntimeError(errorOfWriting(failure));
    }
}

std::string WindowsTextFiles::readAll(const std::string& path) {
    OpenFile file(openToRead(systemPathOrError(path)));
    const auto end = std::chrono::steady_clock::now() + longestWait;
    std::string content;
    while (const DWORD failure = file.readToEnd(content)) {
        // Another program writes it now.
        const bool waits =
            failure == ERROR_LOCK_VIOLATION && std::chrono::steady_clock::now() < end;
        if (!waits) throw RuntimeError(error::deviceIo);
        std::this_thread::sleep_for(pause);
    }
    return content;
}

void WindowsTextFiles::writeOver(const std::string& path, std::string_view content,
                                 Overwriting how) {
    PrivateSecurity security;
    const bool isPrivate = how.isPrivate && security.failure() == ERROR_SUCCESS;
    OpenFile file(openInTurn(systemPathOrError(path), isPrivate ? security.attributes() : nullptr,
                             longestWait));
    file.lock();
    const LARGE_INTEGER oldEnd = file.goToEnd();
    DWORD failure = how.reservesRoom ? file.growTo(content.size(), oldEnd) : ERROR_SUCCESS;
    if (failure == ERROR_SUCCESS) failure = file.goToBegin();
    if (failure == ERROR_SUCCESS) failure = file.writeOver(content, oldEnd.QuadPart);
    if (failure == ERROR_SUCCESS) failure = file.sync();
    if (failure != ERROR_SUCCESS) throw RuntimeError(errorOfWriting(failure));
}

double WindowsTextFiles::FileLen(const std::string& path) {
    if (path.find('\0') != std::string::npos) throw RuntimeError(error::fileNotFound);
    EntryFacts facts;
    if (const DWORD failure = readFacts(systemPath(path), facts))
        throw RuntimeError(errorOfEntry(failure, error::fileNotFound));
    if (kindOf(facts.attributes) != PathKind::file) throw RuntimeError(error::fileNotFound);
    return static_cast<double>(facts.size);
}

void WindowsTextFiles::remove(const std::string& path) {
    removeFile(path);
}

}  // namespace velmora::windows
