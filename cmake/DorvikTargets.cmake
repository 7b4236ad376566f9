# A folder with code is one static library: src/basic/values is dorvik_basic_values. Headers below its folder
# include/ are for everybody who links it; those beside the sources are its own. Its include root holds only the
# former, so an #include of a library that is not linked does not compile.
# The names behind LINKS are the project's own libraries; SYSTEM names are libraries from outside.
function(dorvik_library path)
    cmake_parse_arguments(arg "" "" "LINKS;SYSTEM" ${ARGN})
    string(REPLACE "/" "_" name "${path}")
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS
        "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp" "${CMAKE_CURRENT_SOURCE_DIR}/*.h" "${CMAKE_CURRENT_SOURCE_DIR}/*.def")
    add_library(dorvik_${name} STATIC ${sources})
    target_include_directories(dorvik_${name} PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}/include")
    target_compile_options(dorvik_${name} PRIVATE -Wconversion)
    set_target_properties(dorvik_${name} PROPERTIES LINKER_LANGUAGE CXX)
    list(TRANSFORM arg_LINKS PREPEND dorvik_)
    target_link_libraries(dorvik_${name} PUBLIC ${arg_LINKS} PRIVATE dorvik_compiler ${arg_SYSTEM})
endfunction()

# tests/<name> is one test program: dorvik_<name>_tests. Tests also see the headers that are a library's own.
function(dorvik_tests name)
    cmake_parse_arguments(arg "" "" "LINKS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp" "${CMAKE_CURRENT_SOURCE_DIR}/*.h")
    if(NOT sources)
        return()
    endif()
    add_executable(dorvik_${name}_tests ${sources})
    target_include_directories(dorvik_${name}_tests
        PRIVATE "${CMAKE_SOURCE_DIR}/tests" "${CMAKE_SOURCE_DIR}/src" "${CMAKE_SOURCE_DIR}/apps")
    list(TRANSFORM arg_LINKS PREPEND dorvik_)
    target_link_libraries(dorvik_${name}_tests
        PRIVATE ${arg_LINKS} dorvik_test_support dorvik_compiler GTest::gmock GTest::gtest)
    set_property(GLOBAL APPEND PROPERTY DORVIK_TEST_PROGRAMS dorvik_${name}_tests)
    gtest_discover_tests(dorvik_${name}_tests DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300)
endfunction()
