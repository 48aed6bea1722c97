# The tests and the laboratory, compiled for this machine and run under the sanitizers.

enable_testing()

find_program(TARVIK_CLANG_FORMAT clang-format)
if(TARVIK_CLANG_FORMAT)
  file(GLOB_RECURSE formatted CONFIGURE_DEPENDS about/*.cpp about/*.h app/*.cpp app/*.h bench/*.cpp bench/*.h
       cnclib/*.cpp cnclib/*.h ftp/*.cpp ftp/*.h k7/*.cpp k7/*.h lab/*.cpp lab/*.h net/*.cpp net/*.h platform/*.cpp
       platform/*.h resources/*.cpp resources/*.h tests/*.cpp tests/*.h ui/*.cpp ui/*.h)
  add_test(NAME Sources.Are_formatted COMMAND ${TARVIK_CLANG_FORMAT} --dry-run -Werror ${formatted})
  set_tests_properties(Sources.Are_formatted PROPERTIES LABELS native)
endif()

# Where the linter is installed it reads each file that the compiler reads.
find_program(TARVIK_CLANG_TIDY clang-tidy)
function(lint)
  if(TARVIK_CLANG_TIDY)
    set_target_properties(${ARGN} PROPERTIES CXX_CLANG_TIDY "${TARVIK_CLANG_TIDY};--quiet")
  endif()
endfunction()

set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
target_compile_options(tarvik_settings INTERFACE ${sanitizers} -g)
target_link_options(tarvik_settings INTERFACE ${sanitizers})

add_library(tarvik_memory STATIC ui/memory/memory_form.cpp)
target_link_libraries(tarvik_memory PUBLIC tarvik_core)
lint(tarvik_core tarvik_memory)
# A fuzzer finds its way through the code by what it has covered. What is under test runs fast; the tests
# themselves compile fast.
foreach(target tarvik_core tarvik_memory)
  target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link -O1)
endforeach()

set(INSTALL_GTEST OFF)
add_subdirectory(/usr/src/googletest googletest EXCLUDE_FROM_ALL)
foreach(library gtest gtest_main gmock gmock_main)
  target_compile_options(${library} PRIVATE ${sanitizers} -Wno-error)
endforeach()
include(GoogleTest)

# What every test includes is read once, and sanitizers that only look at a test itself slow a compilation down.
function(quickly_compiled_tests target without)
  target_precompile_headers(${target} PRIVATE <gtest/gtest.h> <algorithm> <filesystem> <functional> <map> <memory>
                            <optional> <string> <vector>)
  target_compile_options(${target} PRIVATE -fno-sanitize=${without})
endfunction()

add_subdirectory(bench)

file(GLOB native_tests CONFIGURE_DEPENDS tests/*/*.cpp)
list(FILTER native_tests EXCLUDE REGEX "/tests/(fuzz|lab|windows)/")
if(native_tests)
  add_executable(native_tests ${native_tests})
  target_compile_definitions(native_tests PRIVATE TARVIK_SOURCE_FOLDER="${PROJECT_SOURCE_DIR}")
  target_link_libraries(native_tests PRIVATE tarvik_memory bench_core lab_scenario gtest_main)
  quickly_compiled_tests(native_tests undefined)
  gtest_discover_tests(native_tests PROPERTIES LABELS native DISCOVERY_TIMEOUT 60)
endif()

# Each fuzzer starts from the corpus that is kept and runs for a bounded time, in the same order with every run: what
# it finds is new only when the code is. What it finds meanwhile goes into a folder that is new each time, or every
# run would take longer than the one before. Weighing its inputs by how rare their features are would take it longer
# than running them.
file(GLOB fuzzers CONFIGURE_DEPENDS tests/fuzz/*.cpp)
foreach(source ${fuzzers})
  cmake_path(GET source STEM name)
  add_executable(fuzz_${name} ${source})
  target_compile_options(fuzz_${name} PRIVATE -fsanitize=fuzzer -O1)
  target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
  target_link_libraries(fuzz_${name} PRIVATE tarvik_memory bench_core)
  set(found ${CMAKE_BINARY_DIR}/found/${name})
  add_test(NAME fuzz_${name} COMMAND sh -c "rm -rf ${found} && mkdir -p ${found} && exec \"$0\" \"$@\" \
    -seed=\${TARVIK_FUZZ_SEED:-90210} -max_total_time=\${TARVIK_FUZZ_SECONDS:-5}"
    $<TARGET_FILE:fuzz_${name}> -entropic=0 -max_len=8192 -timeout=5 ${found}
    ${PROJECT_SOURCE_DIR}/tests/fuzz/corpus/${name})
  set_tests_properties(fuzz_${name} PROPERTIES LABELS native)
endforeach()
# The whole program comes from the tests' own fixture.
target_link_libraries(fuzz_app_events PRIVATE gtest)
target_link_libraries(fuzz_app_start_up PRIVATE gtest)
target_sources(fuzz_lab_driver_protocol PRIVATE lab/driver_protocol.cpp)
target_sources(fuzz_lab_scenario PRIVATE lab/scenario.cpp lab/scenario_reader.cpp)

foreach(folder lab tests/windows tests/lab)
  if(EXISTS ${PROJECT_SOURCE_DIR}/${folder}/CMakeLists.txt)
    add_subdirectory(${folder})
  endif()
endforeach()
