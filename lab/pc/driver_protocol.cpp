#include "lab/pc/driver_protocol.h"

namespace tarvik::lab {

std::string JoinFields(const std::vector<std::string>& fields) {
  std::string line;
  bool first = true;
  for (const std::string& field : fields) {
    if (!first) line += '\t';
    first = false;
    for (const char character : field) {
      switch (character) {
        case '\t':
          line += "\\t";
          break;
        case '\r':
          line += "\\r";
          break;
        case '\n':
          line += "\\n";
          break;
        case '\\':
          line += "\\\\";
          break;
        default:
          line += character;
      }
    }
  }
  return line;
}

std::vector<std::string> SplitFields(std::string_view line) {
  std::vector<std::string> fields(1);
  for (size_t i = 0; i < line.size(); ++i) {
    const char character = line[i];
    if (character == '\t') {
      fields.emplace_back();
      continue;
    }
    const char next = i + 1 < line.size() ? line[i + 1] : '\0';
    if (character != '\\' || (next != 't' && next != 'r' && next != 'n' && next != '\\')) {
      fields.back() += character;
      continue;
    }
    fields.back() += next == 't' ? '\t' : next == 'r' ? '\r' : next == 'n' ? '\n' : '\\';
    ++i;
  }
  return fields;
}

}  // namespace tarvik::lab
