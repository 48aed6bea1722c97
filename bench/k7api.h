#ifndef TARVIK_BENCH_K7API_H
#define TARVIK_BENCH_K7API_H

/* The K7 API's exports in plain C, declared independently of the product so that the two can be compared.
   Strings are 256-byte buffers that the library may overwrite. 16-bit results are Booleans, true = -1; the
   32-bit results are 0 on success. */

#include <stdint.h>

#ifdef _WIN32
#define K7_CALL __stdcall
#else
#define K7_CALL
#endif

#ifdef __cplusplus
extern "C" {
#endif

int32_t K7_CALL K7_WSAStartup(void);
int32_t K7_CALL K7_AllocHandle(int32_t* handle);
int16_t K7_CALL K7_ConnectServer(int32_t handle, char* host);
int16_t K7_CALL K7_CheckReboot2(int32_t handle, char* address, int32_t state_a, int32_t state_b,
                                int32_t* new_a, int32_t* new_b, int32_t* extra, int16_t* live);
int32_t K7_CALL K7_GetLastError(int32_t handle, int32_t* error_code, int32_t* system_error);
int32_t K7_CALL K7_FreeHandle(int32_t handle);
int32_t K7_CALL K7_WSACleanup(void);

#ifdef __cplusplus
}
#endif

#endif
