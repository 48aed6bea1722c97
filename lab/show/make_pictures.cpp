// The program that ./pictures starts. Takes the pictures of the guides from the shipped programs on the
// laboratory's network, in both languages.
//
//   make_pictures FAMILY_PROGRAM GENERAL_PROGRAM DRIVER BENCH FOLDER

#include <filesystem>
#include <functional>
#include <iostream>
#include <string>

#include "app/control_ids.h"
#include "lab/host/leftovers.h"
#include "lab/network/controller.h"
#include "lab/network/ftp_server.h"
#include "lab/network/k7_server.h"
#include "lab/network/laboratory.h"
#include "lab/pc/main_window.h"
#include "lab/pc/picture.h"

namespace tarvik::lab {
namespace {

namespace fs = std::filesystem;

constexpr std::chrono::seconds kPictureRunTimeOut(90);
constexpr int kDpi = 96;

struct Tools {
  std::string family, general, driver, bench, folder;

  std::string Cache() const { return fs::absolute("out/cache").string(); }
};

/// Everything that the pictures of one language need.
class Studio {
 public:
  Studio(const Tools& tools, WindowsLanguage language)
      : tools_(tools), language_(language), net_(tools.Cache()) {}

  void MakeAll() {
    {
      WindowsPc pc = MakePc(tools_.bench);
      PrepareForPictures(pc, language_);
      Good(pc);
      Doubtful(pc);
      Failed(pc);
      K7Pages(pc);
      CableOut(pc);
    }
    LibraryMissing();
  }

 private:
  WindowsPc MakePc(const std::string& libraries) {
    WindowsPc::Options options;
    options.driver = tools_.driver;
    options.cacheFolder = tools_.Cache();
    options.programPath = libraries;
    options.networkNamespace = net_.Namespace(Host::Pc);
    return WindowsPc(PictureOptions(options, language_, kDpi));
  }

  void Picture(WindowsPc& pc, const WindowUnderTest& window, const std::string& name) {
    PoseForPicture(window, ID_lstResult);
    const bool japanese = language_ == WindowsLanguage::Japanese;
    const std::string file = tools_.folder + "/" + name + (japanese ? ".ja.png" : ".en.png");
    // Without the frame at the sides and below, whose colours are old. The screen has one colour.
    const ScreenRect client = window.ClientRect(0);
    TakePicture(pc, file, {client.left, 0, client.width, client.top + client.height});
    RunOrThrow({"convert", file, "-trim", "+repage", "-bordercolor", "gray", "-border", "1", "PNG8:" + file});
    std::cout << file << std::endl;
  }

  /// Starts a run and takes its picture, then that of each page in `pages`.
  void Run(WindowsPc& pc, const std::string& commandLine, const std::string& name,
           const std::vector<std::pair<int, std::string>>& pages = {}) {
    ProgramUnderTest program(pc, tools_.family, commandLine);
    const Listener listener{.onBox = [](const BoxUnderTest&) {}};
    const WindowUnderTest window = WaitForMainWindow(program, listener);
    FollowRun(program, window, kPictureRunTimeOut, listener);
    window.SelectTab(ID_tabMode, 0);
    Picture(pc, window, name);
    for (const auto& [tab, page] : pages) {
      window.SelectTab(ID_tabMode, tab);
      Picture(pc, window, page);
    }
    window.Close();
    program.WaitForEnd();
  }

  void Good(WindowsPc& pc) {
    const FtpServer files(net_, Host::Near, FtpServer::Product::Vsftpd, tools_.Cache());
    files.AddDirectory("PROGRAMS");
    files.AddFile("O1000.NC", 12'345);
    files.AddFile("O1001.NC", 678);
    const Controller controller(net_, Host::Near, BenchScenario("all_well"));
    // The bench's code-conversion library reads secrets backwards.
    Run(pc, std::string("-PING_N 4 -X 10 -FTP_USER cnc -FTP_PASSWD terces ") + kNearAddress, "good",
        {{1, "page-nexal2"}, {2, "page-ftp"}});
  }

  void Doubtful(WindowsPc& pc) {
    net_.SetFilter(Host::Near,
                   "table ip lossy {\nchain in {\ntype filter hook input priority 0;\n"
                   "icmp type echo-request numgen inc mod 2 0 drop\n}\n}");
    const Controller controller(net_, Host::Near, BenchScenario("all_well"));
    Run(pc, std::string("-PING_N 4 -X 2 ") + kNearAddress, "doubtful");
    net_.Reset();
  }

  void Failed(WindowsPc& pc) {
    net_.PullCable(Host::Near);
    Run(pc, std::string("-PING_N 4 -X 2 ") + kNearAddress, "failed");
    net_.PlugCable(Host::Near);
  }

  void K7Pages(WindowsPc& pc) {
    const ServicesFile services(pc, {"NORVAX_K7_SERVER  8300/udp"});
    const K7ServerService server(pc, net_, tools_.bench, tools_.Cache(), "", K7ServerService::State::Running);
    ProgramUnderTest program(pc, tools_.general);
    const WindowUnderTest window = WaitForMainWindow(program);
    window.SetText(ID_cmbIPAddr, kNearAddress);
    window.SetText(ID_txtK7ApiTestCount, "3");
    window.SelectTab(ID_tabMode, 2);
    ClickAndFollow(program, window, ID_cmdK7Api, kPictureRunTimeOut);
    Picture(pc, window, "page-k7-api");
    window.SelectTab(ID_tabMode, 3);
    Picture(pc, window, "page-k7-svc");
    window.Close();
    program.WaitForEnd();
  }

  /// Wine reports a card as disconnected only when it is switched off.
  void CableOut(WindowsPc& pc) {
    net_.Ip(Host::Pc, {"link", "set", "eth0", "down"});
    net_.Ip(Host::Pc, {"link", "set", "eth0", "name", "Ethernet"});
    pc.Restart();  // Wine keeps the names of the cards.
    Run(pc, std::string("-PING_N 4 -X 2 ") + kNearAddress, "cable-out");
    net_.Ip(Host::Pc, {"link", "set", "Ethernet", "name", "eth0"});
    net_.Ip(Host::Pc, {"link", "set", "eth0", "up"});
    net_.Reset();
  }

  void LibraryMissing() {
    WindowsPc pc = MakePc({});
    PrepareForPictures(pc, language_);
    const std::string locale = language_ == WindowsLanguage::Japanese ? "1041" : "1033";
    Run(pc, "-LOCALEID " + locale + " -PING_N 4 -X 2 " + kNearAddress, "library-missing");
  }

  const Tools& tools_;
  WindowsLanguage language_;
  Laboratory net_;
};

}  // namespace
}  // namespace tarvik::lab

int main(int count, char** arguments) {
  using namespace tarvik::lab;
  if (count != 6) {
    std::cerr << "make_pictures FAMILY_PROGRAM GENERAL_PROGRAM DRIVER BENCH FOLDER\n";
    return 2;
  }
  const Tools tools{arguments[1], arguments[2], arguments[3], arguments[4], arguments[5]};
  try {
    if (const auto reason = Laboratory::UnsupportedReason())
      throw LabError("cannot create the laboratory: " + *reason);
    RemoveLeftoversWhenThisProcessEnds(tools.Cache());
    std::filesystem::create_directories(tools.folder);
    for (const WindowsLanguage language : {WindowsLanguage::English, WindowsLanguage::Japanese})
      Studio(tools, language).MakeAll();
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "FAIL  " << error.what() << std::endl;
    return 1;
  }
}
