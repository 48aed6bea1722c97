#ifndef TARVIK_BENCH_TXCODEC_H
#define TARVIK_BENCH_TXCODEC_H

/* The code-conversion library's export in plain C, declared independently of the product so that a test can
   compare the two. Texts are in the ANSI (system) code page and need not have a terminating null. */

#include <stdint.h>

#ifdef _WIN32
#define TXCODEC_CALL __stdcall
#else
#define TXCODEC_CALL
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* The first character of every input. It marks a secret from this program's command line. */
#define TXCODEC_PREFIX 'T'

typedef struct tx_codec_record {
  char output[64];
  char input[128];
} tx_codec_record;

/* Decodes `input` into `output`. Returns 0 or an error code. */
int32_t TXCODEC_CALL TxDecd(tx_codec_record* record);

#ifdef __cplusplus
}
#endif

#endif
