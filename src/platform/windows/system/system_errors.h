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

/// Whether such a failure says that this system or filesystem doesn't know what was asked for.
inline bool isUnknownRequest(DWORD failure) {
    switch (failure) {
        case ERROR_INVALID_PARAMETER:
        case ERROR_NOT_SUPPORTED:
        case ERROR_INVALID_FUNCTION:
        case ERROR_INVALID_LEVEL:
        case ERROR_CALL_NOT_IMPLEMENTED:
            return true;
        default:
            return false;
    }
}

}  // namespace velmora::windows
