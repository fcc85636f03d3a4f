// The section of the custom text file.
#include "notify/notify_rig.h"

namespace velmora::tests {
namespace {

struct CustomFileTest : testing::Test, NotifyRig {
    const std::string head = "File Contents: C:\\notes.txt\r\n=============\r\n";
    const std::string end = "\r\n=============";

    std::string sectionOf(const std::string& file) {
        machine.files["C:\\notes.txt"] = file;
        form.txtCustomContent.setText("C:\\notes.txt");
        return content.prcNotOpenCustFile();
    }

    CustomFileTest() { machine.drives["C:"] = {1, 2}; }
};

TEST_F(CustomFileTest, EachFieldIsALineOfItsOwn) {
    EXPECT_EQ(sectionOf("one\r\ntwo\r\n"), head + "one\r\ntwo\r\n" + end);
    EXPECT_EQ(sectionOf("one\ntwo"), head + "one\r\ntwo\r\n" + end);
}

TEST_F(CustomFileTest, ALineIsSplitAtItsCommas) {
    EXPECT_EQ(sectionOf("Dear all, the disk is full, again\r\n"),
              head + "Dear all\r\nthe disk is full\r\nagain\r\n" + end);
}

TEST_F(CustomFileTest, QuotingKeepsCommasAndIsTakenAway) {
    EXPECT_EQ(sectionOf("\"Dear all, hello\",\"x\"\r\n"), head + "Dear all, hello\r\nx\r\n" + end);
}

TEST_F(CustomFileTest, ABlankLineIsAnEmptyField) {
    EXPECT_EQ(sectionOf("one\r\n\r\ntwo"), head + "one\r\n\r\ntwo\r\n" + end);
}

TEST_F(CustomFileTest, AnEmptyFileHasNoFields) {
    EXPECT_EQ(sectionOf(""), head + end);
}

TEST_F(CustomFileTest, TheHeadingShowsThePathAsItWasTyped) {
    machine.files["C:\\notes.txt"] = "one";
    form.txtCustomContent.setText("  C:\\notes.txt ");
    EXPECT_EQ(content.prcNotOpenCustFile(),
              "File Contents:   C:\\notes.txt \r\n=============\r\none\r\n\r\n=============");
    EXPECT_EQ(machine.log.calls(), (Texts{"FileExists C:\\notes.txt", "readAll C:\\notes.txt"}));
}

TEST_F(CustomFileTest, AMissingFileIsToldInPlaceOfItsContent) {
    for (const std::string path : {"C:\\none.txt", " C:\\none.txt", "", "C:\\"}) {
        form.txtCustomContent.setText(path);
        EXPECT_EQ(content.prcNotOpenCustFile(), "File Contents: " + path +
                                                    "\r\n=============\r\nFile Access Error" +
                                                    "\r\n=============");
    }
}

TEST_F(CustomFileTest, AFileThatCanNotBeReadIsAnError) {
    machine.lockedFiles["C:\\notes.txt"] = error::permissionDenied;
    EXPECT_EQ(errorOf([this] { sectionOf("one"); }), error::permissionDenied);
    EXPECT_EQ(attemptOf([this] { sectionOf("one"); }), "read the file for the mail C:\\notes.txt");
}

TEST_F(CustomFileTest, TheSectionIsPartOfTheBody) {
    const std::string section = sectionOf("one");
    select({6});
    EXPECT_EQ(content.prcNotPreContent(), section + "\r\n\r\n");
}

}  // namespace
}  // namespace velmora::tests
