// The internet transfer control: fetches a page.
#pragma once

#include <string>

namespace velmora {

class InternetTransfer {
  public:
    virtual ~InternetTransfer() = default;
    /// The page at a http or https address, at most its first MB. Redirections lead to such
    /// addresses only. Waits at most 10 s for the whole of it. Empty when it can't be fetched, and
    /// for an answer that isn't a success.
    virtual std::string OpenURL(const std::string& url) = 0;
};

}  // namespace velmora
