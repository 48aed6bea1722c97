#pragma once

#include <string_view>

namespace tarvik::lab {

/// The last chapter of the page of faults: what a real Windows PC does and the laboratory cannot show.
/// tests/unit/net/windows_answers_test.cpp and tests/unit/ftp/windows_answers_test.cpp have its lines.
inline constexpr std::string_view kWindowsChapter = R"(
## What differs on Windows

### The Windows Firewall

**Allow Tarvik**, as Administrator. Right-click "Command Prompt", choose "Run as administrator", and enter these two
lines with the path of your Tarvik.exe. The first deletes every old rule for Tarvik, the second allows it:

```text
netsh advfirewall firewall delete rule name=all dir=in program="C:\Tarvik\Tarvik.exe"
netsh advfirewall firewall add rule name="Tarvik" dir=in action=allow protocol=TCP program="C:\Tarvik\Tarvik.exe"
```

The first line reports "No rules match the specified criteria." when there is no old rule. That is fine.

The same without a command line:

1. Press the Windows key, type `wf.msc`, press Enter, and choose "Inbound Rules".
2. Delete every rule whose program is your Tarvik.exe and whose action is "Block".
3. Choose "New Rule...", "Program", the path of Tarvik.exe, "Allow the connection", and all three profiles.

Then run the FTP test again. If it still fails, the PC may be managed by your company, which can ignore local rules.
Ask whoever manages it. A firewall between the PC and the controller has the same effect.

**Why:** Tarvik uses active FTP. It connects to port 21 of the server and logs in. For the listing, the server connects
back to the PC, often from its port 20. The Windows Firewall drops incoming connections without a rule, so that the
login works and the listing does not come.

Windows can recognise these connections by itself ("stateful FTP"). An administrator can switch it off, and it does not
recognise every server.

**Old rules:** The first time, Windows may ask whether Tarvik may communicate. Somebody who answers "Cancel" or "No"
creates rules that block Tarvik. For a user who is no Administrator, Windows usually creates them without a question.
Such a rule wins over any rule that allows Tarvik, and Windows does not ask again. Therefore delete it first.

### How long Tarvik waits for an FTP server

Windows decides it, and the window does not react meanwhile. Microsoft documents 30 seconds for an answer that does not
come.

When a server announces the listing and the data connection then never opens, the laboratory's library waits forever.
Windows ends the wait with an error. Tarvik shows that as an empty listing:

```text
230 Login successful.
257 "/" is the current directory

Name                                     Size
---------------------------------------------
150 Here comes the directory listing.
```

Any last line that does not begin with 226 or 250 means that the listing is not complete.

### A dead host on the PC's own subnet

The PC asks the subnet for the host first. When nobody answers, Windows may report that itself, in place of
"ICMP_Error:11010":

```text
0001 Reply From 192.168.1.100: Destination Host Unreachable
```

The address is the one that you test, but the report comes from your own PC. Tarvik counts it as an answer, so the
ladder continues. Then the CNC library or the FTP test is the first that fails. Only a line with "bytes=" is the host's
answer.

The same holds for a dead gateway.

### The PC's own cable on Windows

Windows reports a card without a cable in one of four ways. Here the target is 192.168.1.100 on the PC's own subnet:

| Windows reports | Tarvik shows last |
|---|---|
| no card, or a card without an address | `Subnet mask is not specified` |
| address 0.0.0.0, mask 0.0.0.0 | `Subnet mask is not specified` |
| address 169.254.x.x, mask 255.255.0.0 | `Default Gateway is required but not specified` |
| the card's own address, as with a cable | `Please check Target's address, cable and power` |

An address 169.254.x.x means that the PC expects its address from a server and got no answer. It appears after
"  Local      :". With a cable, there is no such server on this network: set the address by hand.

In the last case the ping's line may be "ICMP_Error:11010", another number, or "General Failure". "General Failure"
counts as an answer, so the ladder continues.

### A proxy for FTP

Tarvik uses the proxy settings of Windows. A web proxy cannot pass on an FTP login. If one is set for FTP, the
listing is empty and the server's replies are missing:

```text
FTP Connect test...


Name                                     Size
---------------------------------------------

```

Depending on the version of Windows, it shows "Cannot connect ..." instead. In "Internet Options", "Connections", "LAN
settings", add the controller's address to the exceptions of the proxy, or switch the proxy off for the test.

### Copying the lines

A double-click on the list copies all lines. When another program keeps the clipboard open for longer than a second,
Tarvik shows this box and copies nothing:

```text
[ Message box: The clipboard is in use by another program. Try again. ]
```

Double-click again. If it happens each time, close programs that watch the clipboard, such as clipboard managers and
remote desktops.
)";

}  // namespace tarvik::lab
