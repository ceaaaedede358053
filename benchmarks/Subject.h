#pragma once

#include "Pictures.h"

#include <benchmark/benchmark.h>

#include <QImage>
#include <QSize>

#include <functional>
#include <memory>
#include <string>

namespace benchmarks {

/// The size that pictures are analysed at.
constexpr QSize workingSize(640, 480);

/// Something that is measured, and the plain way to the same result.
template <typename Result> struct Subject {
    std::string name;
    std::function<Result(const QImage&)> fast;
    std::function<Result(const QImage&)> plain;
    int widestPlain = 1920; ///< the plain way is not timed for wider pictures
};

using ImageSubject = Subject<QImage>;

/// The name of a benchmark, which the report takes apart again.
std::string nameOf(const std::string& subject, const char* way, Kind kind, const QSize& size);

qint64 pixelsOf(const QSize& size);

/// Times one way.
template <typename Result>
void time(
    benchmark::State& state, const std::function<Result(const QImage&)>& way, const QImage& image)
{
    for ([[maybe_unused]] const auto iteration : state)
        benchmark::DoNotOptimize(way(image));
    state.SetItemsProcessed(state.iterations() * pixelsOf(image.size()));
}

/// Registers the fast way, whose result is compared with the plain one before it is timed.
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

/// Registers both ways.
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

/// Registers both ways for every size and the kinds of picture that a class may meet.
template <typename Result> void registerEverywhere(const Subject<Result>& subject)
{
    for (const QSize& size : sizes()) {
        for (const Kind kind : { Kind::Photo, Kind::Noise, Kind::Flat })
            registerPair(subject, kind, size);
    }
}

} // namespace benchmarks
