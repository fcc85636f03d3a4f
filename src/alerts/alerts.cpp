#include "alerts/alerts.h"

namespace velmora {

Alerts::Alerts(Forms& forms, Platform& platform, const Surface& surface, Window window)
    : forms_(forms),
      host_(surface.host),
      list_(forms, platform, surface.notifyArea),
      dialog_(forms, surface.workArea),
      systemActions_(forms, platform, surface.user32),
      log_(forms, platform, surface.host, window.stayOnTop),
      soundButtons_(forms, platform, surface.host, systemActions_),
      dialogHiding_(forms, window.translucency, log_),
      dialogOptions_(forms, platform, surface.host),
      files_(platform, surface.host),
      fileButtons_(forms, surface.host, files_, systemActions_),
      programs_(forms, platform, surface.host),
      manualOperations_({.forms = forms,
                         .platform = platform,
                         .host = surface.host,
                         .alerts = list_,
                         .systemActions = systemActions_,
                         .alertDialog = dialog_,
                         .stayOnTop = window.stayOnTop}),
      actions_({.forms = forms,
                .platform = platform,
                .host = surface.host,
                .alerts = list_,
                .system = systemActions_}) {}

void Alerts::afterLoad() {
    soundButtons_.setDefaults();
    actionListRules_.emplace(forms_, host_);
}

}  // namespace velmora
