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
