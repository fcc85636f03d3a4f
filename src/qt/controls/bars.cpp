#include "qt/controls/bars.h"

#include <QHBoxLayout>
#include <QToolButton>

#include "forms/field_words.h"
#include "forms/form_numbers.h"
#include "qt/controls/elided_label.h"
#include "qt/icons/glyph.h"
#include "qt/surface/field.h"
#include "qt/surface/menu_place.h"
#include "qt/surface/text.h"

namespace velmora::qt {

namespace {

constexpr int iconSize = 24;

Glyph glyphOf(const QString& caption) {
    if (caption == QLatin1String("Start")) return Glyph::start;
    if (caption == QLatin1String("Pause")) return Glyph::pause;
    if (caption == QLatin1String("Wizard Settings")) return Glyph::wizard;
    if (caption == QLatin1String("Adv. Info")) return Glyph::driveInfo;
    if (caption == QLatin1String("Functions")) return Glyph::functions;
    if (caption == QLatin1String("View -")) return Glyph::viewLess;
    if (caption == QLatin1String("View +")) return Glyph::viewMore;
    return Glyph::help;
}

QToolButton* makeBarButton(ToolBar& field, int number, UserHand& hand) {
    auto* button = new QToolButton;
    button->setObjectName(QStringLiteral("%1(%2)").arg(fieldName(field)).arg(number));
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setIconSize({iconSize, iconSize});
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Expanding);
    QObject::connect(button, &QToolButton::clicked, button, [button, &field, &hand, number] {
        const MenuPlace place(*button);
        hand.does(field, [&] { field.userClickPart(number); });
    });
    follow(field.ButtonChanged, button, [button, &field, number] {
        const ToolBar::Button& state = field.Buttons(number);
        button->setText(shown(state.Caption));
        button->setToolTip(shown(state.ToolTipText));
        button->setAccessibleName(shown(state.Caption));
        button->setAccessibleDescription(shown(state.ToolTipText));
        button->setIcon(glyphIcon(glyphOf(shown(state.Caption))));
    });
    return button;
}

QIcon panelPicture(int number, bool isFine) {
    switch (number) {
        case image::ready:
            return glyphIcon(isFine ? Glyph::stateOk : Glyph::stateNeutral);
        case image::checking:
            return glyphIcon(Glyph::refresh);
        case image::pause:
            return glyphIcon(Glyph::pause);
        default:
            return {};
    }
}

}  // namespace

QToolBar* makeToolBar(ToolBar& field, UserHand& hand) {
    auto* bar = new QToolBar;
    bar->setMovable(false);
    bar->setFloatable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->setIconSize({iconSize, iconSize});
    bindField(bar, field, [] {});
    for (int i = 1; i <= field.ButtonCount(); ++i) bar->addWidget(makeBarButton(field, i, hand));
    return bar;
}

StatusView::StatusView(StatusBar& field, QWidget* parent)
    : QStatusBar(parent), field_(field), picture_(new QLabel) {
    setSizeGripEnabled(true);
    bindField(this, field, [] {});
    picture_->setObjectName(fieldName(field) + QStringLiteral(".Picture"));
    addWidget(picture_);
    for (int i = 1; i <= field.PanelCount(); ++i) addPanel(i);
    follow(field.PanelChanged, picture_, [this] { showPicture(); });
}

void StatusView::addPanel(int number) {
    auto* panel = new ElidedLabel;
    panel->setObjectName(QStringLiteral("%1(%2)").arg(fieldName(field_)).arg(number));
    panel->setAccessibleName(shown(std::string(fieldWords("Form1", typed(panel->objectName())))));
    addWidget(panel, number == field_.PanelCount() ? 2 : 3);
    follow(field_.PanelChanged, panel,
           [this, panel, number] { panel->setText(shown(field_.Panels(number).Text)); });
}

void StatusView::showPicture() {
    constexpr int size = 16;
    const QIcon icon = panelPicture(field_.Panels(1).Picture, isFine_);
    picture_->setVisible(!icon.isNull());
    picture_->setPixmap(icon.pixmap(size, size));
}

void StatusView::setFine(bool isFine) {
    if (std::exchange(isFine_, isFine) != isFine) showPicture();
}

}  // namespace velmora::qt
