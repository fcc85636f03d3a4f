# nlohmann's JSON library, for native and cross builds alike. It is headers only, and the
# distribution puts them into /usr/include, which a cross compiler must not see: so the target
# offers a folder of the build tree that holds a link to them and nothing else.
find_path(VELMORA_JSON_HEADERS nlohmann/json.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH
    DOC "The folder in which nlohmann/json.hpp lies")
if(NOT VELMORA_JSON_HEADERS)
    message(FATAL_ERROR "nlohmann/json.hpp not found: install the package nlohmann-json3-dev "
        "or set VELMORA_JSON_HEADERS")
endif()
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/json)
if(NOT EXISTS ${CMAKE_BINARY_DIR}/json/nlohmann)
    file(CREATE_LINK ${VELMORA_JSON_HEADERS}/nlohmann ${CMAKE_BINARY_DIR}/json/nlohmann
        COPY_ON_ERROR SYMBOLIC)
endif()
add_library(velmora_json INTERFACE)
target_include_directories(velmora_json SYSTEM INTERFACE ${CMAKE_BINARY_DIR}/json)
