// Thin wrappers through which the program asks the system for maintenance: emptying the recycle
// bin and feeding it, the disk cleaner, sounds, properties sheets.
#pragma once

#include <cstdint>
#include <string>

#include "forms/form1.h"
#include "platform/platform.h"
#include "platform/user32.h"

namespace velmora {

class SystemActions {
  public:
    SystemActions(Form1& form1, Platform& platform, User32& user32)
        : form1_(form1), platform_(platform), user32_(user32) {}
    SystemActions(const SystemActions&) = delete;
    SystemActions& operator=(const SystemActions&) = delete;

    /// Empties the recycle bin of the drive that `strDrive` begins with, or of all drives when it
    /// is empty. Of each switch only its own bit counts: 1, 2 and 4 in this order. Ignores every
    /// error.
    void MakeRecycleBinEmpty(const std::string& strDrive, std::int16_t iNoConfirmation,
                             std::int16_t iNoProgress, std::int16_t iNoSound);
    /// Starts the disk cleaner for a drive, with the options that the system has stored under that
    /// number; either may be empty. Its result is ignored.
    void prcCleanMan(const std::string& strDrive, const std::string& strSage);
    /// Whether it may: not the root of a drive in any spelling, a path with "..", one without a
    /// folder in front of its name, and a pattern of names that the shell would take for many
    /// files.
    bool maySendToBin(const std::string& path);
    /// Sends a file or folder to the recycle bin, and gives the shell's code, 0 for success. All
    /// callers pass `file_operation::allowUndo`, and report a success whatever the code. Error 70,
    /// and nothing is asked of the shell, for what may not be sent.
    std::int32_t prcSendToBin(const std::string& strFile, std::int32_t lngFlags);
    /// Plays a sound and returns when it has ended; not 0 when it was played.
    std::int16_t prcPlaySound(const std::string& strFile, std::int32_t lngFlags);
    /// Starts each file that the list of cboProg names, in a normal window, and reports it: a note
    /// and the entry's name in lines of their own. A missing file is reported and skipped; an error
    /// of starting one goes to the caller, and the others aren't started.
    std::string prcRunListedProg();
    /// The system's properties sheet of a file, owned by the window of that form.
    void prcShowProperties(const std::string& path, const std::string& owner);

  private:
    bool isPattern(const std::string& path);
    bool isBelowRoot(const std::string& path);

    Form1& form1_;
    Platform& platform_;
    User32& user32_;
};

}  // namespace velmora
