#include "forms/field_words.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "fields_page.h"
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

// "| `Form.Field` | words | what it shows instead |" of each field, as docs/fields.md has it.
std::string lineOfManual(const Control& control) {
    const std::string& form = control.form().Name();
    const std::string shown = control.shownWords();
    const std::string words(fieldWords(form, control.fullName()));
    const bool isSaidAsShown = words.empty() || words == shown;
    return "| `" + form + "." + control.fullName() + "` | " + (isSaidAsShown ? shown : words) +
           " | " + (isSaidAsShown ? "" : shown) + " |";
}

TEST_F(FieldWordsTest, TheManualNamesEachFieldWithItsWords) {
    std::vector<std::string> inManual;
    std::istringstream page(tests::fieldsPage);
    for (std::string line; std::getline(page, line);) {
        if (line.ends_with('\r')) line.pop_back();
        if (line.starts_with("| `")) inManual.push_back(line);
    }
    std::size_t next = 0;
    for (Form* form : forms.all()) {
        for (Control* control : form->controls()) {
            ASSERT_LT(next, inManual.size()) << lineOfManual(*control);
            EXPECT_EQ(inManual[next++], lineOfManual(*control));
        }
    }
    EXPECT_EQ(next, inManual.size());
}

TEST_F(FieldWordsTest, TheWordsOfAFieldAreFoundByItsName) {
    EXPECT_EQ(fieldWords("Form1", "ListView1"), "Watched drives and paths");
    EXPECT_EQ(fieldWords("Form1", "StatusBar1(1)"), "Activity");
    EXPECT_EQ(fieldWords("Form1", "StatusBar1(2)"), "Detail");
    EXPECT_EQ(fieldWords("Form1", "StatusBar1(3)"), "Counter");
    EXPECT_EQ(fieldWords("Form1", "nothing"), "");
}

}  // namespace
}  // namespace velmora
