# All fuzzers are one program. Each starts from its seeds and stops after a number of inputs or a time.
# - With a fixed random seed, a new failure most likely means that the code has changed. Fuzzers that stop after a
#   time do not try exactly the same inputs in every run.
# - The folder for new inputs is emptied before each run, so that every run starts from the same inputs.
# - -entropic=0: weighing inputs by the rarity of their features takes time that short runs need for inputs.
# - -len_control=0: libFuzzer would try long inputs only after many short ones, so 5,000 would reach less code.
file(GLOB fuzzers CONFIGURE_DEPENDS tests/fuzz/*.cpp)
add_executable(fuzzers ${fuzzers} lab/pc/driver_protocol.cpp)
target_compile_options(fuzzers PRIVATE -fsanitize=fuzzer -O1)
target_link_options(fuzzers PRIVATE -fsanitize=fuzzer)
# This one reads the program's explanations.
set_source_files_properties(tests/fuzz/report_saved.cpp PROPERTIES COMPILE_DEFINITIONS
                            TARVIK_SOURCE_FOLDER="${PROJECT_SOURCE_DIR}")
# The fuzzers of the whole program use the fixture of the unit tests, which needs GoogleTest.
target_link_libraries(fuzzers PRIVATE tarvik_memory bench_core lab_scenario GTest::gtest)

# A fuzzer tries at most 5,000 inputs, for at most two seconds: libFuzzer stops once more whole seconds have passed
# than -max_total_time says. TARVIK_FUZZ_SECONDS replaces both limits.
function(add_fuzzer name)
  set(found ${CMAKE_BINARY_DIR}/found/${name})
  set(archive ${PROJECT_SOURCE_DIR}/tests/fuzz/corpus/${name}.tar.gz)
  set(unpack true)
  if(EXISTS ${archive})
    set(unpack "tar -xzf ${archive} -C ${found}")
  endif()
  add_test(NAME fuzz_${name} COMMAND sh -c "rm -rf ${found} && mkdir -p ${found} && ${unpack} && exec \"$0\" \"$@\" \
    -seed=\${TARVIK_FUZZ_SEED:-90210} -max_total_time=\${TARVIK_FUZZ_SECONDS:-1 -runs=5000}"
    $<TARGET_FILE:fuzzers> --fuzzer=${name} -entropic=0 -len_control=0 -max_len=8192 -timeout=5 ${found} ${ARGN})
  set_tests_properties(fuzz_${name} PROPERTIES LABELS native COST 900 RESOURCE_GROUPS computations:1
    ENVIRONMENT_MODIFICATION ${sanitizer_options})
endfunction()

list(FILTER fuzzers EXCLUDE REGEX "/main\\.cpp$")
foreach(source ${fuzzers})
  cmake_path(GET source STEM name)
  set(seeds ${PROJECT_SOURCE_DIR}/tests/fuzz/corpus/${name})
  if(NOT EXISTS ${seeds})
    set(seeds)
  endif()
  if(name MATCHES "^(bench|lab)_scenario$")
    list(APPEND seeds ${PROJECT_SOURCE_DIR}/${CMAKE_MATCH_1}/scenarios)
  endif()
  add_fuzzer(${name} ${seeds})
endforeach()
