#ifndef TARVIK_BENCH_NXLIB32_H
#define TARVIK_BENCH_NXLIB32_H

/* The CNC library's exports in plain C, declared independently of the product so that a test can compare the
   two. Character fields have no terminating null. Calls return 0 or an error code. */

#include <stdint.h>

#ifdef _WIN32
#define NX_CALL __stdcall
#else
#define NX_CALL
#endif

#ifdef __cplusplus
extern "C" {
#endif

typedef struct nx_system_information {
  int16_t addinfo;
  int16_t max_axes;
  char model_type[2];
  char machine_type[2];
  char series_code[4];
  char version_code[4];
  char axes_text[2];
} nx_system_information; /* 18 bytes */

typedef struct nx_pmc_range {
  int16_t addr_type;
  int16_t data_type;
  int16_t first_no;
  int16_t last_no;
  uint8_t data[8001];
} nx_pmc_range;

typedef struct nx_pmc_detail {
  int16_t error_code;
  int16_t error_item;
} nx_pmc_detail;

int16_t NX_CALL nx_allochandle3(const char* address, uint16_t port, int32_t time_out, uint16_t* handle);
int16_t NX_CALL nx_allochandle_code(const char* address, uint16_t port, const char* access_code,
                                    int32_t time_out, uint16_t* handle);
int16_t NX_CALL nx_getoptions1(uint16_t handle, int32_t* zero, int32_t* options);
int16_t NX_CALL nx_sysinfo(uint16_t handle, nx_system_information* information);
int16_t NX_CALL nx_pmc_rdrange(uint16_t handle, int16_t addr_type, int16_t data_type, uint16_t first_no,
                               uint16_t last_no, uint16_t length, nx_pmc_range* range);
int16_t NX_CALL nx_pmc_detailerr(uint16_t handle, nx_pmc_detail* detail);
int16_t NX_CALL nx_freehandle(uint16_t handle);

#ifdef __cplusplus
}
#endif

#endif
