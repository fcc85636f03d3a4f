#include "platform/linux/inventory/account_path.h"

#include <gtest/gtest.h>

namespace velmora::linuxhost {
namespace {

TEST(AccountPath, NamesTheMachineAndTheUser) {
    EXPECT_EQ(accountPath({"box", "anna"}),
              R"(\\box\root\cimv2:Win32_UserAccount.Domain="box",Name="anna")");
    EXPECT_EQ(accountPath({"box", R"(a"b\c)"}),
              R"(\\box\root\cimv2:Win32_UserAccount.Domain="box",Name="a\"b\\c")");
    EXPECT_EQ(sessionPath("box", "pts/0"),
              R"(\\box\root\cimv2:Win32_LogonSession.LogonId="pts/0")");
}

TEST(AccountPath, IsReadBack) {
    for (const char* name : {"anna", R"(a"b\c)", R"(\)", "\",Name=\"", ""}) {
        const auto account = accountIn(accountPath({"box", name}));
        ASSERT_TRUE(account) << name;
        EXPECT_EQ(account->domain, "box");
        EXPECT_EQ(account->name, name);
    }
    const auto account = accountIn(R"(\\.\ROOT\CIMV2:win32_useraccount.domain="Box",NAME="Anna")");
    ASSERT_TRUE(account);
    EXPECT_EQ(account->domain, "Box");
    EXPECT_EQ(account->name, "Anna");
}

TEST(AccountPath, AnyOtherTextIsNone) {
    const std::string whole = accountPath({"box", R"(a"b\c)"});
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_FALSE(accountIn(whole.substr(0, size))) << size;
    EXPECT_FALSE(accountIn(whole + 'x'));
    EXPECT_FALSE(accountIn(sessionPath("box", "pts/0")));
    EXPECT_FALSE(accountIn(R"(\\\root\cimv2:Win32_UserAccount.Domain="box",Name="anna")"));
    EXPECT_FALSE(accountIn(R"(Win32_UserAccount.Domain="box",Name="anna")"));
}

}  // namespace
}  // namespace velmora::linuxhost
