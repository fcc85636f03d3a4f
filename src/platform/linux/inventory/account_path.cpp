#include "platform/linux/inventory/account_path.h"

#include "base/text.h"

namespace velmora::linuxhost {

namespace {

std::string inQuotes(std::string_view text) {
    std::string quoted = "\"";
    for (const char each : text) {
        if (each == '\\' || each == '"') quoted += '\\';
        quoted += each;
    }
    return quoted + '"';
}

std::string placeOf(const std::string& host) {
    return R"(\\)" + host + R"(\root\cimv2:)";
}

// Takes a path apart from its front.
class PathReader {
  public:
    explicit PathReader(std::string_view path) : rest_(path) {}

    /// Whether the text, which is in lower case, comes next; then it is taken away.
    bool takes(std::string_view lowerText) {
        if (lowerCase(rest_.substr(0, lowerText.size())) != lowerText) return false;
        rest_.remove_prefix(lowerText.size());
        return true;
    }
    /// Whether there is something before the next back-slash; then it is taken away.
    bool takesHost() {
        const auto end = rest_.find('\\');
        if (end == 0 || end == std::string_view::npos) return false;
        rest_.remove_prefix(end);
        return true;
    }
    /// The text in quotes that comes next.
    std::optional<std::string> quoted() {
        if (!takes("\"")) return std::nullopt;
        std::string text;
        while (!rest_.empty() && rest_.front() != '"') {
            if (rest_.front() == '\\') rest_.remove_prefix(1);
            if (rest_.empty()) return std::nullopt;
            text += rest_.front();
            rest_.remove_prefix(1);
        }
        if (!takes("\"")) return std::nullopt;
        return text;
    }
    bool isEmpty() const { return rest_.empty(); }

  private:
    std::string_view rest_;
};

}  // namespace

std::string accountPath(const AccountName& account) {
    return placeOf(account.domain) + "Win32_UserAccount.Domain=" + inQuotes(account.domain) +
           ",Name=" + inQuotes(account.name);
}

std::string sessionPath(const std::string& host, const std::string& id) {
    return placeOf(host) + "Win32_LogonSession.LogonId=" + inQuotes(id);
}

std::optional<AccountName> accountIn(std::string_view path) {
    PathReader reader(path);
    if (!reader.takes(R"(\\)") || !reader.takesHost() ||
        !reader.takes(R"(\root\cimv2:win32_useraccount.domain=)"))
        return std::nullopt;
    auto domain = reader.quoted();
    if (!domain || !reader.takes(",name=")) return std::nullopt;
    auto name = reader.quoted();
    if (!name || !reader.isEmpty()) return std::nullopt;
    return AccountName{std::move(*domain), std::move(*name)};
}

}  // namespace velmora::linuxhost
