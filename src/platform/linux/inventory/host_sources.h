// Where the host keeps what the reports are made of.
#pragma once

#include <filesystem>
#include <string>
#include <system_error>

namespace velmora::linuxhost {

/// Paths of the host. Another one than the host's own is for a machine made by a test.
struct HostSources {
    std::string proc = "/proc";
    std::string journal;  ///< one file of the journal; the host's whole journal when empty
    std::string syslog = "/var/log/syslog";  ///< read where there is no journal
    std::string logins = "/run/utmp";
    std::string modules = "/proc/modules";
    std::string atJobs = "/var/spool/cron/atjobs";
    std::string crontab = "/etc/crontab";
    std::string cronFolder = "/etc/cron.d";
    std::string userCrontabs = "/var/spool/cron/crontabs";
    std::string release = "/etc/os-release";
};

/// The places of this host: distributions keep some of them elsewhere.
inline HostSources hostSources() {
    HostSources host;
    const auto orElse = [](std::string& place, const char* other) {
        std::error_code failure;
        if (std::filesystem::exists(place, failure)) return;
        if (std::filesystem::exists(other, failure)) place = other;
    };
    orElse(host.syslog, "/var/log/messages");
    orElse(host.atJobs, "/var/spool/at");
    orElse(host.userCrontabs, "/var/spool/cron");
    return host;
}

}  // namespace velmora::linuxhost
