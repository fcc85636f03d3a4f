// Lists of many rows: each operation makes a fixed number of calls for each row and handles each
// row once.
#include "alerts/lists/lists_rig.h"

namespace velmora::tests {
namespace {

constexpr int many = 10'000;

struct LongListsTest : testing::Test, ListsRig {
    std::vector<std::string> paths(const std::string& folder = "C:\\gone\\") const {
        std::vector<std::string> all;
        for (int i = 1; i <= many; ++i) all.push_back(folder + std::to_string(i));
        return all;
    }
    void answerEach(BoxAnswer answer) {
        host.onBox = [this, answer](const Box& box) {
            if (box.buttons != BoxButtons::ok) host.answers = {answer};
        };
    }
    void manyRows() {
        for (const std::string& path : paths()) row(path);
    }
    int removed = 0;
    int lastRemoved = many + 1;
    /// Rows must be removed from the last to the first, without a search from the top.
    void expectRemovalFromTheEnd() {
        list.RowRemoved.connect([this](int index) {
            ++removed;
            EXPECT_EQ(index, lastRemoved - 1);
            lastRemoved = index;
        });
    }
};

TEST_F(LongListsTest, ManyDroppedPathsAreListed) {
    answerEach(BoxAnswer::yes);
    list.userDrop(paths());
    EXPECT_EQ(list.Count(), many);
    EXPECT_EQ(tags(), paths());
    EXPECT_EQ(machine.log.count(), 2 * many);  // whether a file, whether a folder
}

TEST_F(LongListsTest, ATextOfManyPathsIsListed) {
    answerEach(BoxAnswer::yes);
    std::string text;
    for (const std::string& path : paths()) text += path + ";";
    form1.cboFile.setText(text);
    files.prcAddItem2LV(list, form1.cboFile);
    EXPECT_EQ(list.Count(), many);
    EXPECT_EQ(machine.log.count(), 3 * many);
}

TEST_F(LongListsTest, ManyChosenFilesAreListed) {
    file("C:\\a");
    std::string names = "C:\\";
    for (int i = 0; i < many; ++i) names += std::string("\0a", 2);
    host.paths = {names};
    form1.lblSF[file_button::add].userClick();
    EXPECT_EQ(list.Count(), many);
    EXPECT_EQ(ConstListedFile(list.ListItems(many)).size(), "0 KB");
}

TEST_F(LongListsTest, ManyPathsDroppedOnABoxAreItsEntries) {
    form1.cboFile.userDrop(paths());
    EXPECT_EQ(form1.cboFile.ListCount(), many);
}

TEST_F(LongListsTest, ManyRowsAreDeletedFromTheLastToTheFirst) {
    manyRows();
    form1.cboFile.userDrop(paths());
    answerEach(BoxAnswer::no);
    expectRemovalFromTheEnd();
    form1.cmdDeleteAll.userClick();
    EXPECT_EQ(removed, many);
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(form1.cboFile.ListCount(), 0);
    EXPECT_EQ(machine.log.count(), many);
}

TEST_F(LongListsTest, ManyRowsAreSelectedOnceEachWhenAllAreMoved) {
    manyRows();
    answerEach(BoxAnswer::yes);
    int selections = 0;
    list.SelectionChanged.connect([&] { ++selections; });
    form1.cmdMoveAll.userClick();
    EXPECT_EQ(list.Count(), many);  // none of them is there
    EXPECT_EQ(host.boxes.size(), static_cast<std::size_t>(many));
    EXPECT_EQ(selections, 2 * many - 1);
    EXPECT_TRUE(list.ListItems(1).Selected());
    EXPECT_FALSE(list.ListItems(2).Selected());
}

}  // namespace
}  // namespace velmora::tests
