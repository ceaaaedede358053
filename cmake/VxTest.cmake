include(GoogleTest)

# vx_test(<name> <source>...): a GoogleTest program; each of its tests is a test of ctest.
function(vx_test name)
    add_executable(${name} ${ARGN})
    vx_target(${name})
    target_link_libraries(${name} PRIVATE vxtestsupport GTest::gtest_main)
    vx_optimise_little(${name})
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 600)
endfunction()
