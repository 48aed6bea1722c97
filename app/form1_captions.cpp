// Replaces the built-in English captions with those of the language file.

#include "app/form1.h"
#include "platform/runtime_error.h"
#include "ui/captions.h"

namespace tarvik {

void Form1::LoadCaptions() {
  try {
    deps_.form.SetCaption(resource_.LoadString(RowOf(Message::WindowCaption).id));
  } catch (const RuntimeError&) {
    // The window keeps its built-in caption; the controls still get theirs.
  }
  ui::LoadCaptions(deps_.form, resource_);
  controls_.ShowCommandCaptions(Language());
  controls_.lblK7ServerStatus.SetToolTip(texts_.FromFile(Message::K7StatusTip));
  deps_.form.shutdownBlockReason = texts_.GetOrBuiltIn(Message::TestIsRunning);
  controls_.lstResult.UseFixedPitch(TextsAreJapanese());
  ShowAnswer();
}

}  // namespace tarvik
