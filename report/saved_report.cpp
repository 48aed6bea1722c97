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
constexpr size_t kMaxCards = 100;
constexpr size_t kMaxFileNamePart = 40;

/// "12.345"
std::wstring ThousandthsText(double seconds) {
  const bool valid = seconds >= 0 && seconds < 1e9;
  const int64_t thousandths = valid ? static_cast<int64_t>(seconds * 1000 + 0.5) : 0;
  return Joined({Decimal(thousandths / 1000), L".", ZeroPadded(thousandths % 1000, 3)});
}

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
    WriteSettings();
    WriteCards();
    WriteVersions();
    return sheet_.Finish();
  }

 private:
  const wchar_t* In(const wchar_t* english, const wchar_t* japanese) const {
    return report::In(source_.language, english, japanese);
  }
  /// Adds a row unless there is nothing to say.
  static void Add(std::vector<SheetRow>& rows, std::wstring_view name, std::wstring_view value) {
    if (!value.empty()) rows.emplace_back(name, value);
  }

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
  std::wstring AnswerText(const RunBox& box) const;

  const ReportSource& source_;
  const Run& run_;
  const std::wstring summary_;
  Sheet sheet_;
};

void SavedReport::WriteFirstPage() {
  const std::wstring& sentence = source_.answer.sentence;
  sheet_.Headline(sentence.empty() ? In(L"No test has run yet.", L"まだテストしていません。") : sentence);
  sheet_.Paragraph(summary_);
  WritePicture();

  sheet_.Section(In(L"What was tested", L"テスト結果"));
  std::vector<SheetRow> rungs;
  for (int index = 0; index < kRungCount; ++index) {
    const auto rung = static_cast<Rung>(index);
    const RungFinding& found = source_.answer.Of(rung);
    if (rung == Rung::K7 && !run_.settings.generalEdition && !run_.Planned(rung)) continue;
    Add(rungs, PlainMark(found.state, source_.language), found.text);
  }
  sheet_.Rows(rungs);
  sheet_.Section(In(L"Do next", L"次の手順"));
  if (const std::vector<std::wstring> steps = NextSteps(source_); steps.size() == 1)
    sheet_.Paragraph(steps.front());
  else
    sheet_.Steps(steps);
  if (const std::vector<std::wstring> traffic = NeededTraffic(source_); !traffic.empty()) {
    sheet_.Section(In(L"IT must allow", L"IT部門に許可を依頼"));
    sheet_.Points(traffic);
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
  const auto leaveOut = [this](uint64_t count) {
    sheet_.BlockLine(L"[... " + Decimal(static_cast<int64_t>(count)) + In(L" lines left out]", L"行省略]"));
  };
  for (size_t i = 0; i < lines.size(); ++i) {
    const size_t left = lines.size() - i;
    if (sheet_.Out().size() - begin > kMaxBytesOfLines && left > kLinesKeptAtEnd) {
      leaveOut(left - kLinesKeptAtEnd);
      i = lines.size() - kLinesKeptAtEnd;
    }
    std::wstring line = ThousandthsText(lines[i].seconds);
    line.insert(0, 9 - std::min<size_t>(line.size(), 9), L' ');
    sheet_.BlockLine(Joined({line, L"  ", Masked(lines[i].text, source_.secrets)}));
  }
  if (run_.linesNotKept > 0) leaveOut(run_.linesNotKept);
  if (lines.empty()) sheet_.BlockLine(In(L"None.", L"なし。"));
  sheet_.EndBlock();
}

std::wstring SavedReport::AnswerText(const RunBox& box) const {
  if (box.answered <= 0) return In(L"not answered yet", L"未回答");
  const wchar_t* const button = box.answer == BoxAnswer::Ok    ? L"OK"
                                : box.answer == BoxAnswer::Yes ? In(L"Yes", L"はい")
                                                               : In(L"No", L"いいえ");
  return Joined({L"[", button, L"] ", ThousandthsText(box.answered)});
}

void SavedReport::WriteBoxes() {
  if (run_.boxes.empty()) return;
  sheet_.Section(In(L"Message boxes, with seconds and answer", L"メッセージボックス（秒数と回答）"));
  std::vector<SheetRow> rows;
  for (const RunBox& box : run_.boxes) {
    std::wstring text = Masked(box.text, source_.secrets);
    text.resize(std::min(text.size(), kMaxSheetText / 2));
    Add(rows, ThousandthsText(box.shown), Joined({text, L"\n", AnswerText(box)}));
  }
  sheet_.Rows(rows);
}

void SavedReport::WriteSettings() {
  const RunSettings& settings = run_.settings;
  const auto given = [this](bool set) {
    return In(set ? L"set" : L"not set", set ? L"設定あり" : L"設定なし");
  };
  sheet_.Section(In(L"Settings of the run", L"テスト時の設定"));
  std::vector<SheetRow> rows;
  Add(rows, In(L"Target", L"通信先"), TargetText(run_));
  Add(rows, In(L"Ping count", L"Ping回数"), settings.pingCount);
  Add(rows, In(L"TCP port", L"TCPポート番号"), settings.libraryPort);
  Add(rows, In(L"Time-out (s)", L"タイムアウト(秒)"), settings.libraryTimeOut);
  Add(rows, In(L"Access code", L"アクセスコード"), given(settings.accessCodeSet));
  if (settings.generalEdition) {
    Add(rows, In(L"K7 count", L"K7テスト回数"), settings.k7Count);
    Add(rows, In(L"K7 server", L"K7サーバー"), settings.k7Server);
    Add(rows, In(L"K7 UDP port", L"K7 UDPポート"), source_.k7UdpPort);
  }
  Add(rows, In(L"FTP user name", L"FTPユーザー名"), given(settings.ftpUserSet));
  Add(rows, In(L"FTP password", L"FTPパスワード"), given(settings.ftpPasswordSet));
  Add(rows, In(L"Options", L"オプション"), L"0x" + Hexadecimal(settings.options));
  sheet_.Rows(rows);
}

std::wstring SavedReport::DescribeAddress(const std::wstring& address, const std::wstring& mask,
                                          const std::vector<std::wstring>& gateways) const {
  if (address.empty()) return In(L"no address", L"アドレスなし");
  std::wstring text = Joined({address, In(L", mask ", L"、マスク "), mask.empty() ? L"?" : mask});
  for (size_t i = 0; i < std::min(gateways.size(), kMaxCards); ++i)
    text += In(L", gateway ", L"、ゲートウェイ ") + gateways[i];
  return text;
}

std::wstring SavedReport::DescribeCard(const PcCard& card) const {
  const wchar_t* const kinds[] = {In(L"cable", L"有線"), In(L"wireless", L"無線"), In(L"virtual", L"仮想"),
                                  In(L"other", L"その他")};
  const WayToTarget& way = run_.facts.pc.way;
  const bool used = way.card && way.card->index == card.index && way.card->name == card.name;
  return Joined({kinds[static_cast<size_t>(card.kind)], In(L", ", L"、"),
                 card.up ? In(L"link up", L"リンクあり") : In(L"link down", L"リンクなし"),
                 used ? In(L", Windows uses it for the target", L"、通信先への経路") : L"", L"\n",
                 DescribeAddress(card.address, card.mask, card.gateways),
                 card.description.empty() ? L"" : L"\n", card.description.substr(0, kMaxSheetText / 4)});
}

void SavedReport::WriteCards() {
  const PcFacts& pc = run_.facts.pc;
  std::vector<SheetRow> rows;
  for (size_t i = 0; i < std::min(pc.way.cards.size(), kMaxCards); ++i)
    Add(rows, pc.way.cards[i].name, DescribeCard(pc.way.cards[i]));
  // Where Windows does not report the cards, the addresses alone are known.
  if (rows.empty())
    for (size_t i = 0; i < std::min(pc.addresses.size(), kMaxCards); ++i) {
      const OwnAddress& own = pc.addresses[i];
      Add(rows, L"?", DescribeAddress(own.address, own.mask, own.gateways));
    }
  sheet_.Section(In(L"Network cards of the PC", L"PCのLANカード"));
  if (rows.empty())
    sheet_.Paragraph(In(L"Not read in this run.", L"今回は未取得。"));
  else
    sheet_.Rows(rows);
}

void SavedReport::WriteVersions() {
  sheet_.Section(In(L"Program and libraries", L"プログラムとライブラリ"));
  std::vector<std::wstring> points = {source_.program};
  if (!source_.edition.empty()) points.push_back(source_.edition);
  if (!source_.windows.empty()) points.push_back(source_.windows);
  const size_t count = std::min(source_.libraries.size(), kMaxCards);
  points.insert(points.end(), source_.libraries.begin(),
                source_.libraries.begin() + static_cast<std::ptrdiff_t>(count));
  sheet_.Points(points);

  sheet_.Section(In(L"Date", L"日時"));
  std::vector<SheetRow> rows;
  Add(rows, In(L"Run began", L"テスト開始"), run_.began);
  Add(rows, In(L"Run ended", L"テスト終了"), run_.ended);
  if (!run_.began.empty()) Add(rows, In(L"Seconds", L"所要秒数"), ThousandthsText(run_.seconds));
  Add(rows, In(L"Report made", L"レポート作成"),
      Joined({DateText(source_.made), L" ", TimeText(source_.made), L" ", source_.timeZone}));
  sheet_.Rows(rows);
}

}  // namespace

std::string SavedReportHtml(const ReportSource& source) {
  return SavedReport(source, Sheet::Form::Html).Write();
}

std::string SavedReportText(const ReportSource& source) {
  return SavedReport(source, Sheet::Form::Text).Write();
}

std::wstring ReportFileName(const ReportSource& source) {
  std::wstring target = OneLine(source.run.target, kMaxFileNamePart);
  if (target.empty()) target = L"-";
  std::wstring time = TimeText(source.made);
  std::erase(time, L':');
  std::wstring name = Joined({kProgramTitle, L"_", target, L"_", DateText(source.made), L"_", time, L"_",
                              VerdictText(source, AnswerLanguage::English)});
  for (wchar_t& letter : name) {
    constexpr std::wstring_view kForbidden = L"<>:\"/\\|?*\uFFFD";
    if (kForbidden.find(letter) != std::wstring_view::npos) letter = L'-';
  }
  const size_t verdict = name.rfind(L'_');
  std::replace(name.begin(), name.begin() + static_cast<std::ptrdiff_t>(verdict), L' ', L'_');
  std::replace(name.begin() + static_cast<std::ptrdiff_t>(verdict), name.end(), L' ', L'-');
  return name;
}

}  // namespace tarvik::report
