#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tarvik::ui {

/// A kind of file that can be chosen in a save dialog.
struct FileKind {
  std::wstring name;       ///< "HTML (*.html)"
  std::wstring extension;  ///< "html"
};

/// What a save dialog shows at first.
struct SavePrompt {
  std::wstring folder;  ///< empty = where Windows thinks best
  std::wstring name;    ///< of the file, with the extension of the first kind
  std::vector<FileKind> kinds;
};

/// What the user chose in it.
struct SavePlace {
  std::wstring path;  ///< full path, as the user left it: it may lack an extension
  size_t kind = 0;    ///< index of the kind that is shown
};

}  // namespace tarvik::ui
