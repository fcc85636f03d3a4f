#include "forms/field_words.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <set>
#include <string>
#include <vector>

#include "forms/forms.h"

namespace velmora {
namespace {

struct FieldWordsTest : testing::Test {
    FieldWordsTest() {
        for (Form* form : forms.all()) {
            for (Control* control : form->controls()) {
                fields.insert(form->Name() + "." + control->fullName());
            }
        }
    }

    // The panels of a status bar have words of their own.
    bool isPanel(const std::string& name) const {
        const std::string bar = "Form1.StatusBar1";
        const std::set<std::string> panels{bar + "(1)", bar + "(2)", bar + "(3)"};
        return panels.contains(name);
    }

    const std::set<std::string> neverShown{"Form1.lstInfo", "frmIndDri.lstVolumes",
                                           "frmWaitTest.txChanges"};
    Forms forms;
    std::set<std::string> fields;
};

bool hasLetter(const std::string& text) {
    return std::any_of(text.begin(), text.end(),
                       [](unsigned char c) { return std::isalpha(c) != 0; });
}

// A name that is no field would never be said.
TEST_F(FieldWordsTest, EveryNameIsAFieldOnce) {
    std::set<std::string> seen;
    for (const std::string& name : fieldsWithWords()) {
        EXPECT_TRUE(fields.contains(name) || isPanel(name)) << name;
        EXPECT_TRUE(seen.insert(name).second) << name;
    }
    EXPECT_GT(seen.size(), 100u);
}

// What the user fills in has no caption of its own.
TEST_F(FieldWordsTest, WhatIsFilledInHasWords) {
    for (Form* form : forms.all()) {
        for (Control* control : form->controls()) {
            const std::string kind = control->mainProperty();
            const bool isFilledIn =
                control->shownWords().empty() && (kind == "Text" || kind == "ListCount");
            if (!isFilledIn || neverShown.contains(form->Name() + "." + control->Name())) continue;
            EXPECT_NE(fieldWords(form->Name(), control->fullName()), "")
                << form->Name() << "." << control->fullName();
        }
    }
}

// A button whose caption is a sign is said by its words.
TEST_F(FieldWordsTest, ASignHasWords) {
    for (Form* form : forms.all()) {
        for (Control* control : form->controls()) {
            const bool isButton = dynamic_cast<CommandButton*>(control) != nullptr;
            const std::string caption = control->shownWords();
            if (!isButton || caption.empty() || hasLetter(caption)) continue;
            EXPECT_NE(fieldWords(form->Name(), control->fullName()), "")
                << form->Name() << "." << control->fullName() << " " << caption;
        }
    }
}

TEST_F(FieldWordsTest, WordsEndWithAWord) {
    for (const std::string& name : fieldsWithWords()) {
        const std::size_t point = name.find('.');
        const std::string words(fieldWords(name.substr(0, point), name.substr(point + 1)));
        ASSERT_FALSE(words.empty()) << name;
        EXPECT_TRUE(std::isalnum(static_cast<unsigned char>(words.back())) != 0) << words;
    }
    EXPECT_EQ(fieldWords("Form1", "ListView1"), "Watched drives and paths");
    EXPECT_EQ(fieldWords("Form1", "nothing"), "");
}

}  // namespace
}  // namespace velmora
