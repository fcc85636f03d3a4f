#include "platform/linux/inventory/systemd/logind_sessions.h"

#include <cstdlib>
#include <memory>
#include <string>

#include "platform/linux/inventory/record_text.h"
#include "platform/linux/system/systemd_calls.h"
#include "platform/linux/system/user_name.h"

namespace velmora::linuxhost {

namespace {

struct FreeText {
    void operator()(char* text) const { std::free(text); }
};

using SessionField = int (*)(const char* session, char** value);

std::string fieldOf(const char* session, SessionField field) {
    char* value = nullptr;
    if (field(session, &value) < 0) return {};
    const std::unique_ptr<char, FreeText> owner(value);
    return oneLine(value);
}

// A person's session: newer versions tell "user-early" (that of root) and "user-light" apart.
bool isOfAUser(const std::string& kind) {
    return kind.starts_with("user") && kind != "user-incomplete";
}

void addSession(std::vector<Login>& logins, const char* session) {
    uid_t user = 0;
    if (!isOfAUser(fieldOf(session, systemd().sessionGetClass)) ||
        systemd().sessionGetUid(session, &user) < 0)
        return;
    const std::string name = oneLine(userName(user));
    const std::string terminal = fieldOf(session, systemd().sessionGetTty);
    if (!name.empty()) logins.push_back({name, terminal.empty() ? oneLine(session) : terminal});
}

}  // namespace

std::vector<Login> logindSessions() {
    std::vector<Login> logins;
    char** sessions = nullptr;
    if (!loadSystemd() || systemd().getSessions(&sessions) < 0 || sessions == nullptr)
        return logins;
    for (char** each = sessions; *each != nullptr; ++each) {
        const std::unique_ptr<char, FreeText> session(*each);
        addSession(logins, session.get());
    }
    std::free(static_cast<void*>(sessions));
    return logins;
}

}  // namespace velmora::linuxhost
