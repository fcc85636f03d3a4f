// A check with its real event detection in which the n-th call of the machine fails, for every n
// and for several errors.
#include "monitor/event_rig.h"

namespace velmora::tests {
namespace {

// Two ready rows with events of every kind and one row that isn't ready; a sound is played.
struct SweptEvents : EventRig {
    std::uint64_t referenceBefore = 0;

    SweptEvents() {
        measured("C:\\", 5000);
        measured("D:\\", 7000);
        watch("E:\\", 5000);
        machine.drives["E:"].ready = false;
        tickEvents({evt::stagnancy, evt::change, evt::quantity, evt::modification});
        machine.files["C:\\new.txt"] = "";
        machine.files["D:\\new.txt"] = "";
        form1.txtAudio[0].setText("C:\\ring.wav");
        machine.files["C:\\ring.wav"] = "";
        machine.advance(1000);
        referenceBefore = forms.globals.lastFileTime;
        setInterval(0, 0, 5);
        clearRecords();
    }
    int errors() {
        int count = 0;
        for (const std::string& text : alertTexts()) count += text.compare(0, 7, "Error: ") == 0;
        return count;
    }
    bool ended() { return timesChecked() == 1; }
    std::string failedCall(int n) { return machine.log.calls()[static_cast<std::size_t>(n - 1)]; }
};

int questionsOfAnEventCheck() {
    SweptEvents rig;
    rig.tick();
    EXPECT_TRUE(rig.ended());
    EXPECT_EQ(rig.machine.played.size(), 2u);
    return rig.machine.log.count();
}

class EventFaultSweep : public testing::TestWithParam<int> {};

TEST_P(EventFaultSweep, EveryQuestionMayFailAndTheNextCheckWorks) {
    const int questions = questionsOfAnEventCheck();
    ASSERT_GT(questions, 35);
    for (int n = 1; n <= questions; ++n) {
        SweptEvents rig;
        rig.machine.log.failCall(n, GetParam());
        rig.tick();
        SCOPED_TRACE(std::to_string(n) + " " + rig.failedCall(n));
        EXPECT_EQ(rig.machine.openListings, 0);
        rig.expectRest();
        // Either the check was completed, or exactly one error is reported.
        EXPECT_EQ(rig.errors(), rig.ended() ? 0 : 1);
        // The reference moves to the present after a scan and nowhere else.
        const bool scanned = rig.machine.log.countOf("FindFirstFileA") > 0;
        EXPECT_EQ(rig.forms.globals.lastFileTime, scanned ? rig.present() : rig.referenceBefore);
        // The user's files are not touched.
        EXPECT_EQ(rig.machine.files.size(), 3u);
        EXPECT_TRUE(rig.machine.moved.empty());
        EXPECT_TRUE(rig.machine.recycled.empty());

        const int before = rig.timesChecked();
        rig.host.boxes.clear();
        rig.check();
        EXPECT_EQ(rig.timesChecked(), before + 1);
        EXPECT_TRUE(rig.host.boxes.empty());
        EXPECT_EQ(rig.at(1).stateIcon(), "ok");
        EXPECT_EQ(rig.at(2).stateIcon(), "ok");
        EXPECT_EQ(rig.machine.openListings, 0);
        rig.expectRest();
    }
}

INSTANTIATE_TEST_SUITE_P(Errors, EventFaultSweep, testing::Values(5, 7, 13, 53, 70, 71, 76),
                         [](const auto& error) { return "Error" + std::to_string(error.param); });

}  // namespace
}  // namespace velmora::tests
