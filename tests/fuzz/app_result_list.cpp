#include <algorithm>
#include <string>
#include <vector>

#include "platform/text.h"
#include "tests/fakes/fake_context.h"
#include "tests/fuzz/fuzzer.h"

using tarvik::test::Require;

/// Adding any text as a batch gives the same list as adding its lines one by one, and copying it gives the
/// text back. First byte: an eighth of the number of lines already in the list.
TARVIK_FUZZER(app_result_list) {
  if (size == 0) return;
  const size_t held = size_t{data[0]} * 8;
  std::wstring text;
  // Byte 1 means a line break, so that one mutation adds or removes one.
  for (size_t i = 1; i < size; ++i) text += data[i] == 1 ? std::wstring(L"\r\n") : std::wstring(1, data[i]);

  tarvik::test::FakeContext batch;
  tarvik::test::FakeContext single;
  std::wstring present;
  for (size_t i = 1; i < held; ++i) present += L"x\r\n";
  batch.results.ShowPasted(present);
  single.results.ShowPasted(present);
  batch.results.AddLinesToList(text);
  for (const std::wstring& line : tarvik::Split(text, L"\r\n")) single.results.AddToList(line);
  Require(batch.results.Lines() == single.results.Lines());
  Require(batch.results.Lines().size() <= std::max<size_t>(1001, held));

  batch.results.ShowPasted(text);
  const auto returns = static_cast<size_t>(std::count(text.begin(), text.end(), L'\r'));
  Require(batch.results.Lines().size() == returns + 1);
  // A lone line feed does not end a line, so copying cannot give back the same text.
  if (text.find(L'\n') != std::wstring::npos || returns != 0) return;
  Require(batch.results.AllLines() == text + L"\r\n");
}
