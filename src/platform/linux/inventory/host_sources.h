// Where the host keeps what the reports are made of.
#pragma once

#include <string>

namespace velmora::linuxhost {

/// Paths of the host. Another one than the host's own is for a machine made by a test.
struct HostSources {
    std::string proc = "/proc";
    std::string journal;  ///< one file of the journal; the host's whole journal when empty
    std::string syslog = "/var/log/syslog";  ///< where there is no journal
    std::string logins = "/run/utmp";
    std::string modules = "/proc/modules";
    std::string atJobs = "/var/spool/cron/atjobs";
    std::string crontab = "/etc/crontab";
    std::string cronFolder = "/etc/cron.d";
    std::string userCrontabs = "/var/spool/cron/crontabs";
    std::string release = "/etc/os-release";
};

}  // namespace velmora::linuxhost
