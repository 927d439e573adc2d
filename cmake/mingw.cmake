# What both Windows targets share. The compilers with POSIX threads: the others have no <mutex>.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_CXX_COMPILER ${VANDPUBLIC_MINGW}-g++-posix)
set(CMAKE_C_COMPILER ${VANDPUBLIC_MINGW}-gcc-posix)
set(CMAKE_RC_COMPILER ${VANDPUBLIC_MINGW}-windres)
set(VANDPUBLIC_WIDL ${VANDPUBLIC_MINGW}-widl)

# Libraries and headers of the target only; programs of the building machine.
set(CMAKE_FIND_ROOT_PATH /usr/${VANDPUBLIC_MINGW})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Windows 7 and later. The C++ runtime goes into each file, so that nothing has to be installed
# beside it; what stays imported is the system's own.
add_compile_definitions(UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0601)
add_link_options(-static)

# CTest runs the programs under Wine.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/wine.sh ${VANDPUBLIC_WINE})
