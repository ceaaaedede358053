#include "Benchmarks.h"

#include "LiteralAnalysis.h"
#include "Pictures.h"

#include <VXCrop/VXCrop.h>
#include <VXRegionOfInterest/VXBackgroundROI.h>
#include <VXRegionOfInterest/VXGaussROI.h>
#include <VXRegionOfInterest/VXGaussianBlur.h>
#include <VXRegionOfInterest/VXHistogramROI.h>
#include <VXRegionOfInterest/VXMaxFilter.h>
#include <VXRegionOfInterest/VXSalienzAchanta.h>
#include <VXRegionOfInterest/VXSalienzClusterer.h>
#include <VXRegionOfInterest/VXSalienzMaximizerHorizontal.h>
#include <VXRegionOfInterest/VXSalienzMaximizerVertical.h>
#include <VXRegionOfInterest/VXSalienzMixer.h>
#include <VXRegionOfInterest/VXSobelROI.h>
#include <VXRegionOfInterest/VXVeryImportantAreasROI.h>

#include "kernels/CentrePrior.h"
#include "kernels/Cubes.h"
#include "kernels/GaussianBlur.h"
#include "kernels/background/BackgroundMap.h"
#include "kernels/blend/Blend.h"
#include "kernels/dilation/Dilation.h"
#include "kernels/edges/EdgeResponse.h"
#include "kernels/histogram/HistogramLoops.h"
#include "kernels/image/LumaChroma.h"
#include "kernels/image/PixelWords.h"
#include "kernels/image/RedSums.h"
#include "kernels/surround/SurroundContrast.h"
#include "support/GreyImage.h"
#include "support/Memory.h"
#include "support/PlainHistogramROI.h"
#include "support/Random.h"

#include <benchmark/benchmark.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>

namespace {

using namespace benchmarks;
namespace reference = vx::kernels::reference;

const QSize workingSize(640, 480);

// Something that is measured, and the plain way to the same result.
template <typename Result> struct Subject {
    std::string name;
    std::function<Result(const QImage&)> fast;
    std::function<Result(const QImage&)> plain;
    int widestPlain = 1920; // beyond that the plain way is not timed
};

std::string nameOf(const std::string& subject, const char* way, Kind kind, const QSize& size)
{
    return subject + "/" + way + "/" + nameOf(kind) + "/" + std::to_string(size.width()) + "x"
        + std::to_string(size.height());
}

qint64 pixelsOf(const QSize& size) { return qint64 { size.width() } * size.height(); }

template <typename Result>
void time(
    benchmark::State& state, const std::function<Result(const QImage&)>& way, const QImage& image)
{
    for ([[maybe_unused]] const auto iteration : state)
        benchmark::DoNotOptimize(way(image));
    state.SetItemsProcessed(state.iterations() * pixelsOf(image.size()));
}

template <typename Result>
void registerFast(const Subject<Result>& subject, Kind kind, const QSize& size)
{
    const auto isVerified = std::make_shared<bool>(false);
    const auto run = [subject, kind, size, isVerified](benchmark::State& state) {
        const QImage& image = picture(kind, size);
        *isVerified = *isVerified || subject.fast(image) == subject.plain(image);
        if (*isVerified)
            time(state, subject.fast, image);
        else
            state.SkipWithError("the result is not the plain one");
    };
    benchmark::RegisterBenchmark(nameOf(subject.name, "fast", kind, size).c_str(), run)
        ->Unit(benchmark::kMillisecond);
}

template <typename Result>
void registerPair(const Subject<Result>& subject, Kind kind, const QSize& size)
{
    registerFast(subject, kind, size);
    if (size.width() > subject.widestPlain)
        return;
    const auto run = [subject, kind, size](benchmark::State& state) {
        time(state, subject.plain, picture(kind, size));
    };
    benchmark::RegisterBenchmark(nameOf(subject.name, "plain", kind, size).c_str(), run)
        ->Unit(benchmark::kMillisecond)
        ->MinTime(0.001);
}

template <typename Result> void registerEverywhere(const Subject<Result>& subject)
{
    for (const QSize& size : sizes()) {
        for (const Kind kind : { Kind::Photo, Kind::Noise, Kind::Flat })
            registerPair(subject, kind, size);
    }
}

QImage mapFor(const QImage& image) { return QImage(image.size(), QImage::Format_ARGB32); }

using ImageSubject = Subject<QImage>;

void registerMethods()
{
    registerEverywhere(ImageSubject { "VXSalienzAchanta",
        [](const QImage& image) { return VXSalienzAchanta().evaluate(image); }, literalContrast });
    registerEverywhere(ImageSubject { "VXSobelROI",
        [](const QImage& image) { return VXSobelROI().evaluate(image); }, literalEdges });
    registerEverywhere(ImageSubject { "VXGaussROI",
        [](const QImage& image) { return VXGaussROI().evaluate(image); },
        [](const QImage& image) {
            return support::greyImage(
                image.size(), [](QImage& greyMap) { reference::centrePrior(greyMap); });
        } });
    registerEverywhere(ImageSubject { "VXBackgroundROI",
        [](const QImage& image) { return VXBackgroundROI().evaluate(image); },
        [](const QImage& image) {
            QImage map = mapFor(image);
            reference::writeBackgroundMap(image, map);
            return map;
        } });
    registerEverywhere(ImageSubject { "VXHistogramROI",
        [](const QImage& image) { return VXHistogramROI().evaluate(image); },
        [](const QImage& image) { return support::plainHistogramMap(image, {}); } });
    // Drawn by QPainter, the plain way and the only one.
    const auto markedAreas = [](const QImage& image) {
        const QRect area(image.width() / 4, image.height() / 3, 50, 40);
        return VXVeryImportantAreasROI({ area }, image.size()).evaluate(image);
    };
    registerEverywhere(ImageSubject { "VXVeryImportantAreasROI", markedAreas, markedAreas, 0 });
}

void registerFilters()
{
    registerEverywhere(ImageSubject { "VXGaussianBlur",
        [](const QImage& image) { return VXGaussianBlur(3, 2.6).evaluate(image); },
        [](const QImage& image) {
            QImage blurred = mapFor(image);
            reference::gaussianBlur(image, VXGaussianBlur::createGaussianKernel(3, 2.6), blurred);
            return blurred;
        } });
    registerEverywhere(ImageSubject { "VXMaxFilter",
        [](const QImage& image) { return VXMaxFilter(90, 150).evaluate(image); },
        [](const QImage& image) { return reference::dilate(image, 45, 150); } });
    registerEverywhere(ImageSubject { "VXSobelROI::convolute",
        [](const QImage& image) { return VXSobelROI().convolute(image); },
        [](const QImage& image) {
            QImage response = mapFor(image);
            reference::respondToKernel(image, { 1, 2, 1, 0, 0, 0, -1, -2, -1 }, 12, response);
            return response;
        } });
    registerEverywhere(ImageSubject { "VXSobelROI::combine",
        [](const QImage& image) { return VXSobelROI().combine(image, image); },
        [](const QImage& image) {
            QImage combined(image.size(), image.format());
            reference::combineResponses(image, image, combined);
            return combined;
        } });
}

void registerMixerAndReaders()
{
    registerEverywhere(ImageSubject { "VXSalienzMixer::analyze",
        [](const QImage& image) { return VXSalienzMixer(QSize()).analyze(image); },
        literalAnalysis });
    registerEverywhere(ImageSubject { "VXSalienzMixer::mix",
        [](const QImage& image) {
            return VXSalienzMixer(QSize()).mix({ image, image, image, image }, { 20, 2, -10, 10 });
        },
        [](const QImage& image) {
            QImage blended = mapFor(image);
            reference::blend({ image, image, image, image }, { 20, 2, -10, 10 }, blended);
            return blended;
        } });
    registerEverywhere(ImageSubject { "VXSalienzClusterer",
        [](const QImage& image) { return VXSalienzClusterer().cluster(image); },
        [](const QImage& image) {
            QImage clustered = mapFor(image);
            const int total = reference::totalRed(image);
            const vx::kernels::CubeStandard standard { total / 10 / 10,
                total / image.width() / image.height() };
            reference::paintCubes(
                image, QSize(image.width() / 10, image.height() / 10), standard, clustered);
            return clustered;
        } });
    registerEverywhere(Subject<QList<long long>> { "VXSalienzMaximizerHorizontal",
        [](const QImage& image) { return VXSalienzMaximizerHorizontal().sums(image); },
        reference::columnRedSums });
    registerEverywhere(Subject<QList<long long>> { "VXSalienzMaximizerVertical",
        [](const QImage& image) { return VXSalienzMaximizerVertical().sums(image); },
        reference::rowRedSums });
}

// The kernels that take longest, with each variant of the loops.
void registerVariants()
{
    for (const vx::kernels::RowLoops* const loops : vx::kernels::availableRowLoops()) {
        const std::string name = std::string("loops for ") + loops->name;
        const ImageSubject contrast { name + ": surround contrast",
            [loops](const QImage& image) {
                return support::greyImage(image.size(), [&](QImage& greyMap) {
                    vx::kernels::surroundContrast(image, greyMap, *loops);
                });
            },
            [](const QImage& image) {
                return support::greyImage(image.size(),
                    [&](QImage& greyMap) { reference::surroundContrast(image, greyMap); });
            } };
        const ImageSubject filter { name + ": maximum filter, grey",
            [loops](const QImage& image) { return vx::kernels::dilate(image, 45, 150, *loops); },
            [](const QImage& image) { return reference::dilate(image, 45, 150); } };
        const ImageSubject chroma { name + ": bins of chroma",
            [loops](const QImage& image) {
                QImage bins = mapFor(image);
                for (int y = 0; y < image.height(); ++y)
                    loops->histogram.findChromaBins(vx::kernels::wordRow(image, y), image.width(),
                        256, 256, vx::kernels::writableWordRow(bins, y));
                return bins;
            },
            [](const QImage& image) {
                QImage bins = mapFor(image);
                for (int y = 0; y < image.height(); ++y) {
                    for (int x = 0; x < image.width(); ++x)
                        bins.setPixel(
                            x, y, vx::kernels::packedLumaChromaOf(image.pixel(x, y)) & 0x0000FFFFU);
                }
                return bins;
            } };
        for (const QSize& size : { QSize(320, 240), workingSize, QSize(1920, 1280) }) {
            registerPair(contrast, Kind::Photo, size);
            registerPair(filter, Kind::Bright, size);
            registerPair(chroma, Kind::Photo, size);
        }
    }
}

// From a picture in memory to the start of its square crop.
void registerDecision()
{
    const auto startOfSquare = [](const QImage& map) {
        return VXSalienzMaximizerHorizontal().startOfBestRange(map, map.height());
    };
    registerEverywhere(Subject<int> { "crop decision",
        [=](const QImage& image) {
            return startOfSquare(VXSalienzMixer(workingSize).analyze(image));
        },
        [=](const QImage& image) {
            return startOfSquare(literalAnalysis(
                image.scaled(workingSize, Qt::KeepAspectRatio, Qt::FastTransformation)));
        } });
    registerEverywhere(Subject<QRect> { "VXCrop",
        [](const QImage& image) { return VXCrop(image).window(QSize(1, 1)).window; },
        [](const QImage& image) {
            const QImage working = VXCrop::workingImage(image);
            QImage map = mapFor(working);
            reference::writeBackgroundMap(working, map);
            return VXCrop::fromMap(map, image.size()).window(QSize(1, 1)).window;
        } });
}

// The arm and the content that the maximum filter is compared by.
void registerMaximumFilterExtremes()
{
    for (const QSize& size : { QSize(320, 240), QSize(640, 480), QSize(1920, 1280) }) {
        for (const int arm : { 3, 45, 1000 }) {
            const ImageSubject filter { "VXMaxFilter with arms of " + std::to_string(arm),
                [arm](const QImage& image) { return VXMaxFilter(2 * arm, 150).evaluate(image); },
                [arm](const QImage& image) { return reference::dilate(image, arm, 150); }, 0 };
            registerPair(filter, Kind::Bright, size);
            registerPair(filter, Kind::Dark, size);
        }
    }
}

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

// Picture after picture in a process that frees nothing larger: what it costs to come by memory again.
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
void registerProcesses()
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

void benchmarks::registerAll()
{
    registerMethods();
    registerFilters();
    registerMixerAndReaders();
    registerDecision();
    registerVariants();
    registerMaximumFilterExtremes();
    registerMemory();
    registerHost();
    registerThreads();
    registerProcesses();
}
