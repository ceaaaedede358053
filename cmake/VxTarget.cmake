# vx_target(<target>): the language level, arithmetic and warnings that every target of this project
# is built with.
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
endfunction()
