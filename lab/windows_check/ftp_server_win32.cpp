#include "lab/windows_check/ftp_server_win32.h"

#include <algorithm>
#include <cstdio>

#include "lab/windows_check/kit_win32.h"

namespace tarvik::check {
namespace {

constexpr u_short kControlPort = 21;
constexpr int kSocketPollMs = 50;
constexpr int kDataTimeOutMs = 5000;
constexpr char kConnected[] = "[control connection open]";
constexpr char kClosed[] = "[control connection closed]";
// Another address only where port 21 of the first is in use.
constexpr u_long kFirstAddress = 0x7F000001;
constexpr u_long kLastAddress = 0x7F000020;

sockaddr_in AddressOf(u_long address, u_short port) {
  sockaddr_in result{};
  result.sin_family = AF_INET;
  result.sin_addr.s_addr = htonl(address);
  result.sin_port = htons(port);
  return result;
}

bool IsReadable(SOCKET socket, int timeOutMs) {
  fd_set set;
  FD_ZERO(&set);
  FD_SET(socket, &set);
  timeval time{timeOutMs / 1000, timeOutMs % 1000 * 1000};
  return ::select(0, &set, nullptr, nullptr, &time) > 0;
}

/// Connects to the address of a PORT command "h1,h2,h3,h4,p1,p2"; INVALID_SOCKET when that fails.
SOCKET ConnectTo(const std::string& target) {
  unsigned parts[6] = {};
  if (std::sscanf(target.c_str(), "%u,%u,%u,%u,%u,%u", &parts[0], &parts[1], &parts[2], &parts[3], &parts[4],
                  &parts[5]) != 6)
    return INVALID_SOCKET;
  const u_long host = parts[0] << 24 | parts[1] << 16 | parts[2] << 8 | parts[3];
  const sockaddr_in address = AddressOf(host, static_cast<u_short>(parts[4] << 8 | parts[5]));
  const SOCKET socket = ::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
  if (socket == INVALID_SOCKET) return socket;
  u_long nonBlocking = 1;
  ::ioctlsocket(socket, static_cast<long>(FIONBIO), &nonBlocking);
  ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address);
  fd_set set;
  FD_ZERO(&set);
  FD_SET(socket, &set);
  timeval time{kDataTimeOutMs / 1000, 0};
  if (::select(0, nullptr, &set, nullptr, &time) > 0) {
    nonBlocking = 0;
    ::ioctlsocket(socket, static_cast<long>(FIONBIO), &nonBlocking);
    return socket;
  }
  ::closesocket(socket);
  return INVALID_SOCKET;
}

}  // namespace

/// One control connection, served by its own thread.
class FtpServer::Connection {
 public:
  Connection(FtpServer& server, SOCKET socket) : server_(server), socket_(socket) {}
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  ~Connection() { ::closesocket(socket_); }

  /// Returns when the PC or the server ends the connection.
  void Run() {
    Say("220 ready");
    std::string line;
    bool goesOn = true;
    while (goesOn && ReadLine(line)) {
      server_.Record(line, true);
      const size_t end = std::min(line.find(' '), line.size());
      goesOn = Answer(line.substr(0, end), line.substr(std::min(end + 1, line.size())));
    }
    server_.Record(kClosed, false);
  }

 private:
  void Say(const std::string& text) {
    if (server_.behaviour_.silent) return;
    const std::string line = text + "\r\n";
    ::send(socket_, line.data(), static_cast<int>(line.size()), 0);
    server_.Record("[" + text + "]", false);
  }

  /// False when the PC or the server ends the connection.
  bool ReadLine(std::string& line) {
    for (;;) {
      const size_t end = buffer_.find('\n');
      if (end != std::string::npos) {
        line = buffer_.substr(0, end > 0 && buffer_[end - 1] == '\r' ? end - 1 : end);
        buffer_.erase(0, end + 1);
        return true;
      }
      if (!server_.Pause(0)) return false;
      if (!IsReadable(socket_, kSocketPollMs)) continue;
      char bytes[512];
      const int count = ::recv(socket_, bytes, sizeof bytes, 0);
      if (count <= 0) return false;
      buffer_.append(bytes, static_cast<size_t>(count));
    }
  }

  /// False when the connection ends.
  bool Answer(const std::string& verb, const std::string& argument) {
    if (verb == "USER") {
      Say("331 password?");
    } else if (verb == "PASS") {
      Say(server_.behaviour_.login);
    } else if (verb == "PWD" || verb == "XPWD") {
      Say("257 \"/\"");
    } else if (verb == "PORT") {
      target_ = argument;
      Say("200 PORT command successful");
    } else if (verb == "LIST" || verb == "NLST") {
      return List();
    } else if (verb == "SYST") {
      Say("215 UNIX Type: L8");
    } else if (verb == "TYPE" || verb == "NOOP" || verb == "CWD") {
      Say("200 ok");
    } else if (verb == "QUIT") {
      Say("221 bye");
      return false;
    } else {
      Say("502 not implemented");
    }
    return true;
  }

  bool List() {
    const FtpBehaviour& behaviour = server_.behaviour_;
    if (!server_.Pause(behaviour.answerDelayMs)) return false;
    if (!behaviour.list.empty()) Say(behaviour.list);
    if (behaviour.list.empty() || behaviour.list.front() != '1') return true;
    if (behaviour.data == FtpBehaviour::Data::Never) return true;
    if (!server_.Pause(behaviour.dataDelayMs)) return false;
    SendListing(behaviour.data == FtpBehaviour::Data::Cut);
    return true;
  }

  void SendListing(bool cut) {
    const SOCKET data = ConnectTo(target_);
    if (data == INVALID_SOCKET) {
      Say("425 Cannot open the data connection.");
      return;
    }
    server_.Record("[data connection open]", false);
    std::string listing = kFtpListing;
    if (cut) listing.resize(listing.find('\n') + 10);
    ::send(data, listing.data(), static_cast<int>(listing.size()), 0);
    ::closesocket(data);
    Say(cut ? "426 Connection closed; transfer aborted." : "226 Transfer complete.");
  }

  FtpServer& server_;
  SOCKET socket_;
  std::string buffer_;
  std::string target_;  ///< of the latest PORT command
};

FtpServer::FtpServer(FtpBehaviour behaviour)
    : behaviour_(std::move(behaviour)), stop_(::CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
  ::InitializeCriticalSection(&lock_);
  WSADATA data{};
  ::WSAStartup(MAKEWORD(2, 2), &data);
  for (u_long address = kFirstAddress; address <= kLastAddress && listener_ == INVALID_SOCKET; ++address) {
    const SOCKET socket = ::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    // Otherwise another program that listens on all addresses would get the connections.
    const BOOL exclusive = TRUE;
    ::setsockopt(socket, SOL_SOCKET, SO_EXCLUSIVEADDRUSE, reinterpret_cast<const char*>(&exclusive),
                 sizeof exclusive);
    const sockaddr_in name = AddressOf(address, kControlPort);
    if (::bind(socket, reinterpret_cast<const sockaddr*>(&name), sizeof name) == 0 &&
        ::listen(socket, SOMAXCONN) == 0) {
      listener_ = socket;
      address_ = "127.0.0." + std::to_string(address & 0xFF);
    } else {
      ::closesocket(socket);
    }
  }
  if (listener_ != INVALID_SOCKET) thread_ = ::CreateThread(nullptr, 0, Listen, this, 0, nullptr);
  if (thread_ != nullptr) return;
  ::WSACleanup();
  ::DeleteCriticalSection(&lock_);
  ::CloseHandle(stop_);
  throw CheckError("no loopback address has a free port 21");
}

FtpServer::~FtpServer() {
  ::SetEvent(stop_);
  ::WaitForSingleObject(thread_, INFINITE);
  ::CloseHandle(thread_);
  for (const HANDLE connection : connections_) {
    ::WaitForSingleObject(connection, INFINITE);
    ::CloseHandle(connection);
  }
  ::WSACleanup();
  ::DeleteCriticalSection(&lock_);
  ::CloseHandle(stop_);
}

DWORD WINAPI FtpServer::Listen(LPVOID server) {
  static_cast<FtpServer*>(server)->Accept();
  return 0;
}

void FtpServer::Accept() {
  while (Pause(0)) {
    if (!IsReadable(listener_, kSocketPollMs)) continue;
    const SOCKET socket = ::accept(listener_, nullptr, nullptr);
    if (socket == INVALID_SOCKET) continue;
    Record(kConnected, false);
    auto* const connection = new Connection(*this, socket);
    const HANDLE thread = ::CreateThread(nullptr, 0, Serve, connection, 0, nullptr);
    if (thread == nullptr) {
      delete connection;
      continue;
    }
    connections_.push_back(thread);
  }
  ::closesocket(listener_);
}

DWORD WINAPI FtpServer::Serve(LPVOID parameter) {
  auto* const connection = static_cast<Connection*>(parameter);
  connection->Run();
  delete connection;
  return 0;
}

bool FtpServer::Pause(int durationMs) const {
  return ::WaitForSingleObject(stop_, static_cast<DWORD>(durationMs)) == WAIT_TIMEOUT;
}

void FtpServer::Record(const std::string& text, bool isCommand) {
  ::EnterCriticalSection(&lock_);
  const ULONGLONG now = ::GetTickCount64();
  if (firstEvent_ == 0) firstEvent_ = now;
  log_ += std::to_string(now - firstEvent_) + " ms " + text + "\n";
  if (isCommand) commands_.push_back(text);
  if (text == kConnected) ++open_;
  if (text == kClosed) --open_;
  ::LeaveCriticalSection(&lock_);
}

std::string FtpServer::Log() const {
  ::EnterCriticalSection(&lock_);
  std::string log = log_;
  ::LeaveCriticalSection(&lock_);
  return log;
}

std::vector<std::string> FtpServer::Commands() const {
  ::EnterCriticalSection(&lock_);
  std::vector<std::string> commands = commands_;
  ::LeaveCriticalSection(&lock_);
  return commands;
}

int FtpServer::OpenConnections() const {
  ::EnterCriticalSection(&lock_);
  const int open = open_;
  ::LeaveCriticalSection(&lock_);
  return open;
}

}  // namespace tarvik::check
