#include "Evaluation.h"

#include "host/HostError.h"
#include "host/crop/SalienceSettings.h"
#include "vxroi/options/SalienceOptions.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <array>
#include <iostream>

namespace {

using evaluate::Kept;
using evaluate::Sample;
using evaluate::Summary;

const std::array<QSize, 3> ratios { QSize(1, 1), QSize(9, 16), QSize(3, 1) };

// A preset's name, or weights such as "gauss=20,achanta=10" with all other methods off.
VXCropSettings settingsOf(const QString& name)
{
    if (!name.contains(QLatin1Char('=')))
        return vxroi::presetCalled(name);
    VXCropSettings settings = host::withoutMethods();
    for (const QString& weight : name.split(QLatin1Char(',')))
        vxroi::setWeight(settings, weight);
    return settings;
}

QVector<Sample> samplesOf(const QDir& folder)
{
    const QDir images(folder.filePath(QStringLiteral("images")));
    QVector<Sample> samples;
    for (const QString& name : images.entryList(QDir::Files, QDir::Name)) {
        const QString points = QFileInfo(name).completeBaseName() + QStringLiteral(".png");
        samples.append(
            Sample(images.filePath(name), folder.filePath(QStringLiteral("points/") + points)));
    }
    if (samples.size() < 2)
        throw host::HostError(host::ExitCode::MissingInput, folder.path(),
            QStringLiteral("has no photographs"),
            QStringLiteral(
                "name a folder with the folders images and points, two of each at least"));
    return samples;
}

// All, and those with even and with odd places in the list: what holds for one half alone is chance.
std::array<QVector<Kept>, 3> withHalves(const QVector<Kept>& all)
{
    std::array<QVector<Kept>, 3> parts { all, {}, {} };
    for (int place = 0; place < all.size(); ++place)
        parts.at(place % 2 == 0 ? 1 : 2).append(all.at(place));
    return parts;
}

QString percent(double share) { return QStringLiteral("%1 %").arg(share * 100, 0, 'f', 1); }

QString withSign(double gain)
{
    return (gain < 0 ? QStringLiteral("−") : QStringLiteral("+"))
        + QString::number(qAbs(gain), 'f', 2);
}

QString chosenCell(const Summary& summary)
{
    return QStringLiteral("%1 (%2, %3 to %4)")
        .arg(percent(summary.mean.chosen), withSign(summary.gain), withSign(summary.leastGain),
            withSign(summary.mostGain));
}

QString row(const QString& name, const QSize& ratio, const QStringList& cells)
{
    return QStringLiteral("| %1, %2:%3 | %4 |\n")
        .arg(name)
        .arg(ratio.width())
        .arg(ratio.height())
        .arg(cells.join(QStringLiteral(" | ")));
}

void print(const QStringList& names, const QVector<Sample>& samples)
{
    QString table = QStringLiteral("| | all | even | odd |\n|---|---:|---:|---:|\n");
    for (const QSize& ratio : ratios) {
        for (const QString& name : names) {
            QVector<Kept> all;
            for (const Sample& sample : samples)
                all.append(evaluate::keptOf(sample, settingsOf(name), ratio));
            QStringList chosen;
            QStringList centre;
            QStringList best;
            for (const QVector<Kept>& part : withHalves(all)) {
                const Summary summary = evaluate::summaryOf(part);
                chosen.append(chosenCell(summary));
                centre.append(percent(summary.mean.centre));
                best.append(percent(summary.mean.best));
            }
            if (name == names.first())
                table += row(QStringLiteral("centre"), ratio, centre)
                    + row(QStringLiteral("best windows"), ratio, best);
            table += row(name, ratio, chosen);
        }
    }
    std::cout << table.toStdString();
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
        settings = vxroi::presetNames();
    for (const QString& name : settings)
        settingsOf(name);
    const QDir folder(QCoreApplication::arguments().at(1));
    print(settings, samplesOf(folder));
    return 0;
} catch (const host::HostError& error) {
    std::cerr << "vxroi-evaluate: " << error.what() << '\n';
    return static_cast<int>(error.code());
}
