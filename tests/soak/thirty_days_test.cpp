// Thirty days of a program that is never ended, on a machine in memory: a check at each tick of ten
// seconds, a shortage that comes and goes, a mail for each shortage, settings and log saved. What
// it holds must not grow beyond what it is told to keep.
#include <gtest/gtest.h>

#include <cstdio>
#include <map>
#include <string>

#include "app/core.h"
#include "fake/fake_machine.h"
#include "fake/fake_surface.h"
#include "persist/scramble.h"
#include "soak/used_memory.h"

namespace velmora {
namespace {

constexpr std::int64_t tick = 10'000;
constexpr std::int64_t hour = 3'600'000;
constexpr std::int64_t day = 24 * hour;
constexpr int days = 30;
constexpr std::size_t allowance = 1024 * 1024;
// The history of free space is full by then: the last 10,080 checks of each row.
constexpr int firstMeasuredDay = 2;
constexpr int watchedRows = 26;

// A server that takes every mail.
class TakingServer {
  public:
    explicit TakingServer(fake::FakeWinsock& socket) : socket_(socket) {
        socket_.onConnect = [this] { socket_.received += "220 ready\r\n"; };
        socket_.onSend = [this](const std::string& piece) { answer(piece); };
    }

    int mails = 0;

  private:
    void answer(const std::string& piece) {
        static const std::map<std::string, std::string> replies{{"helo ", "250 hello\r\n"},
                                                                {"mail from:", "250 sender\r\n"},
                                                                {"rcpt to:", "250 recipient\r\n"},
                                                                {"DATA\r\n", "354 go on\r\n"},
                                                                {"\r\n.\r\n", "250 taken\r\n"}};
        for (const auto& [begin, reply] : replies) {
            if (piece.starts_with(begin)) socket_.received += reply;
        }
        if (piece == "\r\n.\r\n") ++mails;
    }

    fake::FakeWinsock& socket_;
};

struct ThirtyDays : testing::Test {
    ThirtyDays() {
        machine.files[programFolder + "\\set.dat"] = prcEn("txtTime=60\r\n") + "\r\n";
        machine.files[programFolder + "\\log.dat"] = "";
        for (char letter = 'A'; letter < 'A' + watchedRows; ++letter) {
            machine.drives[std::string(1, letter) + ":"] = {enough, 100e9};
        }
        addTimers(forms, timers);
        // A yield runs what is due, as the program's own loop does.
        surface.host.onYield = [this](int) { timers.fireDue(); };
    }

    void begin() {
        core.load();
        Form1& form1 = forms.form1;
        ASSERT_EQ(form1.ListView1.Count(), watchedRows);
        for (int row = 1; row <= watchedRows; ++row) form1.ListView1.userTick(row, true);
        form1.chkSaveSet.setValue(1);
        form1.chkAutoSave.setValue(1);
        form1.chkLog.setValue(1);
        form1.txtSpace.setText(std::to_string(minimumKB));
        form1.lstAct.setSelected(act::alert, true);
        form1.lstAct.setSelected(act::mail, true);
        for (const int event : {evt::change, evt::quantity, evt::modification}) {
            form1.lstEvt.setSelected(event, true);
        }
        forms.frmNotify.txtMailServer.setText("mail.example.org");
        forms.frmNotify.txtYourEmail.setText("me@example.org");
        forms.frmNotify.cboNotEmail.AddItem("you@example.org");
        form1.DTPInterval.setHour(0);
        form1.DTPInterval.setMinute(0);
        form1.DTPInterval.setSecond(0);
    }

    // Runs the program until that moment, from one due timer to the next.
    void runUntil(std::int64_t end) {
        while (machine.tick < end) {
            const std::int64_t step = timers.untilNext().value_or(tick);
            machine.advance(std::min(step, end - machine.tick));
            timers.fireDue();
            forgetRecords();
        }
    }

    // What the machine in memory has noted for tests is no memory of the program.
    void forgetRecords() {
        machine.log.clear();
        machine.winsock.calls.clear();
        machine.winsock.sent.clear();
        machine.played.clear();
        surface.host.boxes.clear();
        surface.host.notes.clear();
        surface.host.listings.clear();
        surface.user32.calls.clear();
        surface.shellIcons.calls.clear();
        surface.notifyArea.sent.clear();
    }

    // Two hours short of space every six.
    void nextHours() {
        setFree("C:", enough - 1e6 * hours);
        runUntil(machine.tick + 4 * hour);
        setFree("C:", 1e6 + 1e3 * hours);
        runUntil(machine.tick + 2 * hour);
        hours += 6;
    }
    void setFree(const std::string& drive, double bytes) {
        machine.drives[drive].freeBytes = bytes;
    }

    // What is still held once the user has cleared what grows by his wish: the alert list, the
    // journal and the text of the dialog. The log goes as a rotation of logs takes it.
    std::size_t heldWithoutTexts() {
        machine.files.erase(programFolder + "\\log.dat");
        machine.files[programFolder + "\\log.dat"];
        forms.form1.LVAlert.Clear();
        forms.form1.txtAlert.setText("");
        forms.dlgAlert.Label1.setText("");
        return soak::usedMemory();
    }

    static constexpr double enough = 50e9;
    static constexpr int minimumKB = 100'000;
    const std::string programFolder = "C:\\Program Files\\Velmora";
    fake::FakeMachine machine;
    fake::FakeSurface surface;
    Forms forms;
    Core core{forms, machine.platform(), surface.all()};
    TimerQueue timers{[this] { return machine.tick; }};
    TakingServer server{machine.winsock};
    std::int64_t hours = 0;
};

TEST_F(ThirtyDays, HoldNoMoreThanTheFirstTwo) {
    begin();
    std::size_t first = 0;
    for (int today = 1; today <= days; ++today) {
        while (machine.tick < today * day) nextHours();
        std::printf("day %2d: %d checks, %d mails, %d alerts, %zu KB\n", today,
                    forms.globals.lngTimesChecked, server.mails, forms.form1.LVAlert.Count(),
                    soak::usedMemory() / 1024);
        std::fflush(stdout);
        if (today == firstMeasuredDay) first = heldWithoutTexts();
        EXPECT_EQ(machine.openListings, 0);
        EXPECT_EQ(machine.openKeys(), 0);
    }
    EXPECT_GT(forms.form1.LVAlert.Count(), 0);
    const std::size_t last = heldWithoutTexts();
    std::printf("beside list, journal and dialog: %zu KB after two days, %zu KB after thirty\n",
                first / 1024, last / 1024);
    EXPECT_LE(last, first + allowance);
    EXPECT_GE(forms.globals.lngTimesChecked, days * day / tick - days);
    EXPECT_GT(server.mails, 0);
    EXPECT_TRUE(forms.form1.Timer1.Enabled());
    EXPECT_FALSE(forms.globals.bChecking);
}

}  // namespace
}  // namespace velmora
