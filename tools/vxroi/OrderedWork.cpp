#include "OrderedWork.h"

#include <algorithm>
#include <thread>

namespace vxroi {

int defaultWorkerCount()
{
    return std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
}

} // namespace vxroi
