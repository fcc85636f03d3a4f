// The specified files.
#include "alerts/file_list.h"

#include <gtest/gtest.h>

#include "fake/fake_machine.h"
#include "forms/forms.h"

namespace velmora::tests {
namespace {

struct FilesRig {
    fake::FakeMachine machine;
    Forms forms;
    ListView& list = forms.form1.LVFile;
    FileList files{machine.platform().fso};
};

TEST(FileList, ARowShowsTheNameAndKeepsTheWholePath) {
    FilesRig rig;
    rig.files.prcAllLV(rig.list, "C:\\data\\report.txt");
    ASSERT_EQ(rig.list.Count(), 1);
    EXPECT_EQ(rig.list.ListItems(1).Text(), "report.txt");
    EXPECT_EQ(rig.list.ListItems(1).Tag(), "C:\\data\\report.txt");
}

TEST(FileList, RowsComeAtTheEnd) {
    FilesRig rig;
    for (const char* path : {"C:\\b", "C:\\a", "C:\\c"}) rig.files.prcAllLV(rig.list, path);
    EXPECT_EQ(rig.list.ListItems(1).Text(), "b");
    EXPECT_EQ(rig.list.ListItems(2).Text(), "a");
    EXPECT_EQ(rig.list.ListItems(3).Text(), "c");
}

TEST(FileList, AnEmptyPathAddsNothing) {
    FilesRig rig;
    rig.files.prcAllLV(rig.list, "");
    EXPECT_EQ(rig.list.Count(), 0);
}

TEST(FileList, ThePathStaysAsItIsWritten) {
    FilesRig rig;
    for (const char* path :
         {" ", "nothing there", "C:\\", "C:\\Folder\\", "\\\\host\\share\\a b"}) {
        rig.files.prcAllLV(rig.list, path);
        EXPECT_EQ(rig.list.ListItems(rig.list.Count()).Tag(), path);
    }
    EXPECT_EQ(rig.list.ListItems(3).Text(), "");
    EXPECT_EQ(rig.list.ListItems(4).Text(), "Folder");
    EXPECT_EQ(rig.list.ListItems(5).Text(), "a b");
}

TEST(FileList, APathMayBeListedTwice) {
    FilesRig rig;
    rig.files.prcAllLV(rig.list, "C:\\a");
    rig.files.prcAllLV(rig.list, "C:\\a");
    EXPECT_EQ(rig.list.Count(), 2);
}

TEST(FileList, AddingARowLeavesTheBoxBesideTheList) {
    FilesRig rig;
    rig.files.prcAllLV(rig.list, "C:\\a");
    EXPECT_EQ(rig.forms.form1.cboFile.ListCount(), 0);
}

}  // namespace
}  // namespace velmora::tests
