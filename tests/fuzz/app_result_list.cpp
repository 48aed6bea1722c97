#include <algorithm>
#include <string>
#include <vector>

#include "platform/text.h"
#include "tests/fakes/fake_context.h"
#include "tests/fuzz/fuzzer.h"

using tarvik::test::Demand;

/// Any text as lines into a list that holds some already: the first byte tells how many, in eights. Added as
/// one batch it looks as if each line had come by itself; copied and pasted it is what it was.
TARVIK_FUZZER(app_result_list) {
  if (size == 0) return;
  const size_t held = size_t{data[0]} * 8;
  std::wstring text;
  // Byte 1 stands for a line break, so that one change of the input makes or takes one.
  for (size_t i = 1; i < size; ++i) text += data[i] == 1 ? std::wstring(L"\r\n") : std::wstring(1, data[i]);

  tarvik::test::FakeContext batch;
  tarvik::test::FakeContext single;
  std::wstring present;
  for (size_t i = 1; i < held; ++i) present += L"x\r\n";
  batch.results.ShowPasted(present);
  single.results.ShowPasted(present);
  batch.results.AddLinesToList(text);
  for (const std::wstring& line : tarvik::Split(text, L"\r\n")) single.results.AddToList(line);
  Demand(batch.results.Lines() == single.results.Lines());
  Demand(batch.results.Lines().size() <= std::max<size_t>(1001, held));

  batch.results.ShowPasted(text);
  const auto returns = static_cast<size_t>(std::count(text.begin(), text.end(), L'\r'));
  Demand(batch.results.Lines().size() == returns + 1);
  // A line feed in a line of its own was none of a line break; what is copied then has one more.
  if (text.find(L'\n') != std::wstring::npos || returns != 0) return;
  Demand(batch.results.AllLines() == text + L"\r\n");
}
