# A folder below src/ is one static library that carries its name: src/base is dorvik_base.
# The names behind LINKS are the project's own libraries; SYSTEM names are libraries from outside.
function(dorvik_library name)
    cmake_parse_arguments(arg "" "" "LINKS;SYSTEM" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp" "${CMAKE_CURRENT_SOURCE_DIR}/*.h")
    add_library(dorvik_${name} STATIC ${sources})
    target_include_directories(dorvik_${name} PUBLIC "${CMAKE_SOURCE_DIR}/src")
    target_compile_options(dorvik_${name} PRIVATE -Wconversion)
    set_target_properties(dorvik_${name} PROPERTIES LINKER_LANGUAGE CXX)
    list(TRANSFORM arg_LINKS PREPEND dorvik_)
    target_link_libraries(dorvik_${name} PUBLIC ${arg_LINKS} PRIVATE dorvik_compiler ${arg_SYSTEM})
endfunction()

# tests/<name> is one test program for src/<name>: dorvik_<name>_tests.
function(dorvik_tests name)
    cmake_parse_arguments(arg "" "" "LINKS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp" "${CMAKE_CURRENT_SOURCE_DIR}/*.h")
    if(NOT sources)
        return()
    endif()
    add_executable(dorvik_${name}_tests ${sources})
    target_include_directories(dorvik_${name}_tests PRIVATE "${CMAKE_SOURCE_DIR}/tests")
    list(TRANSFORM arg_LINKS PREPEND dorvik_)
    target_link_libraries(dorvik_${name}_tests
        PRIVATE ${arg_LINKS} dorvik_test_support dorvik_compiler GTest::gmock GTest::gtest)
    set_property(GLOBAL APPEND PROPERTY DORVIK_TEST_PROGRAMS dorvik_${name}_tests)
    gtest_discover_tests(dorvik_${name}_tests DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300)
endfunction()
