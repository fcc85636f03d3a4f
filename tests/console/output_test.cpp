#include "console/output.h"

#include <gtest/gtest.h>

#include <sstream>
#include <utility>

#include "controls/form.h"

namespace velmora::console {
namespace {

struct OutputTest : testing::Test {
    std::string printed() { return std::exchange(stream, std::ostringstream()).str(); }

    std::ostringstream stream;
    Output output{stream};
    Form form{"form"};
    ListView list{form, "list"};
};

TEST_F(OutputTest, RepliesInLinesForAPerson) {
    output.ok();
    output.value(std::string("a b"));
    output.value(std::int64_t{-5});
    output.value(true);
    output.value(false);
    output.error("no such thing");
    EXPECT_EQ(printed(), "ok\na b\n-5\nTrue\nFalse\nerror: no such thing\n");
}

TEST_F(OutputTest, RepliesInObjectsForAProgram) {
    output.setJson(true);
    output.ok();
    output.value(std::string("a \"b\""));
    output.value(std::int64_t{-5});
    output.value(true);
    output.error("no \"such\" thing");
    EXPECT_EQ(printed(),
              "{\"ok\":true}\n{\"ok\":\"a \\\"b\\\"\"}\n{\"ok\":-5}\n{\"ok\":true}\n"
              "{\"error\":\"no \\\"such\\\" thing\"}\n");
}

TEST_F(OutputTest, KeepsEachReplyOnOneLine) {
    output.value(std::string("a\r\nb"));
    output.error("not a value: a\nb");
    EXPECT_EQ(printed(), "$\"a\\r\\nb\"\nerror: $\"not a value: a\\nb\"\n");
    output.setJson(true);
    output.value(std::string("a\r\nb"));
    EXPECT_EQ(printed(), "{\"ok\":\"a\\r\\nb\"}\n");
}

TEST_F(OutputTest, ShowsHelpAsLinesOrAsOneText) {
    output.text("a\nb");
    EXPECT_EQ(printed(), "a\nb\n");
    output.setJson(true);
    output.text("a\nb");
    EXPECT_EQ(printed(), "{\"ok\":\"a\\nb\"}\n");
}

TEST_F(OutputTest, ShowsRowsWithTickTextSubItemsAndIcon) {
    list.addColumn({"Path"});
    list.addColumn({"Free"});
    list.addColumn({"Total"});
    list.Add("C:\\").setSubItems(1, "1 KB");
    ListItem& second = list.Add("D:\\");
    second.setChecked(true);
    second.setSelected(true);
    second.setReportIcon(1, "alert");
    output.rows(list);
    EXPECT_EQ(printed(), "1 [ ] C:\\ | 1 KB | \n2 [x] D:\\ |  |  <alert> (selected)\n2 row(s)\n");
}

TEST_F(OutputTest, ShowsRowsAsAnArrayOfObjects) {
    output.setJson(true);
    output.rows(list);
    EXPECT_EQ(printed(), "{\"ok\":[]}\n");
    list.Add("x");
    output.rows(list);
    EXPECT_EQ(printed(),
              "{\"ok\":[{\"Text\":\"x\",\"SubItems\":[],\"Checked\":false,\"Selected\":false,"
              "\"Bold\":false,\"Tag\":\"\",\"SubTags\":[],\"ReportIcon\":\"\"}]}\n");
}

TEST_F(OutputTest, ShowsTheEntriesOfACheckListWithTheirTicks) {
    ListBox box{form, "box", {"one", "two"}};
    box.setSelected(1, true);
    output.entries(box);
    EXPECT_EQ(printed(), "0 [ ] one\n1 [x] two\n2 entries\n");
    output.setJson(true);
    output.entries(box);
    EXPECT_EQ(printed(),
              "{\"ok\":[{\"Text\":\"one\",\"Checked\":false},{\"Text\":\"two\",\"Checked\":true}]}"
              "\n");
}

TEST_F(OutputTest, ShowsTheEntriesOfAComboBox) {
    ComboBox box{form, "box"};
    output.entries(box);
    EXPECT_EQ(printed(), "0 entries\n");
    box.AddItem("one");
    box.AddItem("two");
    output.entries(box);
    EXPECT_EQ(printed(), "0 one\n1 two\n2 entries\n");
    output.setJson(true);
    output.entries(box);
    EXPECT_EQ(printed(), "{\"ok\":[{\"Text\":\"one\"},{\"Text\":\"two\"}]}\n");
}

TEST_F(OutputTest, PrintsAnAlertWithTimeRatingAndText) {
    for (const char* header : {"Rating", "Time/Date", "Action Taken"}) list.addColumn({header});
    ListItem& row = list.Add("High");
    row.setSubItems(1, "20260314 15:09");
    row.setSubItems(2, "low on space");
    output.alert(row);
    EXPECT_EQ(printed(), "alert: 20260314 15:09 | High | low on space\n");
    output.setJson(true);
    output.alert(row);
    EXPECT_EQ(printed(),
              "{\"event\":\"alert\",\"time\":\"20260314 15:09\",\"rating\":\"High\","
              "\"text\":\"low on space\"}\n");
}

TEST_F(OutputTest, PrintsABoxWithTheAnswerThatItGot) {
    const Box box{
        .text = "Clear?\r\nAll?", .icon = BoxIcon::question, .buttons = BoxButtons::yesNo};
    output.box(box, BoxAnswer::no);
    EXPECT_EQ(printed(), "box: Velmora | question | $\"Clear?\\r\\nAll?\" | yes no -> no\n");
    output.setJson(true);
    output.box(box, BoxAnswer::yes);
    EXPECT_EQ(printed(),
              "{\"event\":\"box\",\"title\":\"Velmora\",\"icon\":\"question\","
              "\"text\":\"Clear?\\r\\nAll?\",\"buttons\":\"yes no\",\"answer\":\"yes\"}\n");
}

TEST_F(OutputTest, NamesTheIconsAndButtonsOfBoxes) {
    output.box({.text = "a", .title = "t"}, BoxAnswer::ok);
    output.box({.text = "a", .icon = BoxIcon::critical, .title = "t"}, BoxAnswer::ok);
    output.box(
        {.text = "a", .icon = BoxIcon::information, .buttons = BoxButtons::okCancel, .title = "t"},
        BoxAnswer::cancel);
    EXPECT_EQ(printed(),
              "box: t | none | a | ok -> ok\nbox: t | critical | a | ok -> ok\n"
              "box: t | information | a | ok cancel -> cancel\n");
}

TEST_F(OutputTest, PrintsStatusChangesForAPersonUnderWatchOnly) {
    output.status(1, "Checking...");
    EXPECT_EQ(printed(), "");
    output.setWatch(true);
    output.status(1, "Checking...");
    EXPECT_EQ(printed(), "status 1: Checking...\n");
    output.setWatch(false);
    output.status(1, "Ready");
    EXPECT_EQ(printed(), "");
}

TEST_F(OutputTest, PrintsStatusChangesForAProgramAlways) {
    output.setJson(true);
    output.status(3, "Times Checked: 1");
    EXPECT_EQ(printed(), "{\"event\":\"status\",\"panel\":3,\"text\":\"Times Checked: 1\"}\n");
}

TEST_F(OutputTest, PrintsWhatGoesToTheShell) {
    output.shell("Open", {{"path", "C:\\a b"}, {"count", std::int64_t{2}}});
    EXPECT_EQ(printed(), "shell: Open | path C:\\a b | count 2\n");
    output.setJson(true);
    output.shell("Open", {{"path", "C:\\a b"}});
    EXPECT_EQ(printed(), "{\"event\":\"shell\",\"operation\":\"Open\",\"path\":\"C:\\\\a b\"}\n");
}

TEST_F(OutputTest, EndsTheProgramWhenTheReaderIsGone) {
    output.ok();
    EXPECT_NO_THROW(output.flush());
    stream.setstate(std::ios::badbit);
    try {
        output.flush();
        FAIL() << "went on without a reader";
    } catch (const ProgramEnd& end) {
        EXPECT_EQ(end.status, 1);
    }
}

}  // namespace
}  // namespace velmora::console
