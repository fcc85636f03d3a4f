// The report on the running processes in each way of listing them. Below Wine a program can be told
// another version of the system, by its name.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <sstream>
#include <string>
#include <vector>

#include "platform/windows/entries/opened_entry.h"
#include "platform/windows/programs/program_output.h"
#include "platform/windows/support/helper_program.h"
#include "platform/windows/support/scratch_folder.h"

namespace velmora::tests::windows {
namespace {

using velmora::windows::isUnderWine;
using velmora::windows::ProgramOutput;
using velmora::windows::ScratchFolder;
using velmora::windows::toUtf16;
using namespace std::chrono_literals;

/// What Wine tells a program of that name, until this object goes.
class ToldVersion {
  public:
    ToldVersion(const std::string& program, const std::string& version)
        : key_(LR"(Software\Wine\AppDefaults\)" + toUtf16(program)) {
        const std::wstring text = toUtf16(version);
        RegSetKeyValueW(HKEY_CURRENT_USER, key_.c_str(), L"Version", REG_SZ, text.c_str(),
                        static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    }
    ~ToldVersion() { RegDeleteKeyW(HKEY_CURRENT_USER, key_.c_str()); }
    ToldVersion(const ToldVersion&) = delete;
    ToldVersion& operator=(const ToldVersion&) = delete;

  private:
    std::wstring key_;
};

/// The report of a program that is told a version of the system.
class VersionClass : public testing::TestWithParam<const char*> {
  protected:
    void SetUp() override {
        if (!isUnderWine()) GTEST_SKIP() << "only Wine tells a program another version";
        const ScratchFolder folder;
        const std::string path = folder / program;
        ASSERT_TRUE(CopyFileW(toUtf16(helperProgram()).c_str(), toUtf16(path).c_str(), FALSE));
        const ToldVersion told(program, GetParam());
        report =
            ProgramOutput('"' + path + "\" processes").readAll({.silence = 60s, .duration = 60s});
        std::istringstream stream(report);
        for (std::string line; std::getline(stream, line);) {
            if (line.ends_with('\r')) line.pop_back();
            lines.push_back(line);
        }
        ASSERT_GE(lines.size(), 3u) << report;
    }
    /// The lines between the rules.
    std::vector<std::string> processLines() const { return {lines.begin() + 2, lines.end() - 1}; }
    void expectFrame() const {
        EXPECT_EQ(lines[0], "Currently Running Processes: " + std::to_string(lines.size() - 2));
        EXPECT_EQ(lines[1], std::string(14, '='));
        EXPECT_EQ(lines.back(), std::string(15, '='));
        EXPECT_FALSE(report.ends_with('\n'));
    }

    std::string program =
        "velmora-" + std::to_string(GetCurrentProcessId()) + "-" + std::string(GetParam()) + ".exe";
    std::string report;
    std::vector<std::string> lines;
};

class ListedBySnapshot : public VersionClass {};
INSTANTIATE_TEST_SUITE_P(Versions, ListedBySnapshot, testing::Values("win95", "win98"));

TEST_P(ListedBySnapshot, EachLineIsANameANumberAndTheSizeOfARecord) {
    expectFrame();
    int own = 0;
    for (const std::string& line : processLines()) {
        EXPECT_TRUE(line.ends_with(" 296")) << line;
        const std::string front = line.substr(0, line.size() - 4);
        const auto blank = front.rfind(' ');
        ASSERT_NE(blank, std::string::npos) << line;
        EXPECT_EQ(front.find_first_not_of("0123456789", blank + 1), std::string::npos) << line;
        if (front.substr(0, blank) == program) ++own;
    }
    EXPECT_EQ(own, 1) << report;
}

class ListedByOpening : public VersionClass {};
INSTANTIATE_TEST_SUITE_P(Versions, ListedByOpening, testing::Values("nt40", "win2k"));

TEST_P(ListedByOpening, EachLineIsAPathAndAHandle) {
    expectFrame();
    int own = 0;
    for (const std::string& line : processLines()) {
        // The size of a record is empty.
        ASSERT_TRUE(line.ends_with(' ')) << line;
        const std::string front = line.substr(0, line.size() - 1);
        const auto blank = front.rfind(' ');
        ASSERT_NE(blank, std::string::npos) << line;
        EXPECT_EQ(front.find_first_not_of("0123456789", blank + 1), std::string::npos) << line;
        EXPECT_EQ(front.substr(1, 2), ":\\") << line;
        if (front.substr(0, blank).ends_with('\\' + program)) ++own;
    }
    EXPECT_EQ(own, 1) << report;
}

class NotListed : public VersionClass {};
INSTANTIATE_TEST_SUITE_P(Versions, NotListed, testing::Values("nt351", "winxp64", "win10"));

TEST_P(NotListed, TheReportIsItsFrame) {
    EXPECT_EQ(report,
              "Currently Running Processes: 1\r\n"
              "==============\r\n"
              "===============");
}

}  // namespace
}  // namespace velmora::tests::windows
