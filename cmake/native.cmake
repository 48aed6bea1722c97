# The bench and the laboratory, built for this machine. TARVIK_TESTS adds all tests and builds everything but the
# laboratory's tests with the sanitizers.

option(TARVIK_TESTS "Build the tests, under the sanitizers" OFF)

if(TARVIK_TESTS)
  set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  # -g1: functions and lines, which is what an error shows. A debugger needs -g for variables.
  target_compile_options(tarvik_settings INTERFACE ${sanitizers} -g1 $<TARGET_PROPERTY:UNSANITIZED>)
  target_link_options(tarvik_settings INTERFACE ${sanitizers} -fuse-ld=lld)
endif()

# For tests that drive other programs and call no product code: compiles them faster. As an option of the target it
# would precede the sanitizers above and have no effect.
function(unsanitized target)
  set_target_properties(${target} PROPERTIES UNSANITIZED -fno-sanitize=all)
endfunction()

# Instruments the code under test for the fuzzers and optimises it. The tests themselves are left out, to
# compile fast.
function(fuzzed)
  if(TARVIK_TESTS)
    foreach(target ${ARGN})
      target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link -O1)
    endforeach()
  endif()
endfunction()

include(cmake/lint.cmake)

add_library(tarvik_memory STATIC ui/memory/memory_form.cpp)
target_link_libraries(tarvik_memory PUBLIC tarvik_core)
# Smaller batches, because these files change most and a change recompiles its whole batch.
set_target_properties(tarvik_core PROPERTIES UNITY_BUILD_BATCH_SIZE 4)
fuzzed(tarvik_core tarvik_memory)
lint(product tarvik_core tarvik_memory)

add_subdirectory(bench)
add_subdirectory(lab)

if(TARVIK_TESTS)
  enable_testing()
  include(cmake/tests.cmake)
endif()
