# Warnings, sanitizers and the compiler cache, for every target.
find_program(CCACHE ccache)
if(CCACHE)
    set(CMAKE_C_COMPILER_LAUNCHER ${CCACHE})
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Werror=return-type)
if(VELMORA_WERROR)
    add_compile_options(-Werror)
endif()
# GCC 12 takes the parts of a joined std::string for overlapping once its own code is inlined.
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-Wno-restrict>)
endif()

# Several sources make one unit: GCC would stop inlining, even of string operations, once such a unit
# has grown by its usual share. A check of many rows cost a tenth more instructions.
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    add_compile_options($<$<CONFIG:Release>:--param=inline-unit-growth=400>)
    # With so much inlined GCC 12 takes moved texts for uninitialised; the other builds still look.
    add_compile_options($<$<CONFIG:Release>:-Wno-maybe-uninitialized>)
endif()

if(VELMORA_SANITIZERS)
    add_compile_options(-fsanitize=${VELMORA_SANITIZERS} -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${VELMORA_SANITIZERS})
endif()

# Coverage of everything that runs guides the fuzzer.
if(VELMORA_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# Windows programs run alone: no compiler runtime beside them.
if(WIN32)
    add_link_options(-static)
    add_compile_definitions(UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0A00)
endif()
