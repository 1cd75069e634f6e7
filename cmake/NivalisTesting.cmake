# Test helpers shared by every folder under tests/.
find_package(GTest REQUIRED)

# nivalis_add_test(NAME name LABEL label SOURCES ... LIBS ...)
# One GoogleTest executable, registered with CTest under the given label
# (unit, gl, host or integration), so that each label can run alone.
function(nivalis_add_test)
    cmake_parse_arguments(T "" "NAME;LABEL;TIMEOUT" "SOURCES;LIBS" ${ARGN})
    add_executable(${T_NAME} ${T_SOURCES})
    target_link_libraries(${T_NAME} PRIVATE ${T_LIBS} GTest::gtest GTest::gtest_main GTest::gmock)
    add_test(NAME ${T_NAME} COMMAND ${T_NAME})
    if(NOT T_TIMEOUT)
        set(T_TIMEOUT 600)
    endif()
    set_tests_properties(${T_NAME} PROPERTIES LABELS "${T_LABEL}" TIMEOUT ${T_TIMEOUT})
endfunction()
