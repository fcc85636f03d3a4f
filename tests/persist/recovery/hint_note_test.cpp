#include "persist/recovery/hint_note.h"

#include <gtest/gtest.h>

#include "forms/forms.h"

namespace velmora::tests {
namespace {

struct HintNoteTest : testing::Test {
    Forms forms;
    HintNote note{forms.form1, forms.hints};
};

TEST_F(HintNoteTest, EachHintIsALineOfTheNote) {
    EXPECT_FALSE(forms.form1.fraHint.Visible());
    forms.hints.say({.field = "a", .text = "one"});
    forms.hints.say({.field = "b", .text = "two"});
    EXPECT_TRUE(forms.form1.fraHint.Visible());
    EXPECT_EQ(forms.form1.lblHint.Caption(), "one\r\ntwo");
}

TEST_F(HintNoteTest, WhatWasReadIsNotShownAgain) {
    note.say("one");
    forms.form1.cmdHint.Click();
    EXPECT_FALSE(forms.form1.fraHint.Visible());
    forms.hints.say({.field = "b", .text = "two"});
    EXPECT_TRUE(forms.form1.fraHint.Visible());
    EXPECT_EQ(forms.form1.lblHint.Caption(), "two");
}

}  // namespace
}  // namespace velmora::tests
