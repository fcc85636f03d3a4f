// The system's error codes, sorted.
#pragma once

#include <windows.h>

namespace velmora::windows {

/// Whether such a failure says that nothing lies at a path, or that its drive isn't there.
inline bool isMissing(DWORD failure) {
    switch (failure) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_DRIVE:
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME:
        case ERROR_BAD_NETPATH:
        case ERROR_BAD_NET_NAME:
        case ERROR_DIRECTORY:
            return true;
        default:
            return false;
    }
}

}  // namespace velmora::windows
