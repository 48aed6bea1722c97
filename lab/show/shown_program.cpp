#include "lab/show/shown_program.h"

#include <algorithm>
#include <filesystem>
#include <iostream>

#include "app/control_ids.h"
#include "lab/pc/main_window.h"
#include "lab/pc/program.h"

namespace tarvik::lab {
namespace {

constexpr std::chrono::seconds kLadderTimeOut(90);

/// Aligns the lines of a message box with its first one.
std::string Indented(std::string text) {
  for (size_t at = 0; (at = text.find('\n', at)) != std::string::npos; at += 6) text.insert(at + 1, "     ");
  return text;
}

}  // namespace

// Absolute because vsftpd's script changes its working directory.
std::string ShownProgram::CacheFolder() const {
  return (std::filesystem::absolute(output).parent_path() / "cache").string();
}

WindowsPc::Options ShownProgram::PcOptions() const {
  WindowsPc::Options options;
  options.driver = driver;
  options.cacheFolder = CacheFolder();
  options.programPath = bench;
  options.onUsersScreen = true;
  return options;
}

bool Show(WindowsPc& pc, const ShownProgram& shown, const ShownRun& run) {
  std::cout << "\n== " << run.title << std::endl;
  ProgramUnderTest program(pc, shown.program, run.commandLine);
  Lines boxes;
  Listener listener;
  listener.onLine = [](const std::string& line) { std::cout << "    " << line << std::endl; };
  listener.onBox = [&boxes](const BoxUnderTest& box) {
    std::cout << "    [" << Indented(box.text) << "]" << std::endl;
    boxes.push_back(box.text);
  };
  const WindowUnderTest window = WaitForMainWindow(program, listener);
  Lines lines;
  if (run.commandLine.empty()) {
    lines = window.Lines(ID_lstResult);
    for (const std::string& line : lines) listener.onLine(line);
  } else {
    lines = FollowRun(program, window, kLadderTimeOut, listener);
  }
  const std::string file = shown.output + "/" + run.screenshot + ".png";
  pc.Screen().Screenshot(file, window.Rect(0));
  window.Close();
  program.WaitForEnd();
  lines.insert(lines.end(), boxes.begin(), boxes.end());
  const std::string fault = run.check(lines);
  std::cout << (fault.empty() ? "PASS  " : "FAIL  ") << run.title << (fault.empty() ? "" : ": " + fault)
            << "  (" << file << ")" << std::endl;
  return fault.empty();
}

std::function<std::string(const Lines&)> Expecting(const std::vector<std::string>& parts) {
  return [parts](const Lines& lines) -> std::string {
    for (const std::string& part : parts) {
      const auto has = [&part](const std::string& line) { return line.find(part) != std::string::npos; };
      if (std::none_of(lines.begin(), lines.end(), has)) return "no line contains \"" + part + "\"";
    }
    return {};
  };
}

}  // namespace tarvik::lab
