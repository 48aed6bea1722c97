#pragma once

#include <cstdint>

#include "resources/resource.h"
#include "ui/form.h"

namespace tarvik::ui {

/// Loads string `id` into a control or menu item: as its caption, as the caption of tab `idx`, or as a new
/// item at the end of a combo box. For any other kind of control a message box names the kind.
void LoadRes(Resource& resource, report::MessageBoxes& boxes, Element& ctl, int32_t id, int16_t idx = 0);

/// Loads the captions of all elements that have a message from the language file: first the menus, then the
/// tabs, then the controls in Tab order. An element whose caption cannot be set keeps its old one.
void LoadCaptions(Form& form, Resource& resource);

}  // namespace tarvik::ui
