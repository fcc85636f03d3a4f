// What the system's error codes mean, and what they are in the run-time's error numbers.
#pragma once

#include <windows.h>

#include <string>

namespace velmora::windows {

/// The code of a call that has just returned: 0 when it was done.
inline DWORD resultOf(BOOL isDone) {
    return isDone ? ERROR_SUCCESS : GetLastError();
}

/// Whether such a failure says that nothing lies at a path, or that its drive isn't there.
bool isMissing(DWORD failure);

/// Whether such a failure says that this system or filesystem doesn't know what was asked for.
bool isUnknownRequest(DWORD failure);

/// What the system says of such a failure, in one line; "error 1234" where it says nothing.
std::string textOf(DWORD failure);

/// The run-time error for a failure to open a file: 76 for a path that isn't there, 70 or 61 for
/// what is denied or full, 57 for any other.
int runtimeErrorOf(DWORD failure);

// Calls that have fewer numbers, or another one for the same code.

/// Writing to an open file: 61 on a full disk, 57 for any other.
int errorOfWriting(DWORD failure);
/// Looking at a file or folder and removing it: `missing` where nothing lies at the path, 70 for
/// any other.
int errorOfEntry(DWORD failure, int missing);
/// Saving a shortcut: 76 for a path that isn't there, 70 for any other.
int errorOfSaving(HRESULT result);
/// Starting a program: 53 when there is none, 5 for any other.
int errorOfStarting(DWORD failure);

}  // namespace velmora::windows
