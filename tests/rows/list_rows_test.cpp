// The rows of the specified files, the specified programs and the alerts.
#include <gtest/gtest.h>

#include "controls/form.h"
#include "controls/list_view.h"
#include "rows/alert_row.h"
#include "rows/listed_file.h"
#include "rows/listed_program.h"

namespace velmora::tests {
namespace {

struct ListRowsTest : testing::Test {
    ListRowsTest() {
        for (int i = 0; i < 7; ++i) list.addColumn({});
    }
    Form form{"Form1"};
    ListView list{form, "list"};
    ListItem& item = list.Add("name");

    std::string fields() {
        std::string all = item.Text();
        for (int i = 1; i <= 6; ++i) all += "|" + item.SubItems(i);
        return all;
    }
};

TEST_F(ListRowsTest, AFileHasItsFieldsInTheirColumns) {
    ListedFile file(item);
    file.setPath("C:\\data\\name");
    file.setSize("2 KB", "2048");
    file.setLocation("C:\\data");
    file.setAccessed("a");
    file.setModified("m");
    file.setCreated("c");
    file.setType("Text");
    EXPECT_EQ(fields(), "name|2 KB|C:\\data|a|m|c|Text");
    EXPECT_EQ(item.ListSubItems(1).Tag(), "2048");
    EXPECT_EQ(item.Tag(), "C:\\data\\name");
    EXPECT_EQ(file.name(), "name");
    EXPECT_EQ(file.path(), "C:\\data\\name");
    EXPECT_EQ(file.root(), "C:\\");
    EXPECT_EQ(file.size(), "2 KB");
}

TEST_F(ListRowsTest, WhatIsNoFileHasNoSize) {
    ListedFile file(item);
    file.setNoSize();
    EXPECT_EQ(file.size(), "n/a");
    EXPECT_EQ(file.root(), "");
}

TEST_F(ListRowsTest, AProgramHasItsFieldsInTheirColumns) {
    ListedProgram program(item);
    program.setPath("C:\\tools\\name");
    program.setAction("Execute");
    program.setLocation("C:\\tools");
    program.setType("Application");
    EXPECT_EQ(fields(), "name|Execute|C:\\tools|Application|||");
    EXPECT_EQ(program.path(), "C:\\tools\\name");
}

TEST_F(ListRowsTest, AnAlertHasItsFieldsInTheirColumns) {
    AlertRow alert(item);
    alert.setTime("now");
    alert.setText("what");
    EXPECT_EQ(fields(), "name|now|what||||");
    EXPECT_EQ(alert.rating(), "name");
    EXPECT_EQ(alert.time(), "now");
    EXPECT_EQ(alert.text(), "what");
}

}  // namespace
}  // namespace velmora::tests
