#include "bench/controller_messages.h"

#include "bench/little_endian.h"
#include "platform/fixed_buffer.h"

namespace tarvik::bench {
namespace {

constexpr std::string_view kMark = "TB";
constexpr size_t kHeaderSize = 4;
constexpr size_t kMaxPayloadBytes = kMaxPmcBytes + 64;
constexpr size_t kMaxAccessCodeBytes = 255;

std::string Message(const std::string& payload) {
  std::string message(kMark);
  AppendNumber(message, static_cast<uint16_t>(payload.size()));
  return message + payload;
}

}  // namespace

std::string RequestMessage(const Request& request) {
  std::string payload;
  AppendNumber(payload, static_cast<uint8_t>(request.call));
  if (request.call == Call::Connect) payload += request.accessCode.substr(0, kMaxAccessCodeBytes);
  if (request.call == Call::PmcRead) {
    for (const int16_t number : {request.areaType, request.dataType, request.first, request.last}) {
      AppendNumber(payload, number);
    }
  }
  return Message(payload);
}

std::string ReplyMessage(const Reply& reply) {
  std::string payload;
  AppendNumber(payload, reply.result);
  return Message(payload + reply.body);
}

std::optional<std::string> TakePayload(std::string& received, bool& broken) {
  const std::string_view begun = std::string_view(received).substr(0, kMark.size());
  broken = begun != kMark.substr(0, begun.size());
  if (broken || received.size() < kHeaderSize) return std::nullopt;
  const auto length = ByteReader(std::string_view(received).substr(kMark.size())).Take<uint16_t>();
  broken = length > kMaxPayloadBytes;
  if (broken || received.size() < kHeaderSize + length) return std::nullopt;
  std::string payload = received.substr(kHeaderSize, length);
  received.erase(0, kHeaderSize + length);
  return payload;
}

std::optional<Request> ParseRequest(std::string_view payload) {
  ByteReader reader(payload);
  const auto call = reader.Take<uint8_t>();
  if (call >= kCallCount) return std::nullopt;
  Request request;
  request.call = static_cast<Call>(call);
  if (request.call == Call::Connect) request.accessCode = reader.TakeRest();
  if (request.call == Call::PmcRead) {
    for (int16_t* number : {&request.areaType, &request.dataType, &request.first, &request.last}) {
      *number = reader.Take<int16_t>();
    }
  }
  if (!reader.ExactlyRead() || request.accessCode.size() > kMaxAccessCodeBytes) return std::nullopt;
  return request;
}

std::optional<Reply> ParseReply(std::string_view payload) {
  ByteReader reader(payload);
  Reply reply;
  reply.result = reader.Take<int16_t>();
  reply.body = reader.TakeRest();
  if (!reader.ExactlyRead()) return std::nullopt;
  return reply;
}

std::string OptionsBody(uint32_t options) {
  std::string body;
  AppendNumber(body, options);
  return body;
}

std::string SystemInformationBody(const SystemInformation& information) {
  std::string body;
  AppendNumber(body, information.addinfo);
  AppendNumber(body, information.maxAxes);
  body += PadWithSpaces(information.modelType, 2) + PadWithSpaces(information.machineType, 2) +
          PadWithSpaces(information.seriesCode, 4) + PadWithSpaces(information.versionCode, 4) +
          PadWithSpaces(information.axesText, 2);
  return body;
}

std::string DetailBody(const DetailError& detail) {
  std::string body;
  AppendNumber(body, detail.code);
  AppendNumber(body, detail.item);
  return body;
}

}  // namespace tarvik::bench
