#include "shell/menus/group_keys.h"

#include <algorithm>

namespace velmora {

namespace {

constexpr std::string_view afterFlag = "|";

class Content {
  public:
    Content(std::string_view text, std::span<const mark::KeyToken> keys)
        : text_(text), keys_(keys) {}

    const mark::KeyToken* keyAt(std::size_t at) const {
        return mark::keyAt(text_.substr(at), keys_, afterFlag);
    }

    /// Where the next key begins, the end of the text without one.
    std::size_t nextKey(std::size_t from) const {
        std::size_t at = text_.find('|', from);
        while (at != text_.npos && keyAt(at) == nullptr) at = text_.find('|', at + 1);
        return std::min(at, text_.size());
    }

    std::string_view piece(std::size_t from, std::size_t end) const {
        return text_.substr(from, end - from);
    }

  private:
    std::string_view text_;
    std::span<const mark::KeyToken> keys_;
};

}  // namespace

std::string takeKeys(std::string_view content, std::span<const mark::KeyToken> keys,
                     const TakeKey& take) {
    const Content text(content, keys);
    std::size_t at = text.nextKey(0);
    std::string rest(text.piece(0, at));
    while (at < content.size()) {
        const mark::KeyToken& token = *text.keyAt(at);
        const std::size_t valueAt = at + token.spelling.size();
        const std::size_t end = text.nextKey(valueAt);
        const std::string_view value = text.piece(valueAt, end);
        if (!take(token.key, token.takesValue() ? value : "")) {
            rest += text.piece(at, end);
        } else if (!token.takesValue()) {
            rest += value;
        }
        at = end;
    }
    return rest;
}

}  // namespace velmora
