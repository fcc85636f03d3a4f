#include "platform/windows/drives/windows_drive.h"

#include <windows.h>

#include <utility>

#include "platform/windows/system/utf16.h"

namespace velmora::windows {

namespace {

std::optional<DriveSpace> spaceOf(const std::string& drive) {
    const std::wstring root = systemPath(drive + '\\');
    ULARGE_INTEGER freeToCaller{};
    ULARGE_INTEGER total{};
    if (!GetDiskFreeSpaceExW(root.c_str(), &freeToCaller, &total, nullptr)) return std::nullopt;
    return DriveSpace{static_cast<double>(freeToCaller.QuadPart),
                      static_cast<double>(total.QuadPart)};
}

}  // namespace

WindowsDrive::WindowsDrive(std::shared_ptr<DriveQuestions> questions, std::string path)
    : MeasuredDrive(std::move(path)), questions_(std::move(questions)) {}

std::optional<DriveSpace> WindowsDrive::measure() {
    return questions_
        ->ask<std::optional<DriveSpace>>(Path(), [drive = Path()] { return spaceOf(drive); })
        .value_or(std::nullopt);
}

}  // namespace velmora::windows
