# Warnings, sanitizers and the compiler cache, for every target.
find_program(CCACHE ccache)
if(CCACHE)
    set(CMAKE_C_COMPILER_LAUNCHER ${CCACHE})
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Werror=return-type)

if(VELMORA_SANITIZERS)
    add_compile_options(-fsanitize=${VELMORA_SANITIZERS} -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${VELMORA_SANITIZERS})
endif()

# Windows programs run alone: no compiler runtime beside them.
if(WIN32)
    add_link_options(-static)
    add_compile_definitions(UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0A00)
endif()
