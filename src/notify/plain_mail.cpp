#include "notify/plain_mail.h"

#include "base/convert.h"
#include "base/resume_next.h"
#include "base/text.h"

namespace velmora {

// The form of the mail hangs on the proxy alone. The body stays changed for later recipients.
std::string PlainMail::send(const std::string& recipient, std::string& body) {
    const bool proxy = form_.chkProxy.ticked();
    if (proxy) body = replaceAll(body, lineEnd, "<br>");
    const TextBox& server = proxy ? form_.txtProxy : form_.txtMailServer;
    const TextBox& port = proxy ? form_.txtPort : form_.txtMailPort;
    resumeNext([&] {
        dialogue_.sendmail(platform_.winsock, server.Text(),
                           toLong(port.Text(), platform_.regional), recipient,
                           form_.txtYourEmail.Text(), form_.txtMailFromDisplayName.Text(),
                           form_.txtMailSubj.Text(), body, form_.tim_timeoutSend, proxy);
    });
    return {};
}

}  // namespace velmora
