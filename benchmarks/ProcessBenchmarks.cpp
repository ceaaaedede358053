#include "Benchmarks.h"

#include "Subject.h"

#include <VXRegionOfInterest/VXSalienzMixer.h>

#include "support/Memory.h"
#include "support/Random.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>

namespace {

using namespace benchmarks;

void registerMemory()
{
    for (const QSize& size : { QSize(320, 240), QSize(6000, 4000) }) {
        const auto run = [size](benchmark::State& state) {
            const QImage& image = picture(Kind::Photo, size);
            double peak = 0;
            for ([[maybe_unused]] const auto iteration : state)
                peak = support::peakMemoryOf([&] { VXSalienzMixer(QSize()).analyze(image); });
            state.counters["bytes_per_pixel"] = peak / static_cast<double>(pixelsOf(size));
        };
        benchmark::RegisterBenchmark(nameOf("memory", "fast", Kind::Photo, size).c_str(), run)
            ->Iterations(1)
            ->Unit(benchmark::kMillisecond);
    }
}

// Picture after picture in a process that frees nothing larger: what it costs to obtain the memory again.
void registerHost()
{
    for (const QSize& size : { QSize(320, 240), workingSize }) {
        const auto run = [size](benchmark::State& state) {
            QTemporaryDir folder;
            const QString path = folder.filePath(QStringLiteral("photo.png"));
            picture(Kind::Photo, size).save(path);
            for ([[maybe_unused]] const auto iteration : state) {
                QProcess host;
                host.start(QStringLiteral(VXROI_HOST), { path });
                host.waitForFinished();
                state.SetIterationTime(host.readAllStandardOutput().toDouble() / 1e3);
            }
        };
        benchmark::RegisterBenchmark(nameOf("host", "fast", Kind::Photo, size).c_str(), run)
            ->UseManualTime()
            ->Iterations(1)
            ->Unit(benchmark::kMillisecond);
    }
}

// One mixer per thread.
void registerThreads()
{
    for (const QSize& size : { QSize(320, 240), workingSize }) {
        const auto run = [size](benchmark::State& state) {
            const QImage& image = picture(Kind::Photo, size);
            VXSalienzMixer mixer(size);
            for ([[maybe_unused]] const auto iteration : state)
                benchmark::DoNotOptimize(mixer.analyze(image));
            state.SetItemsProcessed(state.iterations() * pixelsOf(size));
        };
        picture(Kind::Photo, size); // drawn before there are threads
        benchmark::RegisterBenchmark(nameOf("threads", "fast", Kind::Photo, size).c_str(), run)
            ->Threads(1)
            ->Threads(2)
            ->UseRealTime()
            ->Unit(benchmark::kMillisecond);
    }
}

// The photo as a camera would have taken it: drawn scenes lack the grain that makes real files large.
QImage withGrain(QImage photo)
{
    constexpr int strongest = 6; // levels up and down
    support::Random random(1);
    for (int y = 0; y < photo.height(); ++y) {
        QRgb* const row = reinterpret_cast<QRgb*>(photo.scanLine(y));
        std::transform(row, row + photo.width(), row, [&random](QRgb pixel) {
            const int grain = random.below(2 * strongest + 1) - strongest;
            const auto grainy = [grain](int level) { return std::clamp(level + grain, 0, 255); };
            return qRgb(grainy(qRed(pixel)), grainy(qGreen(pixel)), grainy(qBlue(pixel)));
        });
    }
    return photo;
}

// Whole processes: the command line's decision beside the decoding that it cannot do without.
void registerCommandLine()
{
    static const QTemporaryDir folder;
    for (const QSize& size : { QSize(320, 240), QSize(6000, 4000) }) {
        const QString path
            = folder.filePath(QStringLiteral("%1x%2.jpg").arg(size.width()).arg(size.height()));
        const auto runs = [=](const char* program, const QStringList& arguments) {
            return [=](benchmark::State& state) {
                if (!QFile::exists(path))
                    withGrain(picture(Kind::Photo, size)).save(path, "jpg", 92);
                for ([[maybe_unused]] const auto iteration : state) {
                    if (QProcess::execute(QString::fromUtf8(program), arguments) != 0)
                        state.SkipWithError("the program failed");
                }
            };
        };
        const QStringList decision { QStringLiteral("crop"), path, QStringLiteral("--ratio"),
            QStringLiteral("1:1") };
        const auto add = [&](const char* way, const auto& run) {
            benchmark::RegisterBenchmark(nameOf("process", way, Kind::Photo, size).c_str(), run)
                ->UseRealTime()
                ->Unit(benchmark::kMillisecond);
        };
        add("fast", runs(VXROI_PROGRAM, decision));
        add("plain", runs(VXROI_SCALED_DECODE, { path }));
    }
}

} // namespace

void benchmarks::registerProcesses()
{
    registerMemory();
    registerHost();
    registerThreads();
    registerCommandLine();
}
