// Each operation by hand in which the n-th call of the machine fails, for every n and for several
// errors. After any failure only the file that is being handled may have changed.
#include "alerts/lists/lists_rig.h"

#include <algorithm>
#include <functional>

namespace velmora::tests {
namespace {

using Disk = std::map<std::string, std::string>;
using Operation = std::function<void(ListsRig&)>;

constexpr int errors[] = {error::invalidCall,      error::fileNotFound, error::deviceIo,
                          error::permissionDenied, error::diskNotReady, error::pathFileAccess,
                          error::pathNotFound};

/// Two files and a folder that are listed, and some that aren't.
struct SweptLists : ListsRig {
    SweptLists() {
        listedFile("C:\\data\\a.txt");
        listedFile("C:\\data\\b.txt");
        fullFolder("C:\\data\\old");
        file("C:\\data\\kept.txt");
        file("E:\\spare\\kept.txt");
        form1.cboFile.AddItem("C:\\data\\one");
        form1.cboFile.AddItem("C:\\data\\two");
        forget();
    }
};

/// The files that were removed from the disk, and those that were added.
struct Difference {
    std::vector<std::string> gone;
    std::vector<std::string> come;
};

Difference difference(const Disk& before, const Disk& after) {
    Difference found;
    for (const auto& [path, content] : before) {
        const auto there = after.find(path);
        if (there == after.end()) {
            found.gone.push_back(path);
        } else {
            EXPECT_EQ(there->second, content) << path;
        }
    }
    for (const auto& [path, content] : after) {
        if (before.count(path) == 0) found.come.push_back(path);
    }
    return found;
}

/// Runs the operation with each of its calls failing in turn; `look` gets the outcome and whether
/// the error reached the caller.
void sweep(const Operation& operation,
           const std::function<void(SweptLists&, const Difference&, bool failed)>& look) {
    SweptLists whole;
    operation(whole);
    const int questions = whole.machine.log.count();
    ASSERT_GT(questions, 0);
    for (const int number : errors) {
        for (int n = 1; n <= questions; ++n) {
            SweptLists rig;
            const Disk before = rig.disk();
            rig.machine.log.failCall(n, number);
            bool failed = false;
            try {
                operation(rig);
            } catch (const RuntimeError& failure) {
                failed = true;
                EXPECT_EQ(failure.number(), number);
            }
            SCOPED_TRACE("error " + std::to_string(number) + " at " +
                         rig.machine.log.calls()[static_cast<std::size_t>(n - 1)]);
            EXPECT_EQ(rig.count("drop"), rig.count("restore"));
            look(rig, difference(before, rig.disk()), failed);
        }
    }
}

bool lists(const ListsRig& rig, const std::string& tag) {
    const auto all = rig.tags();
    return std::find(all.begin(), all.end(), tag) != all.end();
}

using Paths = std::vector<std::string>;

TEST(ManualFault, AMoveTouchesTheSelectedFileOnly) {
    sweep(
        [](ListsRig& rig) {
            rig.list.userSelect({2});
            rig.host.answers = {BoxAnswer::yes};
            rig.form1.cmdMove.userClick();
        },
        [](SweptLists& rig, const Difference& changed, bool failed) {
            // The move itself reports a failure by its result.
            EXPECT_EQ(changed.gone, Paths{});
            EXPECT_EQ(changed.come, Paths{});
            EXPECT_TRUE(lists(rig, "C:\\data\\a.txt"));
            EXPECT_EQ(lists(rig, "C:\\data\\b.txt"), failed);
            EXPECT_EQ(rig.alertRows().size(), failed ? 0u : 1u);
            EXPECT_EQ(rig.form1.cboFile.ListCount(), 2);
        });
}

TEST(ManualFault, AMoveThatAsksForAFolderTouchesTheSelectedFileOnly) {
    sweep(
        [](ListsRig& rig) {
            rig.list.userSelect({1});
            rig.host.answers = {BoxAnswer::no};
            rig.host.paths = {"E:\\spare"};
            rig.form1.cmdMove.userClick();
        },
        [](SweptLists& rig, const Difference& changed, bool failed) {
            EXPECT_EQ(changed.gone, Paths{});
            EXPECT_EQ(changed.come, Paths{});
            EXPECT_EQ(lists(rig, "C:\\data\\a.txt"), failed);
            EXPECT_TRUE(lists(rig, "C:\\data\\b.txt"));
        });
}

TEST(ManualFault, MoveAllEndsAtTheFileThatFailsAndKeepsItsRow) {
    sweep(
        [](ListsRig& rig) {
            rig.host.onBox = [&rig](const Box& box) {
                if (box.buttons == BoxButtons::yesNo) rig.host.answers = {BoxAnswer::yes};
            };
            rig.form1.cmdMoveAll.userClick();
        },
        [](SweptLists& rig, const Difference& changed, bool failed) {
            EXPECT_FALSE(failed);
            const bool ended = !rig.host.boxes.empty() &&
                               rig.said().back() == "Unable to move all.  A file may be invalid.";
            // Every removed file was added elsewhere, and no other.
            ASSERT_EQ(changed.gone.size(), changed.come.size());
            for (const std::string& path : changed.gone) {
                EXPECT_TRUE(path == "C:\\data\\a.txt" || path == "C:\\data\\b.txt") << path;
                EXPECT_FALSE(lists(rig, path));
            }
            for (const std::string& path : changed.come) {
                EXPECT_TRUE(path == "E:\\spare\\a.txt" || path == "E:\\spare\\b.txt") << path;
            }
            if (ended) {
                EXPECT_EQ(changed.gone.size() + static_cast<std::size_t>(rig.list.Count()), 2u);
            } else {
                EXPECT_EQ(changed.gone.size(), 1u);  // the move that failed by its result
                EXPECT_EQ(rig.list.Count(), 0);
            }
        });
}

TEST(ManualFault, ADeletionTouchesTheSelectedFileOnly) {
    sweep(
        [](ListsRig& rig) {
            rig.list.userSelect({1});
            rig.form1.cmdDelete.userClick();
        },
        [](SweptLists& rig, const Difference& changed, bool failed) {
            EXPECT_FALSE(failed);
            EXPECT_EQ(changed.gone, Paths{});
            EXPECT_EQ(changed.come, Paths{});
            EXPECT_TRUE(lists(rig, "C:\\data\\b.txt"));
            // Either the row was removed with a report, or the error was shown in a box and all
            // stays.
            const bool shown = !rig.host.boxes.empty();
            EXPECT_EQ(lists(rig, "C:\\data\\a.txt"), shown);
            EXPECT_EQ(rig.alertRows().size(), shown ? 0u : 1u);
            EXPECT_EQ(rig.count("tick"), shown ? 0 : 1);
        });
}

TEST(ManualFault, DeletingAFolderTouchesNothingBesideIt) {
    sweep(
        [](ListsRig& rig) {
            rig.list.Clear();
            rig.row("C:\\data\\old", true);
            rig.form1.cmdDelete.userClick();
        },
        [](SweptLists& rig, const Difference& changed, bool failed) {
            EXPECT_FALSE(failed);
            EXPECT_EQ(changed.gone, Paths{});
            EXPECT_EQ(changed.come, Paths{});
            EXPECT_EQ(rig.list.Count(), rig.host.boxes.empty() ? 0 : 1);
        });
}

TEST(ManualFault, DeletingAllForGoodTouchesListedFilesOnly) {
    for (const BoxAnswer skip : {BoxAnswer::yes, BoxAnswer::no}) {
        sweep(
            [skip](ListsRig& rig) {
                rig.host.answers = {BoxAnswer::no, skip};
                rig.form1.cmdDeleteAll.userClick();
            },
            [skip](SweptLists& rig, const Difference& changed, bool failed) {
                EXPECT_FALSE(failed);
                EXPECT_EQ(changed.come, Paths{});
                for (const std::string& path : changed.gone) {
                    EXPECT_TRUE(path == "C:\\data\\a.txt" || path == "C:\\data\\b.txt") << path;
                    EXPECT_FALSE(lists(rig, path));
                }
                // The file that failed is there and listed; the answer decides about the next ones.
                ASSERT_EQ(rig.host.boxes.size(), 2u);
                const bool asked = rig.host.boxes[1].buttons == BoxButtons::yesNo;
                EXPECT_EQ(changed.gone.size() + static_cast<std::size_t>(rig.list.Count()), 2u);
                if (asked && skip == BoxAnswer::yes) {
                    EXPECT_EQ(rig.list.Count(), 1);
                }
                EXPECT_EQ(rig.form1.cboFile.ListCount(), 2);
            });
    }
}

TEST(ManualFault, SendingAllToTheBinTouchesListedFilesOnly) {
    sweep(
        [](ListsRig& rig) {
            rig.host.answers = {BoxAnswer::yes, BoxAnswer::no};
            rig.form1.cmdDeleteAll.userClick();
        },
        [](SweptLists& rig, const Difference& changed, bool failed) {
            EXPECT_FALSE(failed);
            EXPECT_EQ(changed.come, Paths{});
            EXPECT_EQ(changed.gone.size(), rig.machine.recycled.size());
            for (const std::string& path : changed.gone) {
                EXPECT_TRUE(path == "C:\\data\\a.txt" || path == "C:\\data\\b.txt") << path;
                EXPECT_FALSE(lists(rig, path));
            }
            EXPECT_EQ(rig.machine.log.countOf("remove "), 0);
            EXPECT_EQ(rig.form1.cboFile.ListCount(), 2);
        });
}

TEST(ManualFault, ListingNeverTouchesAFile) {
    const Operation operations[] = {
        [](ListsRig& rig) {
            rig.host.answers = {BoxAnswer::yes, BoxAnswer::yes, BoxAnswer::yes};
            rig.list.userDrop({"C:\\data\\a.txt", "C:\\data\\old", "C:\\gone"});
        },
        [](ListsRig& rig) {
            rig.host.paths = {std::string("C:\\data\0a.txt\0b.txt", 19)};
            rig.form1.lblSF[file_button::add].userClick();
        },
        [](ListsRig& rig) {
            rig.form1.cboFile.setText("C:\\data\\a.txt;b.txt;old");
            rig.files.prcAddItem2LV(rig.list, rig.form1.cboFile);
        },
        [](ListsRig& rig) {
            rig.form1.cboProg.setText("C:\\data\\a.txt");
            rig.form1.Label5[program_button::add].userClick();
            rig.form1.cmdPAdd.userClick();
            rig.programRows.userDrop({"C:\\data\\a.txt", "C:\\data\\b.txt"});
        },
    };
    for (const Operation& operation : operations) {
        sweep(operation, [](SweptLists& rig, const Difference& changed, bool) {
            EXPECT_EQ(changed.gone, Paths{});
            EXPECT_EQ(changed.come, Paths{});
            EXPECT_GE(rig.list.Count(), 2);
            EXPECT_EQ(rig.tags()[0], "C:\\data\\a.txt");
            EXPECT_EQ(rig.tags()[1], "C:\\data\\b.txt");
        });
    }
}

TEST(ManualFault, TheWindowStaysOnTopAgainAlsoWhenTheQuestionEndsInAnError) {
    SweptLists rig;
    rig.list.userSelect({1});
    rig.host.onBox = [](const Box&) { throw RuntimeError(error::outOfMemory); };
    EXPECT_THROW(rig.form1.cmdMove.userClick(), RuntimeError);
    EXPECT_EQ(rig.order, (Paths{"drop", "restore"}));
    EXPECT_EQ(rig.list.Count(), 2);
}

}  // namespace
}  // namespace velmora::tests
