#include <string>

#include "k7/services_file.h"
#include "tests/fakes/fake_modules.h"
#include "tests/fuzz/fuzzer.h"
#include "tests/fuzz/program_ground.h"

using tarvik::ServiceEntry;
using tarvik::test::Demand;

/// Lines for two services are added to any services file: the first byte tells which step fails, and which
/// attributes the file has. What stood in the file stays, and what is added is found again.
TARVIK_FUZZER(k7_services_add) {
  if (size == 0) return;
  const uint8_t manner = data[0];
  const std::string before(data + 1, data + size);
  const std::wstring path = L"C:\\services";
  const std::wstring backup = path + L".202402030405";
  tarvik::test::ProgramGround ground;
  tarvik::test::FakeKernel kernel;
  tarvik::FmtErrMsg errors(kernel, ground.codePage, ground.boxes);
  ground.files.contents[path] = before;
  if (manner % 8 == 1) ground.files.appendsLeft = manner / 8 % 4;
  if (manner % 8 == 2) ground.files.attributes[path] = manner;
  if (manner % 8 == 3) ground.files.attributesReadable = false;
  if (manner % 8 == 4) ground.files.contents[backup] = "in the way";
  const std::wstring name = L"NORVAX_K7_SERVER";
  ServiceEntry entries[] = {{name, 0, L"udp", false, false}, {L"x", 7, L"tcp", false, false}};
  const bool done = tarvik::CheckServicesFile({ground.files, ground.codePage, errors, ground.boxes}, path,
                                              entries, false, {2024, 2, 3, 4, 5});
  const std::string& after = ground.files.contents[path];
  Demand(after.starts_with(before));
  Demand(done || !ground.boxes.boxes.empty());
  if ((manner % 8 == 2) && (manner & 1) != 0) Demand(ground.files.attributes[path] == manner);
  if (!done) return;
  if (after != before) Demand(ground.files.contents[backup] == before);
  ServiceEntry again[] = {{name, 0, L"udp", false, false}, {L"x", 7, L"tcp", false, false}};
  tarvik::ScanServices(after, again, ground.codePage);
  for (size_t i = 0; i < 2; ++i) Demand(again[i].NameExist && again[i].PortNo == entries[i].PortNo);
}
