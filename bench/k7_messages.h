#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvik::bench {

// The UDP protocol between the K7 API's stand-in and the bench's K7 server: one datagram each way. A reply
// repeats its request's number, so that late replies are detected.

inline constexpr uint16_t kK7Port = 8300;
inline constexpr size_t kMaxK7AddressBytes = 255;

struct K7Request {
  enum class Kind : uint8_t { Hello, Check };

  Kind kind = Kind::Hello;
  uint32_t number = 0;
  int32_t stateA = 0;  ///< Check only, like the next two
  int32_t stateB = 0;
  std::string address;  ///< of the unit; truncated to kMaxK7AddressBytes
};

/// What the server knows about a unit.
enum class K7Verdict : uint8_t { Unknown, Dead, Live };

struct K7Reply {
  uint32_t number = 0;
  K7Verdict verdict = K7Verdict::Unknown;
  int32_t stateA = 0;
  int32_t stateB = 0;
  int32_t extra = 0;
};

std::string K7Datagram(const K7Request& request);
std::string K7Datagram(const K7Reply& reply);

/// Nothing when the datagram is malformed.
std::optional<K7Request> ParseK7Request(std::string_view datagram);
std::optional<K7Reply> ParseK7Reply(std::string_view datagram);

}  // namespace tarvik::bench
