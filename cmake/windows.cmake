# The Windows program, the practice bench and the laboratory's window driver.

option(TARVIK_FAMILY_EDITION "Value of the product-family switch that main hands to the main window" ON)

cmake_path(GET CMAKE_BINARY_DIR FILENAME edition)
set(output ${PROJECT_SOURCE_DIR}/out/${edition})

target_compile_definitions(tarvik_settings INTERFACE UNICODE _UNICODE WINVER=0x0601 _WIN32_WINNT=0x0601)
target_compile_options(tarvik_settings INTERFACE -Os -ffunction-sections -fdata-sections)
target_link_options(tarvik_settings INTERFACE -static -s -Wl,--gc-sections -Wl,--no-insert-timestamp -Wl,--dynamicbase
                    -Wl,--nxcompat)

enable_language(RC)
file(GLOB windows_sources CONFIGURE_DEPENDS about/*_win32.cpp app/*_win32.cpp cnclib/*_win32.cpp ftp/*_win32.cpp
     k7/*_win32.cpp net/*_win32.cpp platform/*_win32.cpp ui/win32/*_win32.cpp)
add_executable(Tarvik WIN32 ${windows_sources} resources/tarvik.rc)
set_target_properties(Tarvik PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${output})
target_include_directories(Tarvik PRIVATE resources)
target_link_libraries(Tarvik PRIVATE tarvik_core ws2_32)
target_link_options(Tarvik PRIVATE -municode)
set_source_files_properties(app/main_win32.cpp PROPERTIES COMPILE_DEFINITIONS
                            TARVIK_FAMILY_EDITION=$<BOOL:${TARVIK_FAMILY_EDITION}>)
# windres does not tell what a resource script includes.
set_source_files_properties(resources/tarvik.rc PROPERTIES OBJECT_DEPENDS
  "${PROJECT_SOURCE_DIR}/resources/tarvik.manifest;${PROJECT_SOURCE_DIR}/resources/version.h;${PROJECT_SOURCE_DIR}/resources/icon/tarvik.ico")

# A language file stands in the code page of its own language.
function(add_language_file id code_page)
  set(source ${PROJECT_SOURCE_DIR}/resources/language/Tarvik.exe_${id}.ini)
  set(target ${output}/Language/Tarvik.exe_${id}.ini)
  add_custom_command(OUTPUT ${target} DEPENDS ${source}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${output}/Language
    COMMAND sh -c "sed 's/$/\\r/' '${source}' | iconv -f UTF-8 -t ${code_page} > '${target}'" VERBATIM)
  set(language_files ${language_files} ${target} PARENT_SCOPE)
endfunction()
add_language_file(1033 CP1252)
add_language_file(1041 CP932)
add_custom_target(language_files ALL DEPENDS ${language_files})

if(TARVIK_FAMILY_EDITION)
  add_subdirectory(bench)
  add_subdirectory(lab/bench_caller)
  add_subdirectory(lab/window_driver)
  add_subdirectory(lab/bare_window)
  set_target_properties(window_driver bare_window PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${output})
  add_subdirectory(lab/old_ipconfig)
  add_subdirectory(lab/start_recorder)
endif()
