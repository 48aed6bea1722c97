// Writes the generated pages of docs/:
//
//   guide_pages .

#include <filesystem>
#include <fstream>
#include <iostream>

#include "lab/faults/guide_pages.h"
#include "lab/faults/guide_texts.h"

int main(int count, char** arguments) {
  if (count != 2) {
    std::cerr << "guide_pages SOURCES\n";
    return 2;
  }
  try {
    for (const auto& [name, text] : tarvik::lab::GuidePages(arguments[1])) {
      std::ofstream file(std::filesystem::path(arguments[1]) / "docs" / name, std::ios::binary);
      file << text;
      if (!file.flush()) throw tarvik::lab::GuideError("cannot write " + name);
    }
  } catch (const std::runtime_error& error) {
    std::cerr << error.what() << "\n";
    return 1;
  }
}
