// A failure names what was tried and the file.
#include "alerts/actions/action_rig.h"

namespace velmora::tests {
namespace {

struct NamedFailuresTest : testing::Test, ActionRig {
    NamedFailuresTest() { listFile("C:\\a.txt"); }

    /// Calls that begin like this are refused from now on.
    void refuse(const std::string& call) {
        machine.onCall = [call](const std::string& made) {
            if (made.starts_with(call)) throw RuntimeError(error::permissionDenied);
        };
    }
    std::string attemptOfAct(std::int16_t iAct) {
        std::string file = "C:\\a.txt";
        std::string path = "D:\\";
        return attemptOf([&] { fileActions.prcFileActOption(iAct, file, path); });
    }
};

TEST_F(NamedFailuresTest, TheListedFileThatIsDeleted) {
    refuse("remove");
    EXPECT_EQ(attemptOf([this] { run(act::remove); }), "delete the file C:\\a.txt");
}

TEST_F(NamedFailuresTest, TheListedFileThatIsMeasured) {
    selectFiles();
    refuse("FileLen");
    EXPECT_EQ(attemptOf([this] { run(act::move); }), "measure the file C:\\a.txt");
}

TEST_F(NamedFailuresTest, AFileThatIsMeasuredForItsAction) {
    refuse("FileLen");
    for (const std::int16_t iAct : {act::move, act::autoMove, act::remove}) {
        EXPECT_EQ(attemptOfAct(iAct), "measure the file C:\\a.txt") << iAct;
    }
}

TEST_F(NamedFailuresTest, AFileThatIsDeletedByItsAction) {
    refuse("remove");
    EXPECT_EQ(attemptOfAct(act::remove), "delete the file C:\\a.txt");
}

}  // namespace
}  // namespace velmora::tests
