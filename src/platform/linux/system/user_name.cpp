#include "platform/linux/system/user_name.h"

#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

namespace velmora::linuxhost {

std::string userName() {
    constexpr std::size_t greatestRecord = 1 << 20;  // bytes; the system's own are some hundred
    for (std::vector<char> record(1024); record.size() <= greatestRecord;
         record.resize(record.size() * 2)) {
        passwd user{};
        passwd* found = nullptr;
        const int failure = getpwuid_r(geteuid(), &user, record.data(), record.size(), &found);
        if (failure != ERANGE) return found ? found->pw_name : "";
    }
    return {};
}

}  // namespace velmora::linuxhost
