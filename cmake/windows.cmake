# The Windows program, the practice bench and the laboratory's window driver.

set(output ${PROJECT_SOURCE_DIR}/out/${preset})

target_compile_definitions(tarvik_settings INTERFACE UNICODE _UNICODE WINVER=0x0601 _WIN32_WINNT=0x0601)
target_compile_options(tarvik_settings INTERFACE -Os -ffunction-sections -fdata-sections)
target_link_options(tarvik_settings INTERFACE -static -s -Wl,--gc-sections -Wl,--dynamicbase -Wl,--nxcompat)
# Two builds are the same to the bit, also what the Windows check carries: without the time, and without a base
# address that derives from the library's path.
add_link_options(-Wl,--no-insert-timestamp -Wl,--disable-auto-image-base)

# libstdc++'s terminate handler prints the exception's type to a console, which a windowed program does not
# have. It would link the name demangler, an eighth of the program's size, so abort takes its place.
set(terminate_handler _ZN9__gnu_cxx27__verbose_terminate_handlerEv)
if(TARVIK_MACHINE STREQUAL i686)
  target_link_options(tarvik_settings INTERFACE -Wl,--defsym=_${terminate_handler}=_abort)
else()
  target_link_options(tarvik_settings INTERFACE -Wl,--defsym=${terminate_handler}=abort)
endif()

# The headers that most files include, parsed once. The portable files get them without those of Windows. All others
# share those of a library without code: a target waits for the one that owns its precompiled headers.
set(standard_headers <algorithm> <array> <cstdint> <functional> <map> <memory> <optional> <string> <string_view>
    <utility> <vector>)
target_precompile_headers(tarvik_core PRIVATE ${standard_headers})
file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/windows_headers.cpp CONTENT "")
add_library(windows_headers STATIC ${CMAKE_BINARY_DIR}/windows_headers.cpp)
target_link_libraries(windows_headers PRIVATE tarvik_settings)
target_precompile_headers(windows_headers PRIVATE ${standard_headers} platform/windows_win32.h)

enable_language(RC)
list(TRANSFORM product_folders APPEND "/*_win32.cpp" OUTPUT_VARIABLE windows_files)
file(GLOB windows_sources CONFIGURE_DEPENDS ${windows_files} ui/win32/*_win32.cpp)
set(edition_sources app/main_win32.cpp app/standard_errors_win32.cpp)
list(TRANSFORM edition_sources PREPEND ${PROJECT_SOURCE_DIR}/ OUTPUT_VARIABLE edition_files)
list(REMOVE_ITEM windows_sources ${edition_files})
add_library(tarvik_windows STATIC ${windows_sources})
target_link_libraries(tarvik_windows PUBLIC tarvik_core ws2_32)
target_precompile_headers(tarvik_windows REUSE_FROM windows_headers)
set(explanations ${CMAKE_BINARY_DIR}/resources/explanations.txt)
# windres does not report the files that a resource script includes.
set_source_files_properties(resources/tarvik.rc PROPERTIES OBJECT_DEPENDS
  "${PROJECT_SOURCE_DIR}/resources/tarvik.manifest;${PROJECT_SOURCE_DIR}/resources/version.h;${PROJECT_SOURCE_DIR}/resources/icon/tarvik.ico;${explanations}")

# The program contains the explanations as one text without comments.
file(GLOB explanation_files CONFIGURE_DEPENDS resources/explanations/*.txt)
add_custom_command(OUTPUT ${explanations} DEPENDS ${explanation_files}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/resources
  COMMAND sed /^\#/d ${explanation_files} > ${explanations} VERBATIM)
add_custom_target(explanations DEPENDS ${explanations})

# Converts a language file to CR LF and to its language's code page, in which the program reads it.
function(add_language_file folder id code_page)
  set(source ${PROJECT_SOURCE_DIR}/resources/language/Tarvik.exe_${id}.ini)
  set(target ${folder}/Language/Tarvik.exe_${id}.ini)
  add_custom_command(OUTPUT ${target} DEPENDS ${source}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}/Language
    COMMAND sh -c "sed 's/$/\\r/' '${source}' | iconv -f UTF-8 -t ${code_page} > '${target}'" VERBATIM)
  set(language_files ${language_files} ${target} PARENT_SCOPE)
endfunction()

# Builds one edition of the program into its own folder. `family`: the product-family switch that main hands
# to the main window, the only difference between the editions.
function(add_edition target family folder)
  add_language_file(${folder} 1033 CP1252)
  add_language_file(${folder} 1041 CP932)
  add_executable(${target} WIN32 ${edition_sources} resources/tarvik.rc ${language_files})
  set_target_properties(${target} PROPERTIES OUTPUT_NAME Tarvik RUNTIME_OUTPUT_DIRECTORY ${folder})
  target_compile_definitions(${target} PRIVATE TARVIK_FAMILY_EDITION=${family})
  add_dependencies(${target} explanations)
  target_include_directories(${target} PRIVATE resources ${CMAKE_BINARY_DIR}/resources)
  target_link_libraries(${target} PRIVATE tarvik_windows)
  target_precompile_headers(${target} REUSE_FROM windows_headers)
  # The linker's default is version 4.0, for which Windows keeps old behaviour; without --tsaware a terminal server
  # gives the program a private Windows folder.
  target_link_options(${target} PRIVATE -municode -Wl,--tsaware
                      -Wl,--major-subsystem-version,6 -Wl,--minor-subsystem-version,1
                      -Wl,--major-os-version,6 -Wl,--minor-os-version,1)
endfunction()

add_edition(Tarvik 1 ${output})
if(TARVIK_MACHINE STREQUAL i686)
  add_edition(TarvikGeneral 0 ${output}-general)
endif()

add_subdirectory(bench)
add_subdirectory(lab/helpers/bench_caller)
add_subdirectory(lab/helpers/window_driver)
add_subdirectory(lab/helpers/bare_window)
add_subdirectory(lab/helpers/product_caller)
add_subdirectory(lab/helpers/speed_probe)
set_target_properties(window_driver bare_window PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${output})
add_subdirectory(lab/helpers/old_ipconfig)
add_subdirectory(lab/helpers/start_recorder)
add_subdirectory(lab/helpers/closing_box)
if(TARVIK_MACHINE STREQUAL i686)
  add_subdirectory(lab/windows_check)
endif()
