# find_package(vandpublic) gives vandpublic::vandpublic (shared) and vandpublic::static.
include(CMakeFindDependencyMacro)
include(${CMAKE_CURRENT_LIST_DIR}/vandpublic-targets.cmake)
