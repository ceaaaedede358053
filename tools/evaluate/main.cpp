#include "Evaluation.h"

#include "host/HostError.h"
#include "host/SalienceSettings.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <array>
#include <iostream>

namespace {

using evaluate::Kept;
using evaluate::Sample;

const std::array<QSize, 3> ratios { QSize(1, 1), QSize(9, 16), QSize(3, 1) };

// A preset's name, or weights such as "gauss=20,achanta=10" with all other methods off.
VXCropSettings settingsOf(const QString& name)
{
    if (!name.contains(QLatin1Char('=')))
        return host::presetCalled(name);
    VXCropSettings settings = host::withoutMethods();
    for (const QString& weight : name.split(QLatin1Char(',')))
        host::setWeight(settings, weight);
    return settings;
}

// The photographs with even places in the list, or those with odd ones.
QVector<Sample> samplesOf(const QDir& folder, int firstPlace)
{
    const QDir images(folder.filePath(QStringLiteral("images")));
    const QStringList names = images.entryList(QDir::Files, QDir::Name);
    QVector<Sample> samples;
    for (int place = firstPlace; place < names.size(); place += 2) {
        const QString points
            = QFileInfo(names.at(place)).completeBaseName() + QStringLiteral(".png");
        samples.append(Sample(
            images.filePath(names.at(place)), folder.filePath(QStringLiteral("points/") + points)));
    }
    if (samples.isEmpty())
        throw host::HostError(host::ExitCode::MissingInput, folder.path(),
            QStringLiteral("has no photographs"),
            QStringLiteral(
                "name a folder with the folders images and points, two of each at least"));
    return samples;
}

QString cellOf(double kept, double score)
{
    return QStringLiteral(" %1 % (%2%3) |")
        .arg(kept * 100, 0, 'f', 1)
        .arg(score < 0 ? QStringLiteral("−") : QStringLiteral("+"))
        .arg(qAbs(score), 0, 'f', 2);
}

// What crops keep of all samples, when they keep that of two halves.
Kept together(const Kept& a, int samplesOfA, const Kept& b, int samplesOfB)
{
    const double shareOfA = static_cast<double>(samplesOfA) / (samplesOfA + samplesOfB);
    const auto mean
        = [shareOfA](double ofA, double ofB) { return shareOfA * ofA + (1 - shareOfA) * ofB; };
    return { mean(a.chosen, b.chosen), mean(a.centre, b.centre), mean(a.best, b.best) };
}

void print(const QStringList& names, const QVector<Sample>& tune, const QVector<Sample>& judge)
{
    std::cout << "| | tune 1:1 | judge 1:1 | all 1:1 | tune 9:16 | judge 9:16 | all 9:16 "
                 "| tune 3:1 | judge 3:1 | all 3:1 |\n|---|"
              << "---:|---:|---:|---:|---:|---:|---:|---:|---:|\n";
    QString centre = QStringLiteral("| centre |");
    QString best = QStringLiteral("| best windows |");
    for (const QString& name : names) {
        QString row = QStringLiteral("| %1 |").arg(name);
        for (const QSize& ratio : ratios) {
            const Kept tuned = evaluate::evaluate(tune, settingsOf(name), ratio);
            const Kept judged = evaluate::evaluate(judge, settingsOf(name), ratio);
            for (const Kept& kept :
                { tuned, judged, together(tuned, tune.size(), judged, judge.size()) }) {
                row += cellOf(kept.chosen, kept.score());
                centre += name == names.first() ? cellOf(kept.centre, 0) : QString();
                best += name == names.first() ? cellOf(kept.best, 1) : QString();
            }
        }
        if (name == names.first())
            std::cout << centre.toStdString() << '\n' << best.toStdString() << '\n';
        std::cout << row.toStdString() << std::endl;
    }
}

} // namespace

// vxroi-evaluate FOLDER [PRESET | METHOD=N,...]...
int main(int argc, char** argv)
try {
    const QCoreApplication application(argc, argv);
    QStringList settings = QCoreApplication::arguments().mid(2);
    if (argc < 2)
        throw host::HostError(host::ExitCode::Usage, QStringLiteral("vxroi-evaluate"),
            QStringLiteral("no folder is named"),
            QStringLiteral("give a folder with the folders images and points, then presets or "
                           "weights such as gauss=20,achanta=10"));
    if (settings.isEmpty())
        settings = host::presetNames();
    for (const QString& name : settings)
        settingsOf(name);
    const QDir folder(QCoreApplication::arguments().at(1));
    print(settings, samplesOf(folder, 0), samplesOf(folder, 1));
    return 0;
} catch (const host::HostError& error) {
    std::cerr << "vxroi-evaluate: " << error.what() << '\n';
    return static_cast<int>(error.code());
}
