#include "platform/windows/starts/windows_other_starts.h"

#include <windows.h>

#include <chrono>
#include <utility>

#include "base/text.h"
#include "base/text_sum.h"
#include "platform/windows/system/private_security.h"
#include "platform/windows/system/utf16.h"

namespace velmora::windows {

namespace {

constexpr DWORD patience = static_cast<DWORD>(std::chrono::milliseconds(handOverPatience).count());
constexpr std::string_view takenAnswer = "taken";

// A window of another session can't come to the front of this one.
std::wstring ofThisSession(const std::wstring& name) {
    DWORD session = 0;
    ProcessIdToSessionId(GetCurrentProcessId(), &session);
    wchar_t user[257] = L"";
    DWORD size = 257;
    GetUserNameW(user, &size);
    return name + L"-" + std::to_wstring(session) + L"-" + user;
}

// One call on the pipe that may take its time.
class PipeCall {
  public:
    explicit PipeCall(HANDLE pipe)
        : pipe_(pipe), done_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
        call_.hEvent = done_.get();
    }
    PipeCall(const PipeCall&) = delete;
    PipeCall& operator=(const PipeCall&) = delete;

    OVERLAPPED* call() { return &call_; }

    /// Waits for the end of a call whose result is `begun`; `end` or the time gives it up.
    bool finished(BOOL begun, HANDLE end, DWORD milliseconds) {
        if (!begun && GetLastError() == ERROR_PIPE_CONNECTED) return true;
        if (!begun && GetLastError() != ERROR_IO_PENDING) return false;
        const HANDLE either[] = {done_.get(), end};
        if (WaitForMultipleObjects(2, either, FALSE, milliseconds) != WAIT_OBJECT_0)
            CancelIo(pipe_);
        return GetOverlappedResult(pipe_, &call_, &count_, TRUE) != FALSE;
    }
    DWORD count() const { return count_; }

  private:
    HANDLE pipe_;
    UniqueHandle done_;
    OVERLAPPED call_{};
    DWORD count_ = 0;
};

// One message, of any length up to the most that is handed over.
bool readMessage(HANDLE pipe, HANDLE end, std::string& text) {
    text.resize(mostHandedOver);
    PipeCall call(pipe);
    const BOOL begun =
        ReadFile(pipe, text.data(), static_cast<DWORD>(text.size()), nullptr, call.call());
    const bool isRead = call.finished(begun, end, patience);
    text.resize(isRead ? call.count() : 0);
    return isRead;
}

void answer(HANDLE pipe, HANDLE end) {
    PipeCall call(pipe);
    const BOOL begun = WriteFile(pipe, takenAnswer.data(), static_cast<DWORD>(takenAnswer.size()),
                                 nullptr, call.call());
    std::string rest;
    // What isn't read yet would be lost with the connection: the other end closes it.
    if (call.finished(begun, end, patience)) readMessage(pipe, end, rest);
}

}  // namespace

WindowsOtherStarts::WindowsOtherStarts(const std::string& folder) {
    const std::wstring sum = toUtf16(sumOfText(lowerCase(folder)));
    mutexName_ = L"Global\\Velmora-" + sum;
    pipeName_ = ofThisSession(L"\\\\.\\pipe\\velmora-" + sum);
}

void WindowsOtherStarts::stopListening() {
    if (!listener_.joinable()) return;
    SetEvent(end_.get());
    listener_.join();
    pipe_.reset();
}

void WindowsOtherStarts::release() {
    stopListening();
    watched_.reset();
}

bool WindowsOtherStarts::holdFolder() {
    watched_.reset(CreateMutexW(nullptr, FALSE, mutexName_.c_str()));
    const DWORD failure = GetLastError();
    // One of another user may not be opened.
    const bool isHeld = failure == ERROR_ALREADY_EXISTS || failure == ERROR_ACCESS_DENIED;
    // It is there as long as anybody has it open.
    if (isHeld) watched_.reset();
    return !isHeld;
}

bool WindowsOtherStarts::listen(Taken taken) {
    PrivateSecurity security;
    if (security.failure() != ERROR_SUCCESS) return false;
    pipe_.reset(CreateNamedPipeW(
        pipeName_.c_str(),
        PIPE_ACCESS_DUPLEX | FILE_FLAG_FIRST_PIPE_INSTANCE | FILE_FLAG_OVERLAPPED,
        PIPE_TYPE_MESSAGE | PIPE_READMODE_MESSAGE | PIPE_WAIT | PIPE_REJECT_REMOTE_CLIENTS, 1, 4096,
        4096, patience, security.attributes()));
    end_.reset(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    if (!pipe_.isOpen() || !end_.isOpen()) return false;
    listener_ = std::thread([this, taken = std::move(taken)] { takeStarts(taken); });
    return true;
}

void WindowsOtherStarts::takeStarts(const Taken& taken) {
    while (WaitForSingleObject(end_.get(), 0) == WAIT_TIMEOUT) {
        PipeCall call(pipe_.get());
        const BOOL begun = ConnectNamedPipe(pipe_.get(), call.call());
        std::string command;
        if (call.finished(begun, end_.get(), INFINITE) &&
            readMessage(pipe_.get(), end_.get(), command)) {
            if (taken(command)) answer(pipe_.get(), end_.get());
        }
        DisconnectNamedPipe(pipe_.get());
    }
}

bool WindowsOtherStarts::handOver(const std::string& command) {
    // This program has the right to be in front; the other one is to get it.
    AllowSetForegroundWindow(ASFW_ANY);
    std::string sent = command;
    char answer[16];
    DWORD size = 0;
    return CallNamedPipeW(pipeName_.c_str(), sent.data(), static_cast<DWORD>(sent.size()), answer,
                          sizeof answer, &size, patience) &&
           std::string_view(answer, size) == takenAnswer;
}

}  // namespace velmora::windows
