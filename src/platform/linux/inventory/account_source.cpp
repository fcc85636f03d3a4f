#include <pwd.h>

#include <cerrno>
#include <vector>

#include "base/text.h"
#include "platform/linux/inventory/account_path.h"
#include "platform/linux/inventory/host_name.h"
#include "platform/linux/inventory/logins.h"
#include "platform/linux/inventory/record_source.h"

namespace velmora::linuxhost {

namespace {

std::optional<Record> accountNamed(const std::string& host, const std::string& name) {
    constexpr std::size_t most = std::size_t{1} << 20;
    passwd account{};
    passwd* found = nullptr;
    for (std::vector<char> room(4096); room.size() <= most; room.resize(room.size() * 2)) {
        const int failure = getpwnam_r(name.c_str(), &account, room.data(), room.size(), &found);
        if (failure == ERANGE) continue;
        if (failure != 0 || found == nullptr) return std::nullopt;
        return accountRecord(host, account);
    }
    return std::nullopt;
}

}  // namespace

std::optional<Record> accountAt(const std::string& path) {
    const auto account = accountIn(path);
    const std::string host = hostName();
    if (!account || lowerCase(account->domain) != lowerCase(host)) return std::nullopt;
    return accountNamed(host, account->name);
}

}  // namespace velmora::linuxhost
