#include "bench/k7_messages.h"

#include "bench/little_endian.h"

namespace tarvik::bench {
namespace {

constexpr std::string_view kRequestMark = "TK7?";
constexpr std::string_view kReplyMark = "TK7!";

}  // namespace

std::string K7Datagram(const K7Request& request) {
  std::string bytes(kRequestMark);
  AppendNumber(bytes, request.number);
  AppendNumber(bytes, static_cast<uint8_t>(request.kind));
  AppendNumber(bytes, request.stateA);
  AppendNumber(bytes, request.stateB);
  return bytes + request.address.substr(0, kMaxK7AddressBytes);
}

std::string K7Datagram(const K7Reply& reply) {
  std::string bytes(kReplyMark);
  AppendNumber(bytes, reply.number);
  AppendNumber(bytes, static_cast<uint8_t>(reply.verdict));
  AppendNumber(bytes, reply.stateA);
  AppendNumber(bytes, reply.stateB);
  AppendNumber(bytes, reply.extra);
  return bytes;
}

std::optional<K7Request> ParseK7Request(std::string_view datagram) {
  if (!datagram.starts_with(kRequestMark)) return std::nullopt;
  ByteReader reader(datagram.substr(kRequestMark.size()));
  K7Request request;
  request.number = reader.Take<uint32_t>();
  const auto kind = reader.Take<uint8_t>();
  request.kind = static_cast<K7Request::Kind>(kind);
  request.stateA = reader.Take<int32_t>();
  request.stateB = reader.Take<int32_t>();
  request.address = reader.TakeRest();
  if (!reader.ExactlyRead() || kind > static_cast<uint8_t>(K7Request::Kind::Check)) return std::nullopt;
  if (request.address.size() > kMaxK7AddressBytes) return std::nullopt;
  return request;
}

std::optional<K7Reply> ParseK7Reply(std::string_view datagram) {
  if (!datagram.starts_with(kReplyMark)) return std::nullopt;
  ByteReader reader(datagram.substr(kReplyMark.size()));
  K7Reply reply;
  reply.number = reader.Take<uint32_t>();
  const auto verdict = reader.Take<uint8_t>();
  reply.verdict = static_cast<K7Verdict>(verdict);
  reply.stateA = reader.Take<int32_t>();
  reply.stateB = reader.Take<int32_t>();
  reply.extra = reader.Take<int32_t>();
  if (!reader.ExactlyRead() || verdict > static_cast<uint8_t>(K7Verdict::Live)) return std::nullopt;
  return reply;
}

}  // namespace tarvik::bench
