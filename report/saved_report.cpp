// The contents of a saved report. The first page has what a reader needs to act; all that was recorded
// follows.

#include "report/saved_report.h"

#include <algorithm>

#include "platform/text.h"
#include "report/copied_report.h"
#include "report/report_parts.h"
#include "report/report_text.h"
#include "report/sheet.h"
#include "report/way.h"

namespace tarvik::report {
namespace {

/// Lines beyond this size are left out in the middle, so that the file stays one that an editor opens. The
/// largest directories need less.
constexpr size_t kMaxBytesOfLines = 8'000'000;
constexpr size_t kLinesKeptAtEnd = 1000;
constexpr size_t kSecondsWidth = 9;
constexpr size_t kMaxCards = 100;
constexpr size_t kMaxFileNamePart = 40;

/// "12.345"
std::wstring ThousandthsText(double seconds) {
  if (!(seconds >= 0 && seconds < 1e12)) return L"?";
  // The clock counts whole milliseconds; the addition makes up for what the division lost.
  std::wstring text = ZeroPadded(static_cast<int64_t>(seconds * 1000 + 0.01), 4);
  text.insert(text.size() - 3, 1, L'.');
  return text;
}

struct NamedSetting {
  const wchar_t* english;
  const wchar_t* japanese;
  std::wstring RunSettings::*text;
  bool general;  ///< exists in the general edition only
};

constexpr NamedSetting kNamedSettings[] = {
    {L"Ping count", L"Ping回数", &RunSettings::pingCount, false},
    {L"TCP port", L"TCPポート番号", &RunSettings::libraryPort, false},
    {L"Time-out (s)", L"タイムアウト(秒)", &RunSettings::libraryTimeOut, false},
    {L"K7 count", L"K7テスト回数", &RunSettings::k7Count, true},
    {L"K7 server", L"K7サーバー", &RunSettings::k7Server, true}};

struct NamedSecret {
  const wchar_t* english;
  const wchar_t* japanese;
  bool RunSettings::*set;
};

constexpr NamedSecret kNamedSecrets[] = {{L"Access code", L"アクセスコード", &RunSettings::accessCodeSet},
                                         {L"FTP user name", L"FTPユーザー名", &RunSettings::ftpUserSet},
                                         {L"FTP password", L"FTPパスワード", &RunSettings::ftpPasswordSet}};

class SavedReport {
 public:
  SavedReport(const ReportSource& source, Sheet::Form form)
      : source_(source),
        run_(source.run),
        summary_(SummaryLine(source)),
        sheet_(form, source.language, summary_) {}

  std::string Write() {
    WriteFirstPage();
    WriteLines();
    WriteBoxes();
    if (masked_)
      sheet_.Paragraph(
          In(L"*** replaces a user name or a password.", L"***はユーザー名またはパスワードの代わり。"));
    WriteSettings();
    WriteCards();
    WriteVersions();
    return sheet_.Finish();
  }

 private:
  const wchar_t* In(const wchar_t* english, const wchar_t* japanese) const {
    return report::In(source_.language, english, japanese);
  }
  /// Writes a row unless there is nothing to say.
  void Row(const wchar_t* name, std::wstring_view value) {
    if (!value.empty()) sheet_.Row(name, value);
  }

  /// "[... 7 lines left out]"
  std::wstring LeftOut(uint64_t count, const wchar_t* what) const {
    return Joined(
        {L"[... ", Decimal(static_cast<int64_t>(count)).c_str(), what, In(L" left out]", L"省略]")});
  }
  std::wstring MaskedText(std::wstring_view text);
  std::wstring LineText(const std::wstring& line);
  void WriteFirstPage();
  void WritePicture();
  void WriteLines();
  void WriteBoxes();
  void WriteSettings();
  void WriteCards();
  void WriteVersions();
  std::wstring DescribeCard(const PcCard& card) const;
  std::wstring DescribeAddress(const std::wstring& address, const std::wstring& mask,
                               const std::vector<std::wstring>& gateways) const;
  const ReportSource& source_;
  const Run& run_;
  const std::wstring summary_;
  Sheet sheet_;
  bool masked_ = false;  ///< something is
};

std::wstring SavedReport::MaskedText(std::wstring_view text) {
  std::wstring masked = Masked(text, source_.secrets);
  masked_ = masked_ || masked != text;
  return masked;
}

/// Only what the FTP server sent is masked. A name such as "ftp" or "1" in Tarvik's own lines is not a
/// secret.
std::wstring SavedReport::LineText(const std::wstring& line) {
  constexpr size_t kCodeLength = 3;
  const std::wstring start = line.substr(0, kCodeLength);
  const bool isReply = start.size() == kCodeLength &&
                       start.find_first_not_of(L"0123456789") == std::wstring::npos &&
                       (line.size() == kCodeLength || line[kCodeLength] == L' ' || line[kCodeLength] == L'-');
  if (isReply) return start + MaskedText(std::wstring_view(line).substr(kCodeLength));
  // A long reply also has lines without a code.
  const FtpFacts& ftp = run_.facts.ftp;
  for (const std::wstring* const reply : {&ftp.loginReply, &ftp.directoryReply, &ftp.endReply})
    if (!line.empty() && reply->find(line) != std::wstring::npos) return MaskedText(line);
  return line;
}

void SavedReport::WriteFirstPage() {
  const std::wstring& sentence = source_.answer.sentence;
  sheet_.Headline(sentence.empty() ? In(L"No test has run yet.", L"まだテストしていない。") : sentence);
  WritePicture();
  if (!sheet_.IsHtml()) sheet_.Paragraph(L"");
  sheet_.Paragraph(summary_);

  sheet_.Section(In(L"What was tested", L"テスト結果"));
  sheet_.BeginRows(6);
  for (int index = 0; index < kRungCount; ++index) {
    const auto rung = static_cast<Rung>(index);
    const RungFinding found = FoundNow(source_, rung);
    if (rung != Rung::K7 || run_.settings.generalEdition || run_.Planned(rung))
      sheet_.Row(PlainMark(found.state, source_.language), found.text);
  }
  sheet_.EndRows();
  sheet_.Section(In(L"Do next", L"次の手順"));
  if (const std::vector<std::wstring> steps = NextSteps(source_); steps.size() == 1)
    sheet_.Paragraph(steps.front());
  else
    sheet_.List(steps, true);
  if (const std::vector<std::wstring> traffic = NeededTraffic(source_); !traffic.empty()) {
    sheet_.Section(In(L"IT must allow", L"IT部門に許可を依頼"));
    sheet_.List(traffic, false);
  }
}

void SavedReport::WritePicture() {
  const Way way = WayOf(source_);
  const std::wstring text = WayText(way);
  if (sheet_.IsHtml())
    AppendWaySvg(sheet_.Out(), way, text);
  else
    sheet_.Paragraph(L"");
  sheet_.BeginBlock();
  for (const std::wstring& line : Split(text, L"\n")) sheet_.BlockLine(line);
  sheet_.EndBlock();
}

void SavedReport::WriteLines() {
  sheet_.Section(In(L"Lines, with seconds since the start", L"結果の行（開始からの秒数）"), true);
  sheet_.BeginBlock();
  const size_t begin = sheet_.Out().size();
  const std::vector<RunLine>& lines = run_.lines;
  const auto leaveOut = [this](uint64_t count) { sheet_.BlockLine(LeftOut(count, In(L" lines", L"行"))); };
  for (size_t i = 0; i < lines.size(); ++i) {
    const size_t left = lines.size() - i;
    if (sheet_.Out().size() - begin > kMaxBytesOfLines && left > kLinesKeptAtEnd) {
      leaveOut(left - kLinesKeptAtEnd);
      i = lines.size() - kLinesKeptAtEnd;
    }
    std::wstring line = ThousandthsText(lines[i].seconds);
    if (line.size() < kSecondsWidth) line.insert(0, kSecondsWidth - line.size(), L' ');
    sheet_.BlockLine(line + L"  " + LineText(lines[i].text));
  }
  if (run_.linesNotKept > 0) leaveOut(run_.linesNotKept);
  if (lines.empty()) sheet_.BlockLine(In(L"None.", L"なし。"));
  sheet_.EndBlock();
}

void SavedReport::WriteBoxes() {
  if (run_.boxes.empty()) return;
  const wchar_t* const buttons[] = {L"OK", In(L"Yes", L"はい"), In(L"No", L"いいえ"),
                                    In(L"not answered yet", L"未回答"), In(L"error", L"エラー")};
  sheet_.Section(In(L"Message boxes, with seconds and answer", L"メッセージボックス（秒数と回答）"));
  sheet_.BeginRows(kSecondsWidth);
  for (const RunBox& box : run_.boxes) {
    std::wstring text = MaskedText(box.text);
    if (text.size() > kMaxSheetText / 2) text.replace(kMaxSheetText / 2, std::wstring::npos, L"...");
    text += Joined({L"\n[", buttons[static_cast<size_t>(box.answer)], L"]"});
    if (box.answer < BoxAnswer::Open) text += L" " + ThousandthsText(box.answered);
    sheet_.Row(ThousandthsText(box.shown), text);
  }
  sheet_.EndRows();
}

void SavedReport::WriteSettings() {
  if (!run_.active && run_.end == RunEnd::None) return;
  const RunSettings& settings = run_.settings;
  sheet_.Section(In(L"Settings of the run", L"テスト時の設定"));
  sheet_.BeginRows(18);
  Row(In(L"Target", L"相手"), TargetText(run_, kMaxSheetText));
  for (const NamedSetting& named : kNamedSettings)
    if (!named.general || settings.generalEdition)
      Row(In(named.english, named.japanese), settings.*named.text);
  Row(In(L"K7 UDP port", L"K7 UDPポート番号"), source_.k7UdpPort);
  for (const NamedSecret& named : kNamedSecrets)
    Row(In(named.english, named.japanese),
        settings.*named.set ? In(L"set", L"設定あり") : In(L"not set", L"設定なし"));
  Row(In(L"Options", L"起動オプション"), L"0x" + Hexadecimal(settings.options));
  sheet_.EndRows();
}

std::wstring SavedReport::DescribeAddress(const std::wstring& address, const std::wstring& mask,
                                          const std::vector<std::wstring>& gateways) const {
  if (address.empty()) return In(L"no address", L"アドレスなし");
  std::wstring text =
      Joined({address.c_str(), In(L", mask ", L"、マスク "), mask.empty() ? L"?" : mask.c_str()});
  for (const std::wstring& gateway : gateways)
    if (text.size() <= kMaxSheetText) text += In(L", gateway ", L"、ゲートウェイ ") + gateway;
  return text;
}

std::wstring SavedReport::DescribeCard(const PcCard& card) const {
  const wchar_t* const kinds[] = {In(L"cable", L"有線"), In(L"wireless", L"無線"), In(L"virtual", L"仮想"),
                                  In(L"other", L"その他")};
  const WayToTarget& way = run_.facts.pc.way;
  const bool used = way.card && way.card->index == card.index && way.card->name == card.name;
  return Joined({kinds[static_cast<size_t>(card.kind)],
                 card.up ? In(L", link up", L"、リンクあり") : In(L", link down", L"、リンクなし"),
                 used ? In(L", Windows uses it for the target", L"、相手への経路に使用") : L"", L"\n",
                 DescribeAddress(card.address, card.mask, card.gateways).c_str(),
                 card.description.empty() ? L"" : L"\n", card.description.c_str()});
}

void SavedReport::WriteCards() {
  const PcFacts& pc = run_.facts.pc;
  sheet_.Section(In(L"Network cards of the PC", L"PCのLANカード"));
  sheet_.BeginRows(18);
  // Where Windows does not report the cards, the addresses alone are known. Those of an earlier run may have
  // changed since.
  const bool named = !pc.way.cards.empty();
  const bool read = run_.Planned(Rung::Pc);
  const size_t all = !read ? 0 : named ? pc.way.cards.size() : pc.addresses.size();
  for (size_t i = 0; i < std::min(all, kMaxCards); ++i) {
    if (named)
      sheet_.Row(pc.way.cards[i].name, DescribeCard(pc.way.cards[i]));
    else
      sheet_.Row(L"?",
                 DescribeAddress(pc.addresses[i].address, pc.addresses[i].mask, pc.addresses[i].gateways));
  }
  if (all == 0)
    sheet_.Row(L"?",
               read ? In(L"not read", L"未取得") : In(L"not read in this run", L"このテストでは未取得"));
  if (all > kMaxCards) sheet_.Row(L"...", LeftOut(all - kMaxCards, In(L"", L"件")));
  sheet_.EndRows();
}

void SavedReport::WriteVersions() {
  sheet_.Section(In(L"Program and libraries", L"プログラムとライブラリ"));
  std::vector<std::wstring> points;
  const auto add = [&points](const std::wstring& text) {
    if (!text.empty() && points.size() <= kMaxCards)
      points.push_back(points.size() < kMaxCards ? text : L"...");
  };
  add(source_.program);
  add(source_.edition);
  add(source_.windows);
  for (const std::wstring& library : source_.libraries) add(library);
  sheet_.List(points, false);

  sheet_.Section(In(L"Date", L"日時"));
  sheet_.BeginRows(18);
  Row(In(L"Run began", L"テスト開始"), run_.began);
  Row(In(L"Run ended", L"テスト終了"), run_.ended);
  if (!run_.began.empty()) Row(In(L"Seconds", L"所要秒数"), ThousandthsText(run_.seconds));
  Row(In(L"Report made", L"レポート作成"),
      Joined({DateText(source_.made).c_str(), L" ", TimeText(source_.made).c_str(), L" ",
              source_.timeZone.c_str()}));
  sheet_.EndRows();
}

}  // namespace

std::string SavedReportHtml(const ReportSource& source) {
  return SavedReport(source, Sheet::Form::Html).Write();
}

std::string SavedReportText(const ReportSource& source) {
  return SavedReport(source, Sheet::Form::Text).Write();
}

std::wstring ReportFileName(const ReportSource& source) {
  const LocalTime& ended = TimeOfRun(source);
  std::wstring time = TimeText(ended);
  time.erase(2, 1);
  std::wstring name = kProgramTitle;
  name += L'_';
  AppendOneLine(name, source.run.target.empty() ? L"-" : source.run.target, kMaxFileNamePart);
  name += Joined({L"_", DateText(ended).c_str(), L"_", time.c_str(), L"_",
                  VerdictText(source, AnswerLanguage::English).c_str()});
  for (wchar_t& letter : name)
    if (std::wstring_view(L"<>:\"/\\|?* \uFFFD").find(letter) != std::wstring_view::npos) letter = L'-';
  return name;
}

}  // namespace tarvik::report
