// Stand-in for the code-conversion library. Its own encoding: the plain text read backwards. A secret that
// begins with "!" cannot be decoded.

#include <algorithm>
#include <cstdint>
#include <string>

#include "app/secret_decoder.h"
#include "platform/windows_win32.h"

extern "C" int32_t WINAPI TxDecd(tarvik::TxCodecRecord* record) {
  // The first character marks whose secret it is.
  std::string encoded(record->input + 1, sizeof record->input - 1);
  encoded.resize(encoded.find_last_not_of(' ') + 1);
  if (encoded.empty() || encoded.front() == '!' || encoded.size() >= sizeof record->output) return -1;
  std::fill(std::begin(record->output), std::end(record->output), '\0');
  std::reverse_copy(encoded.begin(), encoded.end(), record->output);
  return 0;
}
