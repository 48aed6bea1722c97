// The commands of the result list. They are in its context menu and in the Help menu, and most have a key.

#include "app/form1.h"

namespace tarvik {

void Form1::WireCommands() {
  const auto on = [this](void (Form1::*handler)()) { return [this, handler] { (this->*handler)(); }; };
  controls_.mnuCopyLine.onClick = on(&Form1::CopyLine);
  controls_.mnuCopyAll.onClick = on(&Form1::CopyAllLines);
  controls_.mnuCopyReport.onClick = on(&Form1::CopyReport);
  controls_.mnuSaveReport.onClick = on(&Form1::SaveReport);
  controls_.mnuExplain.onClick = on(&Form1::Explain);
  controls_.mnuClearList.onClick = [this] { results_.ClearList(); };
  deps_.form.onUpdateCommands = [this] { controls_.mnuClearList.SetEnabled(!RunActive()); };
}

void Form1::CopyLine() {
  const int line = controls_.lstResult.SelectedIndex();
  if (line < 0) return;
  deps_.clipboard.SetText(controls_.lstResult.Item(line));
  ShowCopied(1);
}

void Form1::CopyAllLines() {
  deps_.clipboard.SetText(results_.AllLines());
  ShowCopied(results_.Lines().size());
}

}  // namespace tarvik
