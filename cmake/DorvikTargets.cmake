# A folder with code is one static library: src/basic/values is dorvik_basic_values. Headers below its folder
# include/ are for everybody who links it; those beside the sources are its own. Its include root holds only the
# former, so an #include of a library that is not linked does not compile.
# The names after LINKS are the project's own libraries; SYSTEM names are libraries from outside.
# A folder linux/ or windows/ holds sources for that system alone.
function(dorvik_library path)
    cmake_parse_arguments(arg "" "" "LINKS;SYSTEM" ${ARGN})
    string(REPLACE "/" "_" name "${path}")
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS
        "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp" "${CMAKE_CURRENT_SOURCE_DIR}/*.h" "${CMAKE_CURRENT_SOURCE_DIR}/*.def")
    foreach(system Linux Windows)
        if(NOT system STREQUAL CMAKE_SYSTEM_NAME)
            string(TOLOWER "${system}" folder)
            list(FILTER sources EXCLUDE REGEX "^${CMAKE_CURRENT_SOURCE_DIR}/${folder}/")
        endif()
    endforeach()
    add_library(dorvik_${name} STATIC ${sources})
    target_include_directories(dorvik_${name} PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}/include")
    target_compile_options(dorvik_${name} PRIVATE -Wconversion)
    set_target_properties(dorvik_${name} PROPERTIES LINKER_LANGUAGE CXX)
    list(TRANSFORM arg_LINKS PREPEND dorvik_)
    target_link_libraries(dorvik_${name} PUBLIC ${arg_LINKS} PRIVATE dorvik_compiler ${arg_SYSTEM})
endfunction()

# A library whose public headers include Qt. QT names components besides Widgets. There is no code made by Qt's own
# compiler: classes tell each other what happens by `Event`, as everywhere.
function(dorvik_qt_library path)
    cmake_parse_arguments(arg "" "" "LINKS;QT" ${ARGN})
    dorvik_library(${path} LINKS ${arg_LINKS})
    string(REPLACE "/" "_" name "${path}")
    list(TRANSFORM arg_QT PREPEND Qt6::)
    target_link_libraries(dorvik_${name} PUBLIC Qt6::Widgets ${arg_QT})
    target_compile_definitions(dorvik_${name}
        PUBLIC QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_ASCII QT_NO_FOREACH)
endfunction()

# tests/<name> is one test program: dorvik_<name>_tests. Tests also see the headers that are a library's own.
# CTest starts it once, or once for each of the SHARDS, which then take turns with the tests: a process for each
# test would cost more than the tests do. `dorvik_<name>_tests --gtest_filter=...` runs some of them.
function(dorvik_tests name)
    cmake_parse_arguments(arg "" "SHARDS" "LINKS" ${ARGN})
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
    dorvik_test_batches(dorvik_${name}_tests)
    if(NOT arg_SHARDS)
        set(arg_SHARDS 1)
    endif()
    foreach(shard RANGE 1 ${arg_SHARDS})
        math(EXPR index "${shard} - 1")
        set(test "${name}")
        if(arg_SHARDS GREATER 1)
            set(test "${name}.${shard}of${arg_SHARDS}")
        endif()
        add_test(NAME "${test}" COMMAND dorvik_${name}_tests --gtest_brief=1)
        set_tests_properties("${test}" PROPERTIES
            TIMEOUT 1800
            ENVIRONMENT "GTEST_TOTAL_SHARDS=${arg_SHARDS};GTEST_SHARD_INDEX=${index}"
            FAIL_REGULAR_EXPRESSION "==========. 0 tests from")
    endforeach()
endfunction()

# Where a preset requests batches, several sources of a test program are one translation unit: most of the cost of
# a test's source is GoogleTest and the standard library, which a batch reads and instantiates once. Names without
# linkage must therefore differ within a program. In optimised builds tests themselves are optimised little.
function(dorvik_test_batches target)
    if(DORVIK_TEST_BATCH GREATER 1)
        set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE ${DORVIK_TEST_BATCH})
        # A fixture of an anonymous namespace is, to the compiler, in a file that others include.
        target_compile_options(${target} PRIVATE -Wno-subobject-linkage)
    endif()
    target_compile_options(${target} PRIVATE "$<$<CONFIG:Release>:-O1>")
endfunction()
