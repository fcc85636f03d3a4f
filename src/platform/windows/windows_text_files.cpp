#include "platform/windows/windows_text_files.h"

#include <windows.h>

#include <algorithm>

#include "base/runtime_error.h"
#include "base/text.h"
#include "platform/windows/utf16.h"

namespace velmora::windows {

namespace {

bool isFolder(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

int errorOfOpening(DWORD reason, const std::wstring& path) {
    switch (reason) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
        case ERROR_BAD_NETPATH:
        case ERROR_BAD_NET_NAME:
            return error::pathNotFound;
        case ERROR_ACCESS_DENIED:
            return isFolder(path) ? error::pathFileAccess : error::permissionDenied;
        case ERROR_SHARING_VIOLATION:
        case ERROR_WRITE_PROTECT:
            return error::permissionDenied;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
            return error::diskFull;
        default:
            return error::deviceIo;
    }
}

int errorOfWriting(DWORD reason) {
    const bool full = reason == ERROR_DISK_FULL || reason == ERROR_HANDLE_DISK_FULL;
    return full ? error::diskFull : error::deviceIo;
}

// A file open for writing at its end. Others may read it meanwhile, nobody else may write.
class AppendedFile {
  public:
    explicit AppendedFile(const std::wstring& path)
        // Appending rights alone would not allow to cut a half-written line off again.
        : handle_(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr)) {
        if (handle_ == INVALID_HANDLE_VALUE)
            throw RuntimeError(errorOfOpening(GetLastError(), path));
    }
    ~AppendedFile() { CloseHandle(handle_); }
    AppendedFile(const AppendedFile&) = delete;
    AppendedFile& operator=(const AppendedFile&) = delete;

    /// All of the bytes or none.
    void append(std::string_view bytes) {
        LARGE_INTEGER oldEnd{};
        if (!SetFilePointerEx(handle_, {}, &oldEnd, FILE_END)) {
            throw RuntimeError(error::deviceIo);
        }
        if (const DWORD failure = write(bytes); failure != ERROR_SUCCESS) {
            SetFilePointerEx(handle_, oldEnd, nullptr, FILE_BEGIN);
            SetEndOfFile(handle_);
            throw RuntimeError(errorOfWriting(failure));
        }
    }

  private:
    DWORD write(std::string_view bytes) {
        constexpr std::size_t most = 1U << 30;
        while (!bytes.empty()) {
            const auto count = static_cast<DWORD>(std::min(bytes.size(), most));
            DWORD written = 0;
            if (!WriteFile(handle_, bytes.data(), count, &written, nullptr)) return GetLastError();
            if (written == 0) return ERROR_DISK_FULL;
            bytes.remove_prefix(written);
        }
        return ERROR_SUCCESS;
    }

    HANDLE handle_;
};

}  // namespace

void WindowsTextFiles::appendLine(const std::string& path, std::string_view text) {
    if (path.find('\0') != std::string::npos) throw RuntimeError(error::pathNotFound);
    std::string line(text);
    line += lineEnd;
    AppendedFile(systemPath(path)).append(line);
}

}  // namespace velmora::windows
