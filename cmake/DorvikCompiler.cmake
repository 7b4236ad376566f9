# One place for the language level, the warnings and the sanitizers of the project's own code.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

option(DORVIK_TESTS "Build the tests" ON)
set(DORVIK_TEST_BATCH 1 CACHE STRING "How many sources of a test program are compiled at a time")
option(DORVIK_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)

add_library(dorvik_compiler INTERFACE)
target_compile_options(dorvik_compiler INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wswitch-enum -Wnon-virtual-dtor -Woverloaded-virtual
    -Wimplicit-fallthrough -Wsuggest-override -Werror
    # In optimised builds g++ 12 sees these two inside its own std::string and std::variant, wrongly.
    "$<$<OR:$<CONFIG:Release>,$<BOOL:${DORVIK_SANITIZE}>>:-Wno-restrict;-Wno-maybe-uninitialized>")

# g++ 12 takes the default of a result for a dead store where a catch returns it: after
# `T t = {}; try { t = f(); } catch (...) {} return t;` with an f that throws, a T of at most 16 bytes that comes
# back in registers holds garbage. Without this pass the code is right; no cost could be measured.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-fno-tree-dse)
endif()

if(DORVIK_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

option(DORVIK_FUZZ "Build the fuzzers (Clang only)" OFF)
if(DORVIK_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
    target_compile_options(dorvik_compiler INTERFACE -Wno-error)  # the warnings that count are those of g++
endif()

find_program(DORVIK_CCACHE ccache)
if(DORVIK_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${DORVIK_CCACHE}")
endif()

find_program(DORVIK_MOLD mold)
if(DORVIK_MOLD)
    add_link_options(-fuse-ld=mold)
endif()
