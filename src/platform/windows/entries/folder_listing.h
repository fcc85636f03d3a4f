// The entries of a folder, one after the other. They are read on the drive's own thread, many at a
// time, so that neither a dead drive nor the number of entries costs more than it must.
#pragma once

#include <windows.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "platform/windows/drives/drive_questions.h"

namespace velmora::windows {

class FolderListing {
  public:
    /// `pattern` is a folder's path in the system's form with a back-slash and "*" at the end;
    /// `drive` names the drive that is asked. Nothing is asked before the first entry.
    FolderListing(std::shared_ptr<DriveQuestions> questions, std::string drive,
                  std::wstring pattern);
    ~FolderListing();
    FolderListing(const FolderListing&) = delete;
    FolderListing& operator=(const FolderListing&) = delete;

    /// The next entry, "." and ".." among them; stays as it is until the next call. Null at the
    /// end.
    const WIN32_FIND_DATAW* next();
    /// Why it ended: 18 when all entries were given, 21 when the drive missed the deadline, or else
    /// the system's error code. 0 before the end.
    DWORD end() const { return end_; }

  private:
    class Search;
    struct Batch {
        std::vector<WIN32_FIND_DATAW> entries;
        DWORD end = ERROR_SUCCESS;
    };

    void readMore();

    std::shared_ptr<DriveQuestions> questions_;
    std::string drive_;
    std::shared_ptr<Search> search_;
    Batch batch_;
    std::size_t used_ = 0;
    DWORD end_ = ERROR_SUCCESS;
};

/// Whether it is "." or "..".
bool isDots(const wchar_t* name);

}  // namespace velmora::windows
