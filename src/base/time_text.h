// A time as text, made once for each second: thousands of rows are stamped within one.
#pragma once

#include <string>

#include "base/date_time.h"

namespace velmora {

class TimeText {
  public:
    /// The text of that time; `make` is called when the time differs from the last one.
    template <typename Make>
    const std::string& of(const DateTime& time, Make make) {
        if (text_.empty() || time != time_) {
            time_ = time;
            text_ = make(time);
        }
        return text_;
    }

  private:
    DateTime time_;
    std::string text_;
};

}  // namespace velmora
