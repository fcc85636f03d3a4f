// The about box and how it finds the system information program.
#include "shell/about_box.h"

#include <gtest/gtest.h>

#include "platform/advapi32.h"
#include "shell/surface_rig.h"

namespace velmora::tests {
namespace {

constexpr const char* unavailable = "System Information Is Unavailable At This Time";
constexpr std::uint32_t plainText = 1;
constexpr std::uint32_t textWithVariables = 2;
constexpr std::uint32_t number = 4;

struct AboutBoxTest : testing::Test, SurfaceRig {
    AboutBoxTest() { machine.drives["C:"] = {1e6, 1e6}; }

    void program(const std::string& path, std::uint32_t type = plainText) {
        machine.registry[{hive::localMachine, "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"}]
            .values["PATH"] = {type, path};
    }
    void folder(const std::string& path) {
        machine.registry[{hive::localMachine, "SOFTWARE\\Microsoft\\Shared Tools Location"}]
            .values["MSINFO"] = {plainText, path};
    }
    void file(const std::string& path) { machine.files[path] = "x"; }
    /// The programs that were started; checks how they were started.
    Texts run() {
        Texts files;
        for (const fake::FakeExecution& execution : machine.executed) {
            EXPECT_EQ(execution.owner, "frmAbout");
            EXPECT_EQ(execution.verb, "open");
            EXPECT_EQ(execution.parameters, "");
            EXPECT_EQ(execution.showCommand, 1);
            files.push_back(execution.file);
        }
        return files;
    }

    FrmAbout& form = forms.frmAbout;
    AboutBox about{forms.frmAbout, machine.platform(), host, "1.0.0"};
};

TEST_F(AboutBoxTest, ShowsItsVersionAndItsCaptions) {
    EXPECT_EQ(form.Caption(), "About Velmora");
    EXPECT_EQ(form.lblVersion.Caption(), "Version 1.0.0");
    EXPECT_EQ(form.cmdSysInfo.Caption(), "&System Info...");
}

TEST_F(AboutBoxTest, ItsTimerRunsWhileItIsShown) {
    EXPECT_FALSE(form.Timer1.Enabled());
    about.showAbout();
    EXPECT_TRUE(form.Visible());
    EXPECT_TRUE(form.Timer1.Enabled());
    form.cmdOK.userClick();
    EXPECT_FALSE(form.Visible());
    EXPECT_FALSE(form.Timer1.Enabled());
}

TEST_F(AboutBoxTest, ClosingTheWindowStopsTheTimerToo) {
    about.showAbout();
    EXPECT_TRUE(form.Visible());
    EXPECT_TRUE(form.Timer1.Enabled());
    form.userClose();
    EXPECT_FALSE(form.Visible());
    EXPECT_FALSE(form.Timer1.Enabled());
}

TEST_F(AboutBoxTest, EachTickTurnsTheDrawingWhichIsBackAfterAWholeTurn) {
    const int begin = form.prcDraw.Value();
    form.Timer1.Tick();
    const int step = form.prcDraw.Value() - begin;
    EXPECT_GE(step, 1);
    EXPECT_LE(step, 10);
    for (int tick = 1; tick < 360 / step; ++tick) form.Timer1.Tick();
    EXPECT_EQ(form.prcDraw.Value(), begin);
}

TEST_F(AboutBoxTest, RunsTheProgramThatTheRegistryNames) {
    program("C:\\Tools\\msinfo32.exe");
    file("C:\\Tools\\msinfo32.exe");
    folder("C:\\Other");
    file("C:\\Other\\MSINFO32.EXE");
    form.cmdSysInfo.userClick();
    EXPECT_EQ(run(), Texts{"C:\\Tools\\msinfo32.exe"});
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_EQ(machine.openKeys(), 0);
    // Without options, and for reading alone.
    EXPECT_EQ(machine.log.countOf("RegOpenKeyExA 2147483650 SOFTWARE\\Microsoft\\Shared "
                                  "Tools\\MSINFO 0 131097"),
              1);
}

TEST_F(AboutBoxTest, OtherwiseRunsTheOneInTheFolderThatTheRegistryNames) {
    folder("C:\\Other");
    file("C:\\Other\\MSINFO32.EXE");
    form.cmdSysInfo.userClick();
    EXPECT_EQ(run(), Texts{"C:\\Other\\MSINFO32.EXE"});
    EXPECT_EQ(machine.openKeys(), 0);
}

TEST_F(AboutBoxTest, AProgramThatIsNotThereLeadsToTheFolder) {
    program("C:\\Tools\\msinfo32.exe");
    folder("C:\\Other");
    file("C:\\Other\\MSINFO32.EXE");
    form.cmdSysInfo.userClick();
    EXPECT_EQ(run(), Texts{"C:\\Other\\MSINFO32.EXE"});
}

TEST_F(AboutBoxTest, ReportsWhenThereIsNoneAnywhere) {
    form.cmdSysInfo.userClick();
    program("C:\\Tools\\msinfo32.exe");
    folder("C:\\Other");
    form.cmdSysInfo.userClick();
    EXPECT_EQ(boxTexts(), (Texts{unavailable, unavailable}));
    EXPECT_EQ(host.boxes[0].icon, BoxIcon::none);
    EXPECT_TRUE(machine.executed.empty());
    EXPECT_EQ(machine.openKeys(), 0);
}

TEST_F(AboutBoxTest, VariablesInAPathAreReplaced) {
    machine.environment["ProgramFiles"] = "C:\\Programs";
    program("%ProgramFiles%\\Info\\msinfo32.exe", textWithVariables);
    file("C:\\Programs\\Info\\msinfo32.exe");
    form.cmdSysInfo.userClick();
    EXPECT_EQ(run(), Texts{"C:\\Programs\\Info\\msinfo32.exe"});
}

TEST_F(AboutBoxTest, MarksThatNameNoVariableStay) {
    machine.environment["B"] = "b";
    std::string text;
    program("100% %A%B%%", textWithVariables);
    EXPECT_TRUE(GetKeyValue(machine.platform(),
                            "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", "PATH",
                            text));
    EXPECT_EQ(text, "100% %Ab%");
}

TEST_F(AboutBoxTest, OnlyTextsAreRead) {
    program("C:\\Tools\\msinfo32.exe", number);
    file("C:\\Tools\\msinfo32.exe");
    form.cmdSysInfo.userClick();
    EXPECT_EQ(boxTexts(), Texts{unavailable});
}

TEST_F(AboutBoxTest, AKeyOutsideTheHivesHasNoValue) {
    std::string text = "as it was";
    for (const char* path : {"", "HKEY_LOCAL_MACHINE", "HKEY_ELSEWHERE\\Software", "\\Software"}) {
        EXPECT_FALSE(GetKeyValue(machine.platform(), path, "PATH", text)) << path;
    }
    EXPECT_EQ(text, "as it was");
    EXPECT_EQ(machine.log.count(), 0);
}

TEST_F(AboutBoxTest, AfterAnyFailedCallAProgramRunsOrABoxOpens) {
    program("C:\\Tools\\msinfo32.exe");
    file("C:\\Tools\\msinfo32.exe");
    folder("C:\\Other");
    file("C:\\Other\\MSINFO32.EXE");
    about.StartSysInfo();
    const int calls = machine.log.count();
    ASSERT_GT(calls, 3);
    for (int n = 1; n <= calls; ++n) {
        machine.executed.clear();
        host.boxes.clear();
        machine.log.failCall(n, 5);
        EXPECT_NO_THROW(about.StartSysInfo()) << n;
        const bool shellFailed = n == calls;
        EXPECT_EQ(machine.executed.size() + host.boxes.size(), shellFailed ? 0u : 1u) << n;
        machine.log.failNone();
    }
}

}  // namespace
}  // namespace velmora::tests
