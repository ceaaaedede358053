#include "Operations.h"

#include <VXCrop/VXCrop.h>
#include <VXRegionOfInterest/VXBackgroundROI.h>
#include <VXRegionOfInterest/VXGaussROI.h>
#include <VXRegionOfInterest/VXGaussianBlur.h>
#include <VXRegionOfInterest/VXHistogram.h>
#include <VXRegionOfInterest/VXHistogramROI.h>
#include <VXRegionOfInterest/VXMaxFilter.h>
#include <VXRegionOfInterest/VXSalienzAchanta.h>
#include <VXRegionOfInterest/VXSalienzClusterer.h>
#include <VXRegionOfInterest/VXSalienzMaximizerHorizontal.h>
#include <VXRegionOfInterest/VXSalienzMaximizerVertical.h>
#include <VXRegionOfInterest/VXSalienzMixer.h>
#include <VXRegionOfInterest/VXSobelROI.h>
#include <VXRegionOfInterest/VXVeryImportantAreasROI.h>

#include <climits>
#include <initializer_list>

namespace support {

namespace {

using Operations = std::vector<Operation>;

void enableOnly(VXSalienzMixer& mixer, std::initializer_list<VXSalienzMethod> enabled)
{
    for (const auto method : { Sobel, Gauss, Histogram, VeryImportantAreas, Achanta })
        mixer.setMethodEnabled(method, false);
    for (const auto method : enabled)
        mixer.setMethodEnabled(method, true);
}

QImage analyzed(
    const QImage& image, const QSize& workingSize, std::initializer_list<VXSalienzMethod> enabled)
{
    VXSalienzMixer mixer(workingSize);
    mixer.injectVeryImportantAreas({ QRect(1, 1, 3, 2) }, image.size());
    enableOnly(mixer, enabled);
    return mixer.analyze(image);
}

void addMethods(Operations& all)
{
    all.push_back({ "createTargetImage",
        [](const QImage& image) { return VXGaussROI().createTargetImage(image); }, false, true });
    all.push_back({ "VXBackgroundROI",
        [](const QImage& image) { return VXBackgroundROI().evaluate(image); } });
    all.push_back(
        { "VXGaussROI", [](const QImage& image) { return VXGaussROI().evaluate(image); } });
    all.push_back(
        { "VXSobelROI", [](const QImage& image) { return VXSobelROI().evaluate(image); } });
    all.push_back({ "VXSobelROI::convolute",
        [](const QImage& image) { return VXSobelROI().convolute(image); } });
    all.push_back({ "VXSobelROI::combine",
        [](const QImage& image) { return VXSobelROI().combine(image, image); } });
    all.push_back({ "VXSalienzAchanta",
        [](const QImage& image) { return VXSalienzAchanta().evaluate(image); } });
    all.push_back(
        { "VXHistogramROI", [](const QImage& image) { return VXHistogramROI().evaluate(image); } });
    all.push_back({ "VXHistogramROI::convertToYcbcr",
        [](const QImage& image) { return VXHistogramROI().convertToYcbcr(image, image); } });
    all.push_back(
        { "VXVeryImportantAreasROI", [](const QImage& image) {
             return VXVeryImportantAreasROI({ QRect(1, 1, 3, 2) }, image.size()).evaluate(image);
         } });
}

void addFilters(Operations& all)
{
    for (const int size : { INT_MIN, -2, -1, 0, 1, 2, 7, INT_MAX }) {
        for (const int threshold : { -1, 50, 255 })
            all.push_back({ "VXMaxFilter(" + std::to_string(size) + ", " + std::to_string(threshold)
                    + ")",
                [=](const QImage& image) { return VXMaxFilter(size, threshold).evaluate(image); },
                true });
    }
    for (const int size : { 0, 1, 3 })
        all.push_back({ "VXGaussianBlur of " + std::to_string(size),
            [=](const QImage& image) { return VXGaussianBlur(size, 2.6).evaluate(image); } });
}

void addMixers(Operations& all)
{
    all.push_back({ "analyze with every method", [](const QImage& image) {
                       return analyzed(image, QSize(),
                           { Sobel, Gauss, Histogram, VeryImportantAreas, Achanta });
                   } });
    all.push_back(
        { "analyze scaled up", [](const QImage& image) {
             return analyzed(image, 2 * image.size(), { Sobel, Gauss, Histogram, Achanta });
         } });
    for (const auto method : { Sobel, Gauss, Histogram, VeryImportantAreas, Achanta })
        all.push_back({ "analyze with method " + std::to_string(method),
            [=](const QImage& image) { return analyzed(image, QSize(), { method }); } });
    all.push_back({ "analyze with no method",
        [](const QImage& image) { return analyzed(image, QSize(), {}); }, true });
    all.push_back({ "gatherResults", [](const QImage& image) {
                       return VXSalienzMixer(QSize()).gatherResults(image).value(3);
                   } });
    all.push_back({ "mix of one",
        [](const QImage& image) { return VXSalienzMixer(QSize()).mix({ image }, { 1 }); } });
    all.push_back({ "mix of two", [](const QImage& image) {
                       return VXSalienzMixer(QSize()).mix({ image, image }, { INT_MAX, -3 });
                   } });
}

void addReaders(Operations& all)
{
    all.push_back({ "VXSalienzClusterer",
        [](const QImage& image) { return VXSalienzClusterer().cluster(image); } });
    all.push_back({ "totalSalience", [](const QImage& image) {
                       static_cast<void>(VXSalienzClusterer().totalSalience(image));
                       return QImage();
                   } });
    all.push_back({ "VXSalienzMaximizerHorizontal", [](const QImage& image) {
                       static_cast<void>(VXSalienzMaximizerHorizontal().startOfBestRange(image, 3));
                       return QImage();
                   } });
    all.push_back({ "VXSalienzMaximizerVertical", [](const QImage& image) {
                       static_cast<void>(VXSalienzMaximizerVertical().startOfBestRange(image, 3));
                       return QImage();
                   } });
    all.push_back({ "VXHistogram", [](const QImage& image) {
                       VXHistogram histogram(image, 40, 60);
                       histogram.normalizeHistogram();
                       return QImage();
                   } });
    all.push_back({ "drawTarget", [](const QImage& image) {
                       QImage target = image;
                       VXHistogramROI().drawTarget(0, 0, 99, target, 3, 3);
                       return QImage();
                   } });
    all.push_back({ "drawTarget on pixels for reading only", [](const QImage& image) {
                       QImage target(image.constBits(), image.width(), image.height(),
                           image.bytesPerLine(), image.format());
                       VXHistogramROI().drawTarget(0, 0, 99, target, 3, 3);
                       return QImage();
                   } });
}

void addCrops(Operations& all)
{
    all.push_back({ "VXCrop", [](const QImage& image) { return VXCrop(image).map(); } });
    all.push_back({ "VXCrop by the library's methods, with areas", [](const QImage& image) {
                       return VXCrop(image, VXCropSettings::library()).map({ QRect(1, 1, 3, 2) });
                   } });
    all.push_back({ "VXCrop::workingImage",
        [](const QImage& image) { return VXCrop::workingImage(image); } });
    all.push_back({ "VXCrop::fromMap",
        [](const QImage& image) { return VXCrop::fromMap(image, QSize(70, 90)).map(); } });
    all.push_back({ "VXCrop::windows", [](const QImage& image) {
                       static_cast<void>(
                           VXCrop::fromMap(image, image.size())
                               .windows(QSize(2, 5), 3,
                                   { { QRect(2, 2, 3, 3) }, { QRect(9, 9, 3, 3) }, {} }));
                       return QImage();
                   } });
}

} // namespace

const std::vector<Operation>& operations()
{
    static const Operations all = [] {
        Operations every;
        addMethods(every);
        addFilters(every);
        addMixers(every);
        addReaders(every);
        addCrops(every);
        return every;
    }();
    return all;
}

} // namespace support
