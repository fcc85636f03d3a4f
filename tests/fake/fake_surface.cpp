#include "fake/fake_surface.h"

#include <algorithm>

namespace velmora::fake {

namespace {

template <typename... Numbers>
std::string numbers(Numbers... values) {
    return ((' ' + std::to_string(values)) + ...);
}

}  // namespace

int FailingCalls::countOf(const std::string& prefix) const {
    return static_cast<int>(std::count_if(
        calls.begin(), calls.end(), [&](const std::string& c) { return c.starts_with(prefix); }));
}

bool FailingCalls::record(std::string call) {
    calls.push_back(std::move(call));
    if (failAt_ == 0) return true;
    return --failAt_ != 0;
}

std::int32_t FakeUser32::GetWindowLongA(const std::string& window, std::int32_t index) {
    if (!record("GetWindowLongA " + window + numbers(index))) return 0;
    return index == window::extendedStyle ? extendedStyle[window] : 0;
}

std::int32_t FakeUser32::SetWindowLongA(const std::string& window, std::int32_t index,
                                        std::int32_t value) {
    if (!record("SetWindowLongA " + window + numbers(index, value))) return 0;
    return index == window::extendedStyle ? std::exchange(extendedStyle[window], value) : 0;
}

bool FakeUser32::SetLayeredWindowAttributes(const std::string& window, std::uint32_t key,
                                            std::uint8_t alpha, std::uint32_t flags) {
    return record("SetLayeredWindowAttributes " + window + numbers(key, alpha, flags));
}

bool FakeUser32::SetWindowPos(const std::string& window, std::int32_t after, int left, int top,
                              int width, int height, std::uint32_t flags) {
    return record("SetWindowPos " + window + numbers(after, left, top, width, height, flags));
}

std::uint32_t FakeUser32::GetWindowThreadProcessId(const std::string& window,
                                                   std::uint32_t& processOfWindow) {
    constexpr std::uint32_t thread = 1;
    const bool found = record("GetWindowThreadProcessId " + window);
    processOfWindow = found ? process : 0;
    return found ? thread : 0;
}

void FakeUser32::AppActivate(std::uint32_t activated) {
    record("AppActivate" + numbers(activated));
}

bool FakeUser32::SetForegroundWindow(const std::string& window) {
    return record("SetForegroundWindow " + window);
}

HookHandle FakeUser32::SetWindowsHookExA(std::int32_t type, HookProcedure procedure) {
    if (!record("SetWindowsHookExA" + numbers(type))) return 0;
    hooks[++lastHook_] = std::move(procedure);
    return lastHook_;
}

void FakeUser32::CallNextHookEx(HookHandle hook, std::uint32_t message, const std::string& window) {
    record("CallNextHookEx" + numbers(hook, message) + ' ' + window);
}

bool FakeUser32::UnhookWindowsHookEx(HookHandle hook) {
    return record("UnhookWindowsHookEx" + numbers(hook)) && hooks.erase(hook) > 0;
}

bool FakeUser32::KillTimer(std::uint32_t window, std::uint64_t timer) {
    return record("KillTimer " + std::to_string(window) + ' ' + std::to_string(timer));
}

bool FakeUser32::DestroyWindow(std::uint32_t window) {
    return record("DestroyWindow " + std::to_string(window));
}

std::string FakeUser32::GetActiveWindow() {
    return record("GetActiveWindow") ? activeWindow : std::string{};
}

void FakeUser32::send(std::uint32_t message, const std::string& window) {
    // A copy: a procedure may remove its hook.
    const auto standing = hooks;
    for (const auto& [handle, procedure] : standing) procedure(message, window);
}

std::uint64_t FakeShellIcons::SHGetFileInfoA(const std::string& path, std::uint32_t attributes,
                                             ShellFileInfo& info, std::uint32_t size,
                                             std::uint32_t flags) {
    if (!record("SHGetFileInfoA " + path + numbers(attributes, size, flags))) return 0;
    const auto found = iconOf.find(path);
    info.iIcon = found == iconOf.end() ? 0 : found->second;
    return imageList;
}

bool FakeShellIcons::ImageList_Draw(std::uint64_t list, int index, std::string& picture, int left,
                                    int top, std::uint32_t style) {
    if (!record("ImageList_Draw" + numbers(list, index, left, top, style))) return false;
    picture = "image " + std::to_string(index);
    return true;
}

}  // namespace velmora::fake
