// The name that was probably meant.
#include "console/nearest_name.h"

#include <gtest/gtest.h>

#include "console/session.h"

namespace velmora::tests {
namespace {

using console::didYouMean;
using console::nearestName;

const std::vector<std::string> known{"get", "set", "select", "txtAmt", "txtTime"};

TEST(NearestName, OneLetterInThreeMayDiffer) {
    EXPECT_EQ(nearestName("gt", known), "get");    // missing
    EXPECT_EQ(nearestName("gett", known), "get");  // too many
    EXPECT_EQ(nearestName("gat", known), "get");   // wrong
    EXPECT_EQ(nearestName("gte", known), "get");   // changed with the next
    EXPECT_EQ(nearestName("egt", known), "get");   // also the first
    EXPECT_EQ(nearestName("slct", known), "");     // two of four
    EXPECT_EQ(nearestName("selcet", known), "select");
    EXPECT_EQ(nearestName("slet", known), "set");
    EXPECT_EQ(nearestName("txTime", known), "txtTime");
}

TEST(NearestName, LetterCaseDoesNotMatter) {
    EXPECT_EQ(nearestName("TXTAMTT", known), "txtAmt");
}

TEST(NearestName, TheFirstOfEquallyNearOnesIsTaken) {
    EXPECT_EQ(nearestName("xet", known), "get");
    EXPECT_EQ(nearestName("xet", {"set", "get"}), "set");
}

TEST(NearestName, NothingIsNearToNothing) {
    EXPECT_EQ(nearestName("get", {}), "");
    EXPECT_EQ(nearestName("", known), "");
    EXPECT_EQ(nearestName(std::string(101, 'x'), {std::string(101, 'x')}), "");
    EXPECT_EQ(didYouMean("quite another", known), "");
    EXPECT_EQ(didYouMean("gte", known), ". Did you mean get?");
}

struct MisspeltTest : testing::Test, Session {};

TEST_F(MisspeltTest, ACommandGetsTheNearestOne) {
    EXPECT_EQ(run("gte txtAmt"), "error: unknown command: gte. Did you mean get?\n");
    EXPECT_EQ(run("help rpws"), "error: unknown command: rpws. Did you mean rows?\n");
}

TEST_F(MisspeltTest, AFieldGetsTheNearestOne) {
    EXPECT_EQ(run("get txtAmmt"),
              "error: no control of that name: txtAmmt. Did you mean txtAmt?\n");
    EXPECT_EQ(run("get frmNotify.txtMailServr.Text"),
              "error: no control of that name: txtMailServr. Did you mean txtMailServer?\n");
    EXPECT_EQ(run("get frmNotify.txtCustMg"),
              "error: no control or property of that name: txtCustMg. Did you mean txtCustMsg?\n");
    EXPECT_EQ(run("click frmNotify.txtCustMg"),
              "error: no control or property of that name: txtCustMg. Did you mean txtCustMsg?\n");
    EXPECT_EQ(run("get frmNotify.Captoin"),
              "error: no control or property of that name: Captoin. Did you mean Caption?\n");
    EXPECT_EQ(run("get lblDP(9)"),
              "error: no control of that name: lblDP(9). Did you mean lblDP(0)?\n");
}

TEST_F(MisspeltTest, AFormGetsTheNearestOne) {
    EXPECT_EQ(run("get frmNotfy.txtUser"),
              "error: no control of that name: frmNotfy. Did you mean frmNotify?\n");
}

TEST_F(MisspeltTest, APropertyGetsTheNearestOne) {
    EXPECT_EQ(run("get txtAmt.Enabld"),
              "error: no property of that name: Enabld. Did you mean Enabled?\n");
}

}  // namespace
}  // namespace velmora::tests
