// Removing files and folders for good, with everything around them listed before and after.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>

#include "base/errors.h"
#include "platform/linux/support/child_process.h"
#include "platform/linux/support/scratch_tree.h"

namespace velmora::linuxhost {
namespace {

namespace fs = std::filesystem;

class LinuxRemoval : public ScratchTree {
  protected:
    int errorOfRemoving(const std::string& path) {
        return errorOf([&] { files_.remove(path); });
    }
    int errorOfDeleting(const std::string& path, bool force) {
        return errorOf([&] { fso_.GetFolder(path)->Delete(force); });
    }
    void expectNothingGone(const std::function<void()>& step) {
        const TreeListing before = tree();
        step();
        EXPECT_EQ(tree(), before);
    }
    void expectGone(const std::string& name, const std::function<void()>& step) {
        const TreeListing before = tree();
        step();
        EXPECT_EQ(tree(), without(before, {name}));
    }
};

TEST_F(LinuxRemoval, AFileGoesAndNothingElse) {
    for (const char* name : {"work/a.txt", "work/two words ö.txt", "work/.hidden",
                             "work/Zwei Wörter 日本/ü.dat", "work/deep/deeper/c.txt"})
        expectGone(name, [&] { EXPECT_EQ(errorOfRemoving(in(name)), 0) << name; });
}

TEST_F(LinuxRemoval, ALinkGoesAndWhatItPointsToStays) {
    for (const char* name : {"work/to a file", "work/to outside", "work/dangling", "way"})
        expectGone(name, [&] { EXPECT_EQ(errorOfRemoving(in(name)), 0) << name; });
}

TEST_F(LinuxRemoval, AReadOnlyFileIsError75) {
    expectNothingGone(
        [&] { EXPECT_EQ(errorOfRemoving(in("work/protected.txt")), error::pathFileAccess); });
    // A link to it is not.
    fs::create_symlink("protected.txt", at("work/link"));
    EXPECT_EQ(errorOfRemoving(in("work/link")), 0);
    EXPECT_TRUE(fs::exists(at("work/protected.txt")));
}

TEST_F(LinuxRemoval, AFolderIsNoFileAndWhatIsNotThereIsError53) {
    expectNothingGone([&] {
        for (const std::string& path : {in("work/deep"), in("target") + '\\', std::string("C:\\")})
            EXPECT_EQ(errorOfRemoving(path), error::pathFileAccess) << path;
        for (const std::string& path :
             {in("work/missing"), in("missing/x"), in("work/a.txt/x"), std::string("Q:\\x"),
              std::string(), in("work/a.txt") + '\\', in("work/to outside") + '\\'})
            EXPECT_EQ(errorOfRemoving(path), error::fileNotFound) << path;
    });
}

TEST_F(LinuxRemoval, APathThatLeadsThroughALinkIsRefused) {
    expectNothingGone([&] {
        for (const char* name : {"way/a.txt", "work/to outside/jewel", "work/to inside/b.txt",
                                 "way/deep/deeper/c.txt"}) {
            EXPECT_EQ(errorOfRemoving(in(name)), error::permissionDenied) << name;
            EXPECT_EQ(operate(in(name), 0), 5) << name;
            EXPECT_EQ(recycle(in(name)), 5) << name;
        }
        for (const char* name : {"way/deep", "work/to inside/deeper"}) {
            EXPECT_EQ(errorOfDeleting(in(name), true), error::permissionDenied) << name;
            EXPECT_EQ(operate(in(name), 0), 5) << name;
        }
    });
}

TEST_F(LinuxRemoval, AFolderGoesWithAllInItAndWhatItsLinksLeadToStays) {
    fs::remove(at("work/protected.txt"));
    expectGone("work/deep", [&] { EXPECT_EQ(errorOfDeleting(in("work/deep"), false), 0); });
    expectGone("work", [&] { EXPECT_EQ(errorOfDeleting(in("work") + '\\', false), 0); });
    expectGone("target", [&] { EXPECT_EQ(errorOfDeleting(in("target"), false), 0); });
}

TEST_F(LinuxRemoval, WithoutForceNothingGoesFromAFolderWithSomethingReadOnly) {
    expectNothingGone(
        [&] { EXPECT_EQ(errorOfDeleting(in("work"), false), error::permissionDenied); });
    fs::rename(at("work/protected.txt"), at("work/deep/deeper/protected.txt"));
    expectNothingGone([&] {
        EXPECT_EQ(errorOfDeleting(in("work"), false), error::permissionDenied);
        EXPECT_EQ(errorOfDeleting(in("work/deep"), false), error::permissionDenied);
    });
    expectGone("work", [&] { EXPECT_EQ(errorOfDeleting(in("work"), true), 0); });
}

TEST_F(LinuxRemoval, AFolderThatItsOwnerMayNotWriteIsReadOnlyToo) {
    ASSERT_EQ(chmod(at("work/deep").c_str(), 0555), 0);
    expectNothingGone(
        [&] { EXPECT_EQ(errorOfDeleting(in("work/deep"), false), error::permissionDenied); });
    expectGone("work/deep", [&] { EXPECT_EQ(errorOfDeleting(in("work/deep"), true), 0); });
}

TEST_F(LinuxRemoval, ALinkToAFolderIsNoFolderToDelete) {
    expectNothingGone([&] {
        for (const char* name : {"work/to outside", "work/to inside", "way"}) {
            for (const bool force : {false, true})
                EXPECT_EQ(errorOfDeleting(in(name), force), error::permissionDenied) << name;
        }
    });
}

TEST_F(LinuxRemoval, AFolderThatWasAFileSinceIsGone) {
    const auto folder = fso_.GetFolder(in("target"));
    fs::remove(at("target"));
    make("target");
    expectNothingGone(
        [&] { EXPECT_EQ(errorOf([&] { folder->Delete(true); }), error::pathNotFound); });
}

TEST_F(LinuxRemoval, TheRootOfADriveIsRefused) {
    // In a process without the call that removes; the result doesn't matter.
    for (const bool force : {false, true}) {
        EXPECT_EQ(withoutCall(SYS_unlinkat, EPERM,
                              [&] {
                                  Volumes volumes;
                                  LinuxFileSystemObject fso(volumes);
                                  return errorOf([&] { fso.GetFolder("C:\\")->Delete(force); });
                              }),
                  error::permissionDenied);
    }
    EXPECT_EQ(withoutCall(SYS_unlinkat, EPERM, [&] { return operate("C:\\", 0); }), 5);
    EXPECT_EQ(withoutCall(SYS_renameat2, EPERM, [&] { return recycle("C:\\"); }), 5);
}

TEST_F(LinuxRemoval, TheShellRemovesForGoodWithoutUndo) {
    expectGone("work/a.txt", [&] { EXPECT_EQ(operate(in("work/a.txt"), 0), 0); });
    expectGone("work/to outside", [&] { EXPECT_EQ(operate(in("work/to outside"), 0), 0); });
    expectNothingGone([&] {
        EXPECT_EQ(operate(in("work/protected.txt"), 0), 5);
        EXPECT_EQ(operate(in("work/missing"), 0), 2);
        EXPECT_EQ(operate(in("work/a.txt2") + '\\', 0), 2);
        EXPECT_EQ(operate("", 0), 2);
        EXPECT_EQ(operate("Q:\\x", 0), 2);
        EXPECT_EQ(shell_.SHFileOperationA({"", 2, in("work/a.txt2") + '\0', 0}), 87);
    });
    expectGone("work", [&] { EXPECT_EQ(operate(in("work"), 0), 0); });
    EXPECT_EQ(listTree(userFolder_.path()), TreeListing{});
}

TEST_F(LinuxRemoval, TheShellGoesThroughAListUpToTheFirstFailure) {
    const TreeListing before = tree();
    const std::string list = in("work/a.txt") + '\0' + in("work/deep") + '\0' + in("work/missing") +
                             '\0' + in("work/a.txt2") + '\0';
    EXPECT_EQ(operate(list, 0), 2);
    EXPECT_EQ(tree(), without(before, {"work/a.txt", "work/deep"}));
}

TEST_F(LinuxRemoval, WithoutTheRightToItNothingGoes) {
    if (const std::string reason = whyNotNobody(); !reason.empty()) GTEST_SKIP() << reason;
    giveToNobody(root_.path());
    giveToNobody(userFolder_.path());
    ASSERT_EQ(chmod(at("work").c_str(), 0555), 0);
    ASSERT_EQ(chmod(at("").c_str(), 0555), 0);
    const TreeListing before = tree();
    const int result = asNobody([&] {
        Volumes volumes;
        LinuxTextFiles files(volumes);
        LinuxFileSystemObject fso(volumes);
        LinuxShell32 shell(volumes);
        const auto operation = [&](const std::string& path, std::uint16_t flags) {
            return shell.SHFileOperationA({"", file_operation::remove, path + '\0', flags});
        };
        for (const char* name : {"work/a.txt", "work/to outside"}) {
            if (errorOf([&] { files.remove(in(name)); }) != error::permissionDenied) return 1;
            if (operation(in(name), 0) != 5) return 2;
            if (operation(in(name), file_operation::allowUndo) != 5) return 3;
        }
        if (operation(in("work"), file_operation::allowUndo) != 5) return 4;
        if (tree() != before) return 5;
        return errorOf([&] { fso.GetFolder(in("target"))->Delete(true); });
    });
    EXPECT_EQ(result, error::permissionDenied);
    EXPECT_EQ(tree(), before);
    // A note of what didn't come stays in no trash.
    for (const auto& [path, what] : listTree(userFolder_.path())) EXPECT_EQ(what, "folder") << path;
}

}  // namespace
}  // namespace velmora::linuxhost
