#include <algorithm>
#include <string>
#include <vector>

#include "platform/text.h"
#include "tests/fuzz/fuzzer.h"
#include "tests/fuzz/program_ground.h"

using tarvik::test::Demand;

/// Any text as lines into a list that holds some already: the first byte tells how many, in eights. Added as
/// one batch it looks as if each line had come by itself; copied and pasted it is what it was.
TARVIK_FUZZER(app_result_list) {
  if (size == 0) return;
  const size_t held = size_t{data[0]} * 8;
  std::wstring text;
  // Byte 1 stands for a line break, so that one change of the input makes or takes one.
  for (size_t i = 1; i < size; ++i) text += data[i] == 1 ? std::wstring(L"\r\n") : std::wstring(1, data[i]);

  tarvik::test::ProgramGround batch;
  tarvik::test::ProgramGround single;
  batch.list.lines.assign(held, L"x");
  single.list.lines.assign(held, L"x");
  batch.results.AddLinesToList(text);
  for (const std::wstring& line : tarvik::Split(text, L"\r\n")) single.results.AddToList(line);
  Demand(batch.list.lines == single.list.lines && batch.list.redrawing);
  Demand(batch.list.SelectedIndex() == batch.list.Count() - 1);
  Demand(batch.list.Count() <= std::max(1001, static_cast<int>(held)));

  batch.results.ShowPasted(text);
  const auto returns = static_cast<size_t>(std::count(text.begin(), text.end(), L'\r'));
  Demand(batch.list.lines.size() == returns + 1);
  // A line feed in a line of its own was none of a line break; what is copied then has one more.
  if (text.find(L'\n') != std::wstring::npos || returns != 0) return;
  Demand(batch.results.AllLines() == text + L"\r\n");
}
