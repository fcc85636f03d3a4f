#include "platform/windows/paths/exact_path.h"

#include <algorithm>
#include <string_view>

#include "platform/file_system_object.h"
#include "platform/windows/system/utf16.h"

namespace velmora::windows {

namespace {

// How much of a text with back-slashes only is its root; 0 when it has none.
std::size_t lengthOfRoot(const std::wstring& text) {
    const bool hasLetter = !text.empty() && ((text[0] >= L'A' && text[0] <= L'Z') ||
                                             (text[0] >= L'a' && text[0] <= L'z'));
    if (hasLetter) return text.compare(1, 2, LR"(:\)") == 0 ? 3 : 0;
    if (!text.starts_with(LR"(\\)")) return 0;
    const auto host = text.find(L'\\', 2);
    if (host == std::wstring::npos || host == 2) return 0;
    const auto share = std::min(text.find(L'\\', host + 1), text.size());
    const std::wstring_view hostName(text.data() + 2, host - 2);
    if (share == host + 1 || hostName == L"." || hostName == L"?") return 0;
    return std::min(share + 1, text.size());
}

// Takes the names after the root; false when one of them can't be a name.
bool takeNames(std::wstring_view text, std::vector<std::wstring>& names) {
    while (!text.empty()) {
        const auto end = std::min(text.find(L'\\'), text.size());
        const std::wstring name(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (name.find(L':') != std::wstring::npos) return false;
        if (name == L"..") {
            if (!names.empty()) names.pop_back();
        } else if (!name.empty() && name != L".") {
            names.push_back(name);
        }
    }
    return true;
}

}  // namespace

std::wstring ExactPath::text() const {
    const bool isShare = root.starts_with(LR"(\\)");
    std::wstring text = isShare ? LR"(\\?\UNC\)" + root.substr(2) : LR"(\\?\)" + root;
    for (const std::wstring& name : names) {
        if (!text.ends_with(L'\\')) text += L'\\';
        text += name;
    }
    return text;
}

std::optional<ExactPath> exactPath(const std::string& path) {
    if (path.empty() || path.find('\0') != std::string::npos) return std::nullopt;
    std::wstring text = toUtf16(withoutLongPrefix(path));
    std::replace(text.begin(), text.end(), L'/', L'\\');
    if (lengthOfRoot(text) == 0) text = fullPath(path);
    const auto root = lengthOfRoot(text);
    if (root == 0) return std::nullopt;
    ExactPath exact{text.substr(0, root), {}};
    if (!exact.root.ends_with(L'\\')) exact.root += L'\\';
    if (!takeNames(std::wstring_view(text).substr(root), exact.names)) return std::nullopt;
    return exact;
}

bool isTidy(const std::string& path) {
    const auto exact = exactPath(path);
    if (!exact) return false;
    const auto tidied = exactPath(toUtf8(fullPath(path)));
    return tidied && tidied->names == exact->names && tidied->root == exact->root;
}

std::string driveOfPath(const std::string& path) {
    return driveOfDesignator(driveNameOf(withoutLongPrefix(toUtf8(fullPath(path)))));
}

}  // namespace velmora::windows
