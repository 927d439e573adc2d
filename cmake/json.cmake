# The JSON library, as the target nlohmann_json::nlohmann_json. It is headers only, so the building
# system's will do for Windows too, but not the folder it lies in, which holds that system's others.
if(NOT CMAKE_CROSSCOMPILING)
  find_package(nlohmann_json 3.11 REQUIRED)
  return()
endif()
find_path(VANDPUBLIC_JSON_HEADERS nlohmann/json.hpp PATHS /usr/include /usr/local/include
          NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
set(json_includes ${PROJECT_BINARY_DIR}/json)
file(MAKE_DIRECTORY ${json_includes})
file(CREATE_LINK ${VANDPUBLIC_JSON_HEADERS}/nlohmann ${json_includes}/nlohmann SYMBOLIC)
add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED GLOBAL)
target_include_directories(nlohmann_json::nlohmann_json SYSTEM INTERFACE ${json_includes})
