#include "qt/controls/journal_view.h"

#include "qt/surface/field.h"
#include "qt/surface/text.h"

namespace velmora::qt {

JournalView::JournalView(TextBox& field, QWidget* parent) : QPlainTextEdit(parent), field_(field) {
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setTabChangesFocus(true);
    setLineWrapMode(WidgetWidth);
    bindField(this, field, [this] { showGathered(); });
    prepended_ = field.Prepended.connect([this](const std::string& text) { gather(text); });
    replaced_ = field.Replaced.connect([this] { stale_ = true; });
}

void JournalView::gather(const std::string& text) {
    if (!stale_) gathered_.push_back(text);
}

void JournalView::showGathered() {
    if (!isVisible()) return;
    if (stale_) {
        setPlainText(shownLines(field_.Text()));
        gathered_.clear();
        stale_ = false;
    } else if (!gathered_.empty()) {
        QTextCursor front(document());
        front.movePosition(QTextCursor::Start);
        std::string newestFirst;
        while (!gathered_.empty()) {
            newestFirst += gathered_.back();
            gathered_.pop_back();
        }
        front.insertText(shownLines(newestFirst));
    }
}

void JournalView::showEvent(QShowEvent* event) {
    QPlainTextEdit::showEvent(event);
    showGathered();
}

void JournalView::hideEvent(QHideEvent* event) {
    QPlainTextEdit::hideEvent(event);
    clear();
    gathered_.clear();
    stale_ = true;
}

}  // namespace velmora::qt
