#include "controls/text_box.h"

#include <gtest/gtest.h>

#include "controls/control_properties.h"
#include "controls/form.h"

namespace velmora::tests {
namespace {

struct TextBoxTest : testing::Test {
    Form form{"Form1"};
    TextBox box{form, "txtAlert", "old"};
    Count<Event<>> changes{box.Change};
};

TEST_F(TextBoxTest, BeginsWithItsText) {
    EXPECT_EQ(box.Text(), "old");
    EXPECT_EQ(box.textLength(), 3u);
    EXPECT_FALSE(box.empty());
    EXPECT_EQ(changes, 0);
}

TEST_F(TextBoxTest, ANewTextFiresChangeOnce) {
    box.setText("new");
    box.setText("new");
    EXPECT_EQ(box.Text(), "new");
    EXPECT_EQ(changes, 1);
}

TEST_F(TextBoxTest, AHandlerOfChangeMaySetTheText) {
    box.Change.connect([this] {
        if (box.Text() != "1") box.setText("1");
    });
    box.setText("abc");
    EXPECT_EQ(box.Text(), "1");
    EXPECT_EQ(changes, 2);
}

TEST_F(TextBoxTest, GrowsAtTheFront) {
    box.prepend("middle ");
    box.prepend("new ");
    EXPECT_EQ(box.Text(), "new middle old");
    EXPECT_EQ(box.textLength(), 14u);
    EXPECT_EQ(changes, 2);
    box.prepend("");
    EXPECT_EQ(changes, 2);
}

TEST_F(TextBoxTest, SetsAWholeTextOverItsPieces) {
    box.prepend("new ");
    box.setText("other");
    EXPECT_EQ(box.Text(), "other");
    EXPECT_EQ(box.textLength(), 5u);
    box.prepend("an");
    EXPECT_EQ(box.Text(), "another");
}

TEST_F(TextBoxTest, CountsCharactersNotBytes) {
    box.setText("\u00E9\U0001F4BE");
    EXPECT_EQ(box.textLength(), 2u);
    box.prepend("\u20AC");
    EXPECT_EQ(box.textLength(), 3u);
}

TEST_F(TextBoxTest, GivesItsFrontAcrossPieces) {
    box.prepend("middle ");
    box.prepend("new ");
    EXPECT_EQ(box.front(0), "");
    EXPECT_EQ(box.front(2), "ne");
    EXPECT_EQ(box.front(4), "new ");
    EXPECT_EQ(box.front(6), "new mi");
    EXPECT_EQ(box.front(14), "new middle old");
    EXPECT_EQ(box.front(100), "new middle old");
    EXPECT_EQ(box.Text(), "new middle old");
    EXPECT_EQ(box.front(6), "new mi");
}

TEST_F(TextBoxTest, AnEmptyTextHasNoFront) {
    box.setText("");
    EXPECT_EQ(box.front(1), "");
}

TEST_F(TextBoxTest, CountsItsFrontInCharacters) {
    box.setText("\u00E9x\U0001F4BE");
    box.prepend("\u20AC\u65E5");
    EXPECT_EQ(box.front(1), "\u20AC");
    EXPECT_EQ(box.front(3), "\u20AC\u65E5\u00E9");
    EXPECT_EQ(box.front(5), "\u20AC\u65E5\u00E9x\U0001F4BE");
    box.setText("\xFF\xE2\x82");
    EXPECT_EQ(box.front(2), "\xFF\xE2");
}

TEST_F(TextBoxTest, FindsATextInAnyPieceAndAcrossThem) {
    box.prepend("new ");
    EXPECT_TRUE(box.contains("new"));
    EXPECT_TRUE(box.contains("old"));
    EXPECT_TRUE(box.contains("w o"));
    EXPECT_FALSE(box.contains("x"));
}

TEST_F(TextBoxTest, IsEmptyWithoutText) {
    box.setText("");
    EXPECT_TRUE(box.empty());
    box.prepend("x");
    EXPECT_FALSE(box.empty());
}

TEST_F(TextBoxTest, HoldsAYearsJournal) {
    const std::string entry(100, 'x');
    box.setText("");
    for (int i = 0; i < 100000; ++i) box.prepend(entry);
    EXPECT_EQ(box.textLength(), 10000000u);
    EXPECT_EQ(box.Text().size(), 10000000u);
}

TEST_F(TextBoxTest, ATextThatIsClearedGivesItsMemoryBack) {
    box.setText(std::string(1'000'000, 'a'));
    box.setText("");
    EXPECT_LT(box.Text().capacity(), 1000u);
}

TEST_F(TextBoxTest, LosesTheFocusOnlyWhenItHasIt) {
    const Count lost(box.LostFocus);
    box.loseFocus();
    EXPECT_EQ(lost, 0);
    box.selectAllAndFocus();
    EXPECT_TRUE(box.Focused());
    box.loseFocus();
    EXPECT_FALSE(box.Focused());
    EXPECT_EQ(lost, 1);
}

TEST_F(TextBoxTest, IsTypedIntoByName) {
    set(box, "Text", "\u00FCber");
    EXPECT_EQ(get(box, "Text"), "\u00FCber");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(box.mainProperty(), "Text");
    EXPECT_EQ(refusalOf([&] { set(box, "Text", "\xFF"); }), "not valid UTF-8");
    box.setEnabled(false);
    EXPECT_EQ(refusalOf([&] { set(box, "Text", "x"); }), "txtAlert is disabled");
    EXPECT_EQ(box.Text(), "\u00FCber");
}

TEST_F(TextBoxTest, TakesKeysByTheirCode) {
    std::vector<int> keys;
    box.KeyPress.connect([&](int key) { keys.push_back(key); });
    set(box, "KeyPress", "13");
    EXPECT_EQ(keys, std::vector<int>{13});
    EXPECT_EQ(box.Text(), "old");
    for (const char* key : {"0", "-1", "x", "1114112"}) {
        EXPECT_NE(refusalOf([&] { set(box, "KeyPress", key); }), "") << key;
    }
    box.setEnabled(false);
    EXPECT_EQ(refusalOf([&] { set(box, "KeyPress", "13"); }), "txtAlert is disabled");
    EXPECT_EQ(keys.size(), 1u);
}

TEST_F(TextBoxTest, AMaskedTextIsReadAsStarsOnly) {
    box.setMasked(true);
    set(box, "Text", "\u00FCber");
    EXPECT_EQ(get(box, "Text"), "****");
    EXPECT_EQ(box.Text(), "\u00FCber");
    box.setText("");
    EXPECT_EQ(get(box, "Text"), "");
}

TEST_F(TextBoxTest, AMaskedTextChangesLikeAnyOther) {
    box.setMasked(true);
    box.setText("new");
    box.setText("new");
    EXPECT_EQ(changes, 1);
    box.prepend("a longer one than before, ");
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(box.Text(), "a longer one than before, new");
    EXPECT_EQ(box.textLength(), 29u);
    box.setText("x");
    EXPECT_EQ(box.Text(), "x");
}

TEST_F(TextBoxTest, TheCaretStaysWithinTheText) {
    box.setText("\u00E4bc");
    EXPECT_EQ(box.SelStart(), 0u);
    box.setSelStart(2);
    EXPECT_EQ(box.SelStart(), 2u);
    box.setSelStart(9);
    EXPECT_EQ(box.SelStart(), 3u);
    box.setText("x");
    EXPECT_EQ(box.SelStart(), 1u);
}

TEST_F(TextBoxTest, FindsWhatGoesOverSeveralPieces) {
    box.setText("defgh");
    for (const char* piece : {"c", "ab", "", "xyz-"}) box.prepend(piece);
    const std::string whole = "xyz-abcdefgh";
    for (std::size_t from = 0; from < whole.size(); ++from) {
        for (std::size_t size = 0; from + size <= whole.size(); ++size) {
            EXPECT_TRUE(box.contains(whole.substr(from, size))) << from << ' ' << size;
        }
    }
    for (const char* absent : {"ac", "zab", "abd", "hx", "xyz-abcdefghi", "-b"}) {
        EXPECT_FALSE(box.contains(absent)) << absent;
    }
}

}  // namespace
}  // namespace velmora::tests
