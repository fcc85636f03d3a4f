#include <unistd.h>
#include <utmpx.h>

#include <vector>

#include "platform/linux/inventory/host_name.h"
#include "platform/linux/inventory/logins.h"
#include "platform/linux/inventory/record_source.h"
#ifdef VELMORA_HAS_SYSTEMD
#include "platform/linux/inventory/systemd/logind_sessions.h"
#endif

namespace velmora::linuxhost {

namespace {

// All at once: the C library goes through one such file at a time.
std::vector<Login> loginsIn(const std::string& file) {
    std::vector<Login> logins;
    utmpxname(file.c_str());
    setutxent();
    while (const utmpx* entry = getutxent()) {
        if (auto login = loginIn(*entry)) logins.push_back(std::move(*login));
    }
    endutxent();
    return logins;
}

std::vector<Login> currentLogins(const std::string& file) {
#ifdef VELMORA_HAS_SYSTEMD
    if (access(file.c_str(), F_OK) != 0) return logindSessions();
#endif
    return loginsIn(file);
}

class LoginSource final : public RecordSource {
  public:
    explicit LoginSource(const HostSources& host) : logins_(currentLogins(host.logins)) {}

    std::optional<Record> next() override {
        if (next_ == logins_.size()) return std::nullopt;
        return loginRecord(host_, logins_[next_++]);
    }

  private:
    std::string host_ = hostName();
    std::vector<Login> logins_;
    std::size_t next_ = 0;
};

}  // namespace

std::unique_ptr<RecordSource> loginSource(const HostSources& host) {
    return std::make_unique<LoginSource>(host);
}

}  // namespace velmora::linuxhost
