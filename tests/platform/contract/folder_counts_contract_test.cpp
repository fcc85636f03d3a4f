// How much lies in a folder.
#include "base/errors.h"
#include "machine_under_test.h"

namespace velmora::contract {
namespace {

class FolderCountsContract : public ContractTest {
  protected:
    FolderCountsContract() { subject->makeFolder(path_); }
    void expectCounts(double files, double folders) {
        const auto folder = fso().GetFolder(path_);
        EXPECT_EQ(folder->FilesCount(), files);
        EXPECT_EQ(folder->SubFoldersCount(), folders);
    }
    std::string within(const std::string& name) { return path_ + '\\' + name; }

    const std::string path_ = inScratch("counted");
};
INSTANTIATE_TEST_SUITE_P(Machines, FolderCountsContract, everyMachine(), nameOf);

TEST_P(FolderCountsContract, AnEmptyFolderHasNothingInIt) {
    expectCounts(0, 0);
}

TEST_P(FolderCountsContract, FilesAndFoldersAreCountedApart) {
    for (const char* name : {"one", "two.txt", "three 3"}) subject->makeFile(within(name), "x");
    for (const char* name : {"a", "b.d"}) subject->makeFolder(within(name));
    expectCounts(3, 2);
}

TEST_P(FolderCountsContract, NamesThatBeginWithAPointCount) {
    subject->makeFile(within(".hidden"), "x");
    subject->makeFile(within("..."
                             "more"),
                      "x");
    subject->makeFolder(within(".folder"));
    expectCounts(2, 1);
}

TEST_P(FolderCountsContract, WhatLiesFurtherBelowOrBesideIsLeftOut) {
    subject->makeFolder(within("a"));
    subject->makeFile(within("a\\deep"), "x");
    subject->makeFolder(within("a\\deeper"));
    subject->makeFile(inScratch("counted too"), "x");
    expectCounts(0, 1);
}

TEST_P(FolderCountsContract, AThousandEntriesAreCounted) {
    for (int i = 0; i < 1000; ++i) {
        subject->makeFile(within(std::string(60, 'n') + std::to_string(i)), "");
    }
    expectCounts(1000, 0);
}

TEST_P(FolderCountsContract, NamesInAnyScriptCount) {
    subject->makeFile(within("Größe 日本 💾"), "x");
    subject->makeFolder(within("заметки"));
    expectCounts(1, 1);
}

TEST_P(FolderCountsContract, FoldersWithLongPathsAreCounted) {
    std::string path = path_;
    while (path.size() <= 300) {
        path += '\\' + std::string(50, 'p');
        subject->makeFolder(path);
    }
    subject->makeFile(path + "\\file", "x");
    const auto folder = fso().GetFolder(path);
    EXPECT_EQ(folder->FilesCount(), 1);
    EXPECT_EQ(folder->SubFoldersCount(), 0);
}

TEST_P(FolderCountsContract, ARootIsCounted) {
    EXPECT_GE(fso().GetFolder("C:\\")->FilesCount(), 0);
    EXPECT_GE(fso().GetFolder("C:\\")->SubFoldersCount(), 0);
}

TEST_P(FolderCountsContract, BothCountsBelongToOneReading) {
    subject->makeFile(within("one"), "x");
    const auto folder = fso().GetFolder(path_);
    EXPECT_EQ(folder->FilesCount(), 1);
    subject->makeFile(within("two"), "x");
    subject->makeFolder(within("a"));
    EXPECT_EQ(folder->FilesCount(), 1);
    EXPECT_EQ(folder->SubFoldersCount(), 0);
    expectCounts(2, 1);
}

TEST_P(FolderCountsContract, AFolderThatIsGoneCanNotBeCounted) {
    const auto folder = fso().GetFolder(path_);
    subject->remove(path_);
    EXPECT_EQ(errorOf([&] { folder->FilesCount(); }), error::pathNotFound);
    EXPECT_EQ(errorOf([&] { folder->SubFoldersCount(); }), error::pathNotFound);
}

}  // namespace
}  // namespace velmora::contract
