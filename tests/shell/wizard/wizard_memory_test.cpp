// The mail's password is in no more places of the memory after the wizard than before it.
#include <array>

#include "base/wipe.h"
#include "shell/memory_search.h"
#include "shell/wizard/wizard_rig.h"

namespace velmora::tests {
namespace {

// Disguised by the compiler, so that the word itself is not in the program.
template <std::size_t N>
constexpr std::array<unsigned char, N - 1> disguisedWord(const char (&text)[N]) {
    std::array<unsigned char, N - 1> result{};
    for (std::size_t i = 0; i < N - 1; ++i) result[i] = MemorySearch::disguised(text[i]);
    return result;
}

constexpr auto mailPassword = disguisedWord("Vz5!nRt8#bQ2_kWm7&hY");

struct WizardMemoryTest : testing::Test, WizardRig {
    MemorySearch search{{mailPassword.begin(), mailPassword.end()}};

    void SetUp() override {
        if (!MemorySearch::possible()) {
            GTEST_SKIP() << "this system has no file of a process's own memory";
        }
    }
    static void type(TextBox& box) {
        std::string typed;
        typed.reserve(mailPassword.size());
        for (const unsigned char byte : mailPassword) {
            typed += static_cast<char>(byte ^ MemorySearch::mask);
        }
        box.setText(typed);
        wipe(typed);
    }
};

TEST_F(WizardMemoryTest, ClosingLeavesTheMailSettingsCopyAlone) {
    type(mail.txtPass);
    ASSERT_EQ(search.count(), 1u);
    reopen();
    EXPECT_GT(search.count(), 1u);
    wizard.cmdCancel.userClick();
    EXPECT_EQ(search.count(), 1u);
}

TEST_F(WizardMemoryTest, APasswordThatIsDiscardedIsNowhere) {
    type(wizard.txtPass);
    ASSERT_EQ(search.count(), 1u);
    wizard.cmdCancel.userClick();
    EXPECT_EQ(search.count(), 0u);
}

TEST_F(WizardMemoryTest, APasswordThatIsAppliedIsInTheMailSettingsAlone) {
    type(wizard.txtPass);
    wizard.cmdOK.userClick();
    EXPECT_EQ(search.count(), 1u);
    mail.txtPass.setText("");
    EXPECT_EQ(search.count(), 0u);
}

}  // namespace
}  // namespace velmora::tests
