// The window of the setup wizard: the list of its steps, the step that is shown with its name and
// explanation, and the buttons.
#include <QEvent>
#include <QFrame>

#include "qt/controls/buttons.h"
#include "qt/surface/field.h"
#include "qt/surface/refresher.h"
#include "qt/surface/text.h"
#include "qt/windows/dialog_pieces.h"
#include "qt/windows/dialogs.h"
#include "qt/windows/layouts.h"
#include "qt/windows/step_list.h"
#include "qt/windows/wizard_pages.h"

namespace velmora::qt {

namespace {

constexpr double headingScale = 1.3;

// The keyboard goes to the first field of a step that comes, or to the button that the Enter key
// presses where there is none.
class FocusOnShow : public QObject {
  public:
    FocusOnShow(QWidget* page, QPushButton* otherwise) : QObject(page), otherwise_(otherwise) {
        page->installEventFilter(this);
    }

    bool eventFilter(QObject* page, QEvent* event) override {
        if (event->type() == QEvent::Show) focusIn(static_cast<QWidget*>(page));
        return false;
    }

  private:
    void focusIn(QWidget* page) {
        for (QWidget* field : page->findChildren<QWidget*>()) {
            const bool takes = (field->focusPolicy() & Qt::TabFocus) != 0 && field->isEnabled() &&
                               field->isVisible() && field->focusProxy() == nullptr;
            if (takes) return field->setFocus(Qt::TabFocusReason);
        }
        otherwise_->setFocus(Qt::TabFocusReason);
    }

    QPushButton* otherwise_;
};

QLabel* makeHeading(Frame& step) {
    auto* label = new QLabel(shown(step.Caption()).trimmed());
    QFont letters = label->font();
    letters.setBold(true);
    letters.setPointSizeF(letters.pointSizeF() * headingScale);
    label->setFont(letters);
    return label;
}

QWidget* makeStep(Frame& step, Label& explanation, QLayout* fields) {
    auto* content = column({makeHeading(step), makeCaption(explanation, true)});
    content->setContentsMargins(0, 0, gap, 0);
    content->addSpacing(gap);
    if (fields != nullptr) {
        content->addLayout(fields, 1);
    } else {
        content->addStretch(1);
    }
    QScrollArea* page = scrolled(around(content));
    // Its fields can be reached by Tab, and come into view then.
    page->setFocusPolicy(Qt::NoFocus);
    bindField(page, step, [] {});
    page->setAccessibleName(shown(step.Caption()).trimmed());
    return page;
}

// The Enter key goes forward, and finishes on the last step.
void keepDefault(FrmWizard& form, QPushButton* next, QPushButton* finish) {
    follow(form.cmdProgress.Changed, next, [&form, next, finish] {
        next->setDefault(form.cmdProgress.Enabled());
        finish->setDefault(!form.cmdProgress.Enabled());
    });
}

// With the focus on a button the Enter key presses that one, whichever is the default.
class EnterPresses : public QObject {
  public:
    explicit EnterPresses(QPushButton* button) : QObject(button), button_(button) {
        button->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (!isEnterKey(event)) return false;
        button_->click();
        return true;
    }

  private:
    QPushButton* button_;
};

QPushButton* makeFootButton(CommandButton& field, UserHand& hand) {
    QPushButton* button = makeButton(field, hand);
    new EnterPresses(button);
    return button;
}

// With room for one digit more: the window stays as wide when the number of the step grows.
QLabel* makeCounter(Label& field) {
    QLabel* label = makeCaption(field);
    label->ensurePolished();
    label->setMinimumWidth(label->sizeHint().width() +
                           label->fontMetrics().horizontalAdvance(QLatin1Char('0')));
    return label;
}

QFrame* makeLine() {
    auto* line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

}  // namespace

QWidget* makeWizardWindow(FrmWizard& form, UserHand& hand) {
    auto* steps = column({});
    std::vector<QWidget*> pages;
    const auto fields = makeWizardPages(form, hand);
    for (std::size_t i = 0; i < form.Frame1.size(); ++i) {
        pages.push_back(makeStep(form.Frame1[i], form.lblExplain[i], fields[i]));
        steps->addWidget(pages.back(), 1);
    }
    QPushButton* back = makeFootButton(form.cmdReverse, hand);
    QPushButton* next = makeFootButton(form.cmdProgress, hand);
    QPushButton* finish = makeFootButton(form.cmdOK, hand);
    keepDefault(form, next, finish);
    for (QWidget* page : pages) new FocusOnShow(page, next);
    auto* foot = row({makeCounter(form.lblOp), nullptr, back, next});
    foot->addSpacing(2 * gap);
    for (QWidget* button :
         {finish, makeFootButton(form.cmdApply, hand), makeFootButton(form.cmdCancel, hand),
          makeFootButton(form.cmdHelp, hand)}) {
        foot->addWidget(button);
    }
    auto* right = column({});
    right->addLayout(steps, 1);
    right->addWidget(makeLine());
    right->addLayout(foot);
    right->setContentsMargins(3 * gap, 2 * gap, 3 * gap, 2 * gap);
    auto* content = row({makeStepList(form.lblStep, form.Frame1, hand)});
    content->setSpacing(0);
    content->addLayout(right, 1);
    QWidget* window = dialog(form, content, hand, {.sized = true});
    content->setContentsMargins(0, 0, 0, 0);
    return window;
}

}  // namespace velmora::qt
