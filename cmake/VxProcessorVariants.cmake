# The innermost loops are compiled once for every processor of their kind, and again for wider ones.

# GCC 12 vectorises the pixel loops at -O3 only, and calls the library for roots that might set errno.
set(vx_loop_options $<$<NOT:$<CONFIG:Debug>>:-O3> -fno-math-errno)

# vx_wider_variant(<target> <name> <source> <flag>...): adds to a target what <source> becomes for the processors
# that the flags stand for. The global property VXROI_WIDER_VARIANTS lists the names.
function(vx_wider_variant target name source)
    set(variant ${target}_${name})
    add_library(${variant} OBJECT ${source})
    vx_target(${variant})
    set_target_properties(${variant} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    target_compile_definitions(${variant} PRIVATE VXROI_LOOPS=${name})
    target_compile_options(${variant} PRIVATE ${vx_loop_options} ${ARGN})
    target_link_libraries(${variant} PRIVATE Qt5::Gui)
    target_sources(${target} PRIVATE $<TARGET_OBJECTS:${variant}>)
    set_property(GLOBAL APPEND PROPERTY VXROI_WIDER_VARIANTS ${name})
endfunction()

# vx_processor_variants(<target> <source>): what <target> compiles of its own for every processor, and of <source>
# for those with AVX2 and with AVX-512.
function(vx_processor_variants target source)
    target_compile_options(${target} PRIVATE ${vx_loop_options})
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64)$")
        target_compile_definitions(${target} PRIVATE VXROI_WIDER_LOOPS)
        vx_wider_variant(${target} avx2 ${source} -mavx2 -mfma)
        vx_wider_variant(${target} avx512 ${source} -mavx2 -mfma -mavx512f -mavx512bw -mavx512dq -mavx512vl
            -mprefer-vector-width=512)
    endif()
endfunction()
