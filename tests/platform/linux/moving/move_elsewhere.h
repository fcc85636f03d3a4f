// Moves in a scratch tree, within it and to another filesystem.
#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "platform/linux/support/child_process.h"
#include "platform/linux/support/scratch_tree.h"

namespace velmora::linuxhost {

class LinuxMove : public ScratchTree {
  protected:
    /// Expects that the move fails with the code and changes nothing.
    void expectRefused(const std::string& from, const std::string& to, std::uint32_t code) {
        const TreeListing before = tree();
        EXPECT_FALSE(move(from, to)) << from << " > " << to;
        EXPECT_EQ(kernel32_.GetLastError(), code) << from << " > " << to;
        EXPECT_EQ(tree(), before);
    }
    void expectMoved(const std::string& from, const std::string& to) {
        const TreeListing expected = moved(tree(), from, to);
        EXPECT_TRUE(move(in(from), in(to))) << kernel32_.GetLastError();
        EXPECT_EQ(kernel32_.GetLastError(), 0u);
        EXPECT_EQ(tree(), expected);
    }
};

// A folder on another filesystem than the scratch tree's.
class MoveElsewhere : public LinuxMove {
  protected:
    void SetUp() override {
        const std::string name = "/dev/shm/velmora-" + std::to_string(getpid());
        struct stat here {};
        struct stat there {};
        stat(root_.path().c_str(), &here);
        if (mkdir(name.c_str(), 0700) != 0 || stat(name.c_str(), &there) != 0 ||
            here.st_dev == there.st_dev) {
            std::cout << "skipped: /dev/shm is no filesystem of its own\n";
            GTEST_SKIP() << "/dev/shm is no filesystem of its own";
        }
        elsewhere_ = name;
        std::ofstream(elsewhere_ + "/there already") << "before";
    }
    ~MoveElsewhere() override {
        std::error_code ignored;
        if (!elsewhere_.empty()) std::filesystem::remove_all(elsewhere_, ignored);
    }

    std::string there(const std::string& name) { return drivePath(elsewhere_ + '/' + name); }
    void expectRefusedThere(const std::string& from, const std::string& to, std::uint32_t code) {
        const TreeListing before = listTree(elsewhere_);
        expectRefused(from, to, code);
        EXPECT_EQ(listTree(elsewhere_), before);
    }
    /// Moves in a process in which a call fails, and expects that nothing has changed.
    void expectLeftAlone(long call, int failure, const std::string& from) {
        const TreeListing before = tree();
        const TreeListing beforeThere = listTree(elsewhere_);
        const int code = withoutCall(call, failure, [&] {
            Volumes volumes;
            LinuxKernel32 kernel32(volumes);
            const bool isMoved = kernel32.MoveFileA(in(from), there("x")) != 0;
            return isMoved ? 90 : static_cast<int>(kernel32.GetLastError() % 90);
        });
        EXPECT_TRUE(code > 0 && code < 90) << call << ' ' << failure << ' ' << code;
        EXPECT_EQ(tree(), before) << call << ' ' << failure;
        EXPECT_EQ(listTree(elsewhere_), beforeThere) << call << ' ' << failure;
    }

    std::string elsewhere_;
};

}  // namespace velmora::linuxhost
