// thread-pool PICTURE...: finds the best square of many pictures, on all cores.
#include <VXRegionOfInterest/VXSalienzMaximizerHorizontal.h>
#include <VXRegionOfInterest/VXSalienzMixer.h>

#include <QThreadPool>

#include <iostream>
#include <vector>

namespace {

// One mixer for each task: mixers share nothing, so nothing needs a lock.
int startOfBestSquare(const QString& path)
{
    const QImage map = VXSalienzMixer(QSize(640, 480)).analyze(QImage(path));
    if (map.isNull())
        return -1;
    return VXSalienzMaximizerHorizontal().startOfBestRange(map, map.height());
}

} // namespace

int main(int argc, char** argv)
{
    const std::vector<const char*> paths(argv + 1, argv + argc);
    std::vector<int> starts(paths.size());
    QThreadPool pool;
    for (std::size_t i = 0; i < paths.size(); ++i)
        pool.start([&, i] { starts[i] = startOfBestSquare(QString::fromLocal8Bit(paths[i])); });
    pool.waitForDone();

    int failures = 0;
    for (std::size_t i = 0; i < paths.size(); ++i) {
        std::cout << paths[i] << ": from column " << starts[i] << " of the map\n";
        failures += starts[i] < 0 ? 1 : 0;
    }
    return failures == 0 ? 0 : 1;
}
