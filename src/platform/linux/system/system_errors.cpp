#include "platform/linux/system/system_errors.h"

#include <algorithm>
#include <cerrno>
#include <iterator>

#include "base/runtime_error.h"

namespace velmora::linuxhost {

namespace {

struct SystemError {
    int failure;
    std::uint32_t code;
    int runtimeError;
};

constexpr SystemError systemErrors[] = {
    {ENOENT, code::pathNotFound, error::pathNotFound},
    {ENOTDIR, code::pathNotFound, error::pathNotFound},
    {EACCES, code::accessDenied, error::permissionDenied},
    {EPERM, code::accessDenied, error::permissionDenied},
    {EROFS, code::accessDenied, error::pathFileAccess},
    {ELOOP, code::accessDenied, error::deviceIo},
    {EISDIR, code::generalFailure, error::pathFileAccess},
    {EXDEV, code::notSameDevice, error::deviceIo},
    {EBUSY, code::sharingViolation, error::permissionDenied},
    {ETXTBSY, code::sharingViolation, error::permissionDenied},
    {EINVAL, code::invalidParameter, error::deviceIo},
    {ENOSPC, code::diskFull, error::diskFull},
    {EDQUOT, code::diskFull, error::diskFull},
    {EEXIST, code::alreadyExists, error::deviceIo},
    {ENOTEMPTY, code::alreadyExists, error::deviceIo},
    {ENAMETOOLONG, code::nameTooLong, error::deviceIo},
    {EFBIG, code::fileTooLarge, error::deviceIo},
};

const SystemError& rowOf(int failure) {
    static constexpr SystemError other{0, code::generalFailure, error::deviceIo};
    const auto* found =
        std::find_if(std::begin(systemErrors), std::end(systemErrors),
                     [failure](const SystemError& each) { return each.failure == failure; });
    return found == std::end(systemErrors) ? other : *found;
}

}  // namespace

std::uint32_t codeOf(int failure) {
    return failure == 0 ? code::success : rowOf(failure).code;
}

std::uint32_t codeWithoutLoops(int failure) {
    return failure == ELOOP ? code::generalFailure : codeOf(failure);
}

int runtimeErrorOf(int failure) {
    return rowOf(failure).runtimeError;
}

int errorOfEntry(int failure) {
    const int number = runtimeErrorOf(failure);
    return number == error::pathNotFound ? number : error::permissionDenied;
}

int errorOfRemovingFile(int failure) {
    const int number = runtimeErrorOf(failure);
    if (number == error::pathNotFound) return error::fileNotFound;
    return number == error::pathFileAccess ? number : error::permissionDenied;
}

}  // namespace velmora::linuxhost
