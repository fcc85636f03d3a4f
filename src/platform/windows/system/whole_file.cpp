#include "platform/windows/system/whole_file.h"

#include <algorithm>

#include "platform/windows/system/system_errors.h"

namespace velmora::windows {

DWORD writeAll(HANDLE file, std::string_view& bytes) {
    constexpr std::size_t mostAtOnce = 1U << 30;
    while (!bytes.empty()) {
        const auto count = static_cast<DWORD>(std::min(bytes.size(), mostAtOnce));
        DWORD written = 0;
        if (!WriteFile(file, bytes.data(), count, &written, nullptr)) return GetLastError();
        if (written == 0) return ERROR_DISK_FULL;
        bytes.remove_prefix(written);
    }
    return ERROR_SUCCESS;
}

DWORD readWhole(HANDLE file, std::size_t most, std::string& content) {
    constexpr DWORD piece = 1U << 20;
    while (content.size() <= most) {
        const std::size_t size = content.size();
        content.resize(size + piece);
        DWORD got = 0;
        const DWORD failure = resultOf(ReadFile(file, content.data() + size, piece, &got, nullptr));
        content.resize(size + got);
        if (failure != ERROR_SUCCESS) return failure;
        if (got == 0) return ERROR_SUCCESS;
    }
    return ERROR_FILE_TOO_LARGE;
}

}  // namespace velmora::windows
