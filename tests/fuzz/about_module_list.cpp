// The about box shows any search path, version resources and registry values in lines of limited length.

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>

#include "about/about_box.h"
#include "about/module_check.h"
#include "app/control_ids.h"
#include "tests/fakes/fake_context.h"
#include "tests/fakes/fake_modules.h"
#include "tests/fakes/fake_processes.h"
#include "tests/fuzz/fuzzer.h"
#include "ui/memory/memory_form.h"

using tarvik::test::Require;

namespace {

constexpr const char* kModules[] = {"NxLib32.dll", "NxLibe1.dll", "k7api.dll", "SvcKit.dll", "Wininet.dll"};

}  // namespace

TARVIK_FUZZER(about_module_list) {
  using namespace tarvik;
  FuzzedDataProvider input(data, size);
  test::FakeContext fake;
  test::FakeKernel kernel;
  test::FakeVersions versions;
  for (const char* const module : kModules) {
    if (input.ConsumeBool()) continue;
    const std::string path = input.ConsumeRandomLengthString(600);
    kernel.paths[module] = path;
    if (input.ConsumeBool()) {
      versions.blocks[path] = test::FakeVersions::Block(input.ConsumeIntegral<uint16_t>(),
                                                        input.ConsumeIntegral<uint16_t>(), 0, 1);
    }
  }
  if (input.ConsumeBool()) versions.rootLength = input.ConsumeIntegral<uint32_t>();
  if (input.ConsumeBool()) kernel.searchLie = input.ConsumeIntegral<uint32_t>();
  FileUtil files(kernel, versions);
  const ModuleCheckResult found = CheckModules(files, input.ConsumeBool());
  const std::wstring report = VersionReport(files, found.found);
  Require(report.empty() || report.ends_with(L"\r\n"));

  test::FakeSystem& system = fake.system;
  system.versionKnown = input.ConsumeBool();
  system.platformId = input.ConsumeIntegralInRange(0U, 3U);
  system.majorVersion = input.ConsumeIntegral<uint32_t>();
  test::FakeProcesses processes;
  const std::string tool = input.ConsumeRandomLengthString(300);
  if (input.ConsumeBool())
    system.registry[L"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO|PATH"].assign(tool.begin(), tool.end());
  if (input.ConsumeBool())
    system.registry[L"SOFTWARE\\Microsoft\\Shared Tools Location|MSINFO"].assign(tool.begin(), tool.end());
  ui::MemoryScreen screen(fake.boxes);
  auto made = std::make_unique<ui::MemoryForm>(screen);
  ui::MemoryForm& form = *made;
  frmAbout about(std::move(made), fake.texts, system, processes, report, report);
  about.Show();
  const std::wstring shown = form.Get<ui::MemoryLabel>(ID_lblModules).Caption();
  size_t column = 0;
  for (const wchar_t letter : shown) {
    column = letter == L'\n' ? 0 : column + 1;
    // Every "&" is doubled.
    Require(column <= 2 * 120 + 1);
  }
  form.Get<ui::MemoryButton>(ID_cmdSysInfo).Click();
  Require(processes.commandLines.empty() != fake.boxes.boxes.empty());
  for (const std::wstring& line : processes.commandLines) Require(line.starts_with(L'"'));
  Require(form.Enabled());
  form.Get<ui::MemoryButton>(ID_cmdOK).Click();
  Require(about.Closed());
}
