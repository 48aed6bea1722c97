#include "lab/windows_check/html_report.h"

#include <algorithm>

namespace tarvik::check {
namespace {

constexpr char kHead[] = R"(<!DOCTYPE html>
<html lang="en"><head><meta charset="utf-8"><title>Windows check</title>
<style>
body { font: 15px/1.4 "Segoe UI", sans-serif; max-width: 60em; margin: 2em auto; padding: 0 1em; }
table { border-collapse: collapse; width: 100%; }
td { border-top: 1px solid #ccc; padding: .4em .6em .4em 0; vertical-align: top; }
pre { white-space: pre-wrap; overflow-wrap: anywhere; margin: .2em 0; color: #444; }
img { max-width: 100%; border: 1px solid #ccc; }
.pass { color: #176b2c; } .fail { color: #b00020; font-weight: bold; } .observed { color: #555; }
</style></head><body>
)";

const char* Name(Verdict verdict) {
  switch (verdict) {
    case Verdict::Pass:
      return "pass";
    case Verdict::Fail:
      return "fail";
    case Verdict::Observed:
      break;
  }
  return "observed";
}

std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char character : text) {
    switch (character) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      default:
        escaped += character;
    }
  }
  return escaped;
}

/// A JSON string. "<" is escaped too, because the JSON is inside an HTML element.
std::string Quoted(const std::string& text) {
  constexpr char kHex[] = "0123456789abcdef";
  std::string quoted = "\"";
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    if (character == '"' || character == '\\') {
      quoted += '\\';
      quoted += character;
    } else if (character == '\n') {
      quoted += "\\n";
    } else if (byte < 0x20 || character == '<') {
      quoted += "\\u00";
      quoted += kHex[byte >> 4];
      quoted += kHex[byte & 15];
    } else {
      quoted += character;
    }
  }
  return quoted + '"';
}

std::string Base64(const std::string& bytes) {
  constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  for (size_t i = 0; i < bytes.size(); i += 3) {
    unsigned group = 0;
    for (size_t j = i; j < i + 3; ++j)
      group = group << 8 | (j < bytes.size() ? static_cast<unsigned char>(bytes[j]) : 0U);
    for (int shift = 18; shift >= 0; shift -= 6) text += kDigits[group >> shift & 63];
  }
  const size_t missing = (3 - bytes.size() % 3) % 3;
  text.replace(text.size() - missing, missing, missing, '=');
  return text;
}

std::string Section(const Item& item) { return item.id.substr(0, item.id.find('.')); }

std::string Row(const Item& item, const Mask& mask) {
  const std::string verdict = Name(item.verdict);
  std::string row = "<tr><td class=\"" + verdict + "\">" + verdict + "</td><td>" +
                    Escaped(mask.Apply(item.title)) + " <small>" + Escaped(item.id) + "</small>";
  if (!item.details.empty()) row += "<pre>" + Escaped(mask.Apply(item.details)) + "</pre>";
  if (!item.pictureBmpOrPng.empty()) {
    const char* const type = item.pictureBmpOrPng.compare(0, 2, "BM") == 0 ? "bmp" : "png";
    row.append("<p><img alt=\"\" src=\"data:image/").append(type).append(";base64,");
    row += Base64(item.pictureBmpOrPng) + "\"></p>";
  }
  return row + "</td></tr>\n";
}

}  // namespace

std::string HtmlReport(const std::vector<Item>& items, const Mask& mask, const std::string& heading) {
  const auto count = [&items](Verdict verdict) {
    const auto found = std::count_if(items.begin(), items.end(),
                                     [verdict](const Item& item) { return item.verdict == verdict; });
    return std::to_string(found) + " " + Name(verdict);
  };
  std::string html = kHead;
  html += "<h1>Windows check</h1>\n<p>" + Escaped(heading) + "</p>\n<p>" + count(Verdict::Pass) + ", " +
          count(Verdict::Fail) + ", " + count(Verdict::Observed) + "</p>\n<table>\n";
  std::string section;
  for (const Item& item : items) {
    if (Section(item) != section) {
      section = Section(item);
      html += "</table>\n<h2>" + Escaped(section) + "</h2>\n<table>\n";
    }
    html += Row(item, mask);
  }
  html += "</table>\n<script type=\"application/json\">[\n";
  for (const Item& item : items) {
    html += "{\"id\":" + Quoted(item.id) + ",\"verdict\":" + Quoted(Name(item.verdict)) +
            ",\"title\":" + Quoted(mask.Apply(item.title)) +
            ",\"details\":" + Quoted(mask.Apply(item.details)) + (&item == &items.back() ? "}\n" : "},\n");
  }
  return html + "]</script>\n</body></html>\n";
}

}  // namespace tarvik::check
