#include "platform/linux/system/user_name.h"

#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

namespace velmora::linuxhost {

namespace {

// Empty for one whom the system doesn't know.
std::string knownName(uid_t id) {
    constexpr std::size_t greatestRecord = 1 << 20;  // bytes; the system's own are some hundred
    for (std::vector<char> record(1024); record.size() <= greatestRecord;
         record.resize(record.size() * 2)) {
        passwd user{};
        passwd* found = nullptr;
        const int failure = getpwuid_r(id, &user, record.data(), record.size(), &found);
        if (failure != ERANGE) return found ? found->pw_name : "";
    }
    return {};
}

}  // namespace

std::string userName() {
    return knownName(geteuid());
}

std::string userName(uid_t id) {
    const std::string name = knownName(id);
    return name.empty() ? std::to_string(id) : name;
}

}  // namespace velmora::linuxhost
