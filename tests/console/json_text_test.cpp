#include "console/json_text.h"

#include <gtest/gtest.h>

#include "controls/form.h"

namespace velmora::console {
namespace {

TEST(JsonText, OfAStringEscapesQuotesBackSlashesAndControlCharacters) {
    EXPECT_EQ(jsonString(""), R"("")");
    EXPECT_EQ(jsonString(R"(a "b" \c)"), R"("a \"b\" \\c")");
    EXPECT_EQ(jsonString("a\r\n\tb"), R"("a\r\n\tb")");
    EXPECT_EQ(jsonString(std::string("\0\x1b", 2)), R"("\u0000\u001b")");
}

TEST(JsonText, OfAStringKeepsOtherLetters) {
    EXPECT_EQ(jsonString("größe Привет 日本 🙂"),
              "\"größe Привет 日本 🙂\"");
}

TEST(JsonText, OfAStringReplacesBytesThatAreNoUtf8) {
    EXPECT_EQ(jsonString("a\xffz"), "\"a\uFFFDz\"");
    EXPECT_EQ(readJsonString(jsonString("\xed\xa0\x80\xc3")).has_value(), true);
}

TEST(JsonText, OfAStringIsReadBack) {
    for (const std::string text : {"", "a\r\nb", "\"\\", "größe 🙂", "\x7f"}) {
        EXPECT_EQ(readJsonString(jsonString(text)), text);
    }
    const std::string zero("a\0b", 3);
    EXPECT_EQ(readJsonString(jsonString(zero)), zero);
}

TEST(JsonText, ThatIsNoStringIsNotRead) {
    for (const char* literal :
         {"", "1", "[]", "a", "\"a", "\"a\" b", "\"\\q\"", "\"\xff\"", "\"a\nb\"", "\"\\ud800\""}) {
        EXPECT_EQ(readJsonString(literal), std::nullopt) << literal;
    }
}

TEST(JsonText, OfAValueIsOfItsKind) {
    EXPECT_EQ(jsonValue(std::string("50")), R"("50")");
    EXPECT_EQ(jsonValue(std::int64_t{50}), "50");
    EXPECT_EQ(jsonValue(true), "true");
    EXPECT_EQ(jsonValue(false), "false");
}

TEST(JsonText, OfAnObjectKeepsTheOrderOfItsFields) {
    EXPECT_EQ(jsonObject({{"event", "box"}, {"answer", "ok"}, {"panel", std::int64_t{1}}}),
              R"({"event":"box","answer":"ok","panel":1})");
    EXPECT_EQ(jsonObject({}), "{}");
}

struct List {
    Form form{"form"};
    ListView view{form, "view"};
};

TEST(JsonText, OfAListWithoutRowsIsAnEmptyArray) {
    List list;
    EXPECT_EQ(jsonRows(list.view), "[]");
}

TEST(JsonText, OfAFreshRowHasAllFields) {
    List list;
    list.view.addColumn({"Path"});
    list.view.addColumn({"Free"});
    list.view.Add("C:\\");
    EXPECT_EQ(jsonRows(list.view),
              R"([{"Text":"C:\\","SubItems":[""],"Checked":false,"Selected":false,"Bold":false,)"
              R"("Tag":"","SubTags":[""],"ReportIcon":""}])");
}

TEST(JsonText, OfARowHoldsEachOfItsFields) {
    List list;
    for (const char* header : {"a", "b", "c"}) list.view.addColumn({header});
    ListItem& row = list.view.Add("x");
    row.setSubItems(1, "one");
    row.setSubItems(2, "two");
    row.setChecked(true);
    row.setSelected(true);
    row.setBold(true);
    row.setTag("tag");
    row.setSubTag(2, "sub");
    row.setReportIcon(1, "alert");
    EXPECT_EQ(jsonRows(list.view),
              R"([{"Text":"x","SubItems":["one","two"],"Checked":true,"Selected":true,)"
              R"("Bold":true,"Tag":"tag","SubTags":["","sub"],"ReportIcon":"alert"}])");
}

TEST(JsonText, OfARowHasTheFirstIconOfItsColumns) {
    List list;
    for (const char* header : {"a", "b", "c"}) list.view.addColumn({header});
    ListItem& row = list.view.Add("x");
    EXPECT_EQ(iconOf(row), "");
    row.setReportIcon(2, "ok");
    EXPECT_EQ(iconOf(row), "ok");
    row.setReportIcon(1, "alert");
    EXPECT_EQ(iconOf(row), "alert");
}

TEST(JsonText, OfRowsOfAListWithoutColumnsHasNoSubItems) {
    List list;
    list.view.Add("x");
    EXPECT_EQ(jsonRows(list.view),
              R"([{"Text":"x","SubItems":[],"Checked":false,"Selected":false,"Bold":false,)"
              R"("Tag":"","SubTags":[],"ReportIcon":""}])");
}

}  // namespace
}  // namespace velmora::console
