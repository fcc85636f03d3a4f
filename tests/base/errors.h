// Expecting run-time errors in tests.
#pragma once

#include <string>

#include "base/runtime_error.h"

namespace velmora {

/// The number of the run-time error that the statement raises, 0 if it raises none.
template <typename Statement>
int errorOf(Statement&& statement) {
    try {
        statement();
    } catch (const RuntimeError& failure) {
        return failure.number();
    }
    return 0;
}

/// What was tried when the statement raised a run-time error, with the file, and a blank between.
template <typename Statement>
std::string attemptOf(Statement&& statement) {
    try {
        statement();
    } catch (const RuntimeError& failure) {
        return failure.tried() + " " + failure.file();
    }
    return "";
}

}  // namespace velmora
