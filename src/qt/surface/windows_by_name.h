// The program's windows by the names of their forms.
#pragma once

#include <QString>
#include <QWidget>
#include <map>
#include <string>

namespace velmora::qt {

class WindowsByName {
  public:
    void add(const std::string& form, QWidget* window) { windows_[form] = window; }
    /// Null for a form without a window.
    QWidget* find(const std::string& form) const {
        const auto found = windows_.find(form);
        return found == windows_.end() ? nullptr : found->second;
    }
    /// The name of the form that this window shows; empty for others.
    std::string nameOf(const QWidget* window) const {
        for (const auto& [name, known] : windows_) {
            if (known == window) return name;
        }
        return {};
    }

  private:
    std::map<std::string, QWidget*> windows_;
};

}  // namespace velmora::qt
