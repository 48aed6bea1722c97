#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvik::bench {

// The TCP protocol between the CNC library's stand-in and the simulated controller. A message is "TB", the
// payload length in two bytes, and the payload; all numbers are little-endian. Each handle has its own
// connection and sends one request at a time.

/// The kinds of request. The values are sent over the wire.
enum class Call : uint8_t { Connect, Options, SystemInfo, PmcRead, PmcDetail };

inline constexpr size_t kCallCount = 5;
inline constexpr size_t kPmcAreaCount = 13;
inline constexpr size_t kMaxPmcBytes = 8001;

/// The controller's own result codes, besides 0. A scenario can add any other.
inline constexpr int16_t kResultAccessCode = 7;
inline constexpr int16_t kResultPmc = -16;

struct Request {
  Call call = Call::Connect;
  std::string accessCode;  ///< Connect; empty = none given
  int16_t areaType = 0;    ///< PmcRead only, like the next three
  int16_t dataType = 0;
  int16_t first = 0;
  int16_t last = 0;
};

/// The body is empty unless the result is 0: the option word, system information, PMC bytes, or error detail.
struct Reply {
  int16_t result = 0;
  std::string body;
};

/// Texts are padded with spaces to their width, or truncated.
struct SystemInformation {
  int16_t addinfo = 0x0200;
  int16_t maxAxes = 32;
  std::string modelType = "31";      ///< 2 characters
  std::string machineType = " M";    ///< 2
  std::string seriesCode = "G301";   ///< 4
  std::string versionCode = "10.0";  ///< 4
  std::string axesText = "03";       ///< 2
};

struct DetailError {
  int16_t code = 0;
  int16_t item = 0;
};

/// Complete messages, ready to send. Access codes are truncated to 255 bytes.
std::string RequestMessage(const Request& request);
std::string ReplyMessage(const Reply& reply);

/// Removes the first message from the received bytes and returns its payload; nothing until the message is
/// complete. Sets `broken` when the bytes are not a message, after which the stream is unusable.
std::optional<std::string> TakePayload(std::string& received, bool& broken);

/// Nothing when the payload is malformed.
std::optional<Request> ParseRequest(std::string_view payload);
std::optional<Reply> ParseReply(std::string_view payload);

/// Reply bodies. The system information has the layout of the library's 18-byte record.
std::string OptionsBody(uint32_t options);
std::string SystemInformationBody(const SystemInformation& information);
std::string DetailBody(const DetailError& detail);

inline constexpr size_t kOptionsBodySize = 4;
inline constexpr size_t kSystemInformationBodySize = 18;
inline constexpr size_t kDetailBodySize = 4;

}  // namespace tarvik::bench
