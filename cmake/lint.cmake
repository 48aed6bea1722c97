# `ninja lint` runs clang-tidy on every group of targets that has changed since its last clean run. It checks a
# group's files as one source file: one by one, nearly all the time would go into the headers that they share.
# A group's targets must not define the same macro in different ways.
find_program(TARVIK_CLANG_TIDY clang-tidy)
add_custom_target(lint)

function(lint group)
  if(NOT TARVIK_CLANG_TIDY)
    return()
  endif()
  set(file ${CMAKE_BINARY_DIR}/lint/${group})
  set(content)
  set(options -std=c++20 -I${PROJECT_SOURCE_DIR})
  foreach(target ${ARGN})
    get_target_property(sources ${target} SOURCES)
    get_target_property(folder ${target} SOURCE_DIR)
    list(TRANSFORM sources PREPEND ${folder}/ REGEX "^[^/]")
    list(JOIN sources "\"\n#include \"" includes)
    # Each program's main() needs its own name in the group. .clang-tidy lists them.
    string(APPEND content "#undef main\n#define main main_of_${target}\n#include \"${includes}\"\n")
    set(definitions $<TARGET_PROPERTY:${target},COMPILE_DEFINITIONS>)
    list(APPEND options "$<$<BOOL:${definitions}>:-D$<JOIN:${definitions},;-D>>")
  endforeach()
  file(CONFIGURE OUTPUT ${file}.cpp CONTENT "${content}")
  add_custom_command(OUTPUT ${file}.clean DEPENDS ${file}.cpp ${PROJECT_SOURCE_DIR}/.clang-tidy
    COMMAND ${TARVIK_CLANG_TIDY} --quiet --config-file=${PROJECT_SOURCE_DIR}/.clang-tidy
            --checks=-bugprone-suspicious-include ${file}.cpp -- "${options}"
    COMMAND ${CMAKE_CXX_COMPILER} "${options}" -MM -MT ${file}.clean -MF ${file}.d ${file}.cpp
    COMMAND ${CMAKE_COMMAND} -E touch ${file}.clean
    DEPFILE ${file}.d COMMENT "Linting ${group}" COMMAND_EXPAND_LISTS VERBATIM)
  add_custom_target(lint_${group} DEPENDS ${file}.clean)
  add_dependencies(lint lint_${group})
endfunction()
