#include <QGridLayout>

#include "forms/form_numbers.h"
#include "qt/controls/buttons.h"
#include "qt/controls/entries.h"
#include "qt/controls/label_button.h"
#include "qt/controls/one_stop.h"
#include "qt/surface/refresher.h"
#include "qt/windows/layouts.h"
#include "qt/windows/panels.h"

namespace velmora::qt {

namespace {

constexpr int roomForTwoConfigColumns = 480;

LabelButton* updateButton(Label& label, UserHand& hand) {
    return new LabelButton(label, hand, LabelButton::Shape::button);
}

// It takes no room until there is something to say.
QLabel* makeNews(Label& field) {
    QLabel* label = makeCaption(field, true);
    follow(field.Changed, label, [label, &field] { label->setVisible(!field.Caption().empty()); });
    return label;
}

QWidget* makeProgramGroup(Form1& form, UserHand& hand) {
    auto* content =
        column({makeCheckBox(form.chkStartUp, hand), makeCheckBox(form.chkUpdate, hand),
                makeCheckBox(form.chkSaveSet, hand), makeCheckBox(form.chkSafeM, hand)});
    auto* check = updateButton(form.Label5[program_button::checkUpdates], hand);
    auto* get = updateButton(form.Label5[program_button::getUpdates], hand);
    new OneStop(check, {check, get});
    content->addLayout(row({check, get, nullptr}));
    content->addWidget(makeNews(form.lblNewVer));
    content->addStretch(1);
    return group(QStringLiteral("Program"), content);
}

QWidget* makeWindowGroup(Form1& form, UserHand& hand) {
    auto* content = column({makeCheckBox(form.chkSystray, hand), makeCheckBox(form.chkOnTop, hand),
                            makeCheckBox(form.chkOnTopMonitor, hand)});
    content->addLayout(row({makeButton(form.cmdAddIcon, hand), nullptr}));
    content->addStretch(1);
    return group(QStringLiteral("Window"), content);
}

QWidget* makeLogGroup(Form1& form, UserHand& hand) {
    return group(
        QStringLiteral("Log"),
        column({makeCheckBox(form.chkLog, hand), makeCheckBox(form.chkAutoSave, hand),
                makeCheckBox(form.chkLogTimeMon, hand), makeCheckBox(form.chkNTLog, hand)}));
}

QWidget* makeSoundGroup(Form1& form, UserHand& hand) {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(gap);
    grid->setVerticalSpacing(gap);
    const QString words[] = {QStringLiteral("Alert Sound"), QStringLiteral("Second Sound")};
    for (int i = 0; i < 2; ++i) {
        const auto place = static_cast<std::size_t>(i);
        auto* path = makeLineEdit(form.txtAudio[place], hand);
        grid->addWidget(wordFor(words[i], path), i, 0);
        grid->addWidget(path, i, 1);
        auto* browse = makeIconButton(form.cmdAudio[place], Glyph::browse, hand);
        auto* play = makeIconButton(form.cmdPlay[place], Glyph::play, hand);
        new OneStop(browse, {browse, play});
        grid->addWidget(browse, i, 2);
        grid->addWidget(play, i, 3);
    }
    grid->addLayout(row({makeButton(form.cmdSnd, hand), nullptr}), 2, 1, 1, 3);
    return group(QStringLiteral("Sound"), grid);
}

}  // namespace

QWidget* makeConfigPanel(Form1& form, UserHand& hand) {
    auto* settings = column({new TwoColumns(makeProgramGroup(form, hand),
                                            makeWindowGroup(form, hand), roomForTwoConfigColumns),
                             makeLogGroup(form, hand), makeSoundGroup(form, hand)});
    settings->addStretch(1);
    auto* page = column({});
    page->addWidget(scrolled(around(settings)), 1);
    page->addLayout(row({nullptr, makeButton(form.Command8, hand)}));
    return around(page);
}

}  // namespace velmora::qt
