#include "platform/measured_drive.h"

#include <utility>

#include "base/runtime_error.h"

namespace velmora {

MeasuredDrive::MeasuredDrive(std::string path) : path_(std::move(path)) {}

bool MeasuredDrive::renew() {
    isMeasured_ = false;
    return true;
}

const std::optional<DriveSpace>& MeasuredDrive::reading() {
    if (!std::exchange(isMeasured_, true)) reading_ = measure();
    return reading_;
}

const DriveSpace& MeasuredDrive::readyReading() {
    if (!reading()) throw RuntimeError(error::diskNotReady);
    return *reading_;
}

}  // namespace velmora
