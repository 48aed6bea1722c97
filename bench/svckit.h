#ifndef TARVIK_BENCH_SVCKIT_H
#define TARVIK_BENCH_SVCKIT_H

/* The service-setup library's exports in plain C, declared independently of the product. Calls return 0 or an
   error code. `wait`: milliseconds to wait for the requested state; -1 returns as soon as the service control
   manager has accepted the command. */

#include <stdint.h>

#ifdef _WIN32
#define SVCKIT_CALL __stdcall
#else
#define SVCKIT_CALL
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* The service is not installed. */
#define SVCKIT_NO_SERVICE ((int32_t)0x80000124)

int32_t SVCKIT_CALL QSetup_InstallService(const char* name, const char* display_name, const char* path,
                                          int32_t start_type);
int32_t SVCKIT_CALL QSetup_RemoveService(const char* name);
int32_t SVCKIT_CALL QSetup_StartService(const char* name, int32_t wait);
int32_t SVCKIT_CALL QSetup_StopService(const char* name, int32_t wait);
int32_t SVCKIT_CALL QSetup_GetServiceStatus(const char* name, int32_t* status, int32_t wait);

#ifdef __cplusplus
}
#endif

#endif
