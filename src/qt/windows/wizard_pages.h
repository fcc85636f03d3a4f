// The pages of the setup wizard, one for each step: the fields of the step alone.
#pragma once

#include <QEvent>
#include <QLayout>
#include <array>

#include "forms/frm_wizard.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

/// Whether the event is a press of the Enter key.
bool isEnterKey(QEvent* event);

/// By the places of the steps; null for a step without fields.
std::array<QLayout*, wizard_step::count> makeWizardPages(FrmWizard& form, UserHand& hand);

}  // namespace velmora::qt
