#include "tests/failures/failing_program.h"

#include <array>
#include <stdexcept>

#include "platform/runtime_error.h"

namespace tarvik::test {
namespace {

/// More than the longest run of these tests needs.
constexpr int kMaxPauses = 5000;

/// The Windows call that sets the text of such a control, as the plan's name for it.
const char* NameOf(const ui::Element& element) {
  const std::wstring_view type = element.TypeName();
  if (type == L"ListBox") return "LB_ADDSTRING";
  if (type == L"ComboBox") return "CB_INSERTSTRING";
  if (type == L"SSTab") return "TCM_SETITEM";
  if (type == L"Menu") return "SetMenuItemInfo";
  return "SetWindowText";
}

}  // namespace

FailingProgram::FailingProgram(FailurePlan& failurePlan) : plan(failurePlan) {
  for (const wchar_t* const folder : {L"C:\\Data", L"C:\\Program"})
    files.contents[folder + std::wstring(L"\\Language\\Tarvik.exe_1033.ini")] = "";
  system.anyProfileKey = [](const std::string& key) { return key == "10" ? "&Ping" : "text " + key; };
  files.contents[kServicesFile] = "http 80/tcp\r\nNORVAX_K7_SERVER 8193/udp\r\n";
  kernel.paths["SvcKit.DLL"] = "C:\\System\\SvcKit.dll";
  for (const std::string module : {"NxLib32.dll", "NxLibe1.dll", "k7api.dll", "SvcKit.dll", "Wininet.dll"}) {
    kernel.paths[module] = "C:\\System\\" + module;
    versions.blocks["C:\\System\\" + module] = FakeVersions::Block(1, 2, 3, 4);
  }
  kernel.messages[5] = "Access is denied.";
  settings.values[L"History\\01"] = L"192.168.1.100";
  settings.values[L"History\\02"] = L"10.0.0.5";
  system.registry[L"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO|PATH"] = L"C:\\msinfo.exe";
  winsock.AddInterface("192.168.1.10", "255.255.255.0");
  winsock.AddHost("cnc", {"10.0.0.5"});
  ipHelper.AddAdapter({"192.168.1.10"}, {"192.168.1.1"});
  ipHelper.cards = {{u"Ethernet", 7, {{"192.168.1.10"}}, {"192.168.1.1"}}};
  ipHelper.bestInterface = 7;
  for (const char* const host : {"192.168.1.100", "192.168.1.1"})
    ipHelper.AddNeighbour(host, MibIpNetRow2::kReachable);
  for (const uint16_t port : {uint16_t{21}, uint16_t{8193}}) winsock.ports[port] = {10061, 1};
  for (const char* const host : {"192.168.1.100", "192.168.1.1", "10.0.0.5"}) icmp.AddHost(host);
  form.beforeText = FailOnText();
  form.beforeCaption = [this] { FailOnCaption(); };
  pump.onEvents = [this] { OnEvents(); };
}

ui::BeforeText FailingProgram::FailOnText() {
  return [this](const ui::Element& element) {
    if (plan.WayToFail(NameOf(element), 1) == 1)
      throw RuntimeError(L"The text of a control could not be set.");
  };
}

void FailingProgram::FailOnCaption() {
  if (plan.WayToFail("SetWindowText", 1) == 1)
    throw RuntimeError(L"The caption of the window could not be set.");
}

void FailingProgram::OnEvents() {
  pump.stop = flags.stopRequested;
  if (++pauses_ < kMaxPauses) return;
  endless = true;
  throw std::runtime_error("the run does not end");
}

std::unique_ptr<ui::Form> FailingProgram::NewForm() {
  if (plan.WayToFail("CreateWindow", 1) == 1) throw RuntimeError(L"The window could not be created.");
  auto made = std::make_unique<ui::MemoryForm>(screen);
  const auto alive = std::make_shared<int>();
  // Captured by the form, so that it expires with the form.
  made->beforeText = [alive, fail = FailOnText()](const ui::Element& element) { fail(element); };
  made->beforeCaption = [this] { FailOnCaption(); };
  otherAlive_ = alive;
  other_ = made.get();
  return made;
}

std::unique_ptr<ui::Form> FailingProgram::NewForm(const std::wstring& windowClass) {
  if (onCreate) onCreate(windowClass);
  std::unique_ptr<ui::Form> made = NewForm();
  const std::shared_ptr<int> end(new int(0), [this, windowClass](const int* token) {
    delete token;
    if (onDestroy) onDestroy(windowClass);
  });
  other_->beforeText = [end, fail = other_->beforeText](const ui::Element& element) { fail(element); };
  return made;
}

void FailingProgram::Start(const std::wstring& commandLine, bool familyEdition) {
  const auto showError = [this](const RuntimeError& error) {
    static_cast<report::MessageBoxes&>(boxes).Show(error.Text(), report::BoxIcon::Critical);
  };
  try {
    Construct(commandLine, familyEdition);
  } catch (const RuntimeError& error) {
    return showError(error);
  }
  try {
    form1->Form_Load();
  } catch (const RuntimeError& error) {
    showError(error);
  }
  form.Show();
}

void FailingProgram::Construct(const std::wstring& commandLine, bool familyEdition) {
  form1 = std::make_unique<Form1>(Dependencies{
      .form = form,
      .newForm = [this](const wchar_t* name) { return NewForm(name); },
      .pump = pump,
      .flags = flags,
      .system = failingSystem,
      .files = failingFiles,
      .processes = failingProcesses,
      .codePage = failingCodePage,
      .settings = failingSettings,
      .clipboard = failingClipboard,
      .kernel = failingKernel,
      .version = failingVersions,
      .winsock = failingWinsock,
      .icmp = failingIcmp,
      .ipHelper = failingIpHelper,
      .wininet = failingWininet,
      .configuration = failingConfiguration,
      .txCodec = failingTxCodec,
      .cncLibrary = failingCncLibrary,
      .k7Api = failingK7Api,
      .svcKit = failingSvcKit,
      .programFolder = L"C:\\Program",
      .windowsFolder = L"C:\\Windows",
      .commandLine = commandLine,
      .windowsLanguage = windowsLanguage,
      .familyEdition = familyEdition,
      .explanationText = [] { return std::string_view(); },
  });
}

bool FailingProgram::Close() {
  if (form1 && !form.unloaded && !form.Close()) return false;
  form1.reset();
  return true;
}

}  // namespace tarvik::test
