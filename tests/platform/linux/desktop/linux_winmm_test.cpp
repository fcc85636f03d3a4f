#include "platform/linux/desktop/linux_winmm.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <thread>

#include "platform/linux/paths/path_mapping.h"
#include "platform/linux/support/environment.h"
#include "platform/linux/support/test_folder.h"
#include "support/wait.h"

namespace velmora::linuxhost {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

std::string number(std::uint32_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> 8 * i);
    return text;
}

// A mono sound of 8-bit samples whose header promises `promised` bytes and which has `there`.
std::string wav(std::uint32_t promised, std::size_t there, std::uint32_t rate = 1000) {
    return "RIFF" + number(36 + promised, 4) + "WAVE" + "LIST" + number(3, 4) + "abc" +
           std::string(1, '\0') + "fmt " + number(16, 4) + number(1, 2) + number(1, 2) +
           number(rate, 4) + number(rate, 4) + number(1, 2) + number(8, 2) + "data" +
           number(promised, 4) + std::string(there, '\x80');
}

// Players are scripts in the only folder of PATH.
class LinuxWinmmTest : public testing::Test {
  protected:
    LinuxWinmmTest() { fs::create_directory(home_ / "bin"); }

    void install(const std::string& name, const std::string& ending) {
        const std::string path = home_ / ("bin/" + name);
        std::ofstream(path) << "#!/bin/sh\nprintf '%s\\n' " + name + " \"$@\" >>'" +
                                   (home_ / "called") + "'\n" + ending + '\n';
        chmod(path.c_str(), 0755);
    }
    std::string waitFor(const std::string& name) const {
        return "while [ ! -e '" + (home_ / name) + "' ]; do /bin/sleep 0.01; done";
    }
    std::string called() { return contentsOf(home_ / "called"); }
    std::string sound(const std::string& content) {
        std::ofstream(home_ / "a sound ö.wav", std::ios::binary) << content;
        return drivePathOf(home_ / "a sound ö.wav", volumes_.roots());
    }
    std::int16_t play(const std::string& path, PlayingLimits limits = {}) {
        return LinuxWinmm(volumes_, limits).sndPlaySoundA(path, sound::noDefault);
    }

    TestFolder home_;
    Environment path_{"PATH", home_ / "bin"};
    Volumes volumes_;
};

TEST_F(LinuxWinmmTest, ASoundIsPlayedByTheFirstPlayerThatIsThere) {
    const std::string path = sound(wav(10, 10));
    const std::string host = home_ / "a sound ö.wav";
    install("aplay", "exit 0");
    EXPECT_NE(play(path), 0);
    EXPECT_EQ(called(), "aplay\n-q\n" + host + '\n');
    fs::remove(home_ / "called");
    install("paplay", "exit 0");
    EXPECT_NE(play(path), 0);
    EXPECT_EQ(called(), "paplay\n" + host + '\n');
    fs::remove(home_ / "called");
    install("pw-play", "exit 0");
    EXPECT_NE(play(path), 0);
    EXPECT_EQ(called(), "pw-play\n" + host + '\n');
}

TEST_F(LinuxWinmmTest, ItReturnsWhenTheSoundHasEnded) {
    install("pw-play", waitFor("end"));
    const std::string path = sound(wav(10, 10));
    std::atomic<bool> isBack{false};
    std::int16_t result = 0;
    volumes_.kindOf(home_.path());
    std::thread player([&] {
        result = play(path);
        isBack = true;
    });
    EXPECT_TRUE(waitUntil([&] { return !called().empty(); }));
    EXPECT_FALSE(isBack);
    std::ofstream(home_ / "end") << "now";
    player.join();
    EXPECT_NE(result, 0);
}

TEST_F(LinuxWinmmTest, APlayerThatFailsLeavesItToTheNext) {
    install("pw-play", "exit 1");
    install("paplay", "kill -9 $$");
    install("aplay", "exit 0");
    const std::string path = sound(wav(10, 10));
    EXPECT_NE(play(path), 0);
    EXPECT_NE(called().find("pw-play\n"), std::string::npos);
    EXPECT_NE(called().find("paplay\n"), std::string::npos);
    EXPECT_NE(called().find("aplay\n-q\n"), std::string::npos);
    install("aplay", "exit 1");
    EXPECT_EQ(play(path), 0);
}

TEST_F(LinuxWinmmTest, WithoutAPlayerOrAFileThereIsSilenceAtOnce) {
    EXPECT_EQ(play(sound(wav(10, 10))), 0);
    install("pw-play", "exit 0");
    for (const std::string& path :
         {drivePathOf(home_ / "missing.wav", volumes_.roots()), std::string(),
          std::string("Q:\\x.wav"), drivePathOf(home_.path(), volumes_.roots())})
        EXPECT_EQ(play(path), 0) << path;
    EXPECT_EQ(called(), "");
}

TEST_F(LinuxWinmmTest, APlayerThatOutlastsItsSoundIsEnded) {
    install("pw-play", "echo $$ >'" + (home_ / "process") + "'\n" + waitFor("never"));
    install("paplay", "exit 0");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_NE(play(sound(wav(200, 200)), {.beyondSound = 100ms, .unknownLength = 1h}), 0);
    const auto taken = std::chrono::steady_clock::now() - start;
    EXPECT_GE(taken, 300ms);
    EXPECT_LT(taken, 10s);
    const pid_t process = std::stoi(contentsOf(home_ / "process"));
    EXPECT_NE(kill(process, 0), 0);
    // It was played: the next one isn't asked.
    EXPECT_EQ(called().find("paplay"), std::string::npos);
}

TEST_F(LinuxWinmmTest, AFileOfUnknownLengthHasALimitOfItsOwn) {
    install("pw-play", "trap '' TERM\n" + waitFor("never"));
    const auto start = std::chrono::steady_clock::now();
    EXPECT_NE(play(sound("ID3 no such header"), {.beyondSound = 1h, .unknownLength = 50ms}), 0);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 10s);
}

TEST_F(LinuxWinmmTest, TheLengthIsThatOfTheSamplesThatAreThere) {
    const auto length = [&](const std::string& content) {
        sound(content);
        return lengthOfSound(home_ / "a sound ö.wav");
    };
    EXPECT_EQ(length(wav(1500, 1500)), 1500ms);
    EXPECT_EQ(length(wav(1000, 1000, 44100)), 22ms);
    EXPECT_EQ(length(wav(0xFFFFFFF0, 2000)), 2000ms);
    EXPECT_EQ(length(wav(500, 2000)), 500ms);
    EXPECT_EQ(length(wav(500, 500, 0)), 0ms);
    EXPECT_EQ(length(wav(500, 500).substr(0, 40)), 0ms);
    EXPECT_EQ(length(""), 0ms);
    EXPECT_EQ(length("RIFF"), 0ms);
    EXPECT_EQ(length("no sound at all, though long enough for a header of one"), 0ms);
    EXPECT_EQ(lengthOfSound(home_ / "missing"), 0ms);
}

}  // namespace
}  // namespace velmora::linuxhost
