#pragma once

#include "platform/settings_store.h"
#include "ui/control.h"

namespace tarvik {

/// Fills the box from the stored addresses, newest first, and makes the first one the current text.
void LoadHistory(ui::ComboBox& box, SettingsStore& store);

/// Stores the first ten items. Entries beyond the box's items stay as they are.
void SaveHistory(const ui::ComboBox& box, SettingsStore& store);

/// Puts the box's text at the head of its items, unless it is among them already or empty.
void AddHistoryIfNew(ui::ComboBox& box);

}  // namespace tarvik
