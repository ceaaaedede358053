#include "Checks.h"

#include "CommonOptions.h"
#include "Suggestion.h"
#include "host/FileName.h"

namespace vxroi {

CLI::Validator oneOf(const std::vector<std::string>& names)
{
    QStringList choices;
    for (const std::string& name : names)
        choices.append(QString::fromStdString(name));
    const auto check = [choices](const std::string& written) {
        const QString value = pathFrom(written);
        if (choices.contains(value))
            return std::string();
        const QString complaint
            = QStringLiteral("%1 is not a choice; %2").arg(value, suggestion(value, choices));
        return host::bytesOfName(complaint).toStdString();
    };
    return CLI::Validator(check, '{' + choices.join(QLatin1Char(',')).toStdString() + '}');
}

CLI::Validator wholeNumber(qint64 least, qint64 most)
{
    const auto check = [least, most](const std::string& written) {
        const QString value = pathFrom(written);
        bool isNumber = false;
        const qint64 number = value.toLongLong(&isNumber);
        if (isNumber && number >= least && number <= most)
            return std::string();
        const QString complaint = QStringLiteral("%1 is not a whole number from %2 to %3")
                                      .arg(value)
                                      .arg(least)
                                      .arg(most);
        return host::bytesOfName(complaint).toStdString();
    };
    const QString range = QStringLiteral("INT in [%1 - %2]").arg(least).arg(most);
    return CLI::Validator(check, range.toStdString());
}

CLI::Validator number(double least, double most)
{
    const QString range = QStringLiteral("%1 to %2").arg(least).arg(most);
    const auto check = [least, most, range](const std::string& written) {
        const QString value = pathFrom(written);
        bool isNumber = false;
        const double given = value.toDouble(&isNumber);
        if (isNumber && given >= least && given <= most)
            return std::string();
        const QString complaint = QStringLiteral("%1 is not a number from %2").arg(value, range);
        return host::bytesOfName(complaint).toStdString();
    };
    return CLI::Validator(
        check, QStringLiteral("FLOAT in [%1 - %2]").arg(least).arg(most).toStdString());
}

CLI::Validator names(const std::string& what)
{
    return CLI::Validator(
        [what](
            const std::string& name) { return name.empty() ? "names no " + what : std::string(); },
        std::string());
}

} // namespace vxroi
