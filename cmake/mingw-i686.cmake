# Cross-building for 32-bit Windows with Debian's g++-mingw-w64-i686-posix.
set(VANDPUBLIC_MINGW i686-w64-mingw32)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(VANDPUBLIC_WINE x86)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
