#include "base/errors.h"
#include "machine_under_test.h"

namespace velmora::contract {
namespace {

class FoldersContract : public ContractTest {
  protected:
    void expectFolder(const std::string& path) {
        EXPECT_TRUE(fso().FolderExists(path)) << path;
        EXPECT_FALSE(fso().FileExists(path)) << path;
        EXPECT_EQ(fso().GetFolder(path)->Path(), path);
        EXPECT_EQ(fso().GetFolder(path + '\\')->Path(), path);
    }
    void expectFile(const std::string& path) {
        EXPECT_TRUE(fso().FileExists(path)) << path;
        EXPECT_FALSE(fso().FolderExists(path)) << path;
        EXPECT_EQ(errorOf([&] { fso().GetFolder(path); }), error::pathNotFound) << path;
    }
    void expectNothing(const std::string& path) {
        EXPECT_FALSE(fso().FileExists(path)) << path;
        EXPECT_FALSE(fso().FolderExists(path)) << path;
        EXPECT_EQ(errorOf([&] { fso().GetFolder(path); }), error::pathNotFound) << path;
    }
    /// The name as a folder, gone again, and as a file.
    void expectNameWorks(const std::string& name) {
        const std::string path = inScratch(name);
        expectNothing(path);
        subject->makeFolder(path);
        expectFolder(path);
        subject->remove(path);
        expectNothing(path);
        subject->makeFile(path, "x");
        expectFile(path);
    }
};
INSTANTIATE_TEST_SUITE_P(Machines, FoldersContract, everyMachine(), nameOf);

TEST_P(FoldersContract, FoldersAndFilesAreDistinguished) {
    expectNameWorks("data");
}

TEST_P(FoldersContract, TheRootOfADriveIsAFolder) {
    EXPECT_TRUE(fso().FolderExists("C:\\"));
    EXPECT_TRUE(fso().FolderExists("c:\\"));
    EXPECT_FALSE(fso().FileExists("C:\\"));
    EXPECT_EQ(fso().GetFolder("C:\\")->Path(), "C:\\");
}

TEST_P(FoldersContract, ThereIsNothingAtAnEmptyPath) {
    expectNothing("");
}

TEST_P(FoldersContract, NothingLiesBelowAMissingFolderOrAFile) {
    expectNothing(inScratch("missing\\data"));
    subject->makeFile(inScratch("file"), "x");
    expectNothing(inScratch("file\\data"));
}

TEST_P(FoldersContract, NamesWithBlanksWork) {
    expectNameWorks("two  blanks and more");
}

TEST_P(FoldersContract, NamesWithPunctuationWork) {
    expectNameWorks("a,b;c=d #%&'(1)[2]{3}~!@$^.txt");
}

TEST_P(FoldersContract, NamesWithQuotesWorkWhereTheHostTakesThem) {
    if (!subject->takesQuotes()) GTEST_SKIP() << "quotes can't be in names here";
    expectNameWorks("the \"quoted\" one");
}

TEST_P(FoldersContract, NamesInAnyScriptWork) {
    expectNameWorks("Größe заметки 日本 💾");
}

TEST_P(FoldersContract, LongNamesWork) {
    expectNameWorks(std::string(210, 'n'));
}

TEST_P(FoldersContract, PathsOfMoreThan300CharactersWork) {
    std::string path = subject->scratch();
    while (path.size() <= 300) {
        path += '\\' + std::string(50, 'p');
        subject->makeFolder(path);
    }
    expectFolder(path);
    subject->makeFile(path + "\\file", "x");
    expectFile(path + "\\file");
}

TEST_P(FoldersContract, ASlashSeparatesNamesAsWell) {
    subject->makeFolder(inScratch("data"));
    subject->makeFile(inScratch("data\\file"), "x");
    EXPECT_TRUE(fso().FolderExists(subject->scratch() + "/data"));
    EXPECT_TRUE(fso().FileExists(subject->scratch() + "/data/file"));
    EXPECT_EQ(fso().GetFolder(subject->scratch() + "/data/")->Path(), inScratch("data"));
}

TEST_P(FoldersContract, HostPathsAndDrivePathsLeadToEachOther) {
    Machine& machine = subject->machine();
    for (const std::string& path :
         {inScratch("data"), inScratch("Größe 日本"), std::string("C:\\")}) {
        EXPECT_EQ(machine.toDrivePath(machine.toHostPath(path)), path);
        EXPECT_EQ(machine.toDrivePath(path), path);
    }
}

TEST_P(FoldersContract, TheProgramLiesInAFolder) {
    const Application& app = platform().app;
    EXPECT_TRUE(fso().FolderExists(app.Path)) << app.Path;
    EXPECT_NE(app.Path.back(), '\\');
    EXPECT_FALSE(app.EXEName.empty());
    EXPECT_EQ(app.EXEName.find('\\'), std::string::npos);
    EXPECT_EQ(app.EXEName.find(".exe"), std::string::npos);
    EXPECT_FALSE(app.FolderKey.empty());
}

}  // namespace
}  // namespace velmora::contract
