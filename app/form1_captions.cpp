// Replaces the built-in English captions with those of the language file.

#include "app/form1.h"
#include "app/rung_names.h"
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
  controls_.lblK7ServerStatus.SetToolTip(texts_.FromFile(Message::K7StatusTip));
  deps_.form.shutdownBlockReason = texts_.GetOrBuiltIn(Message::TestIsRunning);
  controls_.lstResult.UseFixedPitch(TextsAreJapanese());
  ShowRungNames();
}

void Form1::ShowRungNames() {
  const bool japanese = TextsAreJapanese();
  int field = 0;
  for (const RungName& name : RungNames(deps_.familyEdition)) {
    const std::wstring text = japanese ? name.japanese : name.english;
    controls_.sbrRungs.SetField(field++, text + (japanese ? kNotTestedMark.japanese : kNotTestedMark.english),
                                text + (japanese ? L": 未ﾃｽﾄ" : L": not tested"));
  }
}

}  // namespace tarvik
