// A password that was typed into the lock's window is nowhere in the process's memory once the lock
// is open again: neither in the field nor in what a widget keeps.
#include "qt/controls/password_edit.h"
#include "qt/window_test.h"
#include "shell/memory_search.h"

namespace velmora::tests {
namespace {

// "Jm5-vT8_kR3+zN6", in disguise; only single characters of it are ever made.
constexpr unsigned char hiddenBytes[] = {
    MemorySearch::disguised('J'), MemorySearch::disguised('m'), MemorySearch::disguised('5'),
    MemorySearch::disguised('-'), MemorySearch::disguised('v'), MemorySearch::disguised('T'),
    MemorySearch::disguised('8'), MemorySearch::disguised('_'), MemorySearch::disguised('k'),
    MemorySearch::disguised('R'), MemorySearch::disguised('3'), MemorySearch::disguised('+'),
    MemorySearch::disguised('z'), MemorySearch::disguised('N'), MemorySearch::disguised('6')};
constexpr int tailSize = 6;

struct LockMemoryTest : WindowTest {
    LockMemoryTest() { start(); }

    void type() {
        auto* entry = find<qt::PasswordEdit>("Text1", "frmLock");
        for (const unsigned char byte : hiddenBytes) {
            QTest::keyClick(entry, static_cast<char>(byte ^ MemorySearch::mask));
        }
        settle();
    }
    void press() { click("Command1(0)", "frmLock"); }

    MemorySearch search{{std::end(hiddenBytes) - tailSize, std::end(hiddenBytes)}};
};

TEST_F(LockMemoryTest, ATypedPasswordIsHeldOnceWhileLockedAndNowhereAfterUnlocking) {
    if (!MemorySearch::possible())
        GTEST_SKIP() << "this system has no file of a process's own memory";
    ASSERT_EQ(search.count(), 0u);
    chooseFromIcon("mnuLock");
    type();
    EXPECT_EQ(search.count(), 1u);
    boxes.answers = {QMessageBox::Yes, QMessageBox::Ok};
    press();
    ASSERT_TRUE(program->forms().globals.bLocked);
    EXPECT_EQ(search.count(), 1u);
    program->forms().frmLock.Show();
    settle();
    program->forms().frmLock.Command1[0].setCaption("Unlock");
    type();
    press();
    ASSERT_FALSE(program->forms().globals.bLocked);
    EXPECT_EQ(search.count(), 0u);
}

}  // namespace
}  // namespace velmora::tests
