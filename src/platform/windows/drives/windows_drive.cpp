#include "platform/windows/drives/windows_drive.h"

#include <windows.h>

#include <utility>

#include "base/runtime_error.h"
#include "platform/windows/system/utf16.h"

namespace velmora::windows {

WindowsDrive::WindowsDrive(std::shared_ptr<DriveQuestions> questions, std::string path)
    : questions_(std::move(questions)), path_(std::move(path)) {}

std::optional<WindowsDrive::Reading> WindowsDrive::measure(const std::string& path) {
    const std::wstring root = systemPath(path + '\\');
    ULARGE_INTEGER freeToCaller{};
    ULARGE_INTEGER total{};
    if (!GetDiskFreeSpaceExW(root.c_str(), &freeToCaller, &total, nullptr)) return std::nullopt;
    return Reading{static_cast<double>(freeToCaller.QuadPart), static_cast<double>(total.QuadPart)};
}

bool WindowsDrive::IsReady() {
    if (!std::exchange(measured_, true)) {
        const auto answer = questions_->ask<std::optional<Reading>>(
            path_, [path = path_] { return measure(path); });
        reading_ = answer.value_or(std::nullopt);
    }
    return reading_.has_value();
}

const WindowsDrive::Reading& WindowsDrive::readingOrError() {
    if (!IsReady()) throw RuntimeError(error::diskNotReady);
    return *reading_;
}

double WindowsDrive::FreeSpace() {
    return readingOrError().free;
}

double WindowsDrive::TotalSize() {
    return readingOrError().total;
}

}  // namespace velmora::windows
