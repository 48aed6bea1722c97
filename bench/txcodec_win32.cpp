// Stand-in for the code-conversion library. Its encoding is the prefix and then the plain text reversed. An
// input without the prefix or with "!" after it cannot be decoded.

#include "bench/txcodec.h"

#include <algorithm>
#include <iterator>
#include <string>

int32_t TXCODEC_CALL TxDecd(tx_codec_record* record) {
  if (record->input[0] != TXCODEC_PREFIX) return -1;
  std::string encoded(record->input + 1, sizeof record->input - 1);
  encoded.resize(encoded.find_last_not_of(' ') + 1);
  if (encoded.empty() || encoded.front() == '!' || encoded.size() >= sizeof record->output) return -1;
  std::fill(std::begin(record->output), std::end(record->output), '\0');
  std::reverse_copy(encoded.begin(), encoded.end(), record->output);
  return 0;
}
