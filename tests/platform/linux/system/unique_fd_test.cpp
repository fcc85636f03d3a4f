#include "platform/linux/system/unique_fd.h"

#include <fcntl.h>
#include <gtest/gtest.h>

namespace velmora::linuxhost {
namespace {

int openSomething() {
    return open("/dev/null", O_RDONLY | O_CLOEXEC);
}

bool isOpenFd(int fd) {
    return fcntl(fd, F_GETFD) >= 0;
}

TEST(UniqueFd, ClosesWhatItOwns) {
    int fd = -1;
    {
        const UniqueFd owner(openSomething());
        fd = owner.get();
        EXPECT_TRUE(owner.isOpen());
        EXPECT_TRUE(isOpenFd(fd));
    }
    EXPECT_FALSE(isOpenFd(fd));
}

TEST(UniqueFd, AFailedCallOwnsNothing) {
    const UniqueFd owner(open("/not there/at all", O_RDONLY));
    EXPECT_EQ(errno, ENOENT);
    EXPECT_FALSE(owner.isOpen());
    EXPECT_FALSE(UniqueFd().isOpen());
}

TEST(UniqueFd, MovesLeaveOneOwner) {
    UniqueFd first(openSomething());
    const int fd = first.get();
    UniqueFd second(std::move(first));
    EXPECT_EQ(second.get(), fd);
    UniqueFd third(openSomething());
    const int replaced = third.get();
    third = std::move(second);
    EXPECT_EQ(third.get(), fd);
    EXPECT_FALSE(isOpenFd(replaced));
    EXPECT_TRUE(isOpenFd(fd));
}

TEST(UniqueFd, WhatIsReleasedStaysOpen) {
    UniqueFd owner(openSomething());
    const int fd = owner.release();
    EXPECT_FALSE(owner.isOpen());
    EXPECT_TRUE(isOpenFd(fd));
    owner.reset(fd);
    owner.reset();
    EXPECT_FALSE(isOpenFd(fd));
}

TEST(UniqueFd, ClosingReportsAFailureOnce) {
    UniqueFd owner(openSomething());
    EXPECT_EQ(owner.close(), 0);
    EXPECT_FALSE(owner.isOpen());
    EXPECT_EQ(owner.close(), EBADF);
}

}  // namespace
}  // namespace velmora::linuxhost
