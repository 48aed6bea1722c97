#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvik::bench {

// What the stand-in of the CNC library and the simulated controller say to each other over TCP. A message
// is "TB", the payload's length in two bytes and the payload; all numbers are little-endian. One connection
// serves one handle, a request at a time.

/// What a request asks for.
enum class Call : uint8_t { Connect, Options, SystemInfo, PmcRead, PmcDetail };

inline constexpr size_t kCallCount = 5;
inline constexpr size_t kPmcAreaCount = 13;
inline constexpr size_t kMostPmcBytes = 8001;

/// The results that a controller gives beside 0.
inline constexpr int16_t kResultAccessCode = 7;
inline constexpr int16_t kResultPmc = -16;

struct Request {
  Call call = Call::Connect;
  std::string accessCode;  ///< Connect; empty = none given
  int16_t areaType = 0;    ///< PmcRead, and the next three
  int16_t dataType = 0;
  int16_t first = 0;
  int16_t last = 0;
};

/// The body is there with result 0 only: the option word, the system information, the bytes, the details.
struct Reply {
  int16_t result = 0;
  std::string body;
};

/// Texts are padded with blanks to their width, or cut.
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

/// Whole messages, ready to be sent. An access code is cut after 255 bytes.
std::string RequestMessage(const Request& request);
std::string ReplyMessage(const Reply& reply);

/// Takes the first message's payload out of what has been received; nothing while it is not complete. Sets
/// `broken` when what came is no message and nothing sensible can follow.
std::optional<std::string> TakePayload(std::string& received, bool& broken);

/// Nothing when the payload is none of ours.
std::optional<Request> ParseRequest(std::string_view payload);
std::optional<Reply> ParseReply(std::string_view payload);

/// Bodies of replies. The system information is the library's own record of 18 bytes.
std::string OptionsBody(uint32_t options);
std::string SystemInformationBody(const SystemInformation& information);
std::string DetailBody(const DetailError& detail);

inline constexpr size_t kOptionsBodySize = 4;
inline constexpr size_t kSystemInformationBodySize = 18;
inline constexpr size_t kDetailBodySize = 4;

}  // namespace tarvik::bench
