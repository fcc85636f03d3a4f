// Widgets that belong together and are one stop of the Tab key: the arrow keys, Home and End go
// from one to the next.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <vector>

namespace velmora::qt {

class OneStop : public QObject {
    Q_OBJECT
  public:
    /// Lives as long as `owner`. The stop is the member that had the focus last; at first the first
    /// one. Members that are hidden or disabled are passed over.
    OneStop(QWidget* owner, std::vector<QWidget*> members);

    /// Makes a member the stop.
    void setStop(QWidget* member);
    /// Runs when a key has brought the focus to a member.
    void whenReached(std::function<void(QWidget*)> reached) { reached_ = std::move(reached); }

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool goes(const QWidget* from, int key);
    /// The next member that takes the focus; null when there is none.
    QWidget* next(std::size_t from, int step) const;
    void showStop();

    std::vector<QPointer<QWidget>> members_;
    QPointer<QWidget> stop_;
    std::function<void(QWidget*)> reached_;
};

}  // namespace velmora::qt
