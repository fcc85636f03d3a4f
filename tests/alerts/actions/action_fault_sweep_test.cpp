// Every action in which the n-th call of the machine fails, for every n: an error reaches the
// check, and nothing after the stated step is touched.
#include <algorithm>
#include <functional>
#include <map>
#include <set>

#include "alerts/actions/action_rig.h"
#include "rows/listed_file.h"

namespace velmora::tests {
namespace {

struct SweptActions : ActionRig {
    // Files and folders of two drives, a missing one, and a sound.
    explicit SweptActions(int action) {
        watch("E:\\");
        selectFiles();
        listFile("D:\\first");
        listFolder("C:\\old", {"x", "y"});
        listFile("C:\\passed");
        listMissing("C:\\gone");
        listFile("C:\\second");
        listFile("C:\\third");
        machine.files["C:\\precious"] = "abc";
        form1.txtAudio[0].setText("C:\\ring.wav");
        machine.files["C:\\ring.wav"] = "";
        form1.lblLog.setCaption("C:\\log.dat");
        form1.chkAutoSave.setValue(1);
        machine.files["C:\\log.dat"] = "";
        // With a number as the row's text the auto move succeeds; E: is its root.
        if (action == act::autoMove) {
            shortRowWatches("5");
            listFile("E:\\last");
        }
        machine.log.clear();
    }
    /// Names of the files but the log.
    std::set<std::string> names() {
        std::set<std::string> all;
        for (const auto& [path, content] : machine.files) {
            if (path != "C:\\log.dat") all.insert(path);
        }
        return all;
    }
};

int questionsOf(int action) {
    SweptActions rig(action);
    EXPECT_EQ(rig.errorOf(action), 0);
    return rig.machine.log.count();
}

// The files that the action may remove, in the order of its steps.
std::vector<std::set<std::string>> stepsOf(int action) {
    switch (action) {
        case act::remove:
            return {{"C:\\old\\x", "C:\\old\\y"}, {"C:\\second"}};
        case act::recycle:
            return {{"D:\\first"}};
        case act::autoMove:
            return {{"E:\\last"}};
        default:
            return {};
    }
}

// After the failure the machine is in the state after one of the steps, never in between.
void expectAStep(const std::set<std::string>& before, std::set<std::string> after, int action) {
    // Every file that the auto move has removed from E: is on D:.
    if (after.erase("D:\\last") > 0) {
        EXPECT_EQ(after.count("E:\\last"), 0u);
    } else if (action == act::autoMove) {
        EXPECT_EQ(after.count("E:\\last"), 1u);
    }
    std::set<std::string> expected = before;
    if (after == expected) return;
    for (const auto& step : stepsOf(action)) {
        for (const std::string& file : step) expected.erase(file);
        if (after == expected) return;
    }
    ADD_FAILURE() << "files beyond the steps were touched";
}

class ActionFaultSweep : public testing::TestWithParam<int> {};

TEST_P(ActionFaultSweep, NothingAfterTheStatedStepIsTouched) {
    const int action = GetParam();
    const int questions = questionsOf(action);
    ASSERT_GT(questions, 0);
    for (const int number : {5, 7, 53, 70, 76}) {
        for (int n = 1; n <= questions; ++n) {
            SweptActions rig(action);
            const auto before = rig.names();
            const int rows = rig.files.Count();
            rig.machine.log.failCall(n, number);
            const int raised = rig.errorOf(action);
            const std::string failed = rig.machine.log.calls()[static_cast<std::size_t>(n - 1)];
            SCOPED_TRACE(std::to_string(n) + " " + failed);
            // Calls that report their failure by a result raise nothing, nor does the bin.
            const std::set<std::string> byResult{"MoveFileA", "SHFileOperationA", "sndPlaySoundA",
                                                 "ShellExecuteA", "SHEmptyRecycleBinA"};
            const std::string name = failed.substr(0, failed.find(' '));
            EXPECT_EQ(raised, byResult.count(name) > 0 ? 0 : number);
            expectAStep(before, rig.names(), action);
            EXPECT_LE(rig.files.Count(), rows);
            EXPECT_EQ(rig.machine.openListings, 0);
            if (raised != 0 && rig.files.Count() == rows) {
                EXPECT_LE(before.size() - rig.names().size(), 1u);
            }
        }
    }
}

TEST_P(ActionFaultSweep, TheActionWorksAgainAfterTheFailure) {
    const int action = GetParam();
    const int questions = questionsOf(action);
    for (int n = 1; n <= questions; ++n) {
        SCOPED_TRACE(n);
        SweptActions rig(action);
        rig.machine.log.failCall(n, 70);
        rig.errorOf(action);
        rig.shortOf(1);
        const int again = rig.errorOf(action);
        // The walk that deletes may pass the end of the list, which the first run has shortened.
        EXPECT_TRUE(again == 0 || again == error::indexOutOfBounds) << again;
        EXPECT_TRUE(rig.exists("C:\\precious"));
    }
}

INSTANTIATE_TEST_SUITE_P(Actions, ActionFaultSweep,
                         testing::Values(act::move, act::remove, act::recycle, act::autoMove,
                                         act::sound, act::emptyBin, act::run, act::cleaner),
                         [](const auto& action) {
                             return "Action" + std::to_string(action.param);
                         });

TEST(ActionFaultOrder, AFileIsStillThereWhenItsDeletionFails) {
    SweptActions rig(act::remove);
    rig.files.Remove(2);
    rig.machine.onCall = [&](const std::string& call) {
        if (call.starts_with("remove ")) rig.machine.log.failCall(1, 70);
    };
    EXPECT_EQ(rig.errorOf(act::remove), 70);
    EXPECT_TRUE(rig.exists("C:\\passed"));
    EXPECT_EQ(ConstListedFile(rig.files.ListItems(2)).path(), "C:\\passed");
    EXPECT_EQ(rig.alertCount(), 0);
}

TEST(ActionFaultOrder, WhenTheLogCantBeWrittenTheRowIsGoneAndTheNextRunTakesTheNextFile) {
    SweptActions rig(act::remove);
    rig.files.Remove(2);
    rig.machine.lockedFiles["C:\\log.dat"] = 70;
    EXPECT_EQ(rig.errorOf(act::remove), 70);
    EXPECT_FALSE(rig.exists("C:\\passed"));
    EXPECT_EQ(ConstListedFile(rig.files.ListItems(2)).path(), "C:\\gone");
    EXPECT_EQ(rig.alertCount(), 1);
    rig.machine.lockedFiles.clear();
    EXPECT_EQ(rig.errorOf(act::remove), 0);
    EXPECT_FALSE(rig.exists("C:\\second"));
    EXPECT_EQ(ConstListedFile(rig.files.ListItems(2)).path(), "C:\\gone");
}

}  // namespace
}  // namespace velmora::tests
