// The rows of the specified files: what they show and how they are added.
#include "alerts/lists/lists_rig.h"

#include "base/text.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

std::uint64_t fileTimeOf(const DateTime& time) {
    return static_cast<std::uint64_t>(toSeconds(time) - toSeconds({1601, 1, 1, 0, 0, 0})) *
           10'000'000;
}

Texts cells(const ListItem& row) {
    Texts all{row.Text()};
    for (int i = 1; i <= row.SubItemCount(); ++i) all.push_back(row.SubItems(i));
    return all;
}

struct FileRowsTest : testing::Test, ListsRig {
    ListItem& added(const std::string& path) {
        files.prcAllLV(list, path);
        return list.ListItems(list.Count());
    }
    ListItem& dropped(const std::string& path) {
        list.userDrop({path});
        return list.ListItems(list.Count());
    }
    void giveTimes(const std::string& path) {
        machine.times[path] = {.created = fileTimeOf({2024, 1, 5, 15, 4, 5}),
                               .accessed = fileTimeOf({2025, 12, 31, 0, 7, 8}),
                               .written = fileTimeOf({2025, 2, 3, 12, 0, 1})};
    }
    Texts addText(const std::string& text) {
        form1.cboFile.setText(text);
        files.prcAddItem2LV(list, form1.cboFile);
        return tags();
    }
    std::string strFile;
    FileDialog chooser;
    Texts chosen() { return files.GetFiles(list, form1.cboFile, strFile, chooser); }
};

TEST_F(FileRowsTest, AFileFillsEveryColumn) {
    file("C:\\data\\report.txt", 2'000'000);
    giveTimes("C:\\data\\report.txt");
    ListItem& row = added("C:\\data\\report.txt");
    EXPECT_EQ(cells(row), (Texts{"report.txt", "1,953 KB", "C:\\data", "12/31/2025 12:07:08 AM",
                                 "2/3/2025 12:00:01 PM", "1/5/2024 3:04:05 PM", "TXT File"}));
    EXPECT_EQ(row.Tag(), "C:\\data\\report.txt");
    EXPECT_EQ(ConstListedFile(row).bytes(), "2000000");
}

TEST_F(FileRowsTest, TheProgramIsBusyWhileADroppedFolderIsMeasured) {
    fullFolder("C:\\data\\old");
    row("C:\\other");
    int busyAtMeasure = 0;
    machine.onCall = [&](const std::string& call) {
        if (call.starts_with("Size ")) busyAtMeasure = host.busy;
    };
    files.addDropped(list, {"C:\\data\\old"});
    EXPECT_EQ(busyAtMeasure, 1);
    EXPECT_EQ(host.busy, 0);
    EXPECT_EQ(host.timesBusy, 1);
}

TEST_F(FileRowsTest, LinksInATypedPathAreResolved) {
    file("C:\\real\\a.txt");
    machine.withoutLinks = [](const std::string& path) {
        return replaceAll(path, "C:\\way\\", "C:\\real\\");
    };
    file("C:\\way\\a.txt");
    form1.cboFile.setText("C:\\way\\a.txt\r\n");
    EXPECT_EQ(chosen(), Texts{"C:\\real\\a.txt"});
    form1.cboFile.setText("C:\\way\\a.txt; C:\\real\\a.txt");
    files.prcAddItem2LV(list, form1.cboFile);
    EXPECT_EQ(tags(), Texts(3, "C:\\real\\a.txt"));
}

TEST_F(FileRowsTest, DatesAndSizesHaveTheRegionalForm) {
    Regional& regional = machine.platform().regional;
    regional = {.digitGroup = ".",
                .decimalPoint = ",",
                .dateOrder = DateOrder::dayMonthYear,
                .dateSeparator = ".",
                .twelveHourClock = false};
    file("C:\\data\\report.txt", 2'000'000);
    giveTimes("C:\\data\\report.txt");
    ListItem& row = added("C:\\data\\report.txt");
    EXPECT_EQ(ConstListedFile(row).size(), "1.953 KB");
    EXPECT_EQ(ConstListedFile(row).created(), "05.01.2024 15:04:05");
    fullFolder("C:\\data\\old", 1536);
    EXPECT_EQ(ConstListedFile(dropped("C:\\data\\old")).size(), "1,5 KB");
}

TEST_F(FileRowsTest, SizesAreWholeKilobytesWithTiesAwayFromZero) {
    const auto sizeOf = [&](double bytes) {
        file("C:\\f");
        machine.sizes["C:\\f"] = bytes;
        ListItem& row = added("C:\\f");
        return ConstListedFile(row).size() + "/" + ConstListedFile(row).bytes();
    };
    EXPECT_EQ(sizeOf(0), "0 KB/0");
    EXPECT_EQ(sizeOf(511), "0 KB/511");
    EXPECT_EQ(sizeOf(512), "1 KB/512");
    EXPECT_EQ(sizeOf(1024), "1 KB/1024");
    EXPECT_EQ(sizeOf(5'000'000'000'000), "4,882,812,500 KB/5000000000000");
}

TEST_F(FileRowsTest, AMissingPathHasNoSizeAndNothingElse) {
    ListItem& row = added("C:\\data\\gone.txt");
    EXPECT_EQ(cells(row), (Texts{"gone.txt", "n/a", "", "", "", "", ""}));
    EXPECT_EQ(row.Tag(), "C:\\data\\gone.txt");
    EXPECT_EQ(ConstListedFile(row).bytes(), "");
}

TEST_F(FileRowsTest, AFolderAddedAsAFileHasNoSize) {
    fullFolder("C:\\data\\old");
    ListItem& row = added("C:\\data\\old");
    EXPECT_EQ(cells(row), (Texts{"old", "n/a", "C:\\data", "3/14/2026 3:09:26 PM",
                                 "3/14/2026 3:09:26 PM", "3/14/2026 3:09:26 PM", "File Folder"}));
}

TEST_F(FileRowsTest, RowsComeAtTheEnd) {
    for (const char* path : {"C:\\b", "C:\\a", "C:\\c"}) added(path);
    EXPECT_EQ(tags(), (Texts{"C:\\b", "C:\\a", "C:\\c"}));
}

TEST_F(FileRowsTest, AnEmptyPathAddsNothing) {
    files.prcAllLV(list, "");
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(machine.log.count(), 0);
}

TEST_F(FileRowsTest, ThePathStaysAsItIsWritten) {
    for (const char* path :
         {" ", "nothing there", "E:\\", "C:\\Folder\\", "\\\\host\\share\\a b"}) {
        EXPECT_EQ(added(path).Tag(), path);
    }
    EXPECT_EQ(list.ListItems(3).Text(), "");
    EXPECT_EQ(list.ListItems(4).Text(), "Folder");
    EXPECT_EQ(list.ListItems(5).Text(), "a b");
}

TEST_F(FileRowsTest, AFileAddedTwiceGetsTwoRows) {
    file("C:\\a");
    form1.cboFile.setText("C:\\a");
    form1.lblSF[file_button::add].userClick();
    form1.lblSF[file_button::add].userClick();
    EXPECT_EQ(tags(), (Texts{"C:\\a", "C:\\a"}));
}

TEST_F(FileRowsTest, AddingARowLeavesTheBoxBesideTheList) {
    file("C:\\a");
    added("C:\\a");
    form1.cboFile.setText("C:\\a");
    chosen();
    EXPECT_EQ(form1.cboFile.ListCount(), 0);
    EXPECT_EQ(form1.cboFile.Text(), "C:\\a");
}

TEST_F(FileRowsTest, TheRowIsAddedEvenIfAFieldCannotBeRead) {
    file("C:\\a", 1024);
    added("C:\\a");
    const int calls = machine.log.count();
    ASSERT_EQ(calls, 7);  // whether it exists, the file, and five of its fields
    for (int n = 1; n <= calls; ++n) {
        list.Clear();
        machine.log.failCall(n, error::permissionDenied);
        const Texts found = cells(added("C:\\a"));
        EXPECT_EQ(list.ListItems(1).Tag(), "C:\\a");
        EXPECT_EQ(found[1], n <= 3 ? "n/a" : "1 KB") << n;
        EXPECT_EQ(found[2], n <= 2 ? "" : "C:\\") << n;
        int missing = 0;
        for (const std::string& cell : found) missing += cell.empty() ? 1 : 0;
        EXPECT_EQ(missing, n <= 2 ? 5 : n == 3 ? 0 : 1) << n;
    }
}

TEST_F(FileRowsTest, TheDialogIsAskedForSeveralFiles) {
    EXPECT_EQ(chosen(), Texts{});
    ASSERT_EQ(host.fileDialogs.size(), 1u);
    EXPECT_EQ(host.fileDialogs[0].DialogTitle, "Choose File/Folder ");
    EXPECT_EQ(host.fileDialogs[0].Flags, 524800);
    EXPECT_EQ(host.fileDialogs[0].InitDir, "c:\\");
    EXPECT_EQ(host.fileDialogs[0].Filter, "All Files (*.*)|*.*");
}

TEST_F(FileRowsTest, ACancelledDialogAddsNothing) {
    EXPECT_EQ(chosen(), Texts{});
    EXPECT_EQ(list.Count(), 0);
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(FileRowsTest, OneChosenFileGetsARow) {
    file("C:\\data\\a.txt");
    host.paths = {"C:\\data\\a.txt"};
    EXPECT_EQ(chosen(), Texts{"C:\\data\\a.txt"});
    EXPECT_EQ(tags(), Texts{"C:\\data\\a.txt"});
    EXPECT_EQ(strFile, "C:\\data\\a.txt");
}

TEST_F(FileRowsTest, OneChosenNameThatIsNoFileStillGetsARow) {
    host.paths = {"C:\\data\\gone.txt"};
    EXPECT_EQ(chosen(), Texts{"C:\\data\\gone.txt"});
    EXPECT_EQ(ConstListedFile(list.ListItems(1)).size(), "n/a");
}

TEST_F(FileRowsTest, ThreeChosenFilesGetThreeRowsInTheDialogsOrder) {
    for (const char* name : {"b.txt", "a.txt", "c.txt"}) file(std::string("C:\\data\\") + name);
    host.paths = {std::string("C:\\data\0b.txt\0a.txt\0c.txt", 25)};
    const Texts all{"C:\\data\\b.txt", "C:\\data\\a.txt", "C:\\data\\c.txt"};
    EXPECT_EQ(chosen(), all);
    EXPECT_EQ(tags(), all);
}

TEST_F(FileRowsTest, TheFolderOfChosenFilesIsNoNameItself) {
    for (const char* name : {"a", "b", "c"}) file(std::string("C:\\data\\") + name);
    host.paths = {std::string("C:\\data\0b\0c", 11)};
    EXPECT_EQ(chosen(), (Texts{"C:\\data\\b", "C:\\data\\c"}));
}

TEST_F(FileRowsTest, ChosenFilesOfARootGetNoSecondBackSlash) {
    file("C:\\a.txt");
    file("C:\\b.txt");
    host.paths = {std::string("C:\\\0a.txt\0b.txt", 15)};
    EXPECT_EQ(chosen(), (Texts{"C:\\a.txt", "C:\\b.txt"}));
}

TEST_F(FileRowsTest, OfSeveralChosenNamesThoseThatAreNoFilesAreLeftOut) {
    file("C:\\data\\a.txt");
    machine.folders.insert("c:\\data\\sub");
    host.paths = {std::string("C:\\data\0gone\0a.txt\0sub\0", 23)};
    EXPECT_EQ(chosen(), Texts{"C:\\data\\a.txt"});
    EXPECT_EQ(tags(), Texts{"C:\\data\\a.txt"});
}

TEST_F(FileRowsTest, AChosenNameWithADriveOfItsOwnIsNotJoined) {
    for (const char* path : {"C:\\data\\a.txt", "C:\\data\\b.txt", "E:\\x\\b.txt"}) file(path);
    host.paths = {std::string("C:\\data\0a.txt\0E:\\x\\b.txt", 24)};
    const Texts all{"C:\\data\\a.txt", "E:\\x\\b.txt"};
    EXPECT_EQ(chosen(), all);
    EXPECT_EQ(tags(), all);
}

TEST_F(FileRowsTest, AnEntryOfTheBoxWithALineEndFromTheSettingsIsTheFile) {
    file("C:\\data\\a.txt");
    for (const char* end : {"\r\n", "\n", "\r", "\r\n\r\n\r\n"}) {
        form1.cboFile.setText(std::string("C:\\data\\a.txt") + end);
        EXPECT_EQ(chosen(), Texts{"C:\\data\\a.txt"});
        EXPECT_EQ(strFile, "C:\\data\\a.txt");
        EXPECT_EQ(list.ListItems(list.Count()).Tag(), "C:\\data\\a.txt");
    }
    EXPECT_EQ(list.Count(), 4);
    EXPECT_TRUE(host.dialogs.empty());
}

TEST_F(FileRowsTest, ALineEndAloneIsATextThatNamesNoFile) {
    form1.cboFile.setText("\r\n");
    EXPECT_EQ(chosen(), Texts{});
    EXPECT_EQ(list.Count(), 0);
    EXPECT_TRUE(host.dialogs.empty());
}

TEST_F(FileRowsTest, ATextInTheBoxThatIsAFileIsAddedWithoutADialog) {
    file("C:\\data\\a.txt");
    form1.cboFile.setText("C:\\data\\a.txt");
    EXPECT_EQ(chosen(), Texts{"C:\\data\\a.txt"});
    EXPECT_TRUE(host.dialogs.empty());
}

TEST_F(FileRowsTest, ATextInTheBoxThatIsNoFileAddsNothing) {
    for (const char* text : {"C:\\gone.txt", "C:\\data", "C:\\data\\a.txt;C:\\data\\b.txt"}) {
        form1.cboFile.setText(text);
        EXPECT_EQ(chosen(), Texts{}) << text;
    }
    EXPECT_EQ(list.Count(), 0);
    EXPECT_TRUE(host.dialogs.empty());
}

TEST_F(FileRowsTest, ADroppedFileAndFolderGetRowsWithTheirSizes) {
    file("C:\\data\\a.txt", 1024);
    fullFolder("C:\\data\\old", 1536);
    list.userDrop({"C:\\data\\a.txt", "C:\\data\\old"});
    EXPECT_EQ(ConstListedFile(list.ListItems(1)).size(), "1 KB");
    EXPECT_EQ(ConstListedFile(list.ListItems(1)).type(), "TXT File");
    EXPECT_EQ(cells(list.ListItems(2)),
              (Texts{"old", "1.5 KB", "C:\\data", "3/14/2026 3:09:26 PM", "3/14/2026 3:09:26 PM",
                     "3/14/2026 3:09:26 PM", "File Folder"}));
    EXPECT_EQ(ConstListedFile(list.ListItems(2)).bytes(), "1536");
    EXPECT_EQ(list.ListItems(2).Tag(), "C:\\data\\old");
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(FileRowsTest, AFolderWhoseSizeCannotBeReadShowsTheRest) {
    fullFolder("C:\\data\\old");
    // Whether it is a file, whether a folder, the folder, its size.
    machine.log.failCall(4, error::permissionDenied);
    ListItem& row = dropped("C:\\data\\old");
    EXPECT_EQ(ConstListedFile(row).size(), "n/a");
    EXPECT_EQ(ConstListedFile(row).type(), "File Folder");
}

TEST_F(FileRowsTest, ADroppedMissingPathIsAskedAbout) {
    host.answers = {BoxAnswer::yes};
    ListItem& row = dropped("C:\\gone.txt");
    EXPECT_EQ(said(), Texts{missingQuestion});
    EXPECT_EQ(host.boxes[0].buttons, BoxButtons::yesNo);
    EXPECT_EQ(cells(row), (Texts{"gone.txt", "n/a", "", "", "", "", ""}));
    EXPECT_EQ(row.Tag(), "C:\\gone.txt");
}

TEST_F(FileRowsTest, ADroppedMissingPathIsNotListedOnNoButPutIntoTheBox) {
    host.answers = {BoxAnswer::no};
    list.userDrop({"C:\\gone.txt"});
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(form1.cboFile.Text(), "C:\\gone.txt");
    EXPECT_EQ(form1.cboFile.ListCount(), 0);
}

TEST_F(FileRowsTest, OfSeveralDroppedPathsTheBoxTakesTheFirst) {
    file("C:\\b");
    host.answers = {BoxAnswer::no, BoxAnswer::yes};
    list.userDrop({"C:\\x", "C:\\b", "C:\\y"});
    EXPECT_EQ(tags(), (Texts{"C:\\b", "C:\\y"}));
    EXPECT_EQ(form1.cboFile.Text(), "C:\\x");
    EXPECT_EQ(form1.cboFile.ListCount(), 0);
}

TEST_F(FileRowsTest, ADropWithoutAPathChangesNothing) {
    form1.cboFile.setText("C:\\kept");
    list.userDrop({});
    EXPECT_EQ(form1.cboFile.Text(), "C:\\kept");
}

TEST_F(FileRowsTest, ATextOfSeveralPathsIsAddedPieceByPiece) {
    file("C:\\data\\a.txt");
    file("C:\\data\\b.txt");
    file("E:\\c.txt");
    EXPECT_EQ(addText(" C:\\data\\a.txt ; b.txt;E:\\c.txt"),
              (Texts{"C:\\data\\a.txt", "C:\\data\\b.txt", "E:\\c.txt"}));
    EXPECT_EQ(ConstListedFile(list.ListItems(1)).type(), "TXT File");
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(FileRowsTest, AClosingSemicolonAddsNoPiece) {
    file("C:\\data\\a.txt");
    EXPECT_EQ(addText("C:\\data\\a.txt;"), Texts{"C:\\data\\a.txt"});
    EXPECT_EQ(addText(""), Texts{"C:\\data\\a.txt"});
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(FileRowsTest, APieceAfterAFolderIsInThatFolder) {
    machine.folders.insert("c:\\data\\sub");
    file("C:\\data\\sub\\a.txt");
    EXPECT_EQ(addText("C:\\data\\sub;a.txt"), (Texts{"C:\\data\\sub", "C:\\data\\sub\\a.txt"}));
}

TEST_F(FileRowsTest, APieceAfterARootIsInThatRoot) {
    file("C:\\a.txt");
    file("C:\\b.txt");
    EXPECT_EQ(addText("C:\\a.txt;b.txt"), (Texts{"C:\\a.txt", "C:\\b.txt"}));
}

TEST_F(FileRowsTest, DoubleBackSlashesInATextBecomeOne) {
    file("C:\\data\\a.txt");
    EXPECT_EQ(addText("C:\\\\data\\\\a.txt"), Texts{"C:\\data\\a.txt"});
}

TEST_F(FileRowsTest, APieceThatDoesNotExistIsAskedAbout) {
    host.answers = {BoxAnswer::yes, BoxAnswer::no};
    EXPECT_EQ(addText("C:\\gone.txt;C:\\other"), Texts{"C:\\gone.txt"});
    ASSERT_EQ(host.boxes.size(), 2u);
    EXPECT_EQ(host.boxes[0].text, missingQuestion);
    EXPECT_EQ(ConstListedFile(list.ListItems(1)).size(), "n/a");
}

TEST_F(FileRowsTest, TheEmptyOperationDoesNothing) {
    files.prcGetFileSize();
    EXPECT_EQ(machine.log.count(), 0);
}

}  // namespace
}  // namespace velmora::tests
