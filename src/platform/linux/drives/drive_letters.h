// Drive letters of mount points. A letter stays with its mount point for the life of the process,
// also while nothing is mounted there, so that unmounting one drive doesn't rename the others.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace velmora::linuxhost {

class DriveLetters {
  public:
    /// What is mounted now, in mount order. "/" has the letter C; others take the first letter from
    /// D to Z that was never given, and when there is none the first one whose mount is gone. Those
    /// that find none have no letter.
    void update(const std::vector<std::string>& mountPoints);

    /// 'C' to 'Z', or 0 for a mount point without a letter.
    char letterOf(const std::string& mountPoint) const;

  private:
    static constexpr int count = 'Z' - 'C' + 1;
    int find(const std::string& mountPoint) const;

    std::array<std::string, count> owners_{"/"};
};

}  // namespace velmora::linuxhost
