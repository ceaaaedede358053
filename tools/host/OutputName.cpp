#include "OutputName.h"

#include "HostError.h"

#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <QStringList>

namespace host {

namespace {

const QRegularExpression& places()
{
    static const QRegularExpression pattern(QStringLiteral(R"(\{(dir|stem|ratio|ext)\})"));
    return pattern;
}

} // namespace

OutputName::OutputName(const QString& pattern, Of owner)
    : text(pattern)
{
    const bool isOfCrop = owner == Of::Crop;
    const bool hasOtherBraces
        = QString(text).remove(places()).contains(QRegularExpression(QStringLiteral("[{}]")));
    if (hasOtherBraces || (!isOfCrop && text.contains(QLatin1String("{ratio}"))))
        throw HostError(ExitCode::Usage,
            QStringLiteral("%1 %2").arg(
                isOfCrop ? QStringLiteral("--output") : QStringLiteral("--map"), pattern),
            QStringLiteral("braces hold something else than a known place"),
            isOfCrop ? QStringLiteral("use {dir}, {stem}, {ratio} and {ext}")
                     : QStringLiteral("use {dir}, {stem} and {ext}"));
}

QString OutputName::nameFor(const QString& input, const CropShape& shape) const
{
    const QFileInfo info(input);
    const QHash<QString, QString> values { { QStringLiteral("dir"), info.path() },
        { QStringLiteral("stem"), info.completeBaseName() },
        { QStringLiteral("ext"), info.suffix() }, { QStringLiteral("ratio"), shape.fileName() } };
    QString name;
    int done = 0;
    for (auto found = places().globalMatch(text); found.hasNext();) {
        const QRegularExpressionMatch place = found.next();
        name += text.midRef(done, place.capturedStart() - done) + values.value(place.captured(1));
        done = place.capturedEnd();
    }
    return name + text.midRef(done);
}

QString canonicalPathOf(const QString& path)
{
    const QFileInfo info(QFileInfo(path).absoluteFilePath());
    QString existing = info.canonicalFilePath();
    if (!existing.isEmpty() || info.isRoot())
        return existing;
    return canonicalPathOf(info.path()) + QLatin1Char('/') + info.fileName();
}

bool OutputName::hasPlaces() const { return text.contains(places()); }

} // namespace host
