// A rich edit window, because a plain one can neither show a heading in bold nor indent the second line of a
// step. Its library is loaded with the first text view.

#include "ui/win32/text_view_win32.h"

#include "platform/clipboard.h"
#include "platform/text.h"
#include "ui/win32/form_win32.h"
// After windows.h.
#include <richedit.h>

namespace tarvik::ui {
namespace {

/// After the number of a step. Not a tab: Wine would end the line there if the step has no other space, as in
/// Japanese.
constexpr wchar_t kGap[] = L"\u00A0\u00A0";

bool IsCopy(UINT message, WPARAM wParam) {
  return message == WM_COPY ||
         (message == WM_KEYDOWN && (wParam == L'C' || wParam == VK_INSERT) && HeldShiftStates() == kCtrlHeld);
}

}  // namespace

Win32TextView::Win32TextView(Win32Form& form, int page, int id)
    : UncaptionedControl(form, page, id,
                         {L"RICHEDIT50W",
                          ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL | WS_VSCROLL | WS_TABSTOP | WS_GROUP}) {
  // Without it, creating the window fails, which is reported.
  SystemLibrary().Load(L"msftedit.dll");
}

void Win32TextView::OnCreated() {
  // Letters that the font lacks come from fonts for windows, not from those for documents.
  Send(EM_SETLANGOPTIONS, 0, Send(EM_GETLANGOPTIONS) | IMF_UIFONTS);
  Subclass(Window());
}

void Win32TextView::Annotate() {
  if (!paragraphs_.empty()) form_.ScreenReaders().SetName(Window(), CHILDID_SELF, paragraphs_.front().text);
}

void Win32TextView::ApplyFont() {
  const std::unique_ptr<MeasuredFont> old = std::move(font_);
  font_ = form_.Font().Larger();
  SetFont(*font_);
  Show();
}

Size Win32TextView::SizeFor(const std::wstring& text) const {
  return {font_->TextWidth(text) + 2 * font_->LineHeight() + form_.Metric(SM_CXVSCROLL), font_->LineHeight()};
}

void Win32TextView::SetParagraphs(const std::vector<Paragraph>& paragraphs) {
  paragraphs_ = paragraphs;
  Show();
  Annotate();
}

std::wstring Win32TextView::Text() const { return WindowText(); }

void Win32TextView::Show() {
  std::wstring text;
  std::vector<LONG> ends;
  int step = 0;
  for (const Paragraph& paragraph : paragraphs_) {
    if (!text.empty()) text += L'\r';
    if (paragraph.kind == ParagraphKind::Step) text += Decimal(++step) + L"." + kGap;
    text += paragraph.text;
    ends.push_back(static_cast<LONG>(text.size()));
  }
  CHARFORMAT2W letters{};
  letters.cbSize = sizeof letters;
  Send(EM_GETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&letters));
  Send(WM_SETREDRAW, FALSE);
  SetWindowTextW(Window(), text.c_str());
  LONG start = 0;
  for (size_t i = 0; i < paragraphs_.size(); ++i) {
    Format(paragraphs_[i].kind, start, ends[i], letters.yHeight);
    start = ends[i] + 1;
  }
  Send(EM_SETSEL, 0, 0);
  Send(WM_SETREDRAW, TRUE);
  RedrawWindow(Window(), nullptr, nullptr, RDW_ERASE | RDW_FRAME | RDW_INVALIDATE);
}

void Win32TextView::Format(ParagraphKind kind, LONG start, LONG end, LONG em) const {
  const bool isTitle = kind == ParagraphKind::Title;
  const bool isHeading = kind == ParagraphKind::Heading;
  CHARRANGE range{start, end};
  Send(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
  CHARFORMAT2W letters{};
  letters.cbSize = sizeof letters;
  letters.dwMask = CFM_BOLD | CFM_SIZE;
  letters.dwEffects = isTitle || isHeading ? CFE_BOLD : 0;
  letters.yHeight = isTitle ? em * 7 / 6 : em;
  Send(EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&letters));
  PARAFORMAT2 paragraph{};
  paragraph.cbSize = sizeof paragraph;
  paragraph.dwMask = PFM_STARTINDENT | PFM_RIGHTINDENT | PFM_OFFSET | PFM_SPACEBEFORE;
  paragraph.dxStartIndent = paragraph.dxRightIndent = em * 2 / 3;
  paragraph.dySpaceBefore = isTitle ? em / 2 : isHeading ? em : em / 3;
  // From the second line on, a step begins where its text does.
  if (kind == ParagraphKind::Step)
    paragraph.dxOffset = font_->TextWidth(std::wstring(L"0.") + kGap) * em / font_->LetterHeight();
  Send(EM_SETPARAFORMAT, 0, reinterpret_cast<LPARAM>(&paragraph));
}

void Win32TextView::CopySelection() const {
  CHARRANGE range{};
  Send(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
  if (range.cpMax <= range.cpMin) return;
  std::wstring selected(static_cast<size_t>(range.cpMax - range.cpMin) + 1, L'\0');
  selected.resize(static_cast<size_t>(Send(EM_GETSELTEXT, 0, reinterpret_cast<LPARAM>(selected.data()))));
  std::wstring text;
  for (const wchar_t letter : selected) {
    text += letter == kGap[0] ? L' ' : letter;
    if (letter == L'\r') text += L'\n';
  }
  MakeClipboard(reinterpret_cast<std::intptr_t>(form_.Window()))->SetText(text);
}

LRESULT Win32TextView::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  // A rich edit window does not remember its font.
  if (message == WM_GETFONT) return reinterpret_cast<LRESULT>(font_->Handle());
  if (!IsCopy(message, wParam)) return CallOriginal(message, wParam, lParam);
  // As plain text: pasted into a message, the window's font would look odd.
  RunHandler(form_, [this] { CopySelection(); });
  return 0;
}

}  // namespace tarvik::ui
