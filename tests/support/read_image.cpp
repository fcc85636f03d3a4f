// Prints what the first sector of an image decodes to:
//
//   read_image < LIST
//
// Each line of LIST is the name of a file system, a blank and the path of an image. For each, the
// rows are printed as "label<tab>value" and closed by an empty line. Characters below the blank are
// printed as "?".
#include <algorithm>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "fake/fake_volumes.h"
#include "inspect/sectors/volume_reading.h"

using namespace velmora;

namespace {

// As far as a sector can be whose position is a word.
std::string beginningOf(const std::string& path) {
    constexpr std::size_t farthest = 0xFFFF + 512;
    std::string bytes(farthest, '\0');
    std::ifstream image(path, std::ios::binary);
    image.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(image.gcount()));
    return bytes;
}

std::string inOneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < ' '; }, '?');
    return text;
}

bool printRows(const std::string& fileSystem, const std::string& path) {
    fake::FakeRawVolumes volumes;
    volumes.volumes["C:"] = {.bytes = beginningOf(path), .fileSystem = fileSystem};
    const VolumeReport report = readVolume(volumes, "C:", Regional{});
    if (!report.failure.empty()) std::cerr << path << ": " << report.failure << '\n';
    for (const SectorRow& row : report.rows)
        std::cout << row.label << '\t' << inOneLine(row.value) << '\n';
    std::cout << '\n';
    return report.failure.empty();
}

}  // namespace

int main() {
    bool isRead = true;
    for (std::string line; std::getline(std::cin, line);) {
        const auto blank = line.find(' ');
        if (blank == std::string::npos) return 2;
        isRead = printRows(line.substr(0, blank), line.substr(blank + 1)) && isRead;
    }
    return isRead ? 0 : 1;
}
