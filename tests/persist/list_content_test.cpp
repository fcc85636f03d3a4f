#include "persist/list_content.h"

#include <gtest/gtest.h>

#include "controls/form.h"
#include "fake/fake_host.h"

namespace velmora {
namespace {

struct ListContentTest : testing::Test {
    ListContentTest() {
        view.setTag("rows");
        box.setTag("ticks");
        combo.setTag("texts");
    }

    fake::FakeHost host;
    Form form{"form"};
    ListView view{form, "view"};
    ListBox box{form, "box", {"zero", "one", "two"}};
    ComboBox combo{form, "combo"};
};

TEST_F(ListContentTest, IsEmptyForAnEmptyList) {
    EXPECT_EQ(prcLstContent(view, ListContent::text, host), "");
    EXPECT_EQ(prcLstContent(combo, ListContent::index, host), "");
    box.Clear();
    EXPECT_EQ(prcLstContent(box, ListContent::text, host), "");
    EXPECT_EQ(host.yields, 0);
}

TEST_F(ListContentTest, IsEmptyWhenNothingIsSelected) {
    view.Add("row").setChecked(true);
    EXPECT_EQ(prcLstContent(view, ListContent::text, host), "");
    EXPECT_EQ(prcLstContent(box, ListContent::index, host), "");
}

TEST_F(ListContentTest, CountsTheSelectedRowsOfAListViewFrom1) {
    for (const char* text : {"first", "second", "third"}) view.Add(text);
    view.ListItems(1).setSelected(true);
    view.ListItems(3).setSelected(true);
    EXPECT_EQ(prcLstContent(view, ListContent::index, host), "rows=1\r\nrows=3\r\n");
    EXPECT_EQ(prcLstContent(view, ListContent::text, host), "rows=first\r\nrows=third\r\n");
}

TEST_F(ListContentTest, CountsTheSelectedEntriesOfAListBoxFrom0) {
    box.setSelected(0, true);
    box.setSelected(2, true);
    EXPECT_EQ(prcLstContent(box, ListContent::index, host), "ticks=0\r\nticks=2\r\n");
    EXPECT_EQ(prcLstContent(box, ListContent::text, host), "ticks=zero\r\nticks=two\r\n");
}

TEST_F(ListContentTest, TakesEveryEntryOfAComboBoxFrom0) {
    combo.AddItem("a");
    combo.AddItem("");
    combo.AddItem("b c");
    EXPECT_EQ(prcLstContent(combo, ListContent::index, host), "texts=0\r\ntexts=1\r\ntexts=2\r\n");
    EXPECT_EQ(prcLstContent(combo, ListContent::text, host), "texts=a\r\ntexts=\r\ntexts=b c\r\n");
}

TEST_F(ListContentTest, TakesTheTagForItsKeyEvenWhenThereIsNone) {
    combo.setTag("");
    combo.AddItem("a");
    EXPECT_EQ(prcLstContent(combo, ListContent::text, host), "=a\r\n");
}

TEST_F(ListContentTest, HasTheModes1ForIndexesAnd2ForTexts) {
    EXPECT_EQ(static_cast<int>(ListContent::index), 1);
    EXPECT_EQ(static_cast<int>(ListContent::text), 2);
}

TEST_F(ListContentTest, YieldsAtEachEntryChosenOrNot) {
    box.setSelected(1, true);
    prcLstContent(box, ListContent::index, host);
    EXPECT_EQ(host.yields, 3);
    combo.AddItem("a");
    prcLstContent(combo, ListContent::index, host);
    EXPECT_EQ(host.yields, 4);
    view.Add("a");
    view.Add("b");
    prcLstContent(view, ListContent::index, host);
    EXPECT_EQ(host.yields, 6);
}

TEST_F(ListContentTest, PassesOverEntriesThatGoDuringAYield) {
    for (const char* text : {"a", "b", "c"}) {
        combo.AddItem(text);
        view.Add(text).setSelected(true);
    }
    for (int i = 0; i < 3; ++i) box.setSelected(i, true);
    host.onYield = [this](int) {
        combo.Clear();
        view.Clear();
        box.Clear();
    };
    EXPECT_EQ(prcLstContent(combo, ListContent::text, host), "texts=a\r\n");
    view.Add("a").setSelected(true);
    view.Add("b").setSelected(true);
    EXPECT_EQ(prcLstContent(view, ListContent::text, host), "rows=a\r\n");
    box.AddItem("x");
    box.AddItem("y");
    box.setSelected(0, true);
    box.setSelected(1, true);
    EXPECT_EQ(prcLstContent(box, ListContent::index, host), "ticks=0\r\n");
}

}  // namespace
}  // namespace velmora
