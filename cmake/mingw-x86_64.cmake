# Cross-building for 64-bit Windows with Debian's g++-mingw-w64-x86-64-posix.
set(VANDPUBLIC_MINGW x86_64-w64-mingw32)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(VANDPUBLIC_WINE x64)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
