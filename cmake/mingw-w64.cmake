# The Windows compilers of Debian, for the machine that the preset names (i686 or x86_64). The variant with
# Windows' own threads needs no thread library beside the program.
set(CMAKE_SYSTEM_NAME Windows)
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TARVIK_MACHINE)
set(CMAKE_SYSTEM_PROCESSOR ${TARVIK_MACHINE})
set(CMAKE_C_COMPILER ${TARVIK_MACHINE}-w64-mingw32-gcc-win32)
set(CMAKE_CXX_COMPILER ${TARVIK_MACHINE}-w64-mingw32-g++-win32)
set(CMAKE_RC_COMPILER ${TARVIK_MACHINE}-w64-mingw32-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${TARVIK_MACHINE}-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
