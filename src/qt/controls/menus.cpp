#include "qt/controls/menus.h"

#include "qt/surface/field.h"
#include "qt/surface/menu_place.h"
#include "qt/surface/text.h"

namespace velmora::qt {

namespace {

void fill(QMenu* menu, MenuItem& field, UserHand& hand);

void addItem(QMenu* menu, MenuItem& item, UserHand& hand) {
    if (item.separates()) {
        menu->addSeparator()->setObjectName(fieldName(item));
        return;
    }
    QAction* action = nullptr;
    if (item.items().empty()) {
        action = menu->addAction(QString());
        QObject::connect(action, &QAction::triggered, action,
                         [&item, &hand] { hand.does(item, [&item] { item.userClick(); }); });
    } else {
        auto* below = new QMenu(menu);
        action = menu->addMenu(below);
        fill(below, item, hand);
    }
    action->setObjectName(fieldName(item));
    follow(item.Changed, action, [action, &item] {
        action->setText(shown(item.Caption()));
        action->setEnabled(item.Enabled());
        action->setVisible(item.Visible());
        // Space for a tick is shown only once the item has been ticked.
        if (item.Checked()) action->setCheckable(true);
        action->setChecked(item.Checked());
    });
    // Qt ticks a checkable action when it is clicked; only the program may do so.
    QObject::connect(action, &QAction::toggled, action, [action, &item](bool on) {
        if (on != item.Checked()) action->setChecked(item.Checked());
    });
}

void fill(QMenu* menu, MenuItem& field, UserHand& hand) {
    menu->setObjectName(fieldName(field));
    for (MenuItem* item : field.items()) addItem(menu, *item, hand);
}

// Shows itself when its field is popped up.
class PopUpMenu : public QMenu {
  public:
    PopUpMenu(MenuItem& field, QWidget* owner, std::function<void()> shown)
        : QMenu(owner), poppedUp_(field.PoppedUp.connect([this, shown = std::move(shown)] {
              popup(MenuPlace::of(sizeHint(), parentWidget()));
              shown();
          })) {}

  private:
    ScopedConnection poppedUp_;
};

}  // namespace

QMenu* makeMenu(MenuItem& field, UserHand& hand, QWidget* owner, std::function<void()> shown) {
    auto* menu = new PopUpMenu(field, owner, std::move(shown));
    fill(menu, field, hand);
    QObject::connect(menu, &QMenu::aboutToHide, menu,
                     [&field, &hand] { hand.does(field, [&field] { field.Closed(); }); });
    return menu;
}

}  // namespace velmora::qt
