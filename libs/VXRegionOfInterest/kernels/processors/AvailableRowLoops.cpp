#include "../RowLoops.h"

namespace vx::kernels::loops {
extern const RowLoops plain;
#ifdef VXROI_WIDER_LOOPS
extern const RowLoops avx2;
extern const RowLoops avx512;
#endif
} // namespace vx::kernels::loops

std::vector<const vx::kernels::RowLoops*> vx::kernels::availableRowLoops()
{
    std::vector<const RowLoops*> available { &loops::plain };
#ifdef VXROI_WIDER_LOOPS
    __builtin_cpu_init();
    const bool hasAvx2 = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma");
    const bool hasAvx512 = hasAvx2 && __builtin_cpu_supports("avx512f")
        && __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512dq")
        && __builtin_cpu_supports("avx512vl");
    if (hasAvx2)
        available.push_back(&loops::avx2);
    if (hasAvx512)
        available.push_back(&loops::avx512);
#endif
    return available;
}

const vx::kernels::RowLoops& vx::kernels::fastestRowLoops()
{
    static const RowLoops& fastest = *availableRowLoops().back();
    return fastest;
}
