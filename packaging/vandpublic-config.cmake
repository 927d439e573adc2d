# find_package(vandpublic) gives vandpublic::vandpublic (shared) and vandpublic::static.
include(CMakeFindDependencyMacro)
find_dependency(PkgConfig)
include(${CMAKE_CURRENT_LIST_DIR}/vandpublic-targets.cmake)

# What the static library needs at its user's link.
pkg_check_modules(VANDPUBLIC_PCRE2 REQUIRED IMPORTED_TARGET libpcre2-16)
target_link_libraries(vandpublic::static INTERFACE PkgConfig::VANDPUBLIC_PCRE2)
