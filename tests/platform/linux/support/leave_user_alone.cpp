#include "platform/contract/machine_under_test.h"
#include "platform/linux/support/environment.h"
#include "platform/linux/support/test_folder.h"

namespace velmora::contract {

namespace {

struct UserOfTests {
    linuxhost::TestFolder home;
    linuxhost::OtherUser user{home.path()};
};

}  // namespace

std::shared_ptr<void> leaveUserAlone() {
    return std::make_shared<UserOfTests>();
}

}  // namespace velmora::contract
