#include "alerts/alerts.h"

namespace velmora {

Alerts::Alerts(Forms& forms, Platform& platform, const Surface& surface, Window window)
    : logFile_(platform),
      list_(forms, platform, logFile_, surface.notifyArea),
      dialog_(forms.form1, forms.dlgAlert, surface.workArea),
      systemActions_(forms.form1, platform, surface.user32),
      log_(forms.form1, platform, logFile_, surface.host, window.stayOnTop),
      soundButtons_(forms.form1, platform, surface.host, systemActions_),
      dialogHiding_(forms.dlgAlert, window.translucency, log_),
      dialogOptions_(forms.form1, forms.dlgAlert, platform, surface.host),
      files_(platform.fso, platform.regional, surface.host),
      fileButtons_(forms.form1, surface.host, files_, systemActions_),
      programs_(forms.form1.LVProg, forms.form1.cboProg, platform.fso, surface.host),
      programButtons_(forms.form1, programs_, platform.fso, platform.shell32, surface.host),
      manualOperations_({.form1 = forms.form1,
                         .dlgAlert = forms.dlgAlert,
                         .platform = platform,
                         .host = surface.host,
                         .alerts = list_,
                         .systemActions = systemActions_,
                         .alertDialog = dialog_,
                         .stayOnTop = window.stayOnTop,
                         .hints = forms.hints}),
      actions_({.forms = forms,
                .platform = platform,
                .host = surface.host,
                .alerts = list_,
                .system = systemActions_}),
      actionListRules_(ActionListFields::of(forms.form1), forms.frmNotify, surface.host) {}

void Alerts::afterLoad() {
    soundButtons_.setDefaults();
    actionListRules_.connect();
}

}  // namespace velmora
