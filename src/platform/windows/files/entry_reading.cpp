#include "platform/windows/files/entry_reading.h"

#include <windows.h>
// After the one above, which it needs.
#include <shellapi.h>

#include <utility>

#include "base/runtime_error.h"
#include "platform/file_system_object.h"
#include "platform/windows/system/system_errors.h"
#include "platform/windows/system/utf16.h"

namespace velmora::windows {

namespace {

struct Answer {
    DWORD failure = ERROR_NOT_READY;
    EntryFacts facts;
};

}  // namespace

EntryReading::EntryReading(std::shared_ptr<DriveQuestions> questions, std::string drive,
                           std::string path)
    : questions_(std::move(questions)), drive_(std::move(drive)), path_(std::move(path)) {}

const EntryFacts& EntryReading::facts(bool isFolder) {
    if (facts_) return *facts_;
    const auto answer = questions_->ask<Answer>(drive_, [wide = systemPath(path_)] {
        Answer reading;
        reading.failure = readFacts(wide, reading.facts);
        return reading;
    });
    const int missing = isFolder ? error::pathNotFound : error::fileNotFound;
    // A drive that has no answer shows nothing.
    if (!answer || answer->failure == ERROR_NOT_READY) throw RuntimeError(missing);
    if (answer->failure != ERROR_SUCCESS)
        throw RuntimeError(errorOfEntry(answer->failure, missing));
    const bool isFolderThere = kindOf(answer->facts.attributes) == PathKind::folder;
    if (isFolderThere != isFolder) throw RuntimeError(missing);
    facts_ = answer->facts;
    return *facts_;
}

std::string EntryReading::type(bool isFolder) {
    const DWORD attributes = facts(isFolder).attributes;
    // By name and attributes alone, so that no drive is asked again; but what a drive is called
    // depends on its kind.
    const bool isRoot = parentFolderOf(path_).empty();
    const UINT flags = SHGFI_TYPENAME | (isRoot ? 0 : SHGFI_USEFILEATTRIBUTES);
    const std::wstring name = toUtf16(isRoot ? path_ : fileNameOf(path_));
    SHFILEINFOW info{};
    SHGetFileInfoW(name.c_str(), attributes, &info, sizeof info, flags);
    return toUtf8(info.szTypeName);
}

}  // namespace velmora::windows
