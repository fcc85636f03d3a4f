// The alert dialog: its journal, what can be done about a shortage, and the switch for its hiding.
#include <QHBoxLayout>

#include "forms/form_numbers.h"
#include "qt/controls/buttons.h"
#include "qt/controls/journal_view.h"
#include "qt/controls/label_button.h"
#include "qt/surface/field.h"
#include "qt/surface/text.h"
#include "qt/windows/dialog_pieces.h"
#include "qt/windows/dialogs.h"
#include "qt/windows/flow_layout.h"
#include "qt/windows/layouts.h"

namespace velmora::qt {

namespace {

LabelButton* button(Label& label, UserHand& hand) {
    return new LabelButton(label, hand, LabelButton::Shape::button);
}

QWidget* makeOptions(DlgAlert& form, UserHand& hand) {
    auto* choices = new FlowLayout(gap);
    for (Label& label : form.lblAct) choices->addWidget(button(label, hand));
    auto* content = column({around(choices), paragraph(form.lblSuggest)});
    content->addStretch(1);
    content->addLayout(row({nullptr, button(form.lblAl[alert_button::wizard], hand)}));
    QGroupBox* options = group(shown(form.fraAct.Caption()), content);
    bindField(options, form.fraAct, [] {});
    return options;
}

}  // namespace

QWidget* makeAlertWindow(DlgAlert& form, UserHand& hand) {
    auto* content = column({paragraph(form.Label4)});
    content->addWidget(
        group(shown(form.frmCurAlert.Caption()), column({new JournalView(form.Label1)})), 1);
    content->addWidget(makeOptions(form, hand));
    content->addLayout(row({makeCheckBox(form.chkAutoHide, hand), makeCheckBox(form.chkLog, hand),
                            nullptr, button(form.lblAl[alert_button::clear], hand),
                            button(form.lblAl[alert_button::explorer], hand),
                            button(form.lblAl[alert_button::action], hand),
                            button(form.lblAl[alert_button::ok], hand)}));
    return dialog(form, content, hand, {.sized = true, .role = WindowRole::notice});
}

}  // namespace velmora::qt
