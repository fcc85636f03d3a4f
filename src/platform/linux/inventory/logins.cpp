#include "platform/linux/inventory/logins.h"

#include <cstring>

#include "platform/linux/inventory/account_path.h"
#include "platform/linux/inventory/record_text.h"

namespace velmora::linuxhost {

namespace {

template <std::size_t size>
std::string fieldText(const char (&field)[size]) {
    return oneLine({field, strnlen(field, size)});
}

}  // namespace

std::optional<Login> loginIn(const utmpx& entry) {
    if (entry.ut_type != USER_PROCESS) return std::nullopt;
    return Login{fieldText(entry.ut_user), fieldText(entry.ut_line)};
}

Record loginRecord(const std::string& host, const Login& login) {
    return {{"Antecedent", accountPath({host, login.user})},
            {"Dependent", sessionPath(host, login.line)}};
}

Record accountRecord(const std::string& host, const passwd& account) {
    const std::string name = oneLine(account.pw_name);
    Record record{
        {"SIDType", "1"}, {"Domain", host}, {"Name", name}, {"Caption", host + '\\' + name}};
    const std::string onUser = oneLine(account.pw_gecos ? account.pw_gecos : "");
    std::string fullName = onUser.substr(0, onUser.find(','));
    if (!fullName.empty()) record["FullName"] = std::move(fullName);
    return record;
}

}  // namespace velmora::linuxhost
