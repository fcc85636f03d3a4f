#include <gtest/gtest.h>
#include <utmpx.h>

#include <memory>

#include "platform/linux/inventory/made_machine.h"
#include "platform/linux/inventory/record_source.h"

namespace velmora::linuxhost {
namespace {

TEST(LoginSource, TheFileOfLoginsIsNotKeptOpen) {
    const MadeMachine made;
    made.addLogin(USER_PROCESS, "root", "pts/0");
    const std::size_t before = openDescriptors();
    const std::unique_ptr<RecordSource> logins = loginSource(made.sources());
    EXPECT_TRUE(logins->next());
    EXPECT_EQ(openDescriptors(), before);
}

}  // namespace
}  // namespace velmora::linuxhost
