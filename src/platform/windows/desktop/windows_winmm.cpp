#include "platform/windows/desktop/windows_winmm.h"

#include <windows.h>
// After the one above, which it needs.
#include <mmsystem.h>

#include "platform/windows/entries/entry_facts.h"
#include "platform/windows/system/utf16.h"

namespace velmora::windows {

namespace {

bool isFile(const std::wstring& path) {
    return kindOf(GetFileAttributesW(path.c_str())) == PathKind::file;
}

}  // namespace

std::int16_t WindowsWinmm::sndPlaySoundA(const std::string& file, std::int32_t flags) {
    if (file.empty() || file.find('\0') != std::string::npos) return 0;
    const std::wstring path = toUtf16(file);
    // Without a device the system waits for one; for a missing file it may play another sound.
    if (!isFile(path) || waveOutGetNumDevs() == 0) return 0;
    // Of the caller's flags those that would return before the sound has ended, or that say that
    // the text is no path, are removed.
    constexpr auto others = static_cast<DWORD>(SND_ASYNC | SND_LOOP | SND_MEMORY | SND_ALIAS);
    const DWORD kept = (static_cast<DWORD>(flags) & ~others) | SND_FILENAME;
    return PlaySoundW(path.c_str(), nullptr, kept) ? 1 : 0;
}

}  // namespace velmora::windows
