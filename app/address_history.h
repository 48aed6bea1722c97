#pragma once

#include "platform/settings_store.h"
#include "ui/control.h"

namespace tarvik {

/// Fills the box with the stored addresses, newest first, and selects the first. Missing and empty entries
/// are skipped.
void LoadHistory(ui::ComboBox& box, SettingsStore& store);

/// Stores the first ten items of the box. If it has fewer, the remaining stored entries are kept.
void SaveHistory(const ui::ComboBox& box, SettingsStore& store);

/// Inserts the box's text as its first item, unless the text is empty or already an item (case-sensitive).
void AddHistoryIfNew(ui::ComboBox& box);

}  // namespace tarvik
