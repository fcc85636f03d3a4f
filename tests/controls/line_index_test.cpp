#include "controls/line_index.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "controls/form.h"
#include "controls/text_box.h"

namespace velmora::tests {
namespace {

std::string reportOf(int number) {
    return "03/14/26 15:09:26- Moved File: C:\\logs\\" + std::to_string(number) + ".txt\r\n";
}

TEST(LineIndexTest, TellsOfALineThatItIsNowhere) {
    LineIndex index;
    EXPECT_FALSE(index.mayContain(reportOf(0)));
    for (int i = 0; i < 10000; ++i) index.prepend(reportOf(i) + " . \r\n");
    for (int i = 0; i < 10000; ++i) {
        EXPECT_TRUE(index.mayContain(reportOf(i))) << i;
        EXPECT_FALSE(index.mayContain(reportOf(10000 + i))) << i;
    }
}

TEST(LineIndexTest, ALongerLineDoesNotStandForAShorterOne) {
    LineIndex index;
    index.prepend("1/x\n");
    EXPECT_FALSE(index.mayContain("/\n"));
    EXPECT_FALSE(index.mayContain("/xx\n"));
    EXPECT_TRUE(index.mayContain("/x\n"));
}

TEST(LineIndexTest, MayContainEveryTextWithoutTheEndOfALine) {
    const LineIndex index;
    for (const char* text : {"", "x", "1/x", "x\n", "\r\n", "\n/x", "\n1/x", "/\nx"}) {
        const bool isKnown = std::string(text) == "/\nx";
        EXPECT_EQ(LineIndex::knows(text), isKnown) << text;
        EXPECT_EQ(index.mayContain(text), !isKnown) << text;
    }
}

TEST(LineIndexTest, KnowsALineThatCameInPieces) {
    LineIndex index;
    for (const char* piece : {"\n", "", "b", "a", "1/"}) index.prepend(piece);
    EXPECT_TRUE(index.mayContain("1/ab\n"));
    EXPECT_FALSE(index.mayContain("1/b\n"));
    EXPECT_FALSE(index.mayContain("1/a\n"));
}

TEST(LineIndexTest, LooksAtEachLineOfAText) {
    LineIndex index;
    index.prepend("/a\n/b\n");
    EXPECT_TRUE(index.mayContain("/a\n/b\n"));
    EXPECT_FALSE(index.mayContain("/c\n/b\n"));
    EXPECT_FALSE(index.mayContain("/a\n/c\n"));
}

/// Short texts of few characters, so that most of what is looked for nearly occurs.
struct RandomTexts {
    std::mt19937 numbers{20260314};

    int below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(numbers); }
    std::string text(int longest) {
        std::string made;
        for (int size = below(longest + 1); size > 0; --size) made += "ab/\n"[below(4)];
        return made;
    }
    std::string partOf(const std::string& whole) {
        const auto start = static_cast<std::size_t>(below(static_cast<int>(whole.size()) + 1));
        return whole.substr(start, static_cast<std::size_t>(below(12)));
    }
};

TEST(LineIndexTest, ATextBoxContainsJustWhatASearchOfItsTextFinds) {
    RandomTexts random;
    for (int round = 0; round < 300; ++round) {
        Form form("Form1");
        TextBox box(form, "txtAlert", random.text(20));
        std::string plain = box.Text();
        for (int step = 0; step < 60; ++step) {
            const std::string added = random.text(9);
            if (random.below(25) == 0) {
                box.setText(added);
                plain = added;
            } else {
                box.prepend(added);
                plain.insert(0, added);
            }
            if (random.below(20) == 0) {
                ASSERT_EQ(box.Text(), plain);
            }
            for (const std::string& what :
                 {random.text(8), random.partOf(plain), random.partOf(plain) + "\n",
                  "/" + random.partOf(plain), random.partOf(plain) + random.partOf(plain)}) {
                ASSERT_EQ(box.contains(what), plain.find(what) != std::string::npos)
                    << "text: " << plain << "\nlooked for: " << what;
            }
        }
    }
}

TEST(LineIndexTest, ATextBoxThatIsMaskedLaterStillContainsItsText) {
    Form form("Form1");
    TextBox box(form, "txtAlert", "1/a\n");
    EXPECT_TRUE(box.contains("1/a\n"));
    box.setMasked(true);
    box.setText("1/b\n");
    EXPECT_TRUE(box.contains("1/b\n"));
    EXPECT_FALSE(box.contains("1/a\n"));
}

}  // namespace
}  // namespace velmora::tests
