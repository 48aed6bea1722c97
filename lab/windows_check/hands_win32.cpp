// Everything that a user can do without a mouse, and what a screen reader says meanwhile.

#include <algorithm>
#include <array>
#include <cwctype>
#include <map>

#include "lab/windows_check/accessible_win32.h"
#include "lab/windows_check/controls_win32.h"
#include "lab/windows_check/practice_controller_win32.h"

namespace tarvik::check {
namespace {

constexpr int kKeyTimeOutMs = 3000;
constexpr wchar_t kEnglishArguments[] = L"-X 0 -LOCALEID 1033 -X";
constexpr wchar_t kJapaneseArguments[] = L"-X 0 -LOCALEID 1041 -X";

bool HasFocus(RunningProduct& product, int id) {
  return WaitUntil(kKeyTimeOutMs, [&] { return product.Ask("focus").at(0) == std::to_string(id); });
}

bool IsShown(const RunningProduct& product, int id) {
  const HWND control = product.Control(id);
  return control != nullptr && IsWindowVisible(control) != FALSE;
}

void SetFocusOn(RunningProduct& product, int id) { product.Ask("set_focus", id); }

// Tab

const std::vector<std::vector<int>>& StopsOf(Edition edition) {
  static const std::vector<int> ping = {ID_txtPingReqCount, ID_cmdPing, ID_cmdAllTest};
  // The access code's field is disabled and skipped.
  static const std::vector<int> nexal = {ID_txtNxlibTimeOut, ID_txtTcpPortNo, ID_chkAccessCode,
                                         ID_cmdGetInfo};
  static const std::vector<int> ftp = {ID_txtFtpUsername, ID_txtFtpPasswd, ID_cmdFtpConnect,
                                       ID_cmdAllFtpTest};
  static const std::vector<std::vector<int>> family = {ping, nexal, ftp};
  static const std::vector<std::vector<int>> general = {
      ping,
      nexal,
      {ID_txtK7ApiTestCount, ID_cmdK7Api},
      {ID_cmdStartStopK7Server_1, ID_cmdStartStopK7Server_0, ID_cmdK7ServerDebug},
      ftp};
  return edition == Edition::Family ? family : general;
}

/// Presses the key until every stop has had the focus; false when one is not reached.
bool VisitsAll(RunningProduct& product, const std::vector<int>& stops, const char* key,
               const std::string& page, Findings& findings) {
  SetFocusOn(product, stops.front());
  for (size_t i = 1; i < stops.size(); ++i) {
    product.Ask("keys", key);
    if (HasFocus(product, stops[i])) continue;
    findings.Add(page + ": " + key + " from " + std::to_string(stops[i - 1]) + " goes to " +
                 product.Ask("focus").at(0) + " instead of " + std::to_string(stops[i]));
    return false;
  }
  return true;
}

void CheckTabOrder(Kit& kit, Driver& driver, Edition edition, const std::string& name) {
  RunningProduct product(kit, driver, {.edition = edition});
  product.WaitForMainWindow();
  const std::vector<std::string> captions = TabCaptions(product);
  const std::vector<std::vector<int>>& pages = StopsOf(edition);
  Findings findings;
  if (captions.size() != pages.size()) findings.Add(std::to_string(captions.size()) + " pages");
  for (size_t page = 0; page < std::min(pages.size(), captions.size()); ++page) {
    product.SelectPage(static_cast<int>(page));
    std::vector<int> stops = {ID_cmbIPAddr, ID_tabMode};
    stops.insert(stops.end(), pages[page].begin(), pages[page].end());
    stops.insert(stops.end(), {ID_lstResult, ID_cmbIPAddr});
    if (!VisitsAll(product, stops, "Tab", captions[page], findings)) break;
    std::reverse(stops.begin(), stops.end());
    if (!VisitsAll(product, stops, "Shift+Tab", captions[page], findings)) break;
  }
  kit.report.Expect("hands.tab_order_" + name,
                    "Tab and Shift+Tab visit the controls of the " + name + " edition in visual order",
                    findings.None(), findings.Or(std::to_string(pages.size()) + " pages"));
}

// Access keys

struct AccessKey {
  const char* keys;
  int shown;    ///< a control that is visible afterwards
  int focused;  ///< the control that has the focus afterwards; 0 = any
};

// In this order: a page's key comes before those of its labels.
constexpr std::array kAccessKeys = {
    AccessKey{"Alt+2", ID_cmdGetInfo, 0},
    AccessKey{"Alt+O", ID_cmdGetInfo, ID_txtNxlibTimeOut},
    AccessKey{"Alt+R", ID_cmdGetInfo, ID_txtTcpPortNo},
    AccessKey{"Alt+5", ID_cmdFtpConnect, 0},
    AccessKey{"Alt+U", ID_cmdFtpConnect, ID_txtFtpUsername},
    AccessKey{"Alt+W", ID_cmdFtpConnect, ID_txtFtpPasswd},
    AccessKey{"Alt+1", ID_cmdPing, 0},
    AccessKey{"Alt+C", ID_cmdPing, ID_txtPingReqCount},
    AccessKey{"Alt+N", ID_cmdPing, ID_cmbIPAddr},
    AccessKey{"Alt+E", ID_cmdPing, ID_lstResult},
};

void CheckUniqueAccessKeys(RunningProduct& product, HWND window, const std::string& page,
                           Findings& findings) {
  std::vector<std::string> captions = TabCaptions(product);
  for (const ControlState& control : VisibleControls(window))
    if (control.windowClass == L"Static" || control.windowClass == L"Button")
      captions.push_back(ToUtf8(control.text));
  const Driver::Fields menu = product.Ask("menu");
  for (size_t item = 0; item + 3 < menu.size(); item += 4)
    if (menu[item] == "0") captions.push_back(menu[item + 2]);
  std::map<char, std::string> taken;
  for (const std::string& caption : captions) {
    const size_t mark = caption.find('&');
    if (mark == std::string::npos || mark + 1 >= caption.size()) continue;
    const auto letter = static_cast<char>(std::towupper(static_cast<wint_t>(caption[mark + 1])));
    const auto [at, isNew] = taken.emplace(letter, caption);
    if (!isNew) findings.Add(page + ": " + caption + " and " + at->second);
  }
}

void CheckAccessKeys(Kit& kit, Driver& driver, const wchar_t* arguments, const std::string& suffix) {
  RunningProduct product(kit, driver, {.edition = Edition::General, .arguments = arguments});
  const HWND window = product.WaitForMainWindow();
  Findings unique;
  const std::vector<std::string> captions = TabCaptions(product);
  for (size_t page = 0; page < captions.size(); ++page) {
    product.SelectPage(static_cast<int>(page));
    CheckUniqueAccessKeys(product, window, captions[page], unique);
  }
  kit.report.Expect("hands.access_keys_unique" + suffix, "No two captions on a page share an access key",
                    unique.None(), unique.Or({}));
  Findings working;
  for (const AccessKey& key : kAccessKeys) {
    product.Ask("keys", key.keys);
    const bool shown = WaitUntil(kKeyTimeOutMs, [&] { return IsShown(product, key.shown); });
    if (shown && (key.focused == 0 || HasFocus(product, key.focused))) continue;
    working.Add(std::string(key.keys) + " leaves the focus on " + product.Ask("focus").at(0));
    break;  // the next keys depend on the page that this one selects
  }
  kit.report.Expect("hands.access_keys" + suffix, "Alt and a letter or digit go to the field or page",
                    working.None(), working.Or(std::to_string(kAccessKeys.size()) + " keys"));
}

// Screen readers

/// As numbered by Windows.
enum Role : int {
  kClient = 10,  ///< also Wine's for every control whose role it does not know
  kList = 33,
  kStaticText = 41,
  kText = 42,
  kPushButton = 43,
  kCheckBox = 44,
  kComboBox = 46,
  kPageTabList = 60
};

struct SpokenControl {
  int id;
  Role role;
  const wchar_t* english;  ///< without the mark of the access key; null = not checked
  const wchar_t* japanese;
};

constexpr SpokenControl kSpoken[] = {
    {ID_lblIPAddr, kStaticText, L"IP address or host name:", L"IPｱﾄﾞﾚｽ/ﾎｽﾄ名(N):"},
    {ID_cmbIPAddr, kComboBox, L"IP address or host name:", L"IPｱﾄﾞﾚｽ/ﾎｽﾄ名(N):"},
    {ID_tabMode, kPageTabList, nullptr, nullptr},
    {ID_txtPingReqCount, kText, L"Ping count:", L"Ping回数(C):"},
    {ID_cmdPing, kPushButton, L"Ping", L"Ping"},
    {ID_cmdAllTest, kPushButton, L"All Test", L"全ﾃｽﾄ(A)"},
    {ID_txtNxlibTimeOut, kText, L"Timeout (s):", L"ﾀｲﾑｱｳﾄ(秒)(O):"},
    {ID_txtTcpPortNo, kText, L"TCP port:", L"TCPﾎﾟｰﾄ番号(R):"},
    {ID_chkAccessCode, kCheckBox, L"Access Code", L"ｱｸｾｽｺｰﾄﾞ(A)"},
    {ID_txtAccessCode, kText, L"Code (up to 8 digits):", L"ｺｰﾄﾞ(数字8桁まで):"},
    {ID_cmdGetInfo, kPushButton, L"Get CNC Info.", L"NC情報取得(G)"},
    {ID_txtK7ApiTestCount, kText, L"Test count:", L"ﾃｽﾄ回数(C):"},
    {ID_cmdK7Api, kPushButton, L"Test", L"Test"},
    {ID_cmdStartStopK7Server_1, kPushButton, L"Start", L"開始(A)"},
    {ID_cmdStartStopK7Server_0, kPushButton, L"Stop", L"停止(O)"},
    {ID_cmdK7ServerDebug, kPushButton, L"Debug", L"ﾃﾞﾊﾞｯｸﾞ(D)"},
    {ID_txtFtpUsername, kText, L"User name:", L"ﾕｰｻﾞ名(U):"},
    {ID_txtFtpPasswd, kText, L"Password:", L"ﾊﾟｽﾜｰﾄﾞ(W):"},
    {ID_cmdFtpConnect, kPushButton, L"Connect Test", L"接続ﾃｽﾄ(C)"},
    {ID_cmdAllFtpTest, kPushButton, L"All Test", L"全ﾃｽﾄ(A)"},
    {ID_lblResult, kStaticText, L"Result:", L"結果(E):"},
    {ID_lstResult, kList, L"Result:", L"結果(E):"},
};

/// Wine knows only the role of text fields, and does not name other controls by the label before them.
bool IsKnownToWine(const SpokenControl& control) {
  return control.role == kText || control.role == kPushButton || control.role == kCheckBox ||
         control.role == kStaticText;
}

void CheckSpeech(Kit& kit, Driver& driver, const AccessibleReader& reader, const wchar_t* arguments,
                 const std::string& suffix) {
  RunningProduct product(kit, driver, {.edition = Edition::General, .arguments = arguments});
  product.WaitForMainWindow();
  Findings names;
  Findings roles;
  std::string all;
  const std::vector<std::string> captions = TabCaptions(product);
  for (size_t page = 0; page < captions.size(); ++page) {
    product.SelectPage(static_cast<int>(page));
    for (const SpokenControl& control : kSpoken) {
      // Only what is on the page in front has a place on the screen, as for a user.
      const bool everywhere = control.id < ID_lblPingReqCount;
      if (!IsShown(product, control.id) || (everywhere && page > 0)) continue;
      const Accessible said = reader.Read(product.Control(control.id)).value_or(Accessible{});
      const std::string line =
          std::to_string(control.id) + ": \"" + ToUtf8(said.name) + "\", role " + std::to_string(said.role);
      all += line + "\n";
      const wchar_t* const wanted = suffix == "_en" ? control.english : control.japanese;
      const bool checked = !IsWine() || IsKnownToWine(control);
      if (checked && wanted != nullptr && said.name != wanted)
        names.Add(line + " instead of \"" + ToUtf8(wanted) + "\"");
      const bool roleOfWine = IsWine() && control.role != kText && said.role == kClient;
      if (said.role != control.role && !roleOfWine)
        roles.Add(line + " instead of " + std::to_string(control.role));
    }
  }
  kit.report.Expect("hands.names" + suffix, "Screen readers name every control as its label does",
                    names.None(), names.Or(all));
  kit.report.Expect("hands.roles" + suffix, "Screen readers know what every control is", roles.None(),
                    roles.Or(all));
}

// Japanese keyboards

/// Number, password and address boxes without an input method, for a product on its second page.
void CheckInputMethods(Kit& kit, RunningProduct& product) {
  constexpr char kTitle[] = "Number, password and address boxes have no input method";
  std::string with;
  std::string details;
  try {
    for (const int id : {ID_cmbIPAddr, ID_txtPingReqCount, ID_txtNxlibTimeOut, ID_txtTcpPortNo,
                         ID_txtAccessCode, ID_txtFtpPasswd}) {
      const std::string has = product.Ask("input_method", id).at(0);
      details += std::to_string(id) + ": " + has + "\n";
      if (has != "0") with += std::to_string(id) + " ";
    }
    // The user's name may be of any language. When it has none either, Windows has no input methods.
    const std::string user = product.Ask("input_method", ID_txtFtpUsername).at(0);
    details += std::to_string(ID_txtFtpUsername) + ": " + user;
    if (user == "0")
      kit.report.Observe("hands.input_method", kTitle, "This Windows has no input methods.");
    else
      kit.report.Expect("hands.input_method", kTitle, with.empty(), details);
  } catch (const CheckError& error) {
    // A virus scanner may keep the driver from calling into the product.
    if (IsCancelled()) throw;
    kit.report.Observe("hands.input_method", kTitle, error.what());
  }
}

void CheckFullWidthDigits(Kit& kit, Driver& driver) {
  static const std::string kFullWidth = ToUtf8(L"\xFF11\xFF12\xFF13");
  RunningProduct product(kit, driver);
  product.WaitForMainWindow();
  product.Ask("set_text", ID_cmbIPAddr, "");
  product.Ask("type", ID_cmbIPAddr, kFullWidth + "7");
  const std::string address = product.Ask("text", ID_cmbIPAddr).at(0);
  product.SelectPage(1);
  product.Ask("click", ID_chkAccessCode, "");
  WaitUntil(kKeyTimeOutMs, [&] { return IsWindowEnabled(product.Control(ID_txtAccessCode)) != FALSE; });
  product.Ask("type", ID_txtAccessCode, kFullWidth + "7");
  const std::string code = product.Ask("text", ID_txtAccessCode).at(0);
  kit.report.Expect("hands.full_width", "Address and access code accept no full-width digits",
                    address == "7" && code == "7",
                    "address \"" + address + "\", access code \"" + code + "\"");

  CheckInputMethods(kit, product);
  product.SelectPage(0);
  product.Ask("set_text", ID_txtPingReqCount, "");
  product.Ask("type", ID_txtPingReqCount, kFullWidth);
  const std::string count = product.Ask("text", ID_txtPingReqCount).at(0);
  product.Ask("set_text", ID_txtPingReqCount, "4");
  kit.report.Observe("hands.full_width_count", "The ping count after full-width digits were typed", count);
}

// Enter and Esc

void CheckEscapeWhenIdle(Kit& kit, Driver& driver) {
  RunningProduct product(kit, driver);
  product.WaitForMainWindow();
  product.Ask("keys", "Esc");
  // Would throw when the window is closing.
  bool open = true;
  try {
    product.Ask("settle", kKeyTimeOutMs);
    open = product.Runs() && IsShown(product, ID_cmdPing);
  } catch (const CheckError&) {
    if (IsCancelled()) throw;
    open = false;
  }
  kit.report.Expect("hands.escape_idle", "Esc leaves an idle main window open", open);
}

void CheckEnter(Kit& kit, Driver& driver) {
  RunningProduct product(kit, driver);
  product.WaitForMainWindow();
  product.Ask("set_text", ID_cmbIPAddr, "127.0.0.1");
  const std::vector<std::string> before = product.Lines();
  SetFocusOn(product, ID_txtPingReqCount);
  product.Ask("keys", "Enter");
  const bool started = WaitUntil(kKeyTimeOutMs, [&] { return product.Lines() != before; });
  kit.report.Expect("hands.enter", "Enter in a field presses the first button of the page", started,
                    product.Ask("lines", ID_lstResult).at(0));
}

/// The PMC test: it runs for several seconds without a network.
void CheckEscape(Kit& kit, Driver& driver) {
  constexpr int kPort = 18195;
  const PracticeController controller(kit, kPort, "options 1\n");
  RunningProduct product(kit, driver, {.arguments = L"-X 0 -TCP_PORT " + std::to_wstring(kPort) + L" -X"});
  product.WaitForMainWindow();
  product.Ask("set_text", ID_cmbIPAddr, "127.0.0.1");
  const HWND window = OpenByCommand(product, driver, ID_mnuPMC, "frmPmcTest");
  const HWND stop = ChildOf(window, ID_cmdStop);
  driver.Ask("click", window, ID_cmdRead, "");
  if (!WaitUntil(kKeyTimeOutMs, [&] { return IsWindowEnabled(stop) != FALSE; }))
    throw CheckError("the PMC test does not begin");
  driver.Ask("keys", window, "Esc");
  const bool stopped = WaitUntil(kKeyTimeOutMs, [&] { return IsWindowEnabled(stop) == FALSE; });
  kit.report.Expect("hands.escape", "Esc stops a run", stopped,
                    "passes: " + driver.Ask("text", window, ID_lblCount).at(0));
}

}  // namespace

void CheckHands(Kit& kit) {
  Driver driver(kit);
  kit.progress("The Tab key");
  CheckTabOrder(kit, driver, Edition::Family, "family");
  CheckTabOrder(kit, driver, Edition::General, "general");
  kit.progress("Access keys");
  CheckAccessKeys(kit, driver, kEnglishArguments, "_en");
  CheckAccessKeys(kit, driver, kJapaneseArguments, "_ja");
  kit.progress("What a screen reader says");
  const AccessibleReader reader;
  CheckSpeech(kit, driver, reader, kEnglishArguments, "_en");
  CheckSpeech(kit, driver, reader, kJapaneseArguments, "_ja");
  kit.progress("Typing");
  CheckFullWidthDigits(kit, driver);
  CheckEscapeWhenIdle(kit, driver);
  CheckEnter(kit, driver);
  if (kit.usesBench) CheckEscape(kit, driver);
}

}  // namespace tarvik::check
