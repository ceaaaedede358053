#include "Benchmarks.h"

#include "kernels/RowLoops.h"

#include <benchmark/benchmark.h>

#include <QString>
#include <QSysInfo>

#include <fstream>
#include <string>

namespace {

std::string processorName()
{
    std::ifstream processors("/proc/cpuinfo");
    std::string line;
    while (std::getline(processors, line)) {
        if (line.rfind("model name", 0) == 0)
            return line.substr(line.find(':') + 2);
    }
    return QSysInfo::currentCpuArchitecture().toStdString();
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::AddCustomContext("processor", processorName());
    benchmark::AddCustomContext("compiler", VXROI_COMPILER);
    benchmark::AddCustomContext("build", VXROI_BUILD_TYPE);
    benchmark::AddCustomContext("loops", vx::kernels::fastestRowLoops().name);
    benchmark::AddCustomContext("qt", qVersion());
    benchmarks::registerClasses();
    benchmarks::registerCrops();
    benchmarks::registerLoops();
    benchmarks::registerProcesses();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
