// Events of the number of files and folders.
#include "base/errors.h"
#include "monitor/event_rig.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

struct CountedFolder : EventRig {
    CountedFolder(int files, int folders) {
        measured("C:\\", 5000);
        hold(files, folders);
        tickEvent(evt::quantity);
    }
    void hold(int files, int folders) {
        machine.files.clear();
        machine.folders.clear();
        for (int i = 0; i < files; ++i) machine.files["C:\\file" + std::to_string(i)] = "";
        for (int i = 0; i < folders; ++i) machine.folders.insert("c:\\folder" + std::to_string(i));
    }
    Texts eventsFor(const std::string& tag) {
        at(1).setFolderCounts(tag);
        form1.LVAlert.Clear();
        WatchRow(list.ListItems(1)).setFirstAlert("");
        machine.log.clear();
        pass();
        return alertTexts();
    }
};

TEST(EventQuantity, TwelveFilesBeforeAndFourteenNow) {
    CountedFolder rig(14, 3);
    EXPECT_EQ(rig.eventsFor("file:12|fold:3|"),
              Texts{"File Quantity changed in C:\\ from 12 to 14\r\n.\r\n"});
}

TEST(EventQuantity, FoldersHaveTheirOwnWords) {
    CountedFolder rig(14, 3);
    EXPECT_EQ(rig.eventsFor("file:14|fold:5|"),
              Texts{"Folder Quantity changed in C:\\ from 5 to 3\r\n.\r\n"});
}

TEST(EventQuantity, BothChangesAreInOneAlertFilesFirst) {
    CountedFolder rig(0, 1);
    EXPECT_EQ(rig.eventsFor("file:1|fold:0|"),
              Texts{"File Quantity changed in C:\\ from 1 to 0\r\n.\r\n"
                    "Folder Quantity changed in C:\\ from 0 to 1\r\n.\r\n"});
}

TEST(EventQuantity, EqualCountsAreNoEvent) {
    CountedFolder rig(14, 3);
    EXPECT_EQ(rig.eventsFor("file:14|fold:3|"), Texts{});
}

TEST(EventQuantity, AnEmptyTagAsksNothing) {
    CountedFolder rig(14, 3);
    EXPECT_EQ(rig.eventsFor(""), Texts{});
    EXPECT_EQ(rig.machine.log.count(), 0);
}

TEST(EventQuantity, APartMissingInTheTagIsNotCompared) {
    CountedFolder rig(14, 3);
    EXPECT_EQ(rig.eventsFor("N/A"), Texts{});
    EXPECT_EQ(rig.machine.log.calls(), Texts{"GetFolder C:\\"});
    EXPECT_EQ(rig.eventsFor("file:1|"),
              Texts{"File Quantity changed in C:\\ from 1 to 14\r\n.\r\n"});
    EXPECT_EQ(rig.eventsFor("fold:1|"),
              Texts{"Folder Quantity changed in C:\\ from 1 to 3\r\n.\r\n"});
    EXPECT_EQ(rig.eventsFor("file:1"), Texts{});
    EXPECT_EQ(rig.eventsFor("file:-1|fold:-1|"), Texts{});
}

TEST(EventQuantity, AStoredCountThatIsNoNumberFailsTheTest) {
    CountedFolder rig(14, 3);
    EXPECT_EQ(errorOf([&] { rig.eventsFor("file:|fold:3|"); }), 13);
    EXPECT_EQ(errorOf([&] { rig.eventsFor("file:14|fold:many|"); }), 13);
}

TEST(EventQuantity, AMissingFolderIsNoEvent) {
    EventRig rig;
    rig.watch("C:\\gone", 5000);
    rig.at(1).setFolderCounts("file:1|fold:1|");
    rig.tickEvent(evt::quantity);
    rig.pass();
    EXPECT_EQ(rig.alertCount(), 0);
    EXPECT_EQ(rig.machine.log.calls(), Texts{"GetFolder C:\\gone"});
}

TEST(EventQuantity, AnyOtherFailureOfTheFolderGoesToTheCheck) {
    for (const int number : {5, 7, 70}) {
        CountedFolder rig(14, 3);
        rig.at(1).setFolderCounts("file:1|fold:1|");
        rig.machine.log.failCall(1, number);
        EXPECT_EQ(errorOf([&] { rig.pass(); }), number);
    }
}

TEST(EventQuantity, AFolderRowIsCountedByItsOwnFolder) {
    EventRig rig;
    rig.machine.folders = {"c:\\data", "c:\\data\\sub", "c:\\other"};
    rig.machine.files = {{"C:\\data\\a", ""}, {"C:\\data\\b", ""}, {"C:\\data\\sub\\c", ""}};
    rig.watch("C:\\data", 5000);
    rig.at(1).setFolderCounts("file:1|fold:0|");
    rig.tickEvent(evt::quantity);
    rig.pass();
    EXPECT_EQ(rig.alertTexts(), Texts{"File Quantity changed in C:\\data from 1 to 2\r\n.\r\n"
                                      "Folder Quantity changed in C:\\data from 0 to 1\r\n.\r\n"});
}

TEST(EventQuantity, InRealChecksEachChangeIsReportedOnce) {
    CountedFolder rig(0, 0);
    rig.check();
    EXPECT_EQ(rig.alertCount(), 0);
    rig.hold(3, 1);
    rig.check();
    EXPECT_EQ(rig.alertTexts(), Texts{"File Quantity changed in C:\\ from 0 to 3\r\n.\r\n"
                                      "Folder Quantity changed in C:\\ from 0 to 1\r\n.\r\n"});
    rig.check();
    EXPECT_EQ(rig.alertCount(), 1);
    rig.hold(2, 1);
    rig.check();
    EXPECT_EQ(rig.alertTexts().front(), "File Quantity changed in C:\\ from 3 to 2\r\n.\r\n");
    EXPECT_EQ(rig.alertCount(), 2);
}

}  // namespace
}  // namespace velmora::tests
