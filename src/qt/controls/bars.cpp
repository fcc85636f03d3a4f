#include "qt/controls/bars.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

#include "forms/form_numbers.h"
#include "qt/controls/elided_label.h"
#include "qt/icons/glyph.h"
#include "qt/surface/field.h"
#include "qt/surface/field_words.h"
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
    QObject::connect(button, &QToolButton::clicked, button,
                     [&field, &hand, number] { hand.does([&] { field.userClickPart(number); }); });
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

QIcon panelPicture(int number) {
    switch (number) {
        case image::ready:
            return glyphIcon(Glyph::stateOk);
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

QStatusBar* makeStatusBar(StatusBar& field) {
    auto* bar = new QStatusBar;
    bar->setSizeGripEnabled(true);
    bindField(bar, field, [] {});
    for (int i = 1; i <= field.PanelCount(); ++i) {
        auto* picture = new QLabel;
        auto* panel = new ElidedLabel;
        panel->setObjectName(QStringLiteral("%1(%2)").arg(fieldName(field)).arg(i));
        panel->setAccessibleName(fieldWords(QStringLiteral("Form1"), panel->objectName()));
        if (i == 1) bar->addWidget(picture);
        bar->addWidget(panel, i == field.PanelCount() ? 2 : 3);
        if (i != 1) delete picture;
        follow(field.PanelChanged, panel, [panel, &field, i, picture = i == 1 ? picture : nullptr] {
            panel->setText(shown(field.Panels(i).Text));
            if (picture == nullptr) return;
            const QIcon icon = panelPicture(field.Panels(i).Picture);
            picture->setVisible(!icon.isNull());
            picture->setPixmap(icon.pixmap(16, 16));
        });
    }
    return bar;
}

}  // namespace velmora::qt
