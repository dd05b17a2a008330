# The headers that Debian's package "nlohmann-json3-dev" installs, apart from this machine's others.
if(NOT TARGET nlohmann_json::nlohmann_json)
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/include)
  file(CREATE_LINK /usr/include/nlohmann ${CMAKE_BINARY_DIR}/include/nlohmann SYMBOLIC)
  add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED)
  target_include_directories(nlohmann_json::nlohmann_json INTERFACE ${CMAKE_BINARY_DIR}/include)
endif()
set(nlohmann_json_VERSION 3.10)
