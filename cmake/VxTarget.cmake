# vx_target(<target>): the language level, arithmetic, warnings and hardening that every target of this
# project is built with.
function(vx_target target)
    target_compile_features(${target} PUBLIC cxx_std_17)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    target_compile_definitions(${target} PRIVATE QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII)
    target_compile_options(${target} PRIVATE
        # A fused multiply-add rounds once where the results are defined by rounding twice.
        -ffp-contract=off
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
        -Woverloaded-virtual -Wnon-virtual-dtor -Wcast-qual -Wundef -Wformat=2
        $<$<BOOL:${VXROI_WARNINGS_AS_ERRORS}>:-Werror>)
    # What Debian hardens its programs with.
    target_compile_options(${target} PRIVATE
        $<$<CONFIG:Release>:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -fstack-protector-strong
        -fstack-clash-protection>)
    target_link_options(${target} PRIVATE $<$<CONFIG:Release>:LINKER:-z,relro,-z,now>)
endfunction()

# vx_optimise_little(<target>): for code that takes longer to compile with -O3 than it ever gains.
function(vx_optimise_little target)
    target_compile_options(${target} PRIVATE $<$<NOT:$<CONFIG:Debug>>:-O1>)
endfunction()

# vx_shared_library(<target>): what every library has that is installed: a version, the exports that the file
# exports.map beside its sources lists, and public headers that compile alone.
function(vx_shared_library target)
    set_target_properties(${target} PROPERTIES
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}
        LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/libs"
        VERIFY_INTERFACE_HEADER_SETS ON)
    set(exports "${CMAKE_CURRENT_SOURCE_DIR}/exports.map")
    if(CMAKE_SYSTEM_NAME STREQUAL Linux)
        target_link_options(${target} PRIVATE "LINKER:--version-script=${exports}")
        set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS "${exports}")
    endif()
    if(BUILD_TESTING)
        # The test of the binary interface reads the types out of the debug information.
        target_compile_options(${target} PRIVATE -g)
    endif()
endfunction()
