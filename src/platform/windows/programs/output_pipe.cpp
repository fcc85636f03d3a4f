#include "platform/windows/programs/output_pipe.h"

#include <atomic>

namespace velmora::windows {

namespace {

constexpr DWORD pipeBuffer = 1U << 16;

std::wstring newPipeName() {
    static std::atomic<unsigned> count = 0;
    return LR"(\\.\pipe\velmora-)" + std::to_wstring(GetCurrentProcessId()) + L'-' +
           std::to_wstring(count++);
}

}  // namespace

// A pipe without a name can't be read with a deadline.
OutputPipe newOutputPipe() {
    const std::wstring name = newPipeName();
    OutputPipe pipe;
    pipe.reader.reset(CreateNamedPipeW(
        name.c_str(), PIPE_ACCESS_INBOUND | FILE_FLAG_OVERLAPPED | FILE_FLAG_FIRST_PIPE_INSTANCE,
        PIPE_TYPE_BYTE | PIPE_WAIT | PIPE_REJECT_REMOTE_CLIENTS, 1, 0, pipeBuffer, 0, nullptr));
    SECURITY_ATTRIBUTES inheritable{};
    inheritable.nLength = sizeof inheritable;
    inheritable.bInheritHandle = TRUE;
    if (pipe.reader.isOpen())
        pipe.writer.reset(CreateFileW(name.c_str(), GENERIC_WRITE, 0, &inheritable, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    return pipe;
}

std::string readFrom(HANDLE reader, std::size_t most, std::chrono::milliseconds patience) {
    const UniqueHandle done(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    if (!done.isOpen()) return {};
    std::string bytes(most, '\0');
    OVERLAPPED reading{};
    reading.hEvent = done.get();
    if (!ReadFile(reader, bytes.data(), static_cast<DWORD>(most), nullptr, &reading) &&
        GetLastError() != ERROR_IO_PENDING)
        return {};
    if (WaitForSingleObject(done.get(), static_cast<DWORD>(patience.count())) != WAIT_OBJECT_0)
        CancelIoEx(reader, &reading);
    // Also after that: the buffer is the system's until the call has ended.
    DWORD count = 0;
    if (!GetOverlappedResult(reader, &reading, &count, TRUE)) count = 0;
    bytes.resize(count);
    return bytes;
}

}  // namespace velmora::windows
