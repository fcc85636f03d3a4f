// Looking for a field by its name or its words.
#include "console/field_list.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "console/session.h"

namespace velmora::tests {
namespace {

struct FieldListTest : testing::Test, Session {
    /// The names in the order of the list, with a blank between.
    std::string found(const std::string& pattern) {
        std::string all;
        const console::Report report = console::fieldList(forms, pattern);
        for (const auto& row : *report.fields) {
            all += (all.empty() ? "" : " ") + std::get<std::string>(row[0].second);
        }
        return all;
    }
    /// How many lines a reader gets.
    std::size_t lines(const std::string& pattern) {
        return split(console::fieldList(forms, pattern).text, lineEnd).size() - 1;
    }
};

TEST_F(FieldListTest, APartOfTheNameIsEnough) {
    form1.txtAmt.setText("50");
    EXPECT_EQ(found("txtam"), "txtAmt");
    EXPECT_EQ(run("fields TXTAM"), "txtAmt = 50  (Greatest number of alerts kept)\n");
}

TEST_F(FieldListTest, FieldsOfOtherFormsAreNamedWithTheForm) {
    EXPECT_EQ(found("frmnotify.txtmail"),
              "frmNotify.txtMailServer frmNotify.txtMailPort frmNotify.txtMailSubj "
              "frmNotify.txtMailFromDisplayName");
    EXPECT_EQ(run("fields frmNotify.txtMailPort"),
              "frmNotify.txtMailPort = 25  (Port of the mail server)\n");
}

TEST_F(FieldListTest, TheWordsOfAFieldFindIt) {
    EXPECT_EQ(found("port of the mail"), "frmNotify.txtMailPort frmWizard.txtMailPort");
}

TEST_F(FieldListTest, ACaptionFindsItsFieldAndIsNotSaidTwice) {
    form1.cmdPause.setCaption("Pause the watch");
    EXPECT_EQ(run("fields pause the"), "cmdPause = Pause the watch\n");
}

TEST_F(FieldListTest, AStarStandsForAnyCharactersAndAQuestionMarkForOne) {
    EXPECT_EQ(found("txtam?"), "txtAmt");
    EXPECT_EQ(found("txtam??"), "");
    EXPECT_EQ(found("*fy.txtMailP*t"), "frmNotify.txtMailPort");
    EXPECT_EQ(found("lblDP(*)"), "lblDP(0) lblDP(1) lblDP(2) lblDP(3) lblDP(4)");
    EXPECT_EQ(found("txtam*"), "txtAmt");
    EXPECT_EQ(found("tam*"), "");
    EXPECT_EQ(found("t*t*a?t"), "txtAmt");
    EXPECT_EQ(found("*fy.*t*mt*"), "frmNotify.txtCustEvtAmt");
    // Not in every combination.
    std::string many;
    for (int i = 0; i < 40; ++i) many += "*?";
    EXPECT_EQ(found(many + "!"), "");
    EXPECT_EQ(found(std::string(2000, '*') + "!"), "");
}

TEST_F(FieldListTest, WithoutAPatternAllFieldsAreListed) {
    std::size_t controls = 0;
    for (Form* form : forms.all()) controls += form->controls().size();
    EXPECT_EQ(lines(""), controls);
    EXPECT_GT(controls, 200U);
}

TEST_F(FieldListTest, EachNameIsTakenByGet) {
    const console::Report report = console::fieldList(forms, "");
    for (const auto& row : *report.fields) {
        const std::string name = std::get<std::string>(row[0].second);
        EXPECT_FALSE(refuses("get " + name)) << name;
    }
}

TEST_F(FieldListTest, PasswordsAreNotShown) {
    forms.frmNotify.txtPass.setText("secret");
    forms.frmWizard.txtPass.setText("secrets");
    forms.frmLock.Text1.setText("hidden!");
    EXPECT_EQ(run("fields frmNotify.txtPass"), "frmNotify.txtPass = ******  (Mail password)\n");
    EXPECT_EQ(run("fields frmWizard.txtPass").substr(0, 27), "frmWizard.txtPass = *******");
    EXPECT_EQ(run("fields frmLock.Text1").substr(0, 22), "frmLock.Text1 = ******");
    EXPECT_FALSE(contains(console::fieldList(forms, "").text, "hidden!"));
}

TEST_F(FieldListTest, ALongValueIsCut) {
    const std::string words = "  (Greatest number of alerts kept)\n";
    form1.txtAmt.setText(std::string(60, 'a'));
    EXPECT_EQ(run("fields txtAmt"), "txtAmt = " + std::string(60, 'a') + words);
    form1.txtAmt.setText(std::string(61, 'a'));
    EXPECT_EQ(run("fields txtAmt"), "txtAmt = " + std::string(60, 'a') + "..." + words);
}

TEST_F(FieldListTest, AProgramGetsTheWholeValueOfItsKind) {
    form1.txtAmt.setText(std::string(61, 'a'));
    run("json on");
    EXPECT_EQ(run("fields txtAmt"), R"({"ok":[{"Name":"txtAmt","Value":")" + std::string(61, 'a') +
                                        R"(","Caption":"Greatest number of alerts kept"}]})" +
                                        "\n");
}

TEST_F(FieldListTest, NothingFoundIsAnError) {
    EXPECT_EQ(run("fields nothing of it"),
              "error: no field of that name or with that word: nothing of it\n");
}

}  // namespace
}  // namespace velmora::tests
