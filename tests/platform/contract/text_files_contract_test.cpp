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

TEST_P(TextFilesContract, LinesFollowEachOtherAfterWhatIsThere) {
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

TEST_P(TextFilesContract, EveryByteIsReadBackAsItWasWritten) {
    std::string bytes;
    for (int round = 0; round < 300; ++round) {
        for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
    }
    files().writeOver(inScratch("bytes"), bytes);
    EXPECT_EQ(files().readAll(inScratch("bytes")), bytes);
    EXPECT_EQ(subject->readFile(inScratch("bytes")), bytes);
}

TEST_P(TextFilesContract, NothingOfTheOldContentStaysAfterTheNew) {
    const std::string path = inScratch("set.dat");
    for (const auto size : {10'000, 20'000, 5, 1, 0, 3}) {
        const std::string content(static_cast<std::size_t>(size), 'c');
        files().writeOver(path, content);
        EXPECT_EQ(files().readAll(path), content);
    }
}

TEST_P(TextFilesContract, WithRoomReservedItIsWrittenAsEver) {
    const std::string path = inScratch("set.dat");
    for (const auto size : {10'000, 20'000, 5, 1, 0, 3}) {
        const std::string content(static_cast<std::size_t>(size), 'c');
        files().writeOver(path, content, {.reservesRoom = true});
        EXPECT_EQ(files().readAll(path), content);
    }
}

TEST_P(TextFilesContract, AnEmptyFileIsReadAsNothing) {
    subject->makeFile(inScratch("empty"), "");
    EXPECT_EQ(files().readAll(inScratch("empty")), "");
}

TEST_P(TextFilesContract, AFileThatIsRemovedIsGone) {
    const std::string path = inScratch("Größe.dat");
    files().writeOver(path, "x");
    files().remove(path);
    EXPECT_FALSE(fso().FileExists(path));
    EXPECT_EQ(errorOf([&] { files().remove(path); }), error::fileNotFound);
}

TEST_P(TextFilesContract, ReadingAFileThatIsNotThereIsError53) {
    EXPECT_EQ(errorOf([&] { files().readAll(inScratch("none")); }), error::fileNotFound);
    EXPECT_FALSE(fso().FileExists(inScratch("none")));
}

TEST_P(TextFilesContract, AMissingFolderOrDriveIsError76) {
    for (const std::string& path :
         {inScratch("missing\\set.dat"), letterWithoutDrive() + "\\set.dat", std::string()}) {
        EXPECT_EQ(errorOf([&] { files().readAll(path); }), error::pathNotFound) << path;
        EXPECT_EQ(errorOf([&] { files().writeOver(path, "x"); }), error::pathNotFound) << path;
        EXPECT_EQ(errorOf([&] { files().remove(path); }), error::fileNotFound) << path;
    }
}

TEST_P(TextFilesContract, AFolderIsNeitherReadNorWrittenNorRemovedAsAFile) {
    const std::string path = inScratch("folder");
    subject->makeFolder(path);
    EXPECT_EQ(errorOf([&] { files().readAll(path); }), error::pathFileAccess);
    EXPECT_EQ(errorOf([&] { files().writeOver(path, "x"); }), error::pathFileAccess);
    EXPECT_EQ(errorOf([&] { files().remove(path); }), error::pathFileAccess);
    EXPECT_TRUE(fso().FolderExists(path));
}

}  // namespace
}  // namespace velmora::contract
