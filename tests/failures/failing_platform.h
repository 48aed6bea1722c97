#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/clipboard.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "platform/settings_store.h"
#include "platform/system.h"
#include "tests/failures/failure_plan.h"

namespace tarvik::test {

class FailingSystem final : public Failing<System> {
 public:
  using Failing::Failing;

  bool GetVersionExA(OsVersionRecord& record) override {
    const int way = plan_.WayToFail("GetVersionExA", 2);
    if (way == 1) return false;
    const bool known = library_.GetVersionExA(record);
    if (way == 2) record.platformId = 0;
    return known;
  }
  uint32_t GetPrivateProfileStringA(const std::string& section, const std::string& key, char* buffer,
                                    uint32_t bufferSize, const std::wstring& path) override {
    switch (plan_.WayToFail("GetPrivateProfileStringA", 3)) {
      case 1:
        return 0;
      case 2:  // and nothing written
        return bufferSize - 1;
      case 3:
        for (uint32_t i = 0; i < bufferSize; ++i) buffer[i] = 'x';
        return bufferSize + 100;
      default:
        return library_.GetPrivateProfileStringA(section, key, buffer, bufferSize, path);
    }
  }
  std::optional<std::wstring> ReadMachineRegistry(const std::wstring& key,
                                                  const std::wstring& name) override {
    const int way = plan_.WayToFail("Read of the registry", 2);
    if (way == 1) return std::nullopt;
    if (way == 2) return std::wstring();
    return library_.ReadMachineRegistry(key, name);
  }
  std::string SortKey(std::wstring_view text) override {
    return plan_.WayToFail("LCMapString", 1) == 1 ? std::string() : library_.SortKey(text);
  }
  std::wstring GeneralDateTime() override {
    return plan_.WayToFail("GetDateFormat", 1) == 1 ? L" " : library_.GeneralDateTime();
  }
  ZonedTime LocalTime() override { return library_.LocalTime(); }
  std::wstring UserName() override {
    return plan_.WayToFail("GetUserName", 1) == 1 ? std::wstring() : library_.UserName();
  }
  std::wstring FolderOf(UserFolder folder) override {
    return plan_.WayToFail("SHGetFolderPath", 1) == 1 ? std::wstring() : library_.FolderOf(folder);
  }
};

class FailingFiles final : public Failing<Files> {
 public:
  using Failing::Failing;

  bool Exists(const std::wstring& path) override {
    return plan_.WayToFail("Exists", 1) != 1 && library_.Exists(path);
  }
  std::optional<std::string> Read(const std::wstring& path) override {
    const int way = plan_.WayToFail("Read of a file", 3);
    if (way == 1) {
      Refuse();
      return std::nullopt;
    }
    std::optional<std::string> bytes = Forward(library_.Read(path));
    if (way == 2 && bytes) bytes->clear();
    if (way == 3 && bytes) bytes->resize(bytes->size() / 2);
    return bytes;
  }
  bool Write(const std::wstring& path, std::string_view bytes) override {
    return plan_.WayToFail("Write of a file", 1) == 1 ? Refuse() : Forward(library_.Write(path, bytes));
  }
  bool WriteNew(const std::wstring& path, std::string_view bytes) override {
    return plan_.WayToFail("Write of a file", 1) == 1 ? Refuse() : Forward(library_.WriteNew(path, bytes));
  }
  bool Replace(const std::wstring& from, const std::wstring& to) override {
    return plan_.WayToFail("Replace", 1) == 1 ? Refuse() : Forward(library_.Replace(from, to));
  }
  bool IsLocalFolder(const std::wstring& path) override {
    return plan_.WayToFail("IsLocalFolder", 1) != 1 && library_.IsLocalFolder(path);
  }
  bool Delete(const std::wstring& path) override {
    return plan_.WayToFail("Delete", 1) != 1 && library_.Delete(path);
  }
  bool Copy(const std::wstring& from, const std::wstring& to) override {
    return plan_.WayToFail("Copy", 1) == 1 ? Refuse() : Forward(library_.Copy(from, to));
  }
  bool Append(const std::wstring& path, std::string_view bytes) override {
    return plan_.WayToFail("Append", 1) == 1 ? Refuse() : Forward(library_.Append(path, bytes));
  }
  std::optional<uint32_t> Attributes(const std::wstring& path) override {
    if (plan_.WayToFail("Attributes", 1) == 1) {
      Refuse();
      return std::nullopt;
    }
    return Forward(library_.Attributes(path));
  }
  bool SetAttributes(const std::wstring& path, uint32_t attributes) override {
    return plan_.WayToFail("SetAttributes", 1) == 1 ? Refuse()
                                                    : Forward(library_.SetAttributes(path, attributes));
  }
  uint32_t LastError() const override {
    if (plan_.WayToFail("LastError of a file", 1) == 1) return 0;
    return refused_ ? kAccessDenied : library_.LastError();
  }

 private:
  static constexpr uint32_t kAccessDenied = 5;

  bool Refuse() {
    refused_ = true;
    return false;
  }
  template <typename Result>
  Result Forward(Result result) {
    refused_ = false;
    return result;
  }

  bool refused_ = false;
};

class FailingProcesses final : public Failing<Processes> {
 public:
  using Failing::Failing;

  uint32_t Shell(const std::wstring& commandLine, StartWindow window, const std::wstring& program) override {
    return plan_.WayToFail("Shell", 1) == 1 ? 0 : library_.Shell(commandLine, window, program);
  }
  Handle OpenProcess(uint32_t access, uint32_t processId) override {
    return plan_.WayToFail("OpenProcess", 1) == 1 ? 0
                                                  : handles.Opened(library_.OpenProcess(access, processId));
  }
  bool GetExitCodeProcess(Handle process, uint32_t& code) override {
    constexpr uint32_t kStillActive = 259;
    const int way = plan_.WayToFail("GetExitCodeProcess", 3);
    if (way == 1) return false;
    const bool read = library_.GetExitCodeProcess(process, code);
    if (way == 2) code = kStillActive;
    if (way == 3) code = 1;
    return read;
  }
  bool CloseHandle(Handle handle) override {
    handles.Closed(handle);
    const int way = plan_.WayToFail("CloseHandle", 1);
    return library_.CloseHandle(handle) && way != 1;
  }

  HandleLedger<Handle> handles;
};

/// A failing conversion returns nothing, or a NUL for each character.
class FailingCodePage final : public Failing<CodePage> {
 public:
  using Failing::Failing;

  std::string ToAnsi(std::wstring_view text) override {
    return Damaged(plan_.WayToFail("WideCharToMultiByte", 2), library_.ToAnsi(text));
  }
  std::string ToOem(std::wstring_view text) override {
    return Damaged(plan_.WayToFail("WideCharToMultiByte", 2), library_.ToOem(text));
  }
  std::wstring FromAnsi(std::string_view bytes) override {
    return Damaged(plan_.WayToFail("MultiByteToWideChar", 2), library_.FromAnsi(bytes));
  }
  std::wstring FromLanguage(std::string_view bytes, int32_t language) override {
    return Damaged(plan_.WayToFail("MultiByteToWideChar of a language file", 2),
                   library_.FromLanguage(bytes, language));
  }

 private:
  template <typename Text>
  static Text Damaged(int way, Text text) {
    if (way == 1) return {};
    if (way == 2) text.assign(text.size(), 0);
    return text;
  }
};

class FailingSettings final : public Failing<SettingsStore> {
 public:
  using Failing::Failing;

  std::optional<std::wstring> Read(const std::wstring& section, const std::wstring& key) override {
    if (plan_.WayToFail("Read of a setting", 1) == 1) return std::nullopt;
    return library_.Read(section, key);
  }
  bool Write(const std::wstring& section, const std::wstring& key, const std::wstring& value) override {
    return plan_.WayToFail("Write of a setting", 1) != 1 && library_.Write(section, key, value);
  }
};

class FailingClipboard final : public Failing<Clipboard> {
 public:
  using Failing::Failing;

  void SetText(const std::wstring& text) override {
    ThrowIfFailing("SetClipboardData");
    library_.SetText(text);
  }
  std::wstring GetText() override {
    ThrowIfFailing("GetClipboardData");
    return library_.GetText();
  }

 private:
  void ThrowIfFailing(const char* call) {
    if (plan_.WayToFail(call, 1) == 1) throw RuntimeError(L"The clipboard is in use by another program.");
  }
};

}  // namespace tarvik::test
