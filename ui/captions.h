#pragma once

#include <cstdint>

#include "resources/resource.h"
#include "ui/form.h"

namespace tarvik::ui {

/// Puts the string onto a control or menu item: its caption, the caption of tab `idx`, or a new item of a
/// combo box. A box of `boxes` names a control that takes none of these.
void LoadRes(Resource& resource, report::MessageBoxes& boxes, Element& ctl, int32_t id, int16_t idx = 0);

/// Gives every element of the form that has a message the message's text of the language file: the menus, the
/// tabs, then the controls in the order of the Tab key. An element that refuses its text keeps the one it
/// has.
void LoadCaptions(Form& form, Resource& resource);

}  // namespace tarvik::ui
