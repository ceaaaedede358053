#include "Table.h"

#include "host/HostError.h"
#include "host/crop/SalienceSettings.h"
#include "vxroi/options/SalienceOptions.h"

#include <QDir>
#include <QFileInfo>

#include <array>

namespace evaluate {

namespace {

using Parts = std::array<QVector<Kept>, 3>;

const std::array<QSize, 3> ratios { QSize(1, 1), QSize(9, 16), QSize(3, 1) };

// All, and those with even and with odd places in the list: what holds for one half alone is chance.
Parts withHalves(const QVector<Kept>& all)
{
    Parts parts { all, {}, {} };
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

QVector<Kept> keptOfAll(const QVector<Sample>& samples, const Choice& choice, const QSize& ratio)
{
    QVector<Kept> all;
    for (const Sample& sample : samples)
        all.append(keptOf(sample, choice, ratio));
    return all;
}

// The crops that need no method.
QString rowsToCompareWith(const Parts& parts, const QSize& ratio)
{
    QStringList centre;
    QStringList best;
    for (const QVector<Kept>& part : parts) {
        const Kept mean = meanOf(part);
        centre.append(percent(mean.centre));
        best.append(percent(mean.best));
    }
    return row(QStringLiteral("centre"), ratio, centre)
        + row(QStringLiteral("best crops"), ratio, best);
}

QString rowOf(const QString& name, const Parts& parts, const QSize& ratio)
{
    QStringList chosen;
    for (const QVector<Kept>& part : parts)
        chosen.append(chosenCell(summaryOf(part)));
    return row(name, ratio, chosen);
}

} // namespace

Choice choiceOf(const QString& name)
{
    const QString withFaces = QStringLiteral("+faces");
    Choice choice;
    choice.areFacesKept = name.endsWith(withFaces);
    const QString settings = choice.areFacesKept ? name.chopped(withFaces.size()) : name;
    if (!settings.contains(QLatin1Char('='))) {
        choice.settings = vxroi::presetCalled(settings);
        return choice;
    }
    choice.settings = host::withoutMethods();
    for (const QString& weight : settings.split(QLatin1Char(',')))
        vxroi::setWeight(choice.settings, weight);
    return choice;
}

QVector<Sample> samplesOf(const QString& folder, host::FaceDetector* detector)
{
    const QDir images(folder + QStringLiteral("/images"));
    const QDir points(folder + QStringLiteral("/points"));
    QVector<Sample> samples;
    for (const QString& name : images.entryList(QDir::Files, QDir::Name)) {
        const QString png = QFileInfo(name).completeBaseName() + QStringLiteral(".png");
        samples.append(Sample(images.filePath(name), points.filePath(png), detector));
    }
    if (samples.size() < 2)
        throw host::HostError(host::ExitCode::MissingInput, folder,
            QStringLiteral("has no photographs"),
            QStringLiteral(
                "name a folder with the folders images and points, two of each at least"));
    return samples;
}

QString tableOf(const QStringList& names, const QVector<Sample>& samples)
{
    QString table = QStringLiteral("| | all | even | odd |\n|---|---:|---:|---:|\n");
    for (const QSize& ratio : ratios) {
        for (const QString& name : names) {
            const Parts parts = withHalves(keptOfAll(samples, choiceOf(name), ratio));
            if (name == names.first())
                table += rowsToCompareWith(parts, ratio);
            table += rowOf(name, parts, ratio);
        }
    }
    return table;
}

QString faceTableOf(const QStringList& names, const QVector<Sample>& samples)
{
    QString table = QStringLiteral("| | whole | cut | left out |\n|---|---:|---:|---:|\n");
    for (const QSize& ratio : ratios) {
        for (const QString& name : names) {
            const FaceCounts counts = facesIn(samples, choiceOf(name), ratio);
            table += row(name, ratio,
                { QString::number(counts.whole), QString::number(counts.cut),
                    QString::number(counts.leftOut) });
        }
    }
    return table;
}

} // namespace evaluate
