#include "platform/windows/network/windows_rasapi32.h"

#include <windows.h>
// After it, as they need its types.
#include <ras.h>
#include <raserror.h>

#include <algorithm>
#include <vector>

namespace velmora::windows {

namespace {

constexpr std::uint32_t noService = EPT_S_NOT_REGISTERED;

// The records of the calls' first version. The header only has those of later ones, whose further
// fields nobody needs. The calls tell the versions apart by the size.
#pragma pack(push, 4)
struct ConnectionRecord {
    DWORD dwSize;
    HRASCONN hrasconn;
    CHAR szEntryName[RAS_MaxEntryName + 1];
    CHAR szDeviceType[RAS_MaxDeviceType + 1];
    CHAR szDeviceName[RAS_MaxDeviceName + 1];
};
struct StatusRecord {
    DWORD dwSize;
    DWORD rasconnstate;
    DWORD dwError;
    CHAR szDeviceType[RAS_MaxDeviceType + 1];
    CHAR szDeviceName[RAS_MaxDeviceName + 1];
};
#pragma pack(pop)
static_assert(sizeof(ConnectionRecord) == ras::connectionRecord + sizeof(HRASCONN) - 4);
static_assert(sizeof(StatusRecord) == ras::statusRecord);

using EnumConnections = DWORD WINAPI(ConnectionRecord*, DWORD*, DWORD*);
using GetConnectStatus = DWORD WINAPI(HRASCONN, StatusRecord*);

}  // namespace

std::uint32_t WindowsRasapi32::RasEnumConnectionsA(RasConnections& connections, std::uint32_t& size,
                                                   std::uint32_t& count) {
    if (connections[0].dwSize != ras::connectionRecord) return ras::invalidSize;
    auto* const call = library_.function<EnumConnections>("RasEnumConnectionsA");
    if (!call) return noService;
    const std::size_t room =
        std::min<std::size_t>(size / ras::connectionRecord, connections.size());
    // One at least, since the call reads the size of the first.
    std::vector<ConnectionRecord> records(std::max<std::size_t>(room, 1));
    records[0].dwSize = sizeof(ConnectionRecord);
    auto bytes = static_cast<DWORD>(room * sizeof(ConnectionRecord));
    DWORD found = 0;
    const DWORD result = call(records.data(), &bytes, &found);
    size = bytes / sizeof(ConnectionRecord) * ras::connectionRecord;
    count = found;
    if (result != ERROR_SUCCESS) return result;
    for (std::size_t i = 0; i < std::min<std::size_t>(found, room); ++i) {
        connections[i] = {.dwSize = ras::connectionRecord,
                          .hRasConn = reinterpret_cast<ULONG_PTR>(records[i].hrasconn)};
    }
    return ERROR_SUCCESS;
}

std::uint32_t WindowsRasapi32::RasGetConnectStatusA(std::uint64_t connection,
                                                    RasConnStatus& status) {
    if (status.dwSize != ras::statusRecord) return ras::invalidSize;
    auto* const call = library_.function<GetConnectStatus>("RasGetConnectStatusA");
    if (!call) return noService;
    StatusRecord record{};
    record.dwSize = sizeof record;
    const DWORD result =
        call(reinterpret_cast<HRASCONN>(static_cast<ULONG_PTR>(connection)), &record);
    if (result == ERROR_SUCCESS) status.rasconnstate = record.rasconnstate;
    return result;
}

}  // namespace velmora::windows
