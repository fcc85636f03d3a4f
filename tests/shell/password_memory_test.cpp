// The password is nowhere in the process's memory once it isn't needed.
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "base/wipe.h"
#include "fake/monitor_ports.h"
#include "shell/memory_search.h"
#include "shell/program_lock.h"
#include "shell/surface_rig.h"

namespace velmora::tests {
namespace {

// A password that exists only in its disguised form and in the texts that are typed.
template <std::size_t N>
constexpr std::array<unsigned char, N - 1> disguise(const char (&text)[N]) {
    std::array<unsigned char, N - 1> result{};
    for (std::size_t i = 0; i < N - 1; ++i) result[i] = MemorySearch::disguised(text[i]);
    return result;
}

// Disguised by the compiler, so that the words themselves are not in the program.
constexpr auto shortOne = disguise("Kx7!pQz");  // within a string's own buffer
constexpr auto middleOne = disguise("Wq9?vT4#mZ_1b");
constexpr auto longOne = disguise("Gh3$kP8%xN5&dR2*yL6+wC_0");  // beyond it

struct PasswordMemoryTest : testing::TestWithParam<std::vector<unsigned char>>, SurfaceRig {
    void SetUp() override {
        if (!MemorySearch::possible()) {
            GTEST_SKIP() << "this system has no file of a process's own memory";
        }
    }

    /// Types the password, of which the first `changed` characters are others.
    void type(std::size_t changed = 0) { typeInto(forms.frmLock.Text1, changed); }
    void typeInto(TextBox& box, std::size_t changed = 0) {
        std::string typed = password();
        for (std::size_t i = 0; i < changed; ++i) typed[i] = '-';
        box.setText(typed);
        wipe(typed);
    }
    std::string password() {
        std::string text;
        text.reserve(GetParam().size());
        for (const unsigned char byte : GetParam())
            text += static_cast<char>(byte ^ MemorySearch::mask);
        return text;
    }
    void press() { forms.frmLock.Command1[0].Click(); }
    void lockUp() {
        prcSrvFrm(forms);
        type();
        host.answers = {BoxAnswer::yes};
        press();
    }

    // The remains of a shortened or moved text begin with a NUL, so the end of the password is
    // searched for.
    static constexpr std::ptrdiff_t tailSize = 6;
    MemorySearch search{{GetParam().end() - tailSize, GetParam().end()}};
    std::vector<std::string> steps;
    fake::RecordedTray tray{steps};
    ProgramLock lock{forms, host, tray};
};

TEST_P(PasswordMemoryTest, IsInOnePlaceWhileLockedAndGoneAfterUnlocking) {
    ASSERT_EQ(search.count(), 0u);
    lockUp();
    ASSERT_TRUE(globals.bLocked);
    EXPECT_EQ(search.count(), 1u);
    prcSrvFrm(forms);
    type();
    EXPECT_EQ(search.count(), 2u);
    press();
    ASSERT_FALSE(globals.bLocked);
    EXPECT_EQ(search.count(), 0u);
}

TEST_P(PasswordMemoryTest, IsNowhereAfterARefusedLockOnceTheEntryIsCleared) {
    prcSrvFrm(forms);
    type();
    host.answers = {BoxAnswer::no};
    press();
    EXPECT_EQ(search.count(), 1u);
    prcSrvFrm(forms);
    EXPECT_EQ(search.count(), 0u);
}

TEST_P(PasswordMemoryTest, IsNowhereWhenTheEntryIsReplacedByAnother) {
    prcSrvFrm(forms);
    type();
    forms.frmLock.Text1.setText("another, and a longer one than all of these passwords are");
    EXPECT_EQ(search.count(), 0u);
}

TEST_P(PasswordMemoryTest, IsNowhereWhenItWasTypedTwice) {
    prcSrvFrm(forms);
    type();
    type();
    EXPECT_EQ(search.count(), 1u);
    forms.frmLock.Text1.setText("");
    EXPECT_EQ(search.count(), 0u);
}

TEST_P(PasswordMemoryTest, IsNowhereAfterAWrongAttemptAndTheRightOne) {
    lockUp();
    prcSrvFrm(forms);
    type(1);
    press();
    EXPECT_TRUE(globals.bLocked);
    type();
    press();
    ASSERT_FALSE(globals.bLocked);
    EXPECT_EQ(search.count(), 0u);
}

TEST_P(PasswordMemoryTest, AWrongAttemptIsNowhereOnceTheEntryIsCleared) {
    prcSrvFrm(forms);
    forms.frmLock.Text1.setText("right");
    host.answers = {BoxAnswer::yes};
    press();
    prcSrvFrm(forms);
    type();
    press();
    EXPECT_TRUE(globals.bLocked);
    prcSrvFrm(forms);
    EXPECT_EQ(search.count(), 0u);
}

TEST_P(PasswordMemoryTest, IsNowhereWhenTextWasPutBeforeIt) {
    prcSrvFrm(forms);
    type();
    forms.frmLock.Text1.prepend("x");
    // Joined into one text.
    EXPECT_EQ(forms.frmLock.Text1.Text().front(), 'x');
    EXPECT_EQ(search.count(), 1u);
    forms.frmLock.Text1.setText("");
    EXPECT_EQ(search.count(), 0u);
}

TEST_P(PasswordMemoryTest, IsNowhereWhenItWasPutBeforeOtherText) {
    std::string typed = password();
    forms.frmLock.Text1.prepend(typed);
    wipe(typed);
    forms.frmLock.Text1.setText("");
    EXPECT_EQ(search.count(), 0u);
}

TEST_P(PasswordMemoryTest, IsNowhereWhenItsTextBoxIsDestroyed) {
    {
        Form form("frmLock");
        TextBox box(form, "Text1");
        box.setMasked(true);
        typeInto(box);
        EXPECT_EQ(search.count(), 1u);
    }
    EXPECT_EQ(search.count(), 0u);
}

TEST_P(PasswordMemoryTest, ThatOfTheMailAccountIsNowhereOnceItIsReplaced) {
    typeInto(forms.frmNotify.txtPass);
    EXPECT_EQ(search.count(), 1u);
    forms.frmNotify.txtPass.setText("");
    EXPECT_EQ(search.count(), 0u);
}

INSTANTIATE_TEST_SUITE_P(
    OfThreeLengths, PasswordMemoryTest,
    testing::Values(std::vector<unsigned char>(shortOne.begin(), shortOne.end()),
                    std::vector<unsigned char>(middleOne.begin(), middleOne.end()),
                    std::vector<unsigned char>(longOne.begin(), longOne.end())),
    [](const auto& password) { return std::to_string(password.param.size()); });

}  // namespace
}  // namespace velmora::tests
