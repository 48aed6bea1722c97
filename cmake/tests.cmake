# All tests. One ctest test is a whole suite, not a case, because a process under AddressSanitizer takes long
# to start.

find_package(GTest REQUIRED)

# ./test runs three tests per core, because most tests only wait. CPU-bound tests count as two, which leaves
# room for the waiting ones, and start first (COST).
set(computes PROCESSORS 2 COST 1000)

# Adds a test that runs a GoogleTest program. ./test counts the cases in its result file.
function(add_cases name label)
  cmake_parse_arguments(PARSE_ARGV 2 case "" "" "COMMAND;ENVIRONMENT")
  add_test(NAME ${name} COMMAND ${case_COMMAND})
  set_tests_properties(${name} PROPERTIES LABELS ${label} TIMEOUT 900
    SKIP_REGULAR_EXPRESSION "\\[  SKIPPED \\]"
    ENVIRONMENT "GTEST_OUTPUT=xml:${CMAKE_BINARY_DIR}/results/${name}.xml;${case_ENVIRONMENT}")
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
  add_test(NAME Sources.Are_formatted COMMAND ${TARVIK_CLANG_FORMAT} --dry-run -Werror ${formatted})
  set_tests_properties(Sources.Are_formatted PROPERTIES LABELS native)
endif()
if(TARVIK_CLANG_TIDY)
  add_test(NAME Sources.Are_linted COMMAND ${CMAKE_COMMAND} --build ${CMAKE_BINARY_DIR} --target lint)
  set_tests_properties(Sources.Are_linted PROPERTIES LABELS native ${computes})
endif()

file(GLOB native_folders CONFIGURE_DEPENDS LIST_DIRECTORIES true tests/unit/* tests/endurance tests/failures)
add_executable(native_tests)
foreach(folder ${native_folders})
  cmake_path(GET folder FILENAME name)
  file(GLOB sources CONFIGURE_DEPENDS ${folder}/*.cpp)
  target_sources(native_tests PRIVATE ${sources})
  find_suites(suites ${sources})
  foreach(suite ${suites})
    # The second pattern finds parameterised suites, which are called INSTANTIATION/SUITE.
    add_cases(native.${name}.${suite} native COMMAND native_tests --gtest_filter=${suite}.*:*/${suite}.*)
    if(name MATCHES "^(endurance|failures)$")
      set_tests_properties(native.${name}.${suite} PROPERTIES ${computes})
    endif()
  endforeach()
endforeach()
target_compile_definitions(native_tests PRIVATE TARVIK_SOURCE_FOLDER="${PROJECT_SOURCE_DIR}")
target_link_libraries(native_tests PRIVATE tarvik_memory bench_core lab_guides windows_check_report
                      GTest::gtest_main)
# Checking the test code itself for undefined behaviour would only slow down its compilation.
target_compile_options(native_tests PRIVATE -fno-sanitize=undefined)

# Proves that the checks run without any window.
add_executable(ladder_without_window tests/unit/ladder_without_window.cpp)
target_link_libraries(ladder_without_window PRIVATE tarvik_core)
add_test(NAME native.report.Ladder_without_window COMMAND ladder_without_window)
set_tests_properties(native.report.Ladder_without_window PROPERTIES LABELS native PASS_REGULAR_EXPRESSION
  "PING test.*0002 Reply From.*CNC Type.*Live=True.*230 logged in.*O0001.NC.*Every rung passed")

include(cmake/fuzzers.cmake)

# Adds the suites that drive the real program. Each has its own Wine prefix, so they can run in parallel.
# A suite that cannot run on this machine prints "SKIPPED" and counts as skipped.
function(add_suite_tests program label machine cost)
  find_suites(suites ${ARGN})
  foreach(suite ${suites})
    add_cases(${label}.${machine}.${suite} ${label} COMMAND ${program} --gtest_filter=${suite}.*:*/${suite}.*
      ENVIRONMENT TARVIK_EXE=${PROJECT_SOURCE_DIR}/out/${machine}/Tarvik.exe
                  TARVIK_DRIVER=${PROJECT_SOURCE_DIR}/out/x64/window_driver.exe
                  TARVIK_BENCH=${PROJECT_SOURCE_DIR}/out/bench/${machine}
                  TARVIK_CACHE=${PROJECT_SOURCE_DIR}/out/cache)
    set_tests_properties(${label}.${machine}.${suite} PROPERTIES COST ${cost})
  endforeach()
endfunction()

add_subdirectory(tests/windows)
add_subdirectory(tests/network)
add_subdirectory(tests/packaging)
