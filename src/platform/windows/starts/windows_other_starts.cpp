#include "platform/windows/starts/windows_other_starts.h"

#include <windows.h>

#include <utility>

#include "base/text.h"
#include "platform/path_sum.h"
#include "platform/windows/system/private_security.h"
#include "platform/windows/system/utf16.h"

namespace velmora::windows {

namespace {

constexpr DWORD patience = 2000;  // milliseconds
constexpr std::string_view isTaken = "taken";

// A window of another session can't come to the front of this one.
std::wstring ofThisSession(const std::wstring& name) {
    DWORD session = 0;
    ProcessIdToSessionId(GetCurrentProcessId(), &session);
    wchar_t user[257] = L"";
    DWORD size = 257;
    GetUserNameW(user, &size);
    return name + L"-" + std::to_wstring(session) + L"-" + user;
}

// One message, of any length up to the most that is handed over.
bool readMessage(HANDLE pipe, std::string& text) {
    text.resize(mostHandedOver);
    DWORD got = 0;
    const bool isRead =
        ReadFile(pipe, text.data(), static_cast<DWORD>(text.size()), &got, nullptr) != FALSE;
    text.resize(isRead ? got : 0);
    return isRead;
}

}  // namespace

WindowsOtherStarts::WindowsOtherStarts(const std::string& folder) {
    const std::wstring sum = toUtf16(sumOfPath(lowerCase(folder)));
    mutexName_ = L"Global\\Velmora-" + sum;
    pipeName_ = ofThisSession(L"\\\\.\\pipe\\velmora-" + sum);
}

// The listener waits in a call that only a client ends.
void WindowsOtherStarts::stopListening() {
    if (!listener_.joinable()) return;
    isEnding_ = true;
    handOver(".");
    listener_.join();
    pipe_.reset();
    isEnding_ = false;
}

void WindowsOtherStarts::release() {
    stopListening();
    watched_.reset();
}

bool WindowsOtherStarts::holdFolder() {
    watched_.reset(CreateMutexW(nullptr, FALSE, mutexName_.c_str()));
    const DWORD failure = GetLastError();
    // One of another user may not be opened.
    return failure != ERROR_ALREADY_EXISTS && failure != ERROR_ACCESS_DENIED;
}

bool WindowsOtherStarts::listen(Taken taken) {
    PrivateSecurity security;
    if (security.failure() != ERROR_SUCCESS) return false;
    pipe_.reset(CreateNamedPipeW(
        pipeName_.c_str(), PIPE_ACCESS_DUPLEX | FILE_FLAG_FIRST_PIPE_INSTANCE,
        PIPE_TYPE_MESSAGE | PIPE_READMODE_MESSAGE | PIPE_WAIT | PIPE_REJECT_REMOTE_CLIENTS, 1, 4096,
        4096, patience, security.attributes()));
    if (!pipe_.isOpen()) return false;
    listener_ = std::thread([this, taken = std::move(taken)] { takeStarts(taken); });
    return true;
}

void WindowsOtherStarts::takeStarts(const Taken& taken) {
    while (!isEnding_) {
        const bool isConnected =
            ConnectNamedPipe(pipe_.get(), nullptr) || GetLastError() == ERROR_PIPE_CONNECTED;
        std::string command;
        if (isConnected && readMessage(pipe_.get(), command)) {
            if (!isEnding_) taken(command);
            DWORD written = 0;
            WriteFile(pipe_.get(), isTaken.data(), static_cast<DWORD>(isTaken.size()), &written,
                      nullptr);
            FlushFileBuffers(pipe_.get());
        }
        DisconnectNamedPipe(pipe_.get());
        if (!isConnected) return;
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
           std::string_view(answer, size) == isTaken;
}

}  // namespace velmora::windows
