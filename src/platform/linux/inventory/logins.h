// Who is logged in, and the accounts of this machine.
#pragma once

#include <pwd.h>
#include <utmpx.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/linux/inventory/record_source.h"

namespace velmora::linuxhost {

struct Login {
    std::string user;
    std::string line;  ///< the terminal, or what stands for it
};

/// The login that an entry of the utmp file is about; nothing for entries of another kind. Its
/// texts need no NUL at their ends.
std::optional<Login> loginIn(const utmpx& entry);

/// Win32_LoggedOnUser: the paths of the account and of the session.
Record loginRecord(const std::string& host, const Login& login);

/// Win32_UserAccount. The full name is the first of the parts that the account's entry keeps on its
/// user.
Record accountRecord(const std::string& host, const passwd& account);

}  // namespace velmora::linuxhost
