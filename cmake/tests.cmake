# All tests. One ctest test is a whole suite, not a case, and all unit tests of a folder are one: a process under
# AddressSanitizer takes long to start.

find_package(GTest REQUIRED)

# ./test runs five tests per core, those with the highest COST first. At most so many run at a time of those that
# - drive Windows programs ("pcs"): four per core, because most of them wait for echoes, servers and windows,
# - do so for long and mostly wait: five, in lanes,
# - only compute for long ("computations"): one per two cores. They run at the lowest priority, so that waiting tests
#   are served at once. Fuzzers do not: some stop after a time, and would try fewer inputs.
# Without the file made here, ctest knows only the limit of the lanes.
cmake_host_system_information(RESULT cores QUERY NUMBER_OF_LOGICAL_CORES)
math(EXPR pcs "4 * ${cores}")
math(EXPR computations "(${cores} + 1) / 2")
file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/test_resources.json @ONLY CONTENT [[
{"version": {"major": 1, "minor": 0},
 "local": [{"pcs": [{"id": "0", "slots": @pcs@}], "computations": [{"id": "0", "slots": @computations@}]}]}
]])
set(nice nice -n 19)
set(computes COST 1000 RESOURCE_GROUPS computations:1)

# By default, AddressSanitizer keeps 256 MB of freed memory and 30 calls for each allocation, which takes time. Less
# is enough to find and read an error. The developer's own ASAN_OPTIONS come after these, so they win.
set(sanitizer_options ASAN_OPTIONS=path_list_prepend:quarantine_size_mb=16:malloc_context_size=8)

# For thousands of runs in one process. So little freed memory stays in the processor's cache, which halves their time;
# a use is missed once another megabyte was freed. An error names no calls. Run failure_tests without ctest for both.
set(sparing_options
    ASAN_OPTIONS=path_list_prepend:quarantine_size_mb=1:thread_local_quarantine_size_kb=64:malloc_context_size=1)

# Adds a test that runs a GoogleTest program. ./test counts the cases in its result file. The test counts as skipped
# only when all its cases were: ctest does not look at the exit code of a skipped one, which would hide failed cases.
function(add_cases name label)
  cmake_parse_arguments(PARSE_ARGV 2 case "" "" "COMMAND;ENVIRONMENT")
  add_test(NAME ${name} COMMAND ${case_COMMAND})
  set_tests_properties(${name} PROPERTIES LABELS ${label} TIMEOUT 900
    SKIP_REGULAR_EXPRESSION
      "\\[  SKIPPED \\] all tests:;\\[  PASSED  \\] 0 tests\\.\n(\\[  SKIPPED \\][^\n]*\n)+$"
    ENVIRONMENT "GTEST_OUTPUT=xml:${CMAKE_BINARY_DIR}/results/${name}.xml;${case_ENVIRONMENT}"
    ENVIRONMENT_MODIFICATION ${sanitizer_options})
endfunction()

# The names of the suites in the files.
function(find_suites result)
  set(suites)
  foreach(source ${ARGN})
    file(STRINGS ${source} cases REGEX "^TEST(_F|_P)?\\(")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${source})
    list(TRANSFORM cases REPLACE "^TEST[_FP]*\\(([A-Za-z0-9_]+),.*" "\\1")
    list(APPEND suites ${cases})
  endforeach()
  list(REMOVE_DUPLICATES suites)
  set(${result} ${suites} PARENT_SCOPE)
endfunction()

find_program(TARVIK_CLANG_FORMAT clang-format)
if(TARVIK_CLANG_FORMAT)
  list(TRANSFORM source_folders APPEND "/*.cpp" OUTPUT_VARIABLE cpp_files)
  list(TRANSFORM source_folders APPEND "/*.h" OUTPUT_VARIABLE h_files)
  file(GLOB_RECURSE formatted CONFIGURE_DEPENDS ${cpp_files} ${h_files})
  add_test(NAME Sources.Are_formatted COMMAND ${nice} ${TARVIK_CLANG_FORMAT} --dry-run -Werror ${formatted})
  set_tests_properties(Sources.Are_formatted PROPERTIES LABELS native ${computes})
endif()
if(TARVIK_CLANG_TIDY)
  add_test(NAME Sources.Are_linted COMMAND ${nice} ${CMAKE_COMMAND} --build ${CMAKE_BINARY_DIR} --target lint)
  set_tests_properties(Sources.Are_linted PROPERTIES LABELS native ${computes})
endif()

# The suites of tests/unit.
add_executable(native_tests tests/failures/failing_program.cpp)
target_compile_definitions(native_tests PRIVATE TARVIK_SOURCE_FOLDER="${PROJECT_SOURCE_DIR}")
target_link_libraries(native_tests PRIVATE tarvik_memory bench_core lab_guides windows_check_report GTest::gtest_main)
# Those that run the whole program thousands of times. Optimised: that takes 15 s more to compile and saves more
# than a minute of running.
add_executable(failure_tests)
target_link_libraries(failure_tests PRIVATE tarvik_memory GTest::gtest_main)
target_compile_options(failure_tests PRIVATE -O1)

# Adds a test that runs these suites of a program. The second pattern of each finds parameterised suites, which are
# called INSTANTIATION/SUITE.
function(add_native_suites name program suites)
  list(TRANSFORM suites REPLACE "(.+)" "\\1.*:*/\\1.*")
  list(JOIN suites ":" filter)
  add_cases(native.${name} native COMMAND ${priority} $<TARGET_FILE:${program}> --gtest_filter=${filter})
  set_tests_properties(native.${name} PROPERTIES ${properties})
endfunction()

file(GLOB native_folders CONFIGURE_DEPENDS LIST_DIRECTORIES true tests/unit/* tests/endurance tests/failures)
foreach(folder ${native_folders})
  cmake_path(GET folder FILENAME name)
  file(GLOB sources CONFIGURE_DEPENDS ${folder}/*.cpp)
  find_suites(suites ${sources})
  if(name MATCHES "^(endurance|failures)$")
    target_sources(failure_tests PRIVATE ${sources})
    set(priority ${nice})
    set(properties ${computes} ENVIRONMENT_MODIFICATION ${sparing_options})
    foreach(suite ${suites})
      add_native_suites(${name}.${suite} failure_tests ${suite})
    endforeach()
  elseif(sources)
    target_sources(native_tests PRIVATE ${sources})
    set(priority)
    set(properties COST 10)
    add_native_suites(${name} native_tests "${suites}")
  endif()
endforeach()

# Proves that the checks run without any window.
add_executable(ladder_without_window tests/unit/ladder_without_window.cpp)
target_link_libraries(ladder_without_window PRIVATE tarvik_core)
add_test(NAME native.report.Ladder_without_window COMMAND ladder_without_window)
set_tests_properties(native.report.Ladder_without_window PROPERTIES LABELS native PASS_REGULAR_EXPRESSION
  "PING test.*0002 Reply From.*CNC Type.*Live=True.*230 logged in.*O0001.NC.*Every rung passed")

include(cmake/fuzzers.cmake)

# For suites that take half a minute or more and mostly wait. Those of a lane run one after the other, so all lanes
# should take about equally long: no ./test is shorter than the longest.
function(mostly_wait lane)
  set_tests_properties(${ARGN} PROPERTIES COST 800 RESOURCE_LOCK lane_${lane})
endfunction()

# Adds the suites that drive the real program. Each has its own Wine prefix, so they can run in parallel.
# The costs fall from 100 to 50, so that the suites of several calls alternate: those of the ring "lab" mostly wait,
# those of "windows" compute.
function(add_suite_tests program label machine)
  find_suites(suites ${ARGN})
  list(LENGTH suites count)
  set(index 0)
  foreach(suite ${suites})
    math(EXPR cost "100 - 50 * ${index} / ${count}")
    math(EXPR index "${index} + 1")
    add_suite_test(${label}.${machine}.${suite} ${program} ${label} ${machine} ${cost} ${suite})
  endforeach()
endfunction()

function(add_suite_test name program label machine cost suite)
  add_cases(${name} ${label} COMMAND ${program} --gtest_filter=${suite}.*:*/${suite}.*
    ENVIRONMENT TARVIK_EXE=${PROJECT_SOURCE_DIR}/out/${machine}/Tarvik.exe
                TARVIK_DRIVER=${PROJECT_SOURCE_DIR}/out/x64/window_driver.exe
                TARVIK_BENCH=${PROJECT_SOURCE_DIR}/out/bench/${machine}
                TARVIK_CACHE=${PROJECT_SOURCE_DIR}/out/cache
                ${ARGN})
  set_tests_properties(${name} PROPERTIES COST ${cost} RESOURCE_GROUPS pcs:1)
endfunction()

# The same for one long suite, in parts that run in parallel: GoogleTest deals its cases out to them in turn.
function(add_suite_in_parts program label machine cost suite parts)
  math(EXPR last "${parts} - 1")
  foreach(part RANGE ${last})
    math(EXPR number "${part} + 1")
    add_suite_test(${label}.${machine}.${suite}_${number} ${program} ${label} ${machine} ${cost} ${suite}
      GTEST_TOTAL_SHARDS=${parts} GTEST_SHARD_INDEX=${part})
  endforeach()
endfunction()

add_subdirectory(tests/windows)
add_subdirectory(tests/network)
add_subdirectory(tests/packaging)
