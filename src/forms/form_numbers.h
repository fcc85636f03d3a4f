// Names for the numbers and words of the forms: entries of lists, places in arrays of controls,
// images, sizes.
#pragma once

#include <cstddef>

namespace velmora {

/// Entries of lstEvt, the events to look for.
namespace evt {
inline constexpr int stagnancy = 0;
inline constexpr int change = 1;
inline constexpr int quantity = 2;
inline constexpr int modification = 3;
inline constexpr int unavailable = 4;
}  // namespace evt

/// Buttons of Toolbar1 that are known by their place; all others are known by their caption.
namespace tool {
inline constexpr int startPause = 1;
inline constexpr int wizard = 2;
inline constexpr int view = 5;
}  // namespace tool

/// Entries of lstNotContent, the sections of the mail.
namespace mail_section {
inline constexpr int watchList = 0;
inline constexpr int alerts = 1;
inline constexpr int files = 2;
inline constexpr int programs = 3;
inline constexpr int processes = 4;
inline constexpr int memory = 5;
inline constexpr int customFile = 6;
inline constexpr int users = 7;
inline constexpr int runningTime = 8;
inline constexpr int events = 9;
}  // namespace mail_section

/// Entries of lstNotTime, when the schedule is due.
namespace mail_time {
inline constexpr int hourly = 0;
inline constexpr int daily = 1;
inline constexpr int interval = 2;
}  // namespace mail_time

/// Entries of cboEncryption.
namespace mail_encryption {
inline constexpr const char* none = "None";
inline constexpr const char* startTls = "STARTTLS";
inline constexpr const char* tls = "TLS";
inline constexpr const char* entries[] = {none, startTls, tls};
}  // namespace mail_encryption

/// What the button that starts and pauses the watch says.
namespace watch_caption {
inline constexpr const char* start = "Start Watch";
inline constexpr const char* pause = "Pause Watch";
}  // namespace watch_caption

/// Images of the tool bar and of the status bar, by their numbers in ImageList1.
namespace image {
inline constexpr int pause = 2;
inline constexpr int start = 13;
inline constexpr int ready = 13;
inline constexpr int checking = 14;
}  // namespace image

/// Places in lblDP, the buttons of the watch list.
namespace watch_button {
inline constexpr int add = 0;
inline constexpr int remove = 1;
inline constexpr int clear = 2;
inline constexpr int selectDrive = 3;
inline constexpr int refresh = 4;
}  // namespace watch_button

/// Places in lblSF, the buttons of the specified files.
namespace file_button {
inline constexpr int add = 0;
inline constexpr int remove = 1;
inline constexpr int move = 2;
inline constexpr int deleteFile = 3;
inline constexpr int clear = 4;
inline constexpr int deleteAll = 5;
inline constexpr int moveAll = 6;
inline constexpr int browse = 7;
inline constexpr int attributes = 8;
}  // namespace file_button

/// Places in Label5, the buttons of the specified programs.
namespace program_button {
inline constexpr int add = 0;
inline constexpr int remove = 1;
inline constexpr int clear = 2;
inline constexpr int run = 3;
inline constexpr int browse = 4;
// Not of LVProg: the program's updates.
inline constexpr std::size_t checkUpdates = 5;
inline constexpr std::size_t getUpdates = 6;
}  // namespace program_button

/// Places in lblAl of the alert dialog.
namespace alert_button {
inline constexpr std::size_t ok = 0;
inline constexpr std::size_t clear = 1;
inline constexpr std::size_t explorer = 2;
inline constexpr std::size_t wizard = 3;
inline constexpr std::size_t action = 4;
}  // namespace alert_button

/// Sizes of Form1, in twips.
namespace form1_size {
inline constexpr int fullHeight = 9100;  ///< of the full view, also at the start
inline constexpr int startWidth = 8030;
inline constexpr int leastWidth = 8070;
}  // namespace form1_size

}  // namespace velmora
