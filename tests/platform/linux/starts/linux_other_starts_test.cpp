#include "platform/linux/starts/linux_other_starts.h"

#include "platform/linux/support/test_folder.h"
#include "platform/other_starts_cases.h"

namespace velmora::linuxhost {
namespace {

struct LinuxStarts : tests::OtherStartsCases<LinuxOtherStarts> {
    std::string folder() override { return folder_.path(); }
    TestFolder folder_;
};

TEST_F(LinuxStarts, AFolderIsHeldOnce) {
    aFolderIsHeldOnce();
}

TEST_F(LinuxStarts, ACommandLineReachesWhoListens) {
    aCommandLineReachesWhoListens();
}

TEST_F(LinuxStarts, AnEmptyOneToo) {
    anEmptyOneToo();
}

TEST_F(LinuxStarts, SeveralFollowEachOther) {
    severalFollowEachOther();
}

TEST_F(LinuxStarts, OnlyOneListens) {
    onlyOneListens();
}

TEST_F(LinuxStarts, WithoutAListenerNothingIsHandedOver) {
    withoutAListenerNothingIsHandedOver();
}

}  // namespace
}  // namespace velmora::linuxhost
