#include "platform/linux/desktop/linux_winmm.h"

#include <signal.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <string_view>
#include <thread>
#include <vector>

#include "platform/linux/programs/program_start.h"

namespace velmora::linuxhost {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds lookEvery{5};

std::uint32_t numberAt(const char* bytes) {
    std::uint32_t number = 0;
    for (int i = 3; i >= 0; --i) number = number << 8 | static_cast<unsigned char>(bytes[i]);
    return number;
}

milliseconds lengthOf(std::uint64_t bytes, std::uint32_t bytesPerSecond) {
    if (bytesPerSecond == 0) return milliseconds(0);
    return milliseconds(bytes * 1000 / bytesPerSecond);
}

// Waits at most until `end`. False when the player is still running then.
bool waitForEnd(pid_t player, int& status, steady_clock::time_point end) {
    while (!hasEnded(player, status)) {
        if (steady_clock::now() >= end) return false;
        std::this_thread::sleep_for(lookEvery);
    }
    return true;
}

// The player leads a session of its own; what it has started ends with it.
void endPlayer(pid_t player) {
    int status = 0;
    kill(-player, SIGTERM);
    if (waitForEnd(player, status, steady_clock::now() + milliseconds(500))) return;
    kill(-player, SIGKILL);
    while (waitpid(player, &status, 0) < 0 && errno == EINTR) continue;
}

bool isPlayedBy(const std::vector<std::string>& command, milliseconds limit) {
    const pid_t player = startProgram(command);
    if (player < 0) return false;
    int status = -1;
    if (waitForEnd(player, status, steady_clock::now() + limit))
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    endPlayer(player);
    return true;
}

}  // namespace

milliseconds lengthOfSound(const std::string& hostPath) {
    std::ifstream file(hostPath, std::ios::binary);
    std::array<char, 16> head{};
    if (!file.read(head.data(), 12)) return milliseconds(0);
    const auto word = [&](std::size_t at) { return std::string_view(head.data() + at, 4); };
    if (word(0) != "RIFF" || word(8) != "WAVE") return milliseconds(0);
    std::uint32_t bytesPerSecond = 0;
    while (file.read(head.data(), 8)) {
        const std::uint64_t size = numberAt(head.data() + 4);
        const std::streamoff start = file.tellg();
        if (word(0) == "data") {
            file.seekg(0, std::ios::end);
            // The header of an unfinished stream promises more than there is.
            const auto there = static_cast<std::uint64_t>(file.tellg() - start);
            return lengthOf(std::min(size, there), bytesPerSecond);
        }
        if (word(0) == "fmt " && size >= 12 && file.read(head.data(), 12))
            bytesPerSecond = numberAt(head.data() + 8);
        file.seekg(start + static_cast<std::streamoff>(size + size % 2));
    }
    return milliseconds(0);
}

std::int16_t LinuxWinmm::sndPlaySoundA(const std::string& file, std::int32_t) {
    const std::string path = volumes_.hostPathOf(file);
    if (volumes_.kindOf(path) != FileKind::file) return 0;
    const milliseconds length = lengthOfSound(path);
    const milliseconds limit =
        length > milliseconds(0) ? length + limits_.beyondSound : limits_.unknownLength;
    const std::vector<std::vector<std::string>> players{
        {"pw-play", path}, {"paplay", path}, {"aplay", "-q", path}};
    const auto plays = [&](const auto& player) { return isPlayedBy(player, limit); };
    return std::any_of(players.begin(), players.end(), plays) ? 1 : 0;
}

}  // namespace velmora::linuxhost
