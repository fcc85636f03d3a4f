#include "qt/windows/wizard_pages.h"

#include <QFormLayout>
#include <QKeyEvent>

#include "controls/keys.h"
#include "qt/controls/buttons.h"
#include "qt/controls/check_list.h"
#include "qt/controls/entries.h"
#include "qt/controls/list_view_widget.h"
#include "qt/windows/dialog_pieces.h"
#include "qt/windows/layouts.h"
#include "qt/windows/panels.h"

namespace velmora::qt {

namespace {

// In pixels.
constexpr int numberWidth = 120;
constexpr int smallNumberWidth = 70;
constexpr int indent = 22;  // of what belongs to a check box

constexpr int pathColumn = 0;
constexpr int programPathColumn = 2;

// The Enter key belongs to the box alone, and not to the window's default button too.
class EnterInBox : public QObject {
  public:
    EnterInBox(QComboBox* widget, ComboBox& field, UserHand& hand)
        : QObject(widget), field_(field), hand_(hand) {
        widget->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (!isEnterKey(event)) return false;
        hand_.does(field_, [this] { field_.KeyPress(key::enter); });
        return true;
    }

  private:
    ComboBox& field_;
    UserHand& hand_;
};

ListViewWidget* makePageList(ListView& list, UserHand& hand, const ListViewWidget::Look& look) {
    return new ListViewWidget(
        list, [](const std::string&) { return QIcon(); }, look, hand);
}

QComboBox* makeWideBox(ComboBox& field, UserHand& hand) {
    QComboBox* box = makeComboBox(field, hand);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return box;
}

QLineEdit* makeNarrowEdit(TextBox& field, int width, UserHand& hand) {
    QLineEdit* edit = makeLineEdit(field, hand);
    edit->setMaximumWidth(width);
    return edit;
}

// A label in front of a widget; its words stay the field's.
QLabel* labelFor(Label& label, QWidget* widget) {
    QLabel* caption = makeCaption(label);
    caption->setBuddy(widget);
    return caption;
}

QLayout* indented(QLayout* content) {
    content->setContentsMargins(indent, 0, 0, 0);
    return content;
}

QLayout* makeDrivesPage(FrmWizard& form, UserHand& hand) {
    auto* content = column(
        {makePageList(form.ListView1, hand, {.ticks = true, .stretchedColumn = pathColumn})});
    content->addLayout(
        row({makeButton(form.cmdLVAdd, hand), makeButton(form.cmdLVRemove, hand), nullptr}));
    return content;
}

QLayout* makeSpacePage(FrmWizard& form, UserHand& hand) {
    QLineEdit* space = makeNarrowEdit(form.txtFreeSpace, numberWidth, hand);
    auto* content = column({});
    content->addLayout(
        row({labelFor(form.lblSpace, space), space, makeUpDown(form.UpDownSpace, hand),
             makeCaption(form.lblMB), makeCaption(form.lblGB), nullptr}));
    content->addLayout(row(
        {makeOptionButton(form.OpDriv[0], hand), makeOptionButton(form.OpDriv[1], hand), nullptr}));
    content->addWidget(makeSlider(form.Slider1, hand));
    content->addSpacing(gap);
    content->addWidget(makeCheckBox(form.chkDrive, hand));
    content->addWidget(makeCaption(form.lblSpaceWhy, true));
    content->addStretch(1);
    return content;
}

QLayout* makeActionsPage(FrmWizard& form, UserHand& hand) {
    auto* content = column({new CheckList(form.lstAct, hand)});
    content->addStretch(1);
    return content;
}

QLayout* makePathPage(FrmWizard& form, UserHand& hand) {
    QLineEdit* path = makeLineEdit(form.txtDrive, hand);
    auto* content = column({});
    content->addLayout(row({labelFor(form.lblFolder, path), path,
                            makeIconButton(form.cmdFolder, Glyph::browse, hand)}));
    content->addWidget(makeCaption(form.lblDriveWhy, true));
    content->addStretch(1);
    return content;
}

QLayout* makeProgramsPage(FrmWizard& form, UserHand& hand) {
    auto* content = column({});
    content->addLayout(
        row({makeWideBox(form.cboProg, hand), makeIconButton(form.cmdPBrowse, Glyph::browse, hand),
             makeButton(form.cmdPAdd, hand)}));
    content->addWidget(makePageList(form.LVProg, hand,
                                    {.stretchedColumn = programPathColumn,
                                     .emptyWords = QString::fromLatin1(noPrograms)}),
                       1);
    content->addLayout(row({makeButton(form.cmdPRem, hand), nullptr}));
    return content;
}

QLayout* makeFilesPage(FrmWizard& form, UserHand& hand) {
    auto* content = column({});
    content->addLayout(row({makeWideBox(form.cboFile, hand), makeButton(form.cmdFAdd, hand)}));
    content->addWidget(makePageList(form.LVFile, hand,
                                    {.stretchedColumn = -1,
                                     .preferred = {260, 70},
                                     .emptyWords = QString::fromLatin1(noFiles)}),
                       1);
    content->addLayout(row({makeButton(form.cmdFRem, hand), nullptr}));
    content->addWidget(sectionHeading(form.lblFileQuestion));
    for (CheckBox& kind : form.chkFileKind) content->addWidget(makeCheckBox(kind, hand));
    QLineEdit* types = makeLineEdit(form.txtFileType, hand);
    types->setPlaceholderText(QStringLiteral("Input File types like so: .avi|.mp3|.txt|.tmp"));
    content->addLayout(row({labelFor(form.lblFileTypes, types), types}));
    content->addWidget(makeCaption(form.lblFileProposal, true));
    return content;
}

QLayout* makeTimesPage(FrmWizard& form, UserHand& hand) {
    auto* ends = row({});
    for (std::size_t i = 0; i < form.DTTime1.size(); ++i) {
        QTimeEdit* time = makeTimeEdit(form.DTTime1[i], QStringLiteral("HH:mm"), hand);
        ends->addWidget(labelFor(form.lblTime[i], time));
        ends->addWidget(time);
    }
    ends->addStretch(1);
    QLineEdit* seconds = makeNarrowEdit(form.txtTime, smallNumberWidth, hand);
    auto* content = column({});
    content->addLayout(row(
        {labelFor(form.lblInterval, seconds), seconds, makeUpDown(form.UpDown1, hand), nullptr}));
    QLabel* question = makeCaption(form.lblSpeedQuestion, true);
    content->addWidget(question);
    QComboBox* speed = makeChoice(form.cboSpeed, hand);
    question->setBuddy(speed);
    content->addLayout(row({speed, nullptr}));
    content->addWidget(makeCaption(form.lblSpeedProposal, true));
    content->addSpacing(2 * gap);
    content->addWidget(makeCheckBox(form.chkCustTime, hand));
    content->addLayout(indented(ends));
    content->addLayout(indented(column({makeCaption(form.lblTimeWhy, true)})));
    content->addStretch(1);
    return content;
}

QLayout* makeEventsPage(FrmWizard& form, UserHand& hand) {
    auto* content = column({});
    for (CheckBox& event : form.chkop) content->addWidget(makeCheckBox(event, hand));
    content->addStretch(1);
    return content;
}

QLayout* makeServer(FrmWizard& form, UserHand& hand) {
    QComboBox* encryption = makeChoice(form.cboEncryption, hand);
    QLabel* hint = makeCaption(form.lblPortHint);
    hint->setForegroundRole(QPalette::PlaceholderText);
    return row({makeNarrowEdit(form.txtMailPort, smallNumberWidth, hand), hint, nullptr,
                labelFor(form.lblMail[mail_word::encryption], encryption), encryption});
}

QLayout* makeMailPage(FrmWizard& form, UserHand& hand) {
    auto* fields = new QFormLayout;
    fields->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    fields->setContentsMargins(0, 0, 0, 0);
    fields->setVerticalSpacing(gap - 2);
    const auto add = [&](std::size_t word, TextBox& field) {
        QLineEdit* edit = makeLineEdit(field, hand);
        fields->addRow(labelFor(form.lblMail[word], edit), edit);
    };
    add(mail_word::server, form.txtMailServer);
    fields->addRow(makeCaption(form.lblMail[mail_word::port]), makeServer(form, hand));
    fields->addRow(makeCaption(form.lblEncryptionWhy, true));
    add(mail_word::address, form.txtYourEmail);
    add(mail_word::user, form.txtUser);
    add(mail_word::password, form.txtPass);
    add(mail_word::fromDisplay, form.txtMailFromDisplayName);
    add(mail_word::subject, form.txtMailSubj);
    QComboBox* recipients = makeWideBox(form.cboNotEmail, hand);
    new EnterInBox(recipients, form.cboNotEmail, hand);
    fields->addRow(labelFor(form.lblMail[mail_word::recipients], recipients),
                   row({recipients, makeButton(form.cmdAdd, hand), makeButton(form.cmdRemove, hand),
                        makeButton(form.cmdClear, hand)}));
    fields->addRow(QString(), makeCheckBox(form.chkIsHTML, hand));
    return fields;
}

}  // namespace

bool isEnterKey(QEvent* event) {
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

std::array<QLayout*, wizard_step::count> makeWizardPages(FrmWizard& form, UserHand& hand) {
    return {nullptr,
            makeDrivesPage(form, hand),
            makeSpacePage(form, hand),
            makeActionsPage(form, hand),
            makePathPage(form, hand),
            makeProgramsPage(form, hand),
            makeFilesPage(form, hand),
            makeTimesPage(form, hand),
            makeEventsPage(form, hand),
            makeMailPage(form, hand)};
}

}  // namespace velmora::qt
