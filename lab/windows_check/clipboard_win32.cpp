// The clipboard belongs to the user: what it had is restored, and what cannot be restored is not replaced.

#include "lab/windows_check/clipboard_win32.h"

#include <cstring>
#include <optional>

namespace tarvik::check {
namespace {

constexpr int kNoticedMs = 5000;
constexpr char kBefore[] = "before";

/// Keeps the clipboard open. Does not throw when the user cancels the check.
class OpenedClipboard {
 public:
  OpenedClipboard() {
    constexpr int kTries = 50;
    for (int left = kTries; left > 0 && !opened_; --left) {
      opened_ = OpenClipboard(nullptr) != FALSE;
      if (!opened_) Sleep(100);
    }
  }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;
  ~OpenedClipboard() {
    if (opened_) CloseClipboard();
  }
  bool IsOpened() const { return opened_; }

 private:
  bool opened_ = false;
};

/// The user's clipboard, restored on destruction. Only text can be restored.
class ClipboardBackup {
 public:
  ClipboardBackup() {
    const OpenedClipboard clipboard;
    canRestore_ = clipboard.IsOpened();
    for (UINT format = EnumClipboardFormats(0); format != 0; format = EnumClipboardFormats(format)) {
      // Windows derives the others from a text.
      if (format != CF_UNICODETEXT && format != CF_TEXT && format != CF_OEMTEXT && format != CF_LOCALE)
        canRestore_ = false;
    }
    const HANDLE data = canRestore_ ? GetClipboardData(CF_UNICODETEXT) : nullptr;
    const auto* const text = data == nullptr ? nullptr : static_cast<const wchar_t*>(GlobalLock(data));
    if (text == nullptr) return;
    text_ = text;
    GlobalUnlock(data);
  }
  ClipboardBackup(const ClipboardBackup&) = delete;
  ClipboardBackup& operator=(const ClipboardBackup&) = delete;
  ~ClipboardBackup() {
    if (!canRestore_) return;
    const OpenedClipboard clipboard;
    if (!clipboard.IsOpened()) return;
    EmptyClipboard();
    if (!text_) return;
    const size_t size = (text_->size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
    if (memory == nullptr) return;
    std::memcpy(GlobalLock(memory), text_->c_str(), size);
    GlobalUnlock(memory);
    if (SetClipboardData(CF_UNICODETEXT, memory) == nullptr) GlobalFree(memory);
  }

  bool CanRestore() const { return canRestore_; }

 private:
  bool canRestore_ = false;
  std::optional<std::wstring> text_;
};

bool ClipboardBecomes(Driver& driver, const std::string& text) {
  return WaitUntil(kNoticedMs, [&] {
    const Driver::Fields clipboard = driver.Ask("clipboard_get");
    return clipboard.at(0) == "1" && clipboard.at(1) == text;
  });
}

void CheckCopies(Kit& kit, Driver& driver, RunningProduct& product) {
  constexpr int kBrieflyMs = 500;
  constexpr int kLongMs = 3000;
  std::string lines;
  for (const std::string& line : product.Lines()) lines += line + "\r\n";
  const auto hasBox = [&] { return driver.Ask("has_window", product.Id(), "#32770").at(0) == "1"; };
  // The text of the message box; empty without one.
  const auto answerBox = [&] {
    if (!hasBox()) return std::string();
    const Driver::Fields box = driver.Ask("wait_box", product.Id(), kNoticedMs);
    driver.Ask("answer_box", box.at(0), IDOK, kNoticedMs);
    return box.at(2);
  };
  // Another program's text would be the user's own.
  const auto shown = [&] {
    const std::string text = driver.Ask("clipboard_get").at(1);
    return text == lines || text == kBefore ? text : std::string("(a text of another program)");
  };

  driver.Ask("clipboard_set", kBefore);
  product.Ask("double_click", ID_lstResult);
  const bool copied = ClipboardBecomes(driver, lines);
  answerBox();
  kit.report.Expect("rights.clipboard", "A double click copies every line to the clipboard", copied, shown());

  driver.Ask("clipboard_set", kBefore);
  driver.Ask("clipboard_hold", kBrieflyMs);
  product.Ask("double_click", ID_lstResult);
  const bool copiedLater = ClipboardBecomes(driver, lines);
  const std::string complaint = answerBox();
  kit.report.Expect("rights.clipboard_briefly",
                    "A clipboard that another program holds briefly is waited for",
                    copiedLater && complaint.empty(), complaint + shown());

  driver.Ask("clipboard_set", kBefore);
  driver.Ask("clipboard_hold", kLongMs);
  product.Ask("double_click", ID_lstResult);
  WaitUntil(kNoticedMs, hasBox);
  const std::string text = answerBox();
  product.Ask("settle", kNoticedMs);
  const bool reported = text == "The clipboard is in use by another program. Try again." && !hasBox();
  kit.report.Expect("rights.clipboard_held", "A clipboard that stays held is reported once and unchanged",
                    ClipboardBecomes(driver, kBefore) && reported, text);
}

}  // namespace

void CheckClipboard(Kit& kit) {
  const ClipboardBackup backup;
  if (!backup.CanRestore()) {
    kit.report.Observe("rights.clipboard_skipped", "Copying was not checked",
                       "The clipboard has something that the check could not restore.");
    return;
  }
  Driver driver(kit);
  RunningProduct product(kit, driver);
  product.WaitForMainWindow();
  CheckCopies(kit, driver, product);
}

}  // namespace tarvik::check
