// A pipe whose reader can stop waiting.
#pragma once

#include <windows.h>

#include <chrono>
#include <string>

#include "platform/windows/system/unique_handle.h"

namespace velmora::windows {

struct OutputPipe {
    UniqueHandle reader;  ///< for overlapped calls
    UniqueHandle writer;  ///< other programs can take it over
};

/// Both are closed when there is none.
OutputPipe newOutputPipe();

/// What lies in the pipe, at most `most` bytes. Waits for the first byte no longer than `patience`;
/// empty when there is none until then, or the pipe has no writer any more.
std::string readFrom(HANDLE reader, std::size_t most, std::chrono::milliseconds patience);

}  // namespace velmora::windows
