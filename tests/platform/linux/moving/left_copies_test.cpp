// Copies that a killed move leaves under their temporary names, on filesystems without unnamed
// files.
#include "platform/linux/moving/left_copies.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>

#include "platform/linux/moving/file_copy.h"
#include "platform/linux/moving/move_elsewhere.h"
#include "platform/linux/support/child_process.h"
#include "platform/linux/system/unique_fd.h"
#include "platform/platform.h"

namespace velmora::linuxhost {
namespace {

namespace fs = std::filesystem;

// From here on no filesystem of this process makes files without a name.
bool refuseUnnamedFiles() {
    constexpr unsigned unnamed = O_TMPFILE & ~O_DIRECTORY;
    sock_filter filter[] = {BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
                            BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_openat, 0, 3),
                            BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, args[2])),
                            BPF_JUMP(BPF_JMP | BPF_JSET | BPF_K, unnamed, 0, 1),
                            BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EOPNOTSUPP),
                            BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)};
    sock_fprog program{6, filter};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

bool killAtCall(unsigned number) {
    sock_filter filter[] = {BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
                            BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, number, 0, 1),
                            BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_KILL_PROCESS),
                            BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)};
    sock_fprog program{4, filter};
    return prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

// The kernel ends a process that writes more than this into one file.
void endAtBytes(rlim_t most) {
    const rlimit limit{most, most};
    setrlimit(RLIMIT_FSIZE, &limit);
    const rlimit noCore{0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
}

// Where nothing renames without replacing, and a process that renames or removes is killed.
int killAtRename() {
    const bool isReady = refuseUnnamedFiles() && letCallsFail(SYS_renameat2, EINVAL) &&
                         killAtCall(SYS_renameat) && killAtCall(SYS_unlinkat);
    return isReady ? 0 : 99;
}

class LeftCopies : public MoveElsewhere {
  protected:
    using Names = std::set<std::string>;

    static constexpr std::uintmax_t megabyte = 1024 * 1024;

    /// What lies in the other folder but the file that was there before.
    Names made() {
        Names names;
        for (const auto& entry : fs::directory_iterator(elsewhere_))
            names.insert(entry.path().filename());
        names.erase("there already");
        return names;
    }
    std::size_t notes() {
        const std::string folder = userFolder_ / ".local/state/velmora";
        if (!fs::exists(folder)) return 0;
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), {}));
    }
    int moveWithoutUnnamed(const std::string& name) {
        return inChild([&] {
            if (!refuseUnnamedFiles()) return 99;
            Volumes volumes;
            LinuxKernel32 kernel32(volumes);
            return kernel32.MoveFileA(in(name), there("x")) == 1
                       ? 0
                       : static_cast<int>(kernel32.GetLastError() % 90);
        });
    }
    /// A move of three megabytes whose process ends in the middle. Its temporary name.
    std::string killedMove() {
        std::ofstream(at("work/large")) << std::string(3 * megabyte, 'x');
        inChild([&] {
            if (!refuseUnnamedFiles()) return 99;
            Volumes volumes;
            LinuxKernel32 kernel32(volumes);
            endAtBytes(megabyte);
            return kernel32.MoveFileA(in("work/large"), there("x"));
        });
        const Names left = made();
        EXPECT_EQ(left.size(), 1u);
        return left.empty() ? std::string() : *left.begin();
    }
    void start() { openMachine(); }
    /// The folder of the notes, made as the program makes it.
    std::string stateFolder() {
        const std::string state = userFolder_ / ".local/state/velmora";
        fs::create_directories(state);
        fs::permissions(state, fs::perms::owner_all);
        return state;
    }
    /// A note of a process that lives no more, last written so many seconds ago.
    std::string writeNote(const std::string& name, const std::string& path, std::time_t age = 0) {
        const std::string note = stateFolder() + '/' + name;
        std::ofstream(note) << path;
        const timespec then{.tv_sec = std::time(nullptr) - age, .tv_nsec = 0};
        const timespec times[] = {then, then};
        EXPECT_EQ(utimensat(AT_FDCWD, note.c_str(), times, 0), 0);
        return note;
    }
};

TEST_F(LeftCopies, TheNextStartRemovesWhatAKilledMoveHasLeft) {
    const std::string name = killedMove();
    EXPECT_TRUE(name.starts_with(".velmora-")) << name;
    EXPECT_EQ(fs::file_size(elsewhere_ + '/' + name), megabyte);
    EXPECT_EQ(notes(), 1u);
    start();
    EXPECT_EQ(made(), Names{});
    EXPECT_EQ(notes(), 0u);
    EXPECT_EQ(contentsOf(at("work/large")), std::string(3 * megabyte, 'x'));
}

TEST_F(LeftCopies, AMoveThatEndsLeavesNoNote) {
    EXPECT_EQ(moveWithoutUnnamed("work/a.txt"), 0);
    EXPECT_EQ(made(), Names{"x"});
    EXPECT_EQ(contentsOf(elsewhere_ + "/x"), "content of work/a.txt");
    EXPECT_EQ(moveWithoutUnnamed("work/.hidden"), 3);  // 183 of 90
    EXPECT_EQ(made(), Names{"x"});
    EXPECT_EQ(notes(), 0u);
}

TEST_F(LeftCopies, TheCopyOfAProcessThatLivesIsLeftAlone) {
    const int folder = open(elsewhere_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const std::string copy = elsewhere_ + "/.velmora-1-1";
    {
        const CopyNote note(folder, ".velmora-1-1");
        std::ofstream(copy) << "half";
        start();
        EXPECT_EQ(contentsOf(copy), "half");
        EXPECT_EQ(notes(), 1u);
    }
    close(folder);
    // The object has gone without its copy, as when the disk has failed.
    EXPECT_EQ(notes(), 1u);
    start();
    EXPECT_FALSE(fs::exists(copy));
    EXPECT_EQ(notes(), 0u);
}

TEST_F(LeftCopies, OnlyAFileOfSuchANameGoes) {
    const std::string state = stateFolder();
    const auto note = [&](int number, const std::string& name) {
        std::ofstream(state + "/moving-1-" + std::to_string(number)) << elsewhere_ << '/' << name;
    };
    fs::create_directory(elsewhere_ + "/.velmora-1-1");
    fs::create_symlink("there already", elsewhere_ + "/.velmora-1-2");
    std::ofstream(elsewhere_ + "/.velmora-1-3") << "three names";
    fs::create_hard_link(elsewhere_ + "/.velmora-1-3", elsewhere_ + "/other");
    fs::create_hard_link(elsewhere_ + "/.velmora-1-3", elsewhere_ + "/third");
    note(1, ".velmora-1-1");
    note(2, ".velmora-1-2");
    note(3, ".velmora-1-3");
    note(4, "there already");
    fs::create_directory_symlink(elsewhere_, at("target/way"));
    std::ofstream(elsewhere_ + "/.velmora-1-5") << "through a link";
    std::ofstream(state + "/moving-1-5") << at("target/way/.velmora-1-5");
    std::ofstream(state + "/another") << "kept";
    const TreeListing before = listTree(elsewhere_);
    start();
    EXPECT_EQ(listTree(elsewhere_), before);
    EXPECT_TRUE(fs::exists(state + "/another"));
}

TEST_F(LeftCopies, APlaceThatIsAwayIsRemembered) {
    const std::string name = killedMove();
    fs::rename(elsewhere_, elsewhere_ + " away");
    start();
    EXPECT_EQ(notes(), 1u);
    fs::rename(elsewhere_ + " away", elsewhere_);
    start();
    EXPECT_EQ(made(), Names{});
    EXPECT_EQ(notes(), 0u);
}

TEST_F(LeftCopies, APlaceThatStaysAwayIsForgottenAfterAMonth) {
    constexpr std::time_t day = 24 * 3600;
    const std::string away = elsewhere_ + " away/.velmora-1-1";
    const std::string kept = writeNote("moving-1-1", away, 30 * day - 600);
    const std::string forgotten = writeNote("moving-1-2", away, 30 * day + 600);
    start();
    EXPECT_TRUE(fs::exists(kept));
    EXPECT_FALSE(fs::exists(forgotten));
}

TEST_F(LeftCopies, ANoteWithoutAPathMayJustBeWrittenAndGoesAfterAMinute) {
    const std::string fresh = writeNote("moving-1-1", "", 30);
    const std::string old = writeNote("moving-1-2", "", 90);
    start();
    EXPECT_TRUE(fs::exists(fresh));
    EXPECT_FALSE(fs::exists(old));
}

TEST_F(LeftCopies, AnOldNoteOfAProcessWithThisNumberLeadsToNoLiveCopy) {
    const std::string process = std::to_string(getpid());
    for (int i = 1; i <= 20; ++i) {
        const std::string number = std::to_string(i);
        const std::string old = temporaryCopy + process + '-' + number;
        writeNote("moving-" + process + '-' + number, elsewhere_ + '/' + old);
    }
    const int folder = open(elsewhere_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const std::string name = temporaryCopyName();
    const CopyNote note(folder, name);
    std::ofstream(elsewhere_ + '/' + name) << "half";
    start();
    EXPECT_EQ(contentsOf(elsewhere_ + '/' + name), "half");
    EXPECT_EQ(notes(), 21u);
    close(folder);
}

TEST_F(LeftCopies, NoNameIsGivenTwice) {
    const std::string one = temporaryCopyName();
    EXPECT_TRUE(one.starts_with(temporaryCopy + std::to_string(getpid()) + '-')) << one;
    EXPECT_NE(one, temporaryCopyName());
}

TEST_F(LeftCopies, AKillWhileTheCopyGetsItsNameLeavesNoEmptyFile) {
    inChild([&] {
        constexpr int flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
        const UniqueFd from(open(at("work").c_str(), flags));
        const UniqueFd to(open(elsewhere_.c_str(), flags));
        CopiedEntry copied;
        if (const int failure = killAtRename(); failure != 0) return failure;
        return copyEntry(from.get(), "a.txt", to.get(), "x", copied);
    });
    EXPECT_EQ(contentsOf(elsewhere_ + "/x"), "content of work/a.txt");
    EXPECT_EQ(made().size(), 2u);
    start();
    EXPECT_EQ(made(), Names{"x"});
    EXPECT_EQ(contentsOf(elsewhere_ + "/x"), "content of work/a.txt");
    EXPECT_EQ(contentsOf(at("work/a.txt")), "content of work/a.txt");
    EXPECT_EQ(notes(), 0u);
}

TEST_F(LeftCopies, WhereNothingRenamesToAFreeNameNothingIsReplaced) {
    const auto moveThere = [&](const std::string& from, const std::string& to) {
        return inChild([&] {
            Volumes volumes;
            LinuxKernel32 kernel32(volumes);
            if (!refuseUnnamedFiles() || !letCallsFail(SYS_renameat2, EINVAL)) return 99;
            return kernel32.MoveFileA(in(from), there(to)) == 1 ? 0 : 1;
        });
    };
    EXPECT_EQ(moveThere("work/a.txt", "there already"), 1);
    EXPECT_EQ(contentsOf(elsewhere_ + "/there already"), "before");
    EXPECT_EQ(made(), Names{});
    EXPECT_EQ(moveThere("work/a.txt", "x"), 0);
    EXPECT_EQ(made(), Names{"x"});
    EXPECT_EQ(notes(), 0u);
}

TEST_F(LeftCopies, WhereNoNoteCanBeLockedTheMoveIsMadeAllTheSame) {
    const int result = inChild([&] {
        alarm(60);  // ends it if it tries for ever
        if (!refuseUnnamedFiles() || !letCallsFail(SYS_flock, ENOLCK)) return 99;
        Volumes volumes;
        LinuxKernel32 kernel32(volumes);
        return kernel32.MoveFileA(in("work/a.txt"), there("x")) == 1 ? 0 : 1;
    });
    EXPECT_EQ(result, 0);
    EXPECT_EQ(made(), Names{"x"});
    EXPECT_EQ(notes(), 0u);
}

TEST_F(LeftCopies, AMoveThatCanNotBeNotedIsMadeAllTheSame) {
    fs::create_directories(userFolder_ / ".local");
    std::ofstream(userFolder_ / ".local/state") << "no folder";
    EXPECT_EQ(moveWithoutUnnamed("work/a.txt"), 0);
    EXPECT_EQ(made(), Names{"x"});
}

}  // namespace
}  // namespace velmora::linuxhost
