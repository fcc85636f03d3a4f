#include "alerts/system/system_actions.h"

#include "base/resume_next.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "platform/show_window.h"

namespace velmora {

namespace {

constexpr int noConfirmation = 1;
constexpr int noProgress = 2;
constexpr int noSound = 4;

// The record's flags: the verb acts on an item list, with the window's own messages.
constexpr std::uint32_t propertiesMask = 1100;

// An existing file as a command line, in quotes where a blank in its path would end the name.
std::string asCommand(const std::string& file) {
    return contains(file, " ") ? "\"" + file + "\"" : file;
}

// A part of a path without the dots and blanks at its end, which the system drops.
std::string tidyPart(std::string part) {
    part.resize(part.find_last_not_of(". ") + 1);
    return part;
}

// What a path says of the place that it names.
enum class Place {
    refused,    // the root of a drive, a path with "..", a name without a folder
    belowRoot,  // certainly below the root of a drive
    dotsAlone,  // the root where the system drops dots and blanks, elsewhere something below it
};

Place placeOf(const std::string& given) {
    const std::string path = replaceAll(given, "/", "\\");
    const std::string drive = driveNameOf(path);
    // After a device's prefix the root of a share has other parts.
    const bool isDevice = path.starts_with("\\\\?\\") || path.starts_with("\\\\.\\");
    if (isDevice || drive.empty() || parentFolderOf(path).empty()) return Place::refused;
    Place place = Place::dotsAlone;
    for (const std::string& part : split(path.substr(drive.size()), "\\")) {
        if (trim(part) == "..") return Place::refused;
        if (!tidyPart(part).empty()) place = Place::belowRoot;
    }
    return place;
}

}  // namespace

void SystemActions::MakeRecycleBinEmpty(const std::string& strDrive, std::int16_t iNoConfirmation,
                                        std::int16_t iNoProgress, std::int16_t iNoSound) {
    std::string owner;
    const std::string root = strDrive.empty() ? "" : left(strDrive, 1) + ":\\";
    // A caller's 1 for "no progress" has no such bit and counts as 0.
    const int flags =
        (iNoConfirmation & noConfirmation) | (iNoProgress & noProgress) | (iNoSound & noSound);
    resumeNext([&] { owner = user32_.GetActiveWindow(); },
               [&] {
                   platform_.shell32.SHEmptyRecycleBinA(owner, root,
                                                        static_cast<std::uint32_t>(flags));
               });
}

void SystemActions::prcCleanMan(const std::string& strDrive, const std::string& strSage) {
    const std::string drive = strDrive.empty() ? "" : " /d " + strDrive;
    const std::string sage = strSage.empty() ? "" : " /sagerun: " + strSage;
    platform_.shell32.ShellExecuteA(form1_.Name(), "open", "cleanmgr", drive + " " + sage, "",
                                    normalWindow);
}

// Where file names may contain these characters, an existing file of that name is meant.
bool SystemActions::isPattern(const std::string& path) {
    if (path.find_first_of("*?") == std::string::npos) return false;
    return !platform_.fso.FileExists(path) && !platform_.fso.FolderExists(path);
}

// No root is a file.
bool SystemActions::isBelowRoot(const std::string& path) {
    const Place place = placeOf(path);
    return place == Place::belowRoot ||
           (place == Place::dotsAlone && platform_.fso.FileExists(path));
}

bool SystemActions::maySendToBin(const std::string& path) {
    // The shell takes a list with a NUL after each path: a NUL inside a path would make two paths
    // of it.
    const bool isOne = path.find('\0') == std::string::npos;
    return isOne && isBelowRoot(path) && !isPattern(path);
}

std::int32_t SystemActions::prcSendToBin(const std::string& strFile, std::int32_t lngFlags) {
    if (!maySendToBin(strFile)) throw RuntimeError(error::permissionDenied);
    const FileOperation operation{.owner = {},
                                  .wFunc = file_operation::remove,
                                  .pFrom = strFile + '\0',
                                  .fFlags = static_cast<std::uint16_t>(lngFlags)};
    return platform_.shell32.SHFileOperationA(operation);
}

std::int16_t SystemActions::prcPlaySound(const std::string& strFile, std::int32_t lngFlags) {
    return platform_.winmm.sndPlaySoundA(strFile, lngFlags);
}

std::string SystemActions::prcRunListedProg() {
    const ComboBox& cboProg = form1_.cboProg;
    std::string account;
    for (int i = 0; i < cboProg.ListCount(); ++i) {
        const std::string& entry = cboProg.List(i);
        if (platform_.fso.FileExists(entry)) {
            attempt("run the program", entry,
                    [&] { platform_.shell32.Shell(asCommand(entry), normalWindow); });
            account += " - Specified Program Executed: ";
        } else {
            account += " - Specified Program Execution Failed (File Does Not Exist): ";
        }
        account.append(lineEnd).append(entry).append(lineEnd);
    }
    return account;
}

void SystemActions::prcShowProperties(const std::string& path, const std::string& owner) {
    platform_.shell32.ShellExecuteEx(
        {.mask = propertiesMask, .owner = owner, .verb = "properties", .file = path});
}

}  // namespace velmora
