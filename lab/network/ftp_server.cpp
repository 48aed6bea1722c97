// The FTP servers' configurations and scripts. All run as root inside a host's network namespace; vsftpd also
// gets a private view of a few system files.

#include "lab/network/ftp_server.h"

#include <filesystem>
#include <fstream>

#include "lab/host/own_network.h"

namespace tarvik::lab {
namespace {

// $1 = the temporary directory, $2 = the password hash, $3 = YES when data connections come from port 20. "ip
// netns exec" also makes a mount namespace, so that these mounts do not change the machine's users. The
// folder is served from /mnt, which every user may enter.
constexpr char kVsftpd[] = R"(
set -e
cd "$1"
cat >passwd <<END
root:x:0:0::/root:/bin/sh
nobody:x:65534:65534::/:/bin/sh
ftp:x:65533:65534::/mnt:/bin/sh
cnc:x:65532:65534::/mnt:/bin/sh
END
printf 'cnc:%s:19000:0:99999:7:::\n' "$2" >shadow
printf 'auth required pam_unix.so\naccount required pam_unix.so\nsession required pam_permit.so\n' >pam
cat >conf <<END
listen=YES
background=NO
anonymous_enable=YES
local_enable=YES
write_enable=YES
local_umask=022
anon_root=/mnt
local_root=/mnt
pasv_enable=NO
connect_from_port_20=$3
ftpd_banner=The controller is ready
secure_chroot_dir=$1/empty
pam_service_name=vsftpd
seccomp_sandbox=NO
isolate=NO
isolate_network=NO
END
mkdir empty
chown 65532:65532 files
mount --bind passwd /etc/passwd
mount --bind shadow /etc/shadow
mount --bind pam /etc/pam.d/vsftpd
mount --bind files /mnt
# It writes errors to standard input: under inetd that would be the connection.
exec vsftpd "$1/conf" <&1
)";

// crypt(3) of the password.
constexpr char kPasswordHash[] =
    "$6$tarvik$9XspvMFulup7FqKo/.it6n0uQ2C.0rRmKE3cMrs/h/6iXSYPOSz3CKELqsCd5zAXrSQGiV8Nr0uLe7BCdhNSu1";

// Debian's pyftpdlib belongs to Debian's interpreter, which need not be the first in PATH.
constexpr char kPython[] = "/usr/bin/python3";

// File names are bytes in any code page and are sent unchanged.
constexpr char kPyftpdlib[] = R"(
import sys
from pyftpdlib.authorizers import DummyAuthorizer
from pyftpdlib.handlers import FTPHandler
from pyftpdlib.servers import FTPServer

class Handler(FTPHandler):
    banner = "The controller is ready"
    unicode_errors = "surrogateescape"
    authorizer = DummyAuthorizer()
    proto_cmds = {verb: what for verb, what in FTPHandler.proto_cmds.items() if verb not in ("PASV", "EPSV")}

Handler.authorizer.add_user(sys.argv[2], sys.argv[3], sys.argv[1], perm="elradfmw")
Handler.authorizer.add_anonymous(sys.argv[1])
FTPServer(("0.0.0.0", 21), Handler).serve_forever()
)";

constexpr char kFaulty[] = R"(
import socket, sys, time
kind, _, value = sys.argv[1].partition(" ")
ANSWERS = {"USER": "331 password?", "PASS": "230 logged in", "PWD": "257 \"/\"", "QUIT": "221 bye",
           "LIST": "150 listing"}
listener = socket.create_server(("0.0.0.0", 21))
while True:
    client, _ = listener.accept()
    if kind == "silent":
        time.sleep(600)
    if kind == "greeting":
        try:
            client.sendall(b"220 " + b"x" * int(value))
        except OSError:
            pass
        client.close()
        continue
    if kind == "says":
        client.sendall(value.encode() + b"\r\n")
        client.close()
        continue
    client.sendall(b"220 ready\r\n")
    for line in client.makefile("r", encoding="latin-1"):
        verb = line.split()[0].upper()
        if verb == value and verb != "LIST":
            break
        if verb == "PORT":
            numbers = line.split()[1].split(",")
            target = (".".join(numbers[:4]), int(numbers[4]) * 256 + int(numbers[5]))
        answered, _, answer = value.partition(" ")
        if kind == "answers" and verb == answered:
            client.sendall((answer + "\r\n").encode())
            continue
        client.sendall((ANSWERS.get(verb, "200 ok") + "\r\n").encode())
        if verb == "LIST":
            with socket.create_connection(target) as data:
                data.sendall(b"-rw-r--r-- 1 0 0 3 Jan 01 00:00 a.txt\r\n-rw-r--r-- 1 0")
        if verb in (value, "QUIT"):
            break
    client.shutdown(socket.SHUT_RDWR)
    client.close()
)";

std::unique_ptr<Process> StartIn(const Laboratory& net, Host host, const std::vector<std::string>& program) {
  Process::Options options;
  options.errorsWithOutput = true;
  auto process = std::make_unique<Process>(InNamespace(net.Namespace(host), program), options);
  const auto listeners = InNamespace(net.Namespace(host), {"ss", "-Hltn", "sport = :21"});
  const bool listening = WaitUntil(std::chrono::seconds(30), [&] {
    if (process->Wait(milliseconds(0)))
      throw LabError("The FTP server has ended: " + process->ReadAll(milliseconds(1000)));
    return !Run(listeners).output.empty();
  });
  if (!listening) throw LabError("The FTP server does not listen");
  return process;
}

}  // namespace

std::optional<std::string> FtpServer::UnsupportedReason(Product product) {
  const std::vector<std::string> command = product == Product::Vsftpd
                                               ? std::vector<std::string>{"sh", "-c", "command -v vsftpd"}
                                               : std::vector<std::string>{kPython, "-c", "import pyftpdlib"};
  if (Run(command).exitCode == 0) return std::nullopt;
  return product == Product::Vsftpd ? "vsftpd is not installed" : "python3-pyftpdlib is not installed";
}

FtpServer::FtpServer(const Laboratory& net, Host host, Product product, const std::string& cacheFolder,
                     DataPort dataPort)
    : work_(cacheFolder), files_(work_.Path() + "/files") {
  std::filesystem::create_directory(files_);
  if (product == Product::Vsftpd)
    process_ = StartIn(net, host,
                       {"sh", "-c", kVsftpd, "sh", work_.Path(), kPasswordHash,
                        dataPort == DataPort::Twenty ? "YES" : "NO"});
  else
    process_ = StartIn(net, host, {kPython, "-X", "utf8", "-c", kPyftpdlib, files_, kFtpUser, kFtpPassword});
}

void FtpServer::AddDirectory(const std::string& name) const {
  if (!std::filesystem::create_directory(files_ + "/" + name))
    throw LabError("Cannot create a directory to serve");
}

void FtpServer::AddFile(const std::string& name, size_t bytes) const {
  std::ofstream stream(files_ + "/" + name, std::ios::binary);
  stream << std::string(bytes, 'x');
  if (!stream.flush()) throw LabError("Cannot write a file to serve");
}

FaultyFtpServer::FaultyFtpServer(const Laboratory& net, Host host, const std::string& fault)
    : process_(StartIn(net, host, {kPython, "-c", kFaulty, fault})) {}

}  // namespace tarvik::lab
