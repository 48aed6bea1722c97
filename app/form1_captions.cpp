// The captions, as the language file gives them.

#include "app/form1.h"
#include "platform/runtime_error.h"
#include "ui/captions.h"

namespace tarvik {

void Form1::LoadCaptions() {
  try {
    deps_.form.SetCaption(resource_.LoadString(RowOf(Message::WindowCaption).id));
  } catch (const RuntimeError&) {
    // The window keeps its caption; its controls still get theirs.
  }
  ui::LoadCaptions(deps_.form, resource_);
  controls_.lblK7ServerStatus.SetToolTip(texts_.FromFile(Message::K7StatusTip));
}

}  // namespace tarvik
