// The program's version number, defined only here. The compiler, the resource compiler and CMake read this
// file, so it contains only macros.

#ifndef TARVIK_RESOURCES_VERSION_H
#define TARVIK_RESOURCES_VERSION_H

#define TARVIK_VERSION_MAJOR 1
#define TARVIK_VERSION_MINOR 0
#define TARVIK_VERSION_PATCH 0
#define TARVIK_VERSION_BUILD 0

#define TARVIK_JOIN_TEXT(a, b, c, d) #a "." #b "." #c "." #d
#define TARVIK_JOIN(a, b, c, d) TARVIK_JOIN_TEXT(a, b, c, d)

/// "1.0.0.0"
#define TARVIK_VERSION_TEXT \
  TARVIK_JOIN(TARVIK_VERSION_MAJOR, TARVIK_VERSION_MINOR, TARVIK_VERSION_PATCH, TARVIK_VERSION_BUILD)

#endif
