#include "platform/linux/network/linux_rasapi32.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <vector>

#include "platform/linux/system/system_errors.h"

namespace velmora::linuxhost {

namespace {

namespace fs = std::filesystem;

// A point-to-point interface reports that its state is unknown while it is up.
bool isUpPpp(const fs::path& interface) {
    if (!interface.filename().string().starts_with("ppp")) return false;
    std::string state;
    std::ifstream(interface / "operstate") >> state;
    return state == "up" || state == "unknown";
}

std::vector<std::uint64_t> pppNumbers(const std::string& folder) {
    std::vector<std::uint64_t> numbers;
    std::error_code failure;
    for (fs::directory_iterator at(folder, failure), end; !failure && at != end;
         at.increment(failure)) {
        std::uint64_t number = 0;
        if (isUpPpp(at->path()) && std::ifstream(at->path() / "ifindex") >> number && number > 0) {
            numbers.push_back(number);
        }
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

}  // namespace

std::uint32_t LinuxRasapi32::RasEnumConnectionsA(RasConnections& connections, std::uint32_t& size,
                                                 std::uint32_t& count) {
    if (connections[0].dwSize != ras::connectionRecord) return ras::invalidSize;
    const std::vector<std::uint64_t> numbers = pppNumbers(interfaces_);
    const std::size_t room =
        std::min<std::size_t>(size / ras::connectionRecord, connections.size());
    const auto found = static_cast<std::uint32_t>(numbers.size());
    size = found * ras::connectionRecord;
    count = found;
    if (numbers.size() > room) return ras::bufferTooSmall;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        connections[i] = {.dwSize = ras::connectionRecord, .hRasConn = numbers[i]};
    }
    return code::success;
}

std::uint32_t LinuxRasapi32::RasGetConnectStatusA(std::uint64_t connection, RasConnStatus& status) {
    if (status.dwSize != ras::statusRecord) return ras::invalidSize;
    const std::vector<std::uint64_t> numbers = pppNumbers(interfaces_);
    if (std::find(numbers.begin(), numbers.end(), connection) == numbers.end()) {
        return code::invalidHandle;
    }
    status.rasconnstate = ras::connected;
    return code::success;
}

}  // namespace velmora::linuxhost
