# `ninja lint` runs clang-tidy on every target that has changed since its last clean run. It checks a target's
# files as one source file: one by one, nearly all the time would go into the headers that they share.
find_program(TARVIK_CLANG_TIDY clang-tidy)
add_custom_target(lint)

function(lint)
  if(NOT TARVIK_CLANG_TIDY)
    return()
  endif()
  foreach(target ${ARGN})
    set(file ${CMAKE_BINARY_DIR}/lint/${target})
    get_target_property(sources ${target} SOURCES)
    get_target_property(folder ${target} SOURCE_DIR)
    list(TRANSFORM sources PREPEND ${folder}/ REGEX "^[^/]")
    list(JOIN sources "\"\n#include \"" includes)
    file(CONFIGURE OUTPUT ${file}.cpp CONTENT "#include \"${includes}\"\n")
    set(options -std=c++20 -I${PROJECT_SOURCE_DIR})
    set(definitions $<TARGET_PROPERTY:${target},COMPILE_DEFINITIONS>)
    set(definitions "$<$<BOOL:${definitions}>:-D$<JOIN:${definitions},;-D>>")
    add_custom_command(OUTPUT ${file}.clean DEPENDS ${file}.cpp ${PROJECT_SOURCE_DIR}/.clang-tidy
      COMMAND ${TARVIK_CLANG_TIDY} --quiet --config-file=${PROJECT_SOURCE_DIR}/.clang-tidy
              --checks=-bugprone-suspicious-include ${file}.cpp -- ${options} "${definitions}"
      COMMAND ${CMAKE_CXX_COMPILER} ${options} "${definitions}" -MM -MT ${file}.clean -MF ${file}.d ${file}.cpp
      COMMAND ${CMAKE_COMMAND} -E touch ${file}.clean
      DEPFILE ${file}.d COMMENT "Linting ${target}" COMMAND_EXPAND_LISTS VERBATIM)
    add_custom_target(lint_${target} DEPENDS ${file}.clean)
    add_dependencies(lint lint_${target})
  endforeach()
endfunction()
