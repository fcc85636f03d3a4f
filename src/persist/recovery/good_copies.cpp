#include "persist/recovery/good_copies.h"

#include <utility>

#include "base/text_sum.h"

namespace velmora {

namespace {

std::string nameFor(const std::string& folderKey) {
    return "set-" + sumOfText(folderKey);
}

}  // namespace

GoodCopies::GoodCopies(UserState& state, const std::string& folderKey)
    : state_(state),
      marksName_(nameFor(folderKey) + "-turns.txt"),
      copies_(state, nameFor(folderKey)),
      replaced_(state, nameFor(folderKey) + "-replaced") {}

void GoodCopies::keep(const std::string& content) {
    copies_.keep(content);
    const CopyMarks old = marks();
    CopyMarks now = old;
    const std::string sum = sumOfText(content);
    now.ended.erase(sum);
    if (!now.passed.contains(sum)) now.passed.clear();
    change(old, std::move(now));
}

void GoodCopies::endedStart(const std::string& content) {
    const CopyMarks old = marks();
    CopyMarks now = old;
    const std::string sum = sumOfText(content);
    now.ended.insert(sum);
    if (!now.passed.contains(sum)) now.passed.clear();
    change(old, std::move(now));
}

std::optional<GoodCopies::Copy> GoodCopies::next(const std::optional<std::string>& present) {
    const CopyMarks marks = this->marks();
    std::optional<Copy> passed;
    for (Copy& copy : copies_.newestFirst()) {
        const std::string sum = sumOfText(copy.content);
        if (copy.content == present || marks.ended.contains(sum)) continue;
        if (!marks.passed.contains(sum)) return std::move(copy);
        if (!passed) passed = std::move(copy);
    }
    return passed;
}

void GoodCopies::wasPutBack(const std::string& copy, const std::optional<std::string>& replaced) {
    const CopyMarks old = marks();
    CopyMarks now = old;
    const std::string sum = sumOfText(copy);
    if (now.passed.contains(sum)) now.passed.clear();
    now.passed.insert(sum);
    if (replaced) now.passed.insert(sumOfText(*replaced));
    change(old, std::move(now));
}

std::string GoodCopies::keepReplaced(const std::string& content) {
    for (const Copy& copy : copies_.newestFirst()) {
        if (copy.content == content) return copy.place;
    }
    return replaced_.keep(content);
}

// Only copies can have a turn: what else was met is forgotten.
void GoodCopies::change(const CopyMarks& old, CopyMarks marks) {
    std::set<std::string> present;
    for (const Copy& copy : copies_.newestFirst()) present.insert(sumOfText(copy.content));
    const auto isGone = [&present](const std::string& sum) { return !present.contains(sum); };
    std::erase_if(marks.passed, isGone);
    std::erase_if(marks.ended, isGone);
    if (marks != old) writeMarks(state_, marksName_, marks);
}

}  // namespace velmora
