#include "qt/windows/dialogs.h"

#include <QFormLayout>
#include <QProgressBar>

#include "qt/controls/buttons.h"
#include "qt/controls/entries.h"
#include "qt/controls/list_view_widget.h"
#include "qt/surface/field.h"
#include "qt/windows/dialog_pieces.h"
#include "qt/windows/layouts.h"

namespace velmora::qt {

namespace {

QLabel* heading(Label& field) {
    auto* label = makeCaption(field);
    QFont font = label->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.3);
    label->setFont(font);
    return label;
}

// The field has its greatest value when nothing is free.
QProgressBar* makeGauge(Meter2& field) {
    auto* gauge = new QProgressBar;
    gauge->setRange(field.Min(), field.Max());
    bindField(gauge, field, [gauge, &field] { gauge->setValue(field.Max() - field.Value()); });
    return gauge;
}

}  // namespace

QWidget* makeProgressWindow(Icon0& form, UserHand& hand) {
    auto* content = column({paragraph(form.lblProgress)});
    content->addLayout(row({nullptr, makeButton(form.cmdCancel, hand)}));
    return dialog(form, content, hand);
}

QWidget* makeRecycleBinWindow(Icon1& form, UserHand& hand) {
    return dialog(form, row({makeButton(form.Command1, hand), makeButton(form.Command2, hand)}),
                  hand);
}

QWidget* makeDriveWindow(FrmIndDri& form, UserHand& hand) {
    auto* list = new ListViewWidget(
        form.ListView1, [](const std::string&) { return QIcon(); },
        {.stretchedColumn = 1, .preferred = {readingWidth, 130}}, hand);
    auto* gauges = new QFormLayout;
    gauges->addRow(QStringLiteral("Trigger"), makeGauge(form.VMeter1));
    gauges->addRow(QStringLiteral("Free Space"), makeGauge(form.VMeter2));
    auto* content = column({heading(form.lblP), list});
    content->addLayout(gauges);
    return dialog(form, content, hand);
}

QWidget* makeDriveInfoWindow(DlgDriveInfo& form, UserHand& hand) {
    return dialog(form, column({heading(form.Label6), paragraph(form.Label5)}), hand);
}

QWidget* makeWizardWindow(FrmWizard& form, UserHand& hand) {
    return dialog(form, column({paragraph(form.lblWelcome)}), hand);
}

}  // namespace velmora::qt
