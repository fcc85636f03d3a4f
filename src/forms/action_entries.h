// The entries of lstAct: where each stands and what it says. What an entry does when a drive is
// short stands in alerts/actions/action_branch.cpp.
#pragma once

#include <array>

namespace velmora {

/// Places in lstAct.
namespace act {
inline constexpr int alert = 0;
inline constexpr int move = 1;
inline constexpr int remove = 2;
inline constexpr int recycle = 3;
inline constexpr int autoMove = 4;
inline constexpr int sound = 5;
inline constexpr int emptyBin = 6;
inline constexpr int run = 7;
inline constexpr int mail = 8;
inline constexpr int cleaner = 9;
inline constexpr int pause = 10;
inline constexpr int progressDialog = 11;
}  // namespace act

/// The captions, in the order of the places.
inline constexpr std::array actionEntries{
    "Alert on Space Shortage",
    "Move Sp. Files to Sp. Path",
    "Delete Specified Files",
    "Send Specified Files to Recycle Bin",
    "Auto Move Files to Largest Avail. Path-Space",
    "Sound Audio Alert",
    "Empty Recycle Bin",
    "Run specified programs(s)",
    "Notify specified Email(s)",
    "Auto Run Clean Manager",
    "Pause Velmora on Alert ",
    "Show progress dialog on checking!",
};

}  // namespace velmora
