#include <string>

#include "k7/services_file_adding.h"
#include "tests/fakes/fake_context.h"
#include "tests/fakes/fake_modules.h"
#include "tests/fuzz/fuzzer.h"

using tarvik::ServiceEntry;
using tarvik::test::Require;

/// Adds two services to any services file. The first byte selects the step that fails and the file's
/// attributes. The old content must stay, and a scan must find what was added.
TARVIK_FUZZER(k7_services_add) {
  if (size == 0) return;
  const uint8_t mode = data[0];
  const std::string before(data + 1, data + size);
  const std::wstring path = L"C:\\services";
  const std::wstring backup = path + L".202402030405";
  tarvik::test::FakeContext fake;
  tarvik::test::FakeKernel kernel;
  tarvik::FmtErrMsg errors(kernel, fake.codePage, fake.boxes);
  fake.files.contents[path] = before;
  if (mode % 8 == 1) fake.files.appendsLeft = mode / 8 % 4;
  if (mode % 8 == 2) fake.files.attributes[path] = mode;
  if (mode % 8 == 3) fake.files.attributesReadable = false;
  if (mode % 8 == 4) fake.files.contents[backup] = "in the way";
  const std::wstring name = L"NORVAX_K7_SERVER";
  ServiceEntry entries[] = {{name, 0, L"udp", false, false}, {L"x", 7, L"tcp", false, false}};
  tarvik::ServicesFileAdder adder(fake.files, fake.codePage, errors, fake.boxes, path);
  const bool done = adder.Add(entries, {2024, 2, 3, 4, 5});
  const std::string& after = fake.files.contents[path];
  Require(after.starts_with(before));
  Require(done || !fake.boxes.boxes.empty());
  if ((mode % 8 == 2) && (mode & 1) != 0) Require(fake.files.attributes[path] == mode);
  if (!done) return;
  if (after != before) Require(fake.files.contents[backup] == before);
  ServiceEntry again[] = {{name, 0, L"udp", false, false}, {L"x", 7, L"tcp", false, false}};
  tarvik::ScanServices(after, again, fake.codePage);
  for (size_t i = 0; i < 2; ++i) Require(again[i].NameExist && again[i].PortNo == entries[i].PortNo);
}
