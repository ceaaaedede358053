#include "OutputName.h"

#include "host/FileName.h"
#include "host/HostError.h"

#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <QStringList>

#include <filesystem>
#include <system_error>

namespace host {

namespace {

// Matches any of the placeholders.
const QRegularExpression& placeholderPattern()
{
    static const QRegularExpression pattern = [] {
        QStringList names;
        for (const Explanation& placeholder : OutputName::placeholders())
            names.append(QRegularExpression::escape(placeholder.name));
        return QRegularExpression(names.join(QLatin1Char('|')));
    }();
    return pattern;
}

} // namespace

QVector<Explanation> OutputName::placeholders()
{
    return { { QStringLiteral("{dir}"), QStringLiteral("the folder that the picture is in") },
        { QStringLiteral("{stem}"), QStringLiteral("the picture's name without its suffix") },
        { QStringLiteral("{ratio}"),
            QStringLiteral("the shape of the crop, such as 16x9; not in the name of a map") },
        { QStringLiteral("{ext}"),
            QStringLiteral("the suffix of the picture's name, or that of the format given") } };
}

OutputName::OutputName(const QString& pattern, Of owner)
    : text(pattern)
{
    const bool isOfCrop = owner == Of::Crop;
    const bool hasOtherBraces = QString(text)
                                    .remove(placeholderPattern())
                                    .contains(QRegularExpression(QStringLiteral("[{}]")));
    if (hasOtherBraces || (!isOfCrop && text.contains(QLatin1String("{ratio}"))))
        throw HostError(ExitCode::Usage, pattern,
            QStringLiteral("braces hold something other than a known placeholder"),
            isOfCrop ? QStringLiteral("use {dir}, {stem}, {ratio} and {ext}")
                     : QStringLiteral("use {dir}, {stem} and {ext}"));
}

QString OutputName::nameFor(const QString& input, const QString& shape, const QString& suffix) const
{
    const QFileInfo info(input);
    const QHash<QString, QString> values { { QStringLiteral("{dir}"), info.path() },
        { QStringLiteral("{stem}"), info.completeBaseName() },
        { QStringLiteral("{ext}"), suffix.isEmpty() ? info.suffix() : suffix },
        { QStringLiteral("{ratio}"), shape } };
    QString name;
    int done = 0;
    for (auto found = placeholderPattern().globalMatch(text); found.hasNext();) {
        const QRegularExpressionMatch placeholder = found.next();
        name += text.midRef(done, placeholder.capturedStart() - done)
            + values.value(placeholder.captured());
        done = placeholder.capturedEnd();
    }
    return name + text.midRef(done);
}

QString OutputName::folderFor(const QString& input) const
{
    constexpr QLatin1String directory("{dir}", 5);
    QString begin = text;
    if (begin.startsWith(directory))
        begin.replace(0, directory.size(), QFileInfo(input).path());
    else if (!begin.contains(placeholderPattern()))
        return QFileInfo(begin).path();
    const QString folder = QFileInfo(begin.left(begin.indexOf(placeholderPattern()))).path();
    return folder.isEmpty() ? QStringLiteral(".") : folder;
}

QString canonicalPathOf(const QString& path)
{
    std::error_code error;
    const auto canonical = std::filesystem::weakly_canonical(
        std::filesystem::absolute(bytesOfName(path).toStdString(), error), error);
    return textOfName(QByteArray::fromStdString(canonical.string()));
}

bool isWithin(const QString& folder, const QString& path)
{
    const QString inner = canonicalPathOf(path);
    const QString outer = canonicalPathOf(folder);
    if (inner.isEmpty() || outer.isEmpty())
        return false;
    return inner.startsWith(outer.endsWith(QLatin1Char('/')) ? outer : outer + QLatin1Char('/'));
}

bool OutputName::hasPlaceholders() const { return text.contains(placeholderPattern()); }

} // namespace host
