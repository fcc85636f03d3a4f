#include "platform/windows/entries/folder_listing.h"

#include <chrono>
#include <string_view>
#include <utility>

#include "platform/windows/system/unique_handle.h"

namespace velmora::windows {

namespace {

constexpr std::size_t mostAtOnce = 200;
// A slow drive shows what it has long before it would miss the deadline.
constexpr std::chrono::milliseconds longestAtOnce{200};

UniqueFind begin(const wchar_t* pattern, WIN32_FIND_DATAW& entry) {
    UniqueFind search(FindFirstFileExW(pattern, FindExInfoBasic, &entry, FindExSearchNameMatch,
                                       nullptr, FIND_FIRST_EX_LARGE_FETCH));
    // Not every file system takes the wish for large pieces.
    if (!search.isOpen() && GetLastError() == ERROR_INVALID_PARAMETER)
        search.reset(FindFirstFileW(pattern, &entry));
    return search;
}

}  // namespace

// Used by one thread at a time: the drive's own while a question is pending.
class FolderListing::Search {
  public:
    explicit Search(std::wstring pattern) : pattern_(std::move(pattern)) {}

    Batch read() {
        const auto latest = std::chrono::steady_clock::now() + longestAtOnce;
        Batch batch;
        do {
            WIN32_FIND_DATAW entry{};
            if (!readOne(entry)) {
                batch.end = GetLastError();
                break;
            }
            batch.entries.push_back(entry);
        } while (batch.entries.size() < mostAtOnce && std::chrono::steady_clock::now() < latest);
        return batch;
    }

  private:
    bool readOne(WIN32_FIND_DATAW& entry) {
        if (search_.isOpen()) return FindNextFileW(search_.get(), &entry);
        search_ = begin(pattern_.c_str(), entry);
        return search_.isOpen();
    }

    std::wstring pattern_;
    UniqueFind search_;
};

FolderListing::FolderListing(std::shared_ptr<DriveQuestions> questions, std::string drive,
                             std::wstring pattern)
    : questions_(std::move(questions)),
      drive_(std::move(drive)),
      search_(std::make_shared<Search>(std::move(pattern))) {}

FolderListing::~FolderListing() = default;

const WIN32_FIND_DATAW* FolderListing::next() {
    while (end_ == ERROR_SUCCESS) {
        if (used_ < batch_.entries.size()) return &batch_.entries[used_++];
        end_ = batch_.end;
        if (end_ == ERROR_SUCCESS) readMore();
    }
    return nullptr;
}

void FolderListing::readMore() {
    auto batch = questions_->ask<Batch>(drive_, [search = search_] { return search->read(); });
    used_ = 0;
    batch_ = batch ? std::move(*batch) : Batch{{}, ERROR_NOT_READY};
}

bool isDots(const wchar_t* name) {
    const std::wstring_view text = name;
    return text == L"." || text == L"..";
}

}  // namespace velmora::windows
