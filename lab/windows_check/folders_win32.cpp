#include "lab/windows_check/folders_win32.h"

#include <algorithm>

#include "lab/windows_check/controls_win32.h"
#include "lab/windows_check/folder_tree_win32.h"
// After windows.h.
#include <aclapi.h>

namespace tarvik::check {
namespace {

constexpr size_t kLongFolder = 240;
constexpr int kProgramTimeOutMs = 15000;
constexpr wchar_t kEnglishLabel[] = L"IP address or host &name:";
constexpr wchar_t kJapaneseLabel[] = L"IPｱﾄﾞﾚｽ/ﾎｽﾄ名(&N):";

std::vector<std::wstring> NamesBelow(const std::wstring& folder) {
  std::vector<std::wstring> names;
  ForEachEntry(folder, [&](const std::wstring& name, bool isFolder) {
    names.push_back(name);
    if (!isFolder) return;
    for (const std::wstring& below : NamesBelow(folder + L"\\" + name)) names.push_back(name + L"\\" + below);
  });
  std::sort(names.begin(), names.end());
  return names;
}

/// A copy of the general edition, which has its language files in its own folder.
std::wstring CopyOfGeneral(const Kit& kit, const std::wstring& folder) {
  CopyFolder(kit.general.substr(0, kit.general.rfind(L'\\')), folder);
  return folder + L"\\Tarvik.exe";
}

/// Starts the copy in both languages; returns what is wrong.
Findings RunIn(Kit& kit, const std::wstring& program) {
  Findings findings;
  Driver driver(kit);
  for (const bool japanese : {false, true}) {
    RunningProduct product(kit, driver,
                           {.arguments = japanese ? L"-X 0 -LOCALEID 1041 -X" : L"-X 0 -LOCALEID 1033 -X",
                            .withBench = false,
                            .program = program});
    product.WaitForMainWindow();
    const std::wstring label = TextOf(product.Control(ID_lblIPAddr));
    if (label != (japanese ? kJapaneseLabel : kEnglishLabel)) findings.Add("label: " + ToUtf8(label));
    for (const std::string& box : product.Boxes()) findings.Add("message box: " + box);
    const DWORD code = product.Close();
    if (code != 0) findings.Add("exit code " + std::to_string(code));
  }
  return findings;
}

void CheckFolder(Kit& kit, const std::wstring& folder, const char* id, const std::string& title) {
  const Findings findings = RunIn(kit, CopyOfGeneral(kit, folder));
  kit.report.Expect(id, title, findings.None(), ToUtf8(folder) + "\n" + findings.Or({}));
}

/// A folder with exactly that many characters in its path.
std::wstring LongFolder(const std::wstring& below) {
  constexpr size_t kLongestName = 100;
  std::wstring folder = below;
  while (folder.size() < kLongFolder) {
    // The last name must not be left with no character.
    size_t length = std::min(kLongestName, kLongFolder - folder.size() - 1);
    if (kLongFolder - folder.size() - 1 - length == 1) --length;
    folder += L"\\" + std::wstring(length, L'f');
    CreateDirectoryW(Unlimited(folder).c_str(), nullptr);
  }
  return folder;
}

/// A folder that nobody may change, with its files, during the object's lifetime.
class ReadOnlyFolder {
 public:
  explicit ReadOnlyFolder(std::wstring folder) : folder_(std::move(folder)) {
    constexpr DWORD kReading = FILE_GENERIC_READ | FILE_GENERIC_EXECUTE;
    SetRights(kReading);
  }
  ReadOnlyFolder(const ReadOnlyFolder&) = delete;
  ReadOnlyFolder& operator=(const ReadOnlyFolder&) = delete;
  ~ReadOnlyFolder() { SetRights(GENERIC_ALL); }

  bool IsReadOnly() const {
    const std::wstring probe = folder_ + L"\\probe.tmp";
    const HANDLE file = CreateFileW(Unlimited(probe).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                    FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (file == INVALID_HANDLE_VALUE) return true;
    CloseHandle(file);
    return false;
  }

 private:
  void SetRights(DWORD rights) {
    BYTE everyone[SECURITY_MAX_SID_SIZE];
    DWORD size = sizeof everyone;
    if (!CreateWellKnownSid(WinWorldSid, nullptr, everyone, &size)) return;
    EXPLICIT_ACCESSW access{};
    access.grfAccessPermissions = rights;
    access.grfAccessMode = SET_ACCESS;
    access.grfInheritance = SUB_CONTAINERS_AND_OBJECTS_INHERIT;
    access.Trustee.TrusteeForm = TRUSTEE_IS_SID;
    access.Trustee.ptstrName = reinterpret_cast<wchar_t*>(everyone);
    ACL* list = nullptr;
    if (SetEntriesInAclW(1, &access, nullptr, &list) != ERROR_SUCCESS) return;
    SetNamedSecurityInfoW(folder_.data(), SE_FILE_OBJECT,
                          DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION, nullptr, nullptr,
                          list, nullptr);
    LocalFree(list);
  }

  std::wstring folder_;
};

void CheckReadOnlyFolder(Kit& kit) {
  const std::wstring folder = kit.folder + L"\\read only";
  const std::wstring program = CopyOfGeneral(kit, folder);
  const std::vector<std::wstring> before = NamesBelow(folder);
  const ReadOnlyFolder readOnly(folder);
  const Findings findings = RunIn(kit, program);
  constexpr char kId[] = "rights.folder_read_only";
  constexpr char kTitle[] = "The program runs in a folder without the right to write";
  kit.report.Observe(kId, kTitle,
                     findings.Or(readOnly.IsReadOnly() ? "yes" : "This account can write to every folder."));
  const std::vector<std::wstring> after = NamesBelow(folder);
  std::string names;
  for (const std::wstring& name : after) names += ToUtf8(name) + "\n";
  kit.report.Expect("rights.folder_unchanged", "The program leaves no file in its folder", before == after,
                    names);
}

/// A token like that of an ordinary user: without administrators' group and privileges. Null on failure.
HANDLE OrdinaryToken() {
  HANDLE own = nullptr;
  if (!OpenProcessToken(GetCurrentProcess(), TOKEN_ALL_ACCESS, &own)) return nullptr;
  BYTE administrators[SECURITY_MAX_SID_SIZE];
  DWORD size = sizeof administrators;
  HANDLE restricted = nullptr;
  if (CreateWellKnownSid(WinBuiltinAdministratorsSid, nullptr, administrators, &size)) {
    SID_AND_ATTRIBUTES disabled{administrators, 0};
    if (!CreateRestrictedToken(own, DISABLE_MAX_PRIVILEGE, 1, &disabled, 0, nullptr, 0, nullptr, &restricted))
      restricted = nullptr;
  }
  CloseHandle(own);
  return restricted;
}

void CheckOrdinaryUser(Kit& kit) {
  constexpr char kId[] = "rights.ordinary_user";
  constexpr char kTitle[] = "The program runs without the rights of an administrator";
  Driver driver(kit);
  const HANDLE token = OrdinaryToken();
  std::wstring commandLine = L"\"" + kit.general + L"\"";
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION information{};
  const bool started =
      token != nullptr && CreateProcessAsUserW(token, nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0,
                                               nullptr, nullptr, &startup, &information);
  const DWORD error = GetLastError();
  if (token != nullptr) CloseHandle(token);
  if (!started) {
    kit.report.Observe(kId, kTitle, "It could not be started so: error " + std::to_string(error));
    return;
  }
  EndWithThisCheck(information.hProcess);
  std::string details;
  DWORD code = STILL_ACTIVE;
  try {
    const std::string window =
        driver.Ask("wait_window", information.dwProcessId, "Form1", kProgramTimeOutMs).at(0);
    details = driver.Ask("text", window, 0).at(0);
    driver.Ask("close", window);
    WaitForSingleObject(information.hProcess, kProgramTimeOutMs);
  } catch (const CheckError& failure) {
    details = failure.what();
  }
  GetExitCodeProcess(information.hProcess, &code);
  if (code == STILL_ACTIVE) TerminateProcess(information.hProcess, 1);
  CloseHandle(information.hThread);
  CloseHandle(information.hProcess);
  if (IsCancelled()) throw CheckError("cancelled by the user");
  kit.report.Expect(kId, kTitle, code == 0, details + "\nexit code " + std::to_string(code));
}

}  // namespace

void CheckFolders(Kit& kit) {
  kit.progress("The rights of an ordinary user");
  CheckOrdinaryUser(kit);
  kit.progress("Unusual folders");
  CheckFolder(kit, kit.folder + L"\\日本 ไทย ☃", "rights.folder_letters",
              "The program runs in a folder with letters outside the code page");
  CheckFolder(kit, LongFolder(kit.folder), "rights.folder_long",
              "The program runs in a folder with a path of 240 characters");
  CheckReadOnlyFolder(kit);
}

}  // namespace tarvik::check
