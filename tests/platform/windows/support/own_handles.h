// What this process holds of the system, to show that nothing is left behind.
#pragma once

#include <windows.h>
// After the one above, which they need.
#include <tlhelp32.h>
#include <winternl.h>

#include <vector>

#include "platform/windows/system/unique_handle.h"
#include "support/wait.h"

namespace velmora::tests::windows {

/// One row of the system's list of handles, and what is before the rows.
struct HandleRow {
    void* object;
    ULONG_PTR process;
    ULONG_PTR handle;
    ULONG access;
    USHORT trace;
    USHORT type;
    ULONG attributes;
    ULONG reserved;
};
struct HandleListHead {
    ULONG_PTR count;
    ULONG_PTR reserved;
};

/// The open handles of this process; -1 when the system doesn't tell. Wine's own count of them is
/// always 0.
inline int ownHandles() {
    constexpr auto extendedHandles = static_cast<SYSTEM_INFORMATION_CLASS>(64);
    std::vector<ULONG_PTR> memory(1U << 20);
    const auto room = static_cast<ULONG>(memory.size() * sizeof(ULONG_PTR));
    if (NtQuerySystemInformation(extendedHandles, memory.data(), room, nullptr) < 0) return -1;
    const auto* const head = reinterpret_cast<const HandleListHead*>(memory.data());
    const auto* const rows = reinterpret_cast<const HandleRow*>(head + 1);
    int count = 0;
    for (ULONG_PTR i = 0; i < head->count; ++i)
        count += rows[i].process == GetCurrentProcessId() ? 1 : 0;
    return count;
}

/// Whether that count is true. Threads of the system, or of other tests, may be ending meanwhile.
inline bool countsHandles() {
    const auto countsOneMore = [] {
        const int before = ownHandles();
        const velmora::windows::UniqueHandle one(CreateEventW(nullptr, TRUE, FALSE, nullptr));
        return before > 0 && ownHandles() == before + 1;
    };
    return waitUntil(countsOneMore);
}

/// The threads of this process.
inline int ownThreads() {
    const velmora::windows::UniqueHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0));
    THREADENTRY32 entry{};
    entry.dwSize = sizeof entry;
    int count = 0;
    for (BOOL found = Thread32First(snapshot.get(), &entry); found;
         found = Thread32Next(snapshot.get(), &entry))
        count += entry.th32OwnerProcessID == GetCurrentProcessId() ? 1 : 0;
    return count;
}

}  // namespace velmora::tests::windows
