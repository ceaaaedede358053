#include "host/crop/Cropper.h"
#include "vxroi/options/Areas.h"
#include "vxroi/options/Shapes.h"

#include "SampleFiles.h"
#include "support/Random.h"
#include "support/TestImages.h"

#include <QThreadPool>

#include <gtest/gtest.h>

#include <vector>

namespace {

host::CropRules quickRules()
{
    host::CropRules rules;
    rules.analysis.salience = VXCropSettings::photo();
    return rules;
}

// One random picture with one random crop, and what is wrong with the result.
class RandomCrop {
public:
    explicit RandomCrop(unsigned seed)
        : random(seed)
        , size(1 + random.below(60), 1 + random.below(60))
    {
    }

    host::CropTask taskIn(const QString& folder)
    {
        host::CropTask task;
        task.path = folder + QStringLiteral("-in.bmp");
        support::noise(size.width(), size.height(), random.word()).save(task.path);
        const QSize shape(1 + random.below(90), 1 + random.below(90));
        isSized = random.below(2) == 0;
        task.shapes.append(isSized
                ? vxroi::parseSize(
                    QStringLiteral("%1x%2").arg(shape.width()).arg(shape.height()), {})
                      .first()
                : vxroi::parseRatios(QStringLiteral("%1:%2").arg(shape.width()).arg(shape.height()))
                      .first());
        task.outputs.append(folder + QStringLiteral("-out.bmp"));
        if (random.below(3) == 0)
            task.constraints.focus = QPointF(random.below(101) / 100.0, random.below(101) / 100.0);
        if (random.below(3) == 0)
            task.constraints.keep.append(randomArea());
        if (random.below(3) == 0)
            task.constraints.avoid.append(randomArea());
        return task;
    }

    QString misses(const host::CropTask& task, const host::CropRecord& record, host::Fit fit) const
    {
        if (record.failure)
            return QString::fromUtf8(record.failure->what());
        const host::CropResult& crop = record.crops.first();
        const QRect window = crop.chosen.window;
        const host::CropShape& shape = task.shapes.first();
        if (window
            != VXCrop(QImage(task.path))
                   .window(shape.ratio, host::within(size, task.constraints, task.path))
                   .window)
            return QStringLiteral("what a host chooses");
        if (!QRect(QPoint(), size).contains(window)
            || window.size() != VXCrop::largestWindow(size, shape.ratio))
            return QStringLiteral("the window");
        const bool fits
            = window.width() >= shape.size.width() && window.height() >= shape.size.height();
        const QSize expected
            = isSized && (fits || fit != host::Fit::Smaller) ? shape.size : window.size();
        if (QImage(task.outputs.first()).size() != expected || crop.outputSize != expected)
            return QStringLiteral("the size");
        return QString();
    }

private:
    host::Area randomArea()
    {
        return vxroi::parseArea(QStringLiteral("%1,%2,%3,%4")
                                    .arg(random.below(size.width()))
                                    .arg(random.below(size.height()))
                                    .arg(1 + random.below(70))
                                    .arg(1 + random.below(70)),
            QString());
    }

    support::Random random;
    QSize size;
    bool isSized = false;
};

} // namespace

TEST(Cropper, writesTheExactSizeWithinTheFrameForTenThousandRandomPictures)
{
    constexpr unsigned pictures = 10'000;
    constexpr unsigned threadCount = 4;
    const samples::SampleFolder folder;
    std::vector<int> misses(threadCount, 0);
    const auto cropSome = [&](unsigned thread) {
        host::CropRules rules = quickRules();
        rules.ifExists = host::IfExists::Overwrite;
        for (unsigned seed = thread; seed < pictures; seed += threadCount) {
            rules.fit = seed % 3 == 0 ? host::Fit::Enlarged
                : seed % 3 == 1       ? host::Fit::Padded
                                      : host::Fit::Smaller;
            host::Cropper cropper(rules, 1000);
            RandomCrop crop(seed);
            const host::CropTask task = crop.taskIn(folder.path(QString::number(thread)));
            const QString miss = crop.misses(task, cropper.crop(task), rules.fit);
            EXPECT_TRUE(miss.isEmpty()) << seed << ": " << miss.toStdString();
            misses.at(thread) += miss.isEmpty() ? 0 : 1;
        }
    };
    QThreadPool threads;
    threads.setMaxThreadCount(threadCount);
    for (unsigned thread = 0; thread < threadCount; ++thread)
        threads.start([&cropSome, thread] { cropSome(thread); });
    threads.waitForDone();
    EXPECT_EQ(misses, std::vector<int>(threadCount, 0));
}

TEST(Cropper, decidesTheSameWhetherThePixelsAreWrittenOrNot)
{
    const samples::SampleFolder folder;
    for (const char* const name : { "a.png", "a.jpg", "a.bmp" }) {
        host::CropTask task;
        task.path = folder.save(samples::picture({ 2000, 1300 }), QString::fromUtf8(name));
        task.shapes = vxroi::parseRatios(QStringLiteral("1:1,2:5"));
        host::CropRules rules;
        rules.analysis.salience = VXCropSettings::library();
        host::Cropper cropper(rules, 1);
        const host::CropRecord decided = cropper.crop(task);
        task.outputs = QStringList { folder.path(QStringLiteral("x-") + QLatin1String(name)),
            folder.path(QStringLiteral("y-") + QLatin1String(name)) };
        const host::CropRecord written = cropper.crop(task);
        for (int i = 0; i < 2; ++i) {
            EXPECT_EQ(decided.crops.at(i).chosen.window, written.crops.at(i).chosen.window) << name;
            EXPECT_EQ(decided.crops.at(i).chosen.salience, written.crops.at(i).chosen.salience)
                << name;
        }
    }
}

TEST(Cropper, writesAllCropsOfAPictureOrNone)
{
    const samples::SampleFolder folder;
    host::CropTask task;
    task.path = folder.save(samples::picture({ 60, 40 }), QStringLiteral("a.png"));
    task.shapes = vxroi::parseRatios(QStringLiteral("1:1,2:1"));
    task.outputs = QStringList { folder.path(QStringLiteral("one.png")),
        folder.path(QStringLiteral("none/two.png")) };
    host::Cropper cropper(quickRules(), 1000);
    const host::CropRecord record = cropper.crop(task);
    ASSERT_TRUE(record.failure.has_value());
    EXPECT_EQ(record.failure->code(), host::ExitCode::CannotCreate);
    EXPECT_TRUE(record.crops.isEmpty());
    EXPECT_EQ(folder.names(), QStringList { QStringLiteral("a.png") });
}
