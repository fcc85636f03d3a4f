// Paths of records, as the other system writes them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velmora::linuxhost {

struct AccountName {
    std::string domain;  ///< the machine's name
    std::string name;    ///< of the user
};

/// `\\HOST\root\cimv2:Win32_UserAccount.Domain="HOST",Name="NAME"`. Quotes and back-slashes in the
/// names are escaped by a back-slash.
std::string accountPath(const AccountName& account);
/// `\\HOST\root\cimv2:Win32_LogonSession.LogonId="ID"`.
std::string sessionPath(const std::string& host, const std::string& id);

/// The account that such a path names; nothing for any other text. Keywords have no case.
std::optional<AccountName> accountIn(std::string_view path);

}  // namespace velmora::linuxhost
