#include "platform/host.h"

namespace velmora {

BoxAnswer cancellingAnswer(BoxButtons buttons) {
    switch (buttons) {
        case BoxButtons::okCancel: return BoxAnswer::cancel;
        case BoxButtons::yesNo: return BoxAnswer::no;
        case BoxButtons::ok: break;
    }
    return BoxAnswer::ok;
}

}  // namespace velmora
