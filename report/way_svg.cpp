// Draws the way as SVG. Every state has a sign, a word or a dash besides its colour, for a printer without
// colours and for eyes that do not tell them apart.

#include <algorithm>
#include <initializer_list>
#include <utility>

#include "platform/text.h"
#include "report/report_text.h"
#include "report/way.h"

namespace tarvik::report {
namespace {

// In units of the picture, about one pixel each.
constexpr int kBoxWidth = 160;
constexpr int kBoxHeight = 64;
constexpr int kServiceHeight = 44;
constexpr int kLinkLength = 110;
/// From the controller to where the links of its services part.
constexpr int kBranchLength = 14;
constexpr int kRowHeight = 60;
constexpr int kLineHeight = 17;
constexpr int kMargin = 4;

constexpr const char* kStateClasses[] = {"unknown", "good", "doubt", "fail"};
constexpr const wchar_t* kStateSigns[] = {L"?", L"", L"!", L"\u00D7"};

class SvgPen {
 public:
  explicit SvgPen(std::string& out) : out_(out) {}

  void Start(const char* tag, const char* kind,
             std::initializer_list<std::pair<const char*, int>> attributes) {
    out_.append("<").append(tag).append(" class=\"").append(kind).append("\"");
    for (const auto& [name, value] : attributes)
      out_.append(" ").append(name).append("=\"").append(NarrowAscii(Decimal(value))).append("\"");
    out_ += ">";
  }
  void Words(int x, int y, const char* kind, std::wstring_view text) {
    if (text.empty()) return;
    Start("text", kind, {{"x", x}, {"y", y}});
    AppendUtf8(out_, text, true, " ");
    out_ += "</text>";
  }

  void Box(const WayNode& node, int x, int centre, int height) {
    Start("rect", node.known ? "known" : "unknown",
          {{"x", x}, {"y", centre - height / 2}, {"width", kBoxWidth}, {"height", height}, {"rx", 6}});
    out_ += "</rect>";
    const int middle = x + kBoxWidth / 2;
    int y = centre - static_cast<int>(node.facts.size()) * kLineHeight / 2 + 5;
    Words(middle, y, "name", node.known ? node.name : node.name + L" ?");
    for (const std::wstring& fact : node.facts) Words(middle, y += kLineHeight, "fact", fact);
  }

  void Line(const char* kind, int fromX, int fromY, int toX, int toY) {
    Start("line", kind, {{"x1", fromX}, {"y1", fromY}, {"x2", toX}, {"y2", toY}});
    out_ += "</line>";
  }

  void Link(const WayNode& node, int fromX, int toX, int y) {
    const auto state = static_cast<size_t>(node.link);
    Line(kStateClasses[state], fromX, y, toX, y);
    const int middle = (fromX + toX) / 2;
    Words(middle, y + 7, "sign", kStateSigns[state]);
    Words(middle, y - 12, "word", node.word);
  }

 private:
  std::string& out_;
};

}  // namespace

void AppendWaySvg(std::string& out, const Way& way, std::wstring_view alternative) {
  constexpr int kStep = kBoxWidth + kLinkLength;
  const int nodes = static_cast<int>(way.nodes.size());
  const int rows = std::max(static_cast<int>(way.services.size()), 2);
  const int centre = kMargin + rows * kRowHeight / 2;
  out.append("<svg role=\"img\" viewBox=\"0 0 ")
      .append(NarrowAscii(Decimal(nodes * kStep + kBoxWidth + 2 * kMargin)))
      .append(" ")
      .append(NarrowAscii(Decimal(rows * kRowHeight + 2 * kMargin)))
      .append("\"><title>");
  AppendUtf8(out, alternative, true, "; ");
  out += "</title>";
  SvgPen pen(out);
  int x = kMargin;
  for (const WayNode& node : way.nodes) {
    if (x > kMargin) pen.Link(node, x - kLinkLength, x, centre);
    pen.Box(node, x, centre, kBoxHeight);
    x += kStep;
  }
  const int half = (static_cast<int>(way.services.size()) - 1) * kRowHeight / 2;
  const int branch = x - kLinkLength + kBranchLength;
  const bool unknown =
      std::ranges::all_of(way.services, [](const WayNode& node) { return node.link == LinkState::Unknown; });
  const char* const kind = unknown ? "unknown" : "branch";
  pen.Line(kind, x - kLinkLength, centre, branch, centre);
  pen.Line(kind, branch, centre - half, branch, centre + half);
  int y = centre - half;
  for (const WayNode& node : way.services) {
    pen.Link(node, branch, x, y);
    pen.Box(node, x, y, kServiceHeight);
    y += kRowHeight;
  }
  out += "</svg>\n";
}

}  // namespace tarvik::report
