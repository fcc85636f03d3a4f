#include "base/errors.h"
#include "machine_under_test.h"

namespace velmora::contract {
namespace {

class TextFilesContract : public ContractTest {
  protected:
    TextFiles& files() { return platform().files; }
};
INSTANTIATE_TEST_SUITE_P(Machines, TextFilesContract, everyMachine(), nameOf);

TEST_P(TextFilesContract, ALineMakesTheFile) {
    const std::string path = inScratch("new.log");
    files().appendLine(path, "first");
    EXPECT_EQ(subject->readFile(path), "first\r\n");
    EXPECT_TRUE(fso().FileExists(path));
}

TEST_P(TextFilesContract, LinesFollowEachOtherBehindWhatIsThere) {
    const std::string path = inScratch("old.log");
    subject->makeFile(path, "before\r\n");
    files().appendLine(path, "one");
    files().appendLine(path, "");
    files().appendLine(path, "two\nlines");
    EXPECT_EQ(subject->readFile(path), "before\r\none\r\n\r\ntwo\nlines\r\n");
}

TEST_P(TextFilesContract, EveryByteOfALineSurvives) {
    const std::string path = inScratch("Größe.log");
    const std::string line =
        "\xef\xbb\xbf Größe заметки 日本 💾 \xff\xfe" + std::string(1, '\0') + "\x1a.";
    files().appendLine(path, line);
    EXPECT_EQ(subject->readFile(path), line + "\r\n");
}

TEST_P(TextFilesContract, ALongLineStaysWhole) {
    const std::string path = inScratch("long.log");
    const std::string line(300'000, 'l');
    files().appendLine(path, line);
    EXPECT_EQ(subject->readFile(path), line + "\r\n");
}

TEST_P(TextFilesContract, InAMissingFolderIsError76) {
    const std::string path = inScratch("missing\\new.log");
    EXPECT_EQ(errorOf([&] { files().appendLine(path, "x"); }), error::pathNotFound);
    EXPECT_FALSE(fso().FolderExists(inScratch("missing")));
}

TEST_P(TextFilesContract, OnAMissingDriveIsError76) {
    const std::string path = letterWithoutDrive() + "\\new.log";
    EXPECT_EQ(errorOf([&] { files().appendLine(path, "x"); }), error::pathNotFound);
}

TEST_P(TextFilesContract, WithoutANameIsAnError) {
    EXPECT_EQ(errorOf([&] { files().appendLine("", "x"); }), error::pathNotFound);
}

TEST_P(TextFilesContract, AFolderCanNotBeWrittenInto) {
    subject->makeFolder(inScratch("folder"));
    EXPECT_EQ(errorOf([&] { files().appendLine(inScratch("folder"), "x"); }),
              error::pathFileAccess);
}

}  // namespace
}  // namespace velmora::contract
