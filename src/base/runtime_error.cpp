#include "base/runtime_error.h"

#include <new>
#include <utility>

namespace velmora {

std::string errorDescription(int number) {
    switch (number) {
        case error::invalidCall:
            return "Invalid procedure call or argument";
        case error::overflow:
            return "Overflow";
        case error::outOfMemory:
            return "Out of memory";
        case error::subscriptOutOfRange:
            return "Subscript out of range";
        case error::divisionByZero:
            return "Division by zero";
        case error::typeMismatch:
            return "Type mismatch";
        case error::fileNotFound:
            return "File not found";
        case error::deviceIo:
            return "Device I/O error";
        case error::diskFull:
            return "Disk full";
        case error::permissionDenied:
            return "Permission denied";
        case error::diskNotReady:
            return "Disk not ready";
        case error::pathFileAccess:
            return "Path/File access error";
        case error::pathNotFound:
            return "Path not found";
        case error::invalidPropertyValue:
            return "Invalid property value";
        case error::objectRequired:
            return "Object required";
        case error::unsupportedMember:
            return "Object doesn't support this property or method";
        case error::automation:
            return "Automation error";
        case error::indexOutOfBounds:
            return "Index out of bounds";
        default:
            return "Application-defined or object-defined error";
    }
}

RuntimeError::RuntimeError(int number) : RuntimeError(number, errorDescription(number)) {}

RuntimeError::RuntimeError(int number, std::string description)
    : number_(number), description_(std::move(description)) {}

void RuntimeError::noteAttempt(std::string_view tried, std::string_view file) {
    if (!tried_.empty()) return;
    tried_ = tried;
    file_ = file;
}

void RuntimeError::noteHandler(std::string_view handler) {
    if (handler_.empty()) handler_ = handler;
}

RuntimeError currentRuntimeError() {
    try {
        throw;
    } catch (const RuntimeError& failure) {
        return failure;
    } catch (const std::bad_alloc&) {
        return RuntimeError(error::outOfMemory);
    } catch (const std::exception& failure) {
        return RuntimeError(error::invalidCall, failure.what());
    } catch (...) {
        return RuntimeError(error::invalidCall);
    }
}

}  // namespace velmora
