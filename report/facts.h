#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "report/pc_card.h"

namespace tarvik::report {

/// How far a rung has come.
enum class Progress {
  NotStarted,
  Running,
  Ended,   ///< with a verdict
  Stopped  ///< by the user, without a verdict
};

/// One echo request. Times are in milliseconds.
struct Echo {
  bool replied = false;      ///< a reply record arrived, whatever its status
  uint32_t status = 0;       ///< IP_STATUS code of the reply; 0 = the echo was returned
  uint32_t error = 0;        ///< Windows error code when no record arrived
  uint32_t roundTripMs = 0;  ///< of a returned echo
  std::wstring from;         ///< the replying address, dotted
};

/// The echo requests sent to one address.
struct EchoSeries {
  /// Later echoes are only counted.
  static constexpr size_t kMaxKept = 1000;

  std::wstring address;          ///< to which they were sent, dotted
  int32_t asked = 0;             ///< how many the user asked for
  int32_t sent = 0;              ///< so far
  int32_t answered = 0;          ///< returned by `address` itself
  int32_t elsewhere = 0;         ///< returned by another address
  int32_t refused = 0;           ///< a reply with a status other than 0
  uint32_t slowestMs = 0;        ///< of the answered ones
  uint32_t status = 0;           ///< of the latest refusal
  uint32_t error = 0;            ///< of the latest request without a reply
  bool addressRejected = false;  ///< Windows cannot read the address; nothing was sent
  std::wstring otherSender;      ///< who returned or refused the latest echo that `address` did not answer
  std::vector<Echo> echoes;

  int32_t Replies() const { return answered + elsewhere + refused; }
  /// Counts and keeps one echo. `fromAddress`: its sender is `address`.
  void Add(const Echo& echo, bool fromAddress);
};

/// Rung::Name.
struct NameFacts {
  Progress progress = Progress::NotStarted;
  std::wstring typed;      ///< the target as the user typed it
  bool isAddress = false;  ///< it is a dotted address; nothing was looked up
  std::wstring address;    ///< what it was resolved to; empty = it was not
};

/// One address of the PC, as the Ping check reads them.
struct OwnAddress {
  std::wstring address;
  std::wstring mask;
  std::vector<std::wstring> gateways;
};

/// Rung::Pc: the PC's own addresses and, where Windows reports them, its cards.
struct PcFacts {
  Progress progress = Progress::NotStarted;
  bool configurationRead = false;
  bool hasMask = false;     ///< at least one address has a mask
  bool sameSubnet = false;  ///< the target is on the PC's own subnet
  std::vector<OwnAddress> addresses;
  WayToTarget way;  ///< empty when nobody asked
};

enum class GatewayResult {
  Unknown,
  NotNeeded,  ///< the target is on the PC's own subnet
  NoneConfigured,
  NoneUsable,  ///< every gateway is outside the PC's own subnets
  NoneAnswered,
  Answered  ///< the last one tried replied, perhaps only with a refusal
};

/// Rung::Gateway.
struct GatewayFacts {
  Progress progress = Progress::NotStarted;
  GatewayResult result = GatewayResult::Unknown;
  std::vector<EchoSeries> tried;  ///< one for each gateway, in order
  Neighbour neighbour = Neighbour::Unknown;
};

/// Rung::Target.
struct TargetFacts {
  Progress progress = Progress::NotStarted;
  EchoSeries echoes;
  Neighbour neighbour = Neighbour::Unknown;
};

enum class CncCall { None, Connect, ConnectWithCode, Options, SystemInfo };

/// Rung::CncLibrary.
struct CncFacts {
  Progress progress = Progress::NotStarted;
  bool libraryMissing = false;
  bool addressMissing = false;
  bool codeMissing = false;  ///< the box for the access code is ticked, but no code was typed
  bool codeGiven = false;
  bool optionMissing = false;    ///< the controller reported its options, and the necessary one is not there
  CncCall call = CncCall::None;  ///< the latest call
  int16_t result = 0;            ///< its result; 0 = success
  uint32_t callMs = 0;           ///< how long it took
  int32_t port = 0;
  int32_t timeOutSeconds = 0;
  std::wstring type;        ///< of the controller, as listed
  bool beforePing = false;  ///< the target has been pinged since
  PortAnswer portAnswer = PortAnswer::Unknown;
};

enum class K7Call { None, AllocHandle, ConnectServer, CheckReboot };

/// Rung::K7.
struct K7Facts {
  Progress progress = Progress::NotStarted;
  bool libraryMissing = false;
  bool addressMissing = false;
  bool countInvalid = false;
  std::wstring server;           ///< the K7 Server's host
  K7Call failed = K7Call::None;  ///< the failing call
  int32_t errorCode = 0;         ///< of the library
  int32_t systemError = 0;
  int32_t asked = 0;  ///< how many answers the user asked for
  int32_t answers = 0;
  int32_t live = 0;  ///< how many of them reported that the CNC is live
};

/// Rung::Ftp. Replies are as listed: lines separated by "\r\n".
struct FtpFacts {
  Progress progress = Progress::NotStarted;
  bool libraryMissing = false;
  bool addressMissing = false;
  bool loggedIn = false;
  bool enumerated = false;  ///< at least one entry of the listing arrived
  bool hasUser = false;     ///< a user name was sent
  int32_t entries = 0;      ///< files and directories in the listing
  uint32_t connectMs = 0;
  std::wstring loginReply;      ///< empty: the server never answered
  std::wstring directoryReply;  ///< to the question for the current directory
  std::wstring endReply;        ///< the last one, after the listing
  uint32_t connectError = 0;    ///< Windows error code of a failed connection
  uint32_t listMs = 0;          ///< how long the listing took
  bool beforePing = false;      ///< the target has been pinged since
  PortAnswer portAnswer = PortAnswer::Unknown;
};

/// What the latest test of each rung saw.
struct Facts {
  NameFacts name;
  PcFacts pc;
  GatewayFacts gateway;
  TargetFacts target;
  CncFacts cnc;
  K7Facts k7;
  FtpFacts ftp;

  // Defined in one place, because they are long and several functions need them.
  Facts();
  Facts(const Facts& other);
  Facts& operator=(Facts&& other) noexcept;
  ~Facts();
};

}  // namespace tarvik::report
