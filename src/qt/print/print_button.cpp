#include "qt/print/print_button.h"

#include <QShortcut>
#include <utility>

namespace velmora::qt {

QPushButton* makePrintButton(Printing& printing, UserHand& hand, std::function<Printout()> what) {
    auto* button = new QPushButton(QStringLiteral("&Print"));
    button->setAccessibleName(QStringLiteral("Print"));
    button->setToolTip(QStringLiteral("Print the chart with its values"));
    button->setAutoDefault(false);
    if (!printing.isOffered()) button->hide();
    auto* keys = new QShortcut(QKeySequence::Print, button);
    QObject::connect(keys, &QShortcut::activated, button, &QPushButton::click);
    QObject::connect(button, &QPushButton::clicked, button,
                     [button, &printing, &hand, what = std::move(what)] {
                         hand.does([&] { printing.print(button->window(), what()); });
                     });
    return button;
}

}  // namespace velmora::qt
