// The bench's K7 server. Runs as the Windows service "K7Server" or, with -debug, as an ordinary program until
// it is killed. Reads K7Server.scenario in its own folder; without that file every unit is live.

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "bench/call_log_win32.h"
#include "bench/k7_server.h"
#include "bench/scenario_text.h"
#include "bench/sockets.h"

namespace tarvik::bench {
namespace {

constexpr int64_t kPollIntervalMs = 100;
char kServiceName[] = "K7Server";

K7Scenario OwnScenario() {
  char path[MAX_PATH];
  std::string name(path, ::GetModuleFileNameA(nullptr, path, sizeof path));
  name = name.substr(0, name.rfind('.')) + ".scenario";
  std::ifstream file(name, std::ios::binary);
  return ReadK7Scenario(std::string(std::istreambuf_iterator<char>(file), {}));
}

/// The server and its socket. Throws ScenarioError when the scenario is invalid or the port is in use.
struct ListeningServer {
  K7Server server{OwnScenario()};
  Socket socket = Socket::BindUdp({0, server.Scenario().port});

  ListeningServer() {
    if (!socket.IsOpen()) {
      throw ScenarioError("cannot listen on UDP port " + std::to_string(server.Scenario().port));
    }
  }
};

int RunAsProgram() {
  try {
    ListeningServer listening;
    std::printf("listening on UDP port %d\n", listening.socket.Port());
    std::fflush(stdout);
    while (true) ServeK7(listening.server, listening.socket, kPollIntervalMs);
  } catch (const ScenarioError& error) {
    std::printf("%s\n", error.what());
    return 1;
  }
}

/// Reports the state to the service control manager and handles its requests.
class Service {
 public:
  void Run() {
    handle_ = ::RegisterServiceCtrlHandlerExA(kServiceName, Handle, this);
    if (handle_ == nullptr) return;
    stopRequest_ = ::CreateEventA(nullptr, TRUE, FALSE, nullptr);
    try {
      Serve();
      Report(SERVICE_STOPPED, NO_ERROR);
    } catch (const ScenarioError&) {
      Report(SERVICE_STOPPED, ERROR_SERVICE_SPECIFIC_ERROR);
    }
  }

 private:
  static DWORD WINAPI Handle(DWORD control, DWORD, void*, void* self);

  void Serve();
  void Report(DWORD state, DWORD exitCode = NO_ERROR);
  /// Keeps reporting a pending state: without progress the manager assumes that the service hangs.
  void StayPending(DWORD state, int32_t milliseconds);
  bool StopRequested() const { return ::WaitForSingleObject(stopRequest_, 0) == WAIT_OBJECT_0; }

  SERVICE_STATUS_HANDLE handle_ = nullptr;
  HANDLE stopRequest_ = nullptr;
  DWORD acceptedControls_ = 0;
  DWORD checkPoint_ = 0;
};

void Service::Report(DWORD state, DWORD exitCode) {
  SERVICE_STATUS status{};
  status.dwServiceType = SERVICE_WIN32_OWN_PROCESS;
  status.dwCurrentState = state;
  status.dwWin32ExitCode = exitCode;
  status.dwServiceSpecificExitCode = exitCode == NO_ERROR ? 0 : 1;
  if (state == SERVICE_RUNNING) status.dwControlsAccepted = acceptedControls_;
  if (state == SERVICE_START_PENDING || state == SERVICE_STOP_PENDING) {
    status.dwCheckPoint = ++checkPoint_;
    status.dwWaitHint = 3000;
  }
  ::SetServiceStatus(handle_, &status);
}

void Service::StayPending(DWORD state, int32_t milliseconds) {
  const int64_t deadline = MonotonicMs() + milliseconds;
  do {
    Report(state);
    ::Sleep(static_cast<DWORD>(kPollIntervalMs));
  } while (MonotonicMs() < deadline);
}

void Service::Serve() {
  Report(SERVICE_START_PENDING);
  ListeningServer listening;
  const K7Scenario& scenario = listening.server.Scenario();
  acceptedControls_ = scenario.stop == K7Scenario::Stop::Refused ? 0 : SERVICE_ACCEPT_STOP;
  while (scenario.neverStarts) StayPending(SERVICE_START_PENDING, 1000);
  if (scenario.startPendingMs > 0) StayPending(SERVICE_START_PENDING, scenario.startPendingMs);
  Report(SERVICE_RUNNING);
  while (!StopRequested() || scenario.stop == K7Scenario::Stop::Ignored) {
    ServeK7(listening.server, listening.socket, kPollIntervalMs);
  }
  if (scenario.stopPendingMs > 0) StayPending(SERVICE_STOP_PENDING, scenario.stopPendingMs);
}

DWORD WINAPI Service::Handle(DWORD control, DWORD, void*, void* self) {
  if (control == SERVICE_CONTROL_STOP) ::SetEvent(static_cast<Service*>(self)->stopRequest_);
  return control == SERVICE_CONTROL_STOP || control == SERVICE_CONTROL_INTERROGATE
             ? NO_ERROR
             : ERROR_CALL_NOT_IMPLEMENTED;
}

void WINAPI ServiceMain(DWORD, char**) {
  static Service service;
  service.Run();
}

int Run(int count, char** arguments) {
  std::string commandLine = "K7Server";
  for (int i = 1; i < count; ++i) commandLine += std::string(" ") + arguments[i];
  LogCall(commandLine);
  StartNetwork();
  if (count == 2 && std::string(arguments[1]) == "-debug") return RunAsProgram();
  const SERVICE_TABLE_ENTRYA services[] = {{kServiceName, ServiceMain}, {nullptr, nullptr}};
  if (count == 1 && ::StartServiceCtrlDispatcherA(services)) return 0;
  std::printf("K7Server -debug\nWithout -debug it must be started by the service control manager.\n");
  return 2;
}

}  // namespace
}  // namespace tarvik::bench

int main(int count, char** arguments) { return tarvik::bench::Run(count, arguments); }
