#include "platform/linux/trash/move_to_trash.h"

#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <iostream>

#include "base/text.h"
#include "platform/linux/support/child_process.h"
#include "platform/linux/support/mounting.h"
#include "platform/linux/support/scratch_tree.h"
#include "platform/linux/trash/trash.h"

namespace velmora::linuxhost {
namespace {

namespace fs = std::filesystem;

// What a desktop program reads from a note: the bytes of the path, and the date as it is written.
struct Note {
    std::string path;
    std::string date;
};

Note readNote(const std::string& file) {
    Note note;
    const auto lines = split(contentsOf(file), "\n");
    if (lines.empty() || lines[0] != "[Trash Info]") return note;
    for (const std::string& line : lines) {
        if (line.starts_with("DeletionDate=")) note.date = line.substr(13);
        if (!line.starts_with("Path=")) continue;
        for (std::size_t i = 5; i < line.size(); ++i) {
            const bool isEscaped = line[i] == '%' && i + 2 < line.size();
            note.path += isEscaped
                             ? static_cast<char>(std::stoi(line.substr(i + 1, 2), nullptr, 16))
                             : line[i];
            if (isEscaped) i += 2;
        }
    }
    return note;
}

bool isDate(const std::string& text) {
    std::string picture = text;
    std::replace_if(
        picture.begin(), picture.end(), [](char c) { return c >= '0' && c <= '9'; }, '9');
    return picture == "9999-99-99T99:99:99";
}

// Every entry of "files" has its note and the other way round; the notes' paths by the entries'
// names. Folders belong to the user alone.
std::map<std::string, std::string> readTrash(const std::string& trash) {
    std::map<std::string, std::string> found;
    for (const auto& entry : fs::directory_iterator(trash + "/files")) {
        const std::string name = entry.path().filename().string();
        const Note note = readNote(trash + "/info/" + name + ".trashinfo");
        EXPECT_NE(note.path, "") << name;
        EXPECT_TRUE(isDate(note.date)) << note.date;
        found[name] = note.path;
    }
    const auto notes = fs::directory_iterator(trash + "/info");
    EXPECT_EQ(static_cast<std::size_t>(std::distance(begin(notes), end(notes))), found.size());
    for (const std::string& folder : {trash, trash + "/files", trash + "/info"}) {
        struct stat status {};
        EXPECT_EQ(stat(folder.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, 0700u) << folder;
    }
    return found;
}

class MoveToTrash : public ScratchTree {
  protected:
    std::string trash() const { return userFolder_ / ".local/share/Trash"; }
    void expectRecycled(const std::string& name) {
        const TreeListing before = tree();
        EXPECT_EQ(recycle(in(name)), 0) << name;
        EXPECT_EQ(tree(), without(before, {name}));
    }
};

TEST_F(MoveToTrash, AFileGoesIntoTheTrashOfTheHomeAndLeavesANote) {
    const TreeListing before = tree();
    expectRecycled("work/a.txt");
    EXPECT_EQ(readTrash(trash()),
              (std::map<std::string, std::string>{{"a.txt", at("work/a.txt")}}));
    EXPECT_EQ(listTree(trash())["files/a.txt"], before.at("work/a.txt"));
    struct stat status {};
    ASSERT_EQ(stat((trash() + "/info/a.txt.trashinfo").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600u);
}

TEST_F(MoveToTrash, EverythingRecycledIsKeptAsItWas) {
    const TreeListing before = tree();
    for (const char* name :
         {"work/two words ö.txt", "work/protected.txt", "work/.hidden", "work/to a file",
          "work/to outside", "work/dangling", "work/deep", "work/Zwei Wörter 日本"})
        expectRecycled(name);
    const TreeListing recycled = listTree(trash() + "/files");
    for (const auto& [path, what] : recycled) EXPECT_EQ(what, before.at("work/" + path));
    EXPECT_EQ(recycled.size(), 12u);
    for (const auto& [name, path] : readTrash(trash())) EXPECT_EQ(path, at("work/" + name));
}

TEST_F(MoveToTrash, OddNamesComeBackFromTheNote) {
    const std::string odd = "100% \"a\\b\"\n[x]=y;#caf\xe9";
    std::ofstream(at("work/") + odd) << "x";
    EXPECT_EQ(recycle(drivePath(at("work/") + odd)), 0);
    EXPECT_EQ(readTrash(trash()), (std::map<std::string, std::string>{{odd, at("work/") + odd}}));
}

TEST_F(MoveToTrash, NotesAreWrittenByTheRules) {
    EXPECT_EQ(trashNote("/home/me/a b%ö.txt", {2026, 3, 4, 5, 6, 7}),
              "[Trash Info]\nPath=/home/me/a%20b%25%C3%B6.txt\nDeletionDate=2026-03-04T05:06:07\n");
    EXPECT_EQ(trashNote("folder/x", {2026, 12, 31, 23, 59, 59}),
              "[Trash Info]\nPath=folder/x\nDeletionDate=2026-12-31T23:59:59\n");
}

TEST_F(MoveToTrash, ANameThatIsTakenGetsANumber) {
    for (int i = 0; i < 30; ++i) {
        make("work/a.txt");
        EXPECT_EQ(recycle(in("work/a.txt")), 0);
    }
    const auto found = readTrash(trash());
    EXPECT_EQ(found.size(), 30u);
    EXPECT_EQ(found.count("a.txt"), 1u);
    EXPECT_EQ(found.count("a.2.txt"), 1u);
    EXPECT_EQ(found.count("a.20.txt"), 1u);
    for (const auto& [name, path] : found) EXPECT_EQ(path, at("work/a.txt"));
}

TEST_F(MoveToTrash, WhatLiesInTheTrashWithoutItsCounterpartIsLeftAlone) {
    fs::create_directories(trash() + "/files");
    fs::create_directories(trash() + "/info");
    std::ofstream(trash() + "/files/a.txt") << "without a note";
    std::ofstream(trash() + "/info/a.2.txt.trashinfo") << "without a file";
    EXPECT_EQ(recycle(in("work/a.txt")), 0);
    TreeListing left = listTree(trash());
    EXPECT_EQ(left["files/a.txt"], "file 14 bytes: without a note");
    EXPECT_EQ(left["info/a.2.txt.trashinfo"], "file 14 bytes: without a file");
    EXPECT_EQ(left["files/a.3.txt"], "file 21 bytes: content of work/a.txt");
    EXPECT_EQ(left.count("info/a.txt.trashinfo"), 0u);
    EXPECT_EQ(left.count("info/a.3.txt.trashinfo"), 1u);
}

TEST_F(MoveToTrash, NamesAreCutForTheNotesEnding) {
    EXPECT_EQ(nameInTrash("a.txt", 1), "a.txt");
    EXPECT_EQ(nameInTrash("a.txt", 2), "a.2.txt");
    EXPECT_EQ(nameInTrash("folder", 12), "folder.12");
    EXPECT_EQ(nameInTrash(".hidden", 3), ".hidden.3");
    const std::string longName(251, 'n');
    EXPECT_EQ(nameInTrash(longName + ".txt", 1), std::string(241, 'n') + ".txt");
    EXPECT_EQ(nameInTrash(longName + ".txt", 10), std::string(238, 'n') + ".10.txt");
    EXPECT_EQ(nameInTrash("x." + longName, 2), "x." + std::string(241, 'n') + ".2");
    // No letter is cut in two.
    EXPECT_EQ(nameInTrash(std::string(244, 'n') + "ö", 1), std::string(244, 'n'));
    const std::string path = "work/" + longName + ".txt";
    make(path);
    expectRecycled(path);
    EXPECT_EQ(readTrash(trash()).begin()->second, at(path));
}

TEST_F(MoveToTrash, WhatIsMissingIsReported) {
    const TreeListing before = tree();
    EXPECT_EQ(recycle(in("work/missing")), 2);
    EXPECT_EQ(recycle(in("missing/x")), 2);
    EXPECT_EQ(recycle("Q:\\x"), 2);
    EXPECT_EQ(tree(), before);
    EXPECT_EQ(listTree(userFolder_.path()), TreeListing{});
}

TEST_F(MoveToTrash, AListGoesPathByPath) {
    const TreeListing before = tree();
    EXPECT_EQ(recycle(in("work/a.txt") + '\0' + in("work/deep")), 0);
    EXPECT_EQ(tree(), without(before, {"work/a.txt", "work/deep"}));
    EXPECT_EQ(readTrash(trash()).size(), 2u);
}

TEST_F(MoveToTrash, ADataFolderOfTheUsersChoiceHoldsTheTrash) {
    fs::create_directories(userFolder_ / "real/data");
    fs::create_directory_symlink(userFolder_ / "real", userFolder_ / "link");
    const Environment data("XDG_DATA_HOME", userFolder_ / "link/data");
    expectRecycled("work/a.txt");
    EXPECT_EQ(readTrash(userFolder_ / "real/data/Trash").size(), 1u);
}

TEST_F(MoveToTrash, ATrashThatLeadsElsewhereIsNoneAndTheFileStays) {
    if (const std::string reason = whyNotNobody(); !reason.empty()) GTEST_SKIP() << reason;
    giveToNobody(root_.path());
    giveToNobody(userFolder_.path());
    const auto recycleAsNobody = [&] {
        return asNobody([&] {
            Volumes volumes;
            LinuxShell32 shell(volumes);
            return shell.SHFileOperationA({"", 3, in("work/a.txt") + '\0', 64});
        });
    };
    const TreeListing before = tree();
    fs::create_directories(userFolder_ / ".local/share");
    // The user can't make a trash in the root's top folder either.
    fs::create_directory_symlink(at("outside"), trash());
    EXPECT_EQ(recycleAsNobody(), 5);
    EXPECT_EQ(tree(), before);
    fs::remove(trash());
    for (const char* name : {"files", "info"}) {
        fs::create_directories(trash());
        fs::create_directory_symlink(at("outside"), trash() + '/' + name);
        giveToNobody(userFolder_.path());
        EXPECT_EQ(recycleAsNobody(), 5) << name;
        EXPECT_EQ(tree(), before) << name;
        fs::remove_all(trash());
    }
    std::ofstream(trash()) << "a file";
    EXPECT_EQ(recycleAsNobody(), 5);
    EXPECT_EQ(tree(), before);
    fs::remove(trash());
    giveToNobody(userFolder_.path());
    EXPECT_EQ(recycleAsNobody(), 0);
    EXPECT_EQ(tree(), without(before, {"work/a.txt"}));
}

TEST_F(MoveToTrash, WhereACallFailsTheFileStaysAndNoNoteIsLeft) {
    fs::create_directories(trash() + "/files");
    fs::create_directories(trash() + "/info");
    const TreeListing before = tree();
    const TreeListing trashBefore = listTree(userFolder_.path());
    const std::pair<long, int> failures[] = {{SYS_write, ENOSPC},    {SYS_write, EIO},
                                             {SYS_renameat2, EIO},   {SYS_renameat2, EACCES},
                                             {SYS_renameat2, EBUSY}, {SYS_renameat2, ENOSPC}};
    for (const auto& [call, failure] : failures) {
        const int code = withoutCall(call, failure, [&] { return recycle(in("work/a.txt")); });
        EXPECT_EQ(code, failure == ENOSPC ? 112 % 256 : 5) << call << ' ' << failure;
        EXPECT_EQ(tree(), before);
        EXPECT_EQ(listTree(userFolder_.path()), trashBefore);
    }
}

TEST_F(MoveToTrash, AFolderThatHoldsTheTrashStays) {
    expectRecycled("work/a.txt");
    const TreeListing before = listTree(userFolder_.path());
    EXPECT_EQ(recycle(drivePath(userFolder_.path())), 5);
    EXPECT_EQ(listTree(userFolder_.path()), before);
}

TEST_F(MoveToTrash, WhatIsRecycledIsEmptiedWithTheRest) {
    expectRecycled("work/a.txt");
    expectRecycled("work/deep");
    // As if the home were a drive: no other trash of the machine is meant.
    const std::vector<DriveRoot> home{{"H:", userFolder_.path()}};
    EXPECT_EQ(emptyTrash(home, home), 0);
    EXPECT_EQ(listTree(trash()).size(), 2u);
}

TEST_F(MoveToTrash, TheDesktopsOwnToolReadsIt) {
    if (std::system("command -v gio >/dev/null && command -v dbus-run-session >/dev/null") != 0) {
        std::cout << "skipped: gio or dbus-run-session is not installed\n";
        GTEST_SKIP() << "gio or dbus-run-session is not installed";
    }
    expectRecycled("work/two words ö.txt");
    const std::string output = userFolder_ / "listed";
    const std::string command =
        "timeout 20 dbus-run-session -- gio list -a trash::orig-path trash:/// >'" + output +
        "' 2>/dev/null";
    if (std::system(command.c_str()) != 0) {
        std::cout << "skipped: gio has no trash here\n";
        GTEST_SKIP() << "gio has no trash here";
    }
    EXPECT_NE(contentsOf(output).find("two words ö.txt"), std::string::npos);
    EXPECT_NE(contentsOf(output).find(at("work/two words ö.txt")), std::string::npos);
}

// A drive of its own with a trash in its top folder.
class TrashOnADrive : public MountingTest {
  protected:
    void SetUp() override {
        MountingTest::SetUp();
        if (IsSkipped()) return;
        ASSERT_TRUE(mount_.mountTmpfs("size=8M"));
        drive_ = newDrive();
        fs::create_directories(top("data/sub"));
        std::ofstream(top("data/sub/ä file.txt")) << "x";
        std::ofstream(top("data/other")) << "y";
        std::ofstream(top("first")) << "z";
    }
    std::string top(const std::string& name) const { return mount_.path() + '/' + name; }
    std::int32_t recycle(const std::string& name) {
        return machine_->platform().shell32.SHFileOperationA(
            {"", file_operation::remove, drive_ + '\\' + name + '\0', file_operation::allowUndo});
    }
    /// The file is in that trash, and nothing but it has gone.
    void expectRecycledInto(const std::string& trash) {
        const TreeListing before = listTree(mount_.path());
        EXPECT_EQ(recycle("data\\sub\\ä file.txt"), 0);
        using Found = std::map<std::string, std::string>;
        EXPECT_EQ(readTrash(top(trash)), (Found{{"ä file.txt", "data/sub/ä file.txt"}}));
        TreeListing left = listTree(mount_.path());
        std::erase_if(left, [&](const auto& line) {
            return line.first.starts_with(".Trash") && before.count(line.first) == 0;
        });
        EXPECT_EQ(left, without(before, {"data/sub/ä file.txt"}));
        EXPECT_EQ(listTree(userFolder_.path()), TreeListing{});
    }

    TestFolder userFolder_;
    OtherUser user_{userFolder_.path()};
    TestMount mount_;
    std::string drive_;
};

TEST_F(TrashOnADrive, TheUsersOwnIsMadeWhereThereIsNone) {
    expectRecycledInto(".Trash-" + uid());
}

TEST_F(TrashOnADrive, TheFolderOfAllUsersComesFirst) {
    fs::create_directory(top(".Trash"));
    ASSERT_EQ(chmod(top(".Trash").c_str(), 01777), 0);
    expectRecycledInto(".Trash/" + uid());
}

TEST_F(TrashOnADrive, AFolderOfAllUsersWithoutTheStickyBitIsPassedOver) {
    fs::create_directory(top(".Trash"));
    ASSERT_EQ(chmod(top(".Trash").c_str(), 0777), 0);
    expectRecycledInto(".Trash-" + uid());
    EXPECT_TRUE(fs::is_empty(top(".Trash")));
}

TEST_F(TrashOnADrive, ALinkForAFolderOfAllUsersIsPassedOver) {
    fs::create_directory(top("elsewhere"));
    ASSERT_EQ(chmod(top("elsewhere").c_str(), 01777), 0);
    fs::create_directory_symlink("elsewhere", top(".Trash"));
    expectRecycledInto(".Trash-" + uid());
    EXPECT_TRUE(fs::is_empty(top("elsewhere")));
}

TEST_F(TrashOnADrive, AFolderThatSomebodyElseHasPutThereIsPassedOver) {
    fs::create_directories(top(".Trash/" + uid()));
    ASSERT_EQ(chmod(top(".Trash").c_str(), 01777), 0);
    ASSERT_EQ(chown(top(".Trash/" + uid()).c_str(), 65534, 65534), 0);
    expectRecycledInto(".Trash-" + uid());
    EXPECT_TRUE(fs::is_empty(top(".Trash/" + uid())));
}

TEST_F(TrashOnADrive, WithoutAUsableTrashTheFileStays) {
    fs::create_directory(top("elsewhere"));
    fs::create_directory_symlink("elsewhere", top(".Trash-" + uid()));
    const TreeListing before = listTree(mount_.path());
    EXPECT_EQ(recycle("data\\other"), 5);
    EXPECT_EQ(listTree(mount_.path()), before);
    fs::remove(top(".Trash-" + uid()));
    fs::create_directory(top(".Trash-" + uid()));
    ASSERT_EQ(chown(top(".Trash-" + uid()).c_str(), 65534, 65534), 0);
    const TreeListing owned = listTree(mount_.path());
    EXPECT_EQ(recycle("data\\other"), 5);
    EXPECT_EQ(listTree(mount_.path()), owned);
}

TEST_F(TrashOnADrive, AFileInTheTopFolderIsNotedByItsName) {
    EXPECT_EQ(recycle("first"), 0);
    using Found = std::map<std::string, std::string>;
    EXPECT_EQ(readTrash(top(".Trash-" + uid())), (Found{{"first", "first"}}));
    EXPECT_EQ(recycle("data"), 0);
    EXPECT_EQ(readTrash(top(".Trash-" + uid())), (Found{{"first", "first"}, {"data", "data"}}));
    EXPECT_EQ(recycle(""), 5);
}

TEST_F(TrashOnADrive, AMountInTheDriveIsNotRecycled) {
    fs::create_directory(top("data/inner"));
    ASSERT_EQ(::mount(userFolder_.path().c_str(), top("data/inner").c_str(), "", MS_BIND, nullptr),
              0);
    std::ofstream(top("data/inner/file")) << "x";
    EXPECT_EQ(recycle("data\\inner"), 5);
    EXPECT_EQ(recycle("data\\inner\\file"), 5);
    EXPECT_EQ(contentsOf(userFolder_ / "file"), "x");
    umount2(top("data/inner").c_str(), MNT_DETACH);
}

TEST_F(TrashOnADrive, AFullDriveKeepsTheFileWhereItIs) {
    TestMount small;
    ASSERT_TRUE(small.mountTmpfs("size=64k,nr_inodes=4"));
    std::ofstream(small.path() + "/a") << "1";
    std::ofstream(small.path() + "/b") << "2";
    const TreeListing before = listTree(small.path());
    const std::string path = machine_->toDrivePath(small.path() + "/a") + '\0';
    const auto code = machine_->platform().shell32.SHFileOperationA({"", 3, path, 64});
    EXPECT_TRUE(code == 5 || code == 112) << code;
    TreeListing left = listTree(small.path());
    EXPECT_EQ(without(left, {".Trash-" + uid()}), before);
}

}  // namespace
}  // namespace velmora::linuxhost
