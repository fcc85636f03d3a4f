#include "forms/hints.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velmora::tests {
namespace {

struct HintsTest : testing::Test {
    HintsTest() {
        hints.Said.connect([this](const Hint& hint) { said.push_back(hint.text); });
    }
    Hints hints;
    std::vector<std::string> said;
};

TEST_F(HintsTest, AFieldIsNamedOnceAStart) {
    hints.say({.field = "cboFile", .text = "1"});
    hints.say({.field = "cboFile", .text = "2"});
    hints.say({.field = "txtSpace", .text = "3"});
    EXPECT_EQ(said, (std::vector<std::string>{"1", "3"}));
}

TEST_F(HintsTest, OnceMoreWhenItIsAboutSomethingElseOrHasBecomeWorse) {
    hints.say({.field = "cboFile", .text = "1"});
    hints.say({.field = "cboFile", .text = "2", .endsStart = true});
    hints.say({.field = "cboFile", .text = "3", .about = HintAbout::saving});
    hints.say({.field = "cboFile", .text = "4", .about = HintAbout::working});
    hints.say({.field = "cboFile", .text = "5", .about = HintAbout::working});
    EXPECT_EQ(said, (std::vector<std::string>{"1", "2", "3", "4"}));
}

}  // namespace
}  // namespace velmora::tests
