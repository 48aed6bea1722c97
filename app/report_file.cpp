#include "app/report_file.h"

#include <algorithm>

#include "platform/text.h"

namespace tarvik {
namespace {

/// Names that the file has while it is written; the first one that does not exist is used.
constexpr const wchar_t* kTemporaryNames[] = {L"~Tarvik.tmp", L"~Tarvik2.tmp", L"~Tarvik3.tmp"};

constexpr const wchar_t* kExtensions[] = {L".html", L".txt"};

bool HasExtension(const std::wstring& path, const wchar_t* extension) {
  return UpperCaseAscii(path).ends_with(UpperCaseAscii(extension));
}

/// What to do after one of these Windows errors; 0 = no more.
struct SaveAdvice {
  uint16_t errors[16];
  const wchar_t* english;
  const wchar_t* japanese;
};
constexpr SaveAdvice kSaveAdvice[] = {
    // ERROR_HANDLE_DISK_FULL, ERROR_DISK_FULL
    {{39, 112},
     L"The drive is full. Save on another one.",
     L"空き容量がありません。別のドライブに保存してください。"},
    // ERROR_PATH_NOT_FOUND, _INVALID_DRIVE, _NOT_READY, _BAD_NETPATH, _DEV_NOT_EXIST, _UNEXP_NET_ERR,
    // _NETNAME_DELETED, _BAD_NET_NAME, _SEM_TIMEOUT, _NO_SUCH_DEVICE, _FILE_INVALID, _NO_MEDIA_IN_DRIVE,
    // _DEVICE_NOT_CONNECTED, _NO_NETWORK, _NETWORK_UNREACHABLE, _DEVICE_REMOVED
    {{3, 15, 21, 53, 55, 59, 64, 67, 121, 433, 1006, 1112, 1167, 1222, 1231, 1617},
     L"The drive or folder is no longer there. Plug the drive in again, or save in another folder.",
     L"ドライブまたはフォルダーが見つかりません。ドライブを接続し直すか、別のフォルダーに保存してください。"},
    // ERROR_SHARING_VIOLATION, ERROR_LOCK_VIOLATION, ERROR_USER_MAPPED_FILE
    {{32, 33, 1224},
     L"Another program has the file open. Close it there, or save with another name.",
     L"他のプログラムがファイルを開いています。閉じるか、別の名前で保存してください。"},
    // ERROR_FILE_EXISTS: SaveSafely found no free name.
    {{80},
     L"The folder already has files named ~Tarvik.tmp, ~Tarvik2.tmp and ~Tarvik3.tmp. "
     L"Delete them, or save in another folder.",
     L"~Tarvik.tmp、~Tarvik2.tmp、~Tarvik3.tmpがフォルダーに既にあります。"
     L"削除するか、別のフォルダーに保存してください。"},
    // ERROR_INVALID_NAME, ERROR_FILENAME_EXCED_RANGE
    {{123, 206},
     L"The name is not allowed or too long. Save with a shorter name, in a folder nearer to the drive.",
     L"名前が使えないか長すぎます。短い名前で、浅い階層のフォルダーに保存してください。"},
};
constexpr SaveAdvice kOtherAdvice = {
    {},
    L"The folder or file is write-protected, or cannot be written. Save in "
    L"another folder, such as the desktop.",
    L"フォルダーまたはファイルに書き込めません（書き込み禁止など）。デスクトップ"
    L"など別のフォルダーに保存してください。"};

}  // namespace

ui::SavePrompt ReportPrompt(const std::wstring& folder, const std::wstring& name,
                            report::AnswerLanguage language) {
  const bool japanese = language == report::AnswerLanguage::Japanese;
  return {folder,
          name + kExtensions[0],
          {{L"HTML (*.html)", L"html"}, {japanese ? L"テキスト (*.txt)" : L"Text (*.txt)", L"txt"}}};
}

ReportPlace PlaceOfReport(const ui::SavePlace& chosen) {
  if (HasExtension(chosen.path, L".txt")) return {chosen.path, ReportKind::Text};
  if (HasExtension(chosen.path, L".html") || HasExtension(chosen.path, L".htm"))
    return {chosen.path, ReportKind::Html};
  const ReportKind kind = chosen.kind == 0 ? ReportKind::Html : ReportKind::Text;
  return {chosen.path + kExtensions[static_cast<size_t>(kind)], kind, true};
}

std::wstring FolderOf(const std::wstring& path) {
  const size_t end = path.rfind(L'\\');
  if (end == std::wstring::npos) return {};
  // "C:" alone is the drive's current folder.
  return path.substr(0, end == 2 ? 3 : end);
}

std::wstring FileNameOf(const std::wstring& path) { return path.substr(path.rfind(L'\\') + 1); }

std::wstring ReplaceQuestion(const std::wstring& name, report::AnswerLanguage language) {
  return name + (language == report::AnswerLanguage::Japanese ? L" は既にあります。置き換えますか？"
                                                              : L" already exists. Replace it?");
}

uint32_t SaveSafely(Files& files, const std::wstring& path, std::string_view bytes) {
  const std::wstring folder = path.substr(0, path.rfind(L'\\') + 1);
  constexpr uint32_t kWriteFault = 29;  // ERROR_WRITE_FAULT
  constexpr uint32_t kFileExists = 80;  // ERROR_FILE_EXISTS
  uint32_t error = 0;
  for (const wchar_t* const name : kTemporaryNames) {
    const std::wstring temporary = folder + name;
    const bool written = files.WriteNew(temporary, bytes);
    if (written && files.Replace(temporary, path)) return 0;
    error = files.LastError();
    if (written) files.Delete(temporary);
    if (written || error != kFileExists) break;
  }
  return error == 0 ? kWriteFault : error;
}

std::wstring SaveFailureText(uint32_t error, report::AnswerLanguage language) {
  const auto* const advice = std::ranges::find_if(kSaveAdvice, [error](const SaveAdvice& each) {
    return error != 0 && std::ranges::count(each.errors, error) != 0;
  });
  const SaveAdvice& found = advice == std::end(kSaveAdvice) ? kOtherAdvice : *advice;
  return language == report::AnswerLanguage::Japanese
             ? L"レポートを保存できませんでした（エラー " + Decimal(error) + L"）。\r\n" + found.japanese
             : L"The report was not saved (error " + Decimal(error) + L").\r\n" + found.english;
}

}  // namespace tarvik
