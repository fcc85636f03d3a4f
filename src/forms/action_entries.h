// The entries of lstAct: their places and captions. What an entry does when a drive is short of
// space is in alerts/actions/action_branch.cpp.
#pragma once

#include <array>
#include <cstddef>

namespace velmora {

/// Places in lstAct. The four actions on files are also the numbers of FileActions.
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

struct ActionEntry {
    int place;
    const char* caption;
};

inline constexpr std::array<ActionEntry, 12> actionEntries{{
    {act::alert, "Alert on Space Shortage"},
    {act::move, "Move Sp. Files to Sp. Path"},
    {act::remove, "Delete Specified Files"},
    {act::recycle, "Send Specified Files to Recycle Bin"},
    {act::autoMove, "Auto Move Files to Largest Avail. Path-Space"},
    {act::sound, "Sound Audio Alert"},
    {act::emptyBin, "Empty Recycle Bin"},
    {act::run, "Run specified programs(s)"},
    {act::mail, "Notify specified Email(s)"},
    {act::cleaner, "Auto Run Clean Manager"},
    {act::pause, "Pause Velmora on Alert "},
    {act::progressDialog, "Show progress dialog on checking!"},
}};

/// The captions in the order of the places; an entry out of its place doesn't compile.
inline constexpr std::array actionCaptions = [] {
    std::array<const char*, actionEntries.size()> captions{};
    for (std::size_t i = 0; i < captions.size(); ++i) {
        if (actionEntries[i].place != static_cast<int>(i)) throw "an entry out of its place";
        captions[i] = actionEntries[i].caption;
    }
    return captions;
}();

}  // namespace velmora
