#include "forms/forms.h"

#include "base/text.h"

namespace velmora {

std::vector<Form*> Forms::all() {
    return {&form1,    &dlgAlert, &sysWorkSystray, &icon0,     &frmIndDri,   &frmNotify, &frmLock,
            &frmAbout, &icon1,    &dlgDriveInfo,   &frmWizard, &frmWaitTest, &frmHistory};
}

Form* Forms::find(const std::string& name) {
    const std::string wanted = lowerCase(name);
    for (Form* form : all()) {
        if (lowerCase(form->Name()) == wanted) return form;
    }
    return nullptr;
}

}  // namespace velmora
