// The properties of one file or folder: read at the first question, within the drive's deadline.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/windows/drives/drive_questions.h"
#include "platform/windows/entries/entry_facts.h"

namespace velmora::windows {

class EntryReading {
  public:
    /// `path` is absolute; `drive` names the drive that is asked about it.
    EntryReading(std::shared_ptr<DriveQuestions> questions, std::string drive, std::string path);

    /// Error 76 for a folder and 53 for a file when there is none or its drive doesn't answer, 70
    /// when it may not be read.
    const EntryFacts& facts(bool isFolder);
    /// What the shell calls such a thing. Errors likewise.
    std::string type(bool isFolder);

    const std::shared_ptr<DriveQuestions>& questions() const { return questions_; }
    const std::string& drive() const { return drive_; }
    const std::string& path() const { return path_; }

  private:
    std::shared_ptr<DriveQuestions> questions_;
    std::string drive_;
    std::string path_;
    std::optional<EntryFacts> facts_;
};

}  // namespace velmora::windows
