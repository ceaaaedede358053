#include "FacesCommand.h"

#include "FaceFinder.h"

#include "host/FileName.h"
#include "host/HostError.h"
#include "host/StandardStreams.h"
#include "host/records/Json.h"
#include "vxroi/concurrency/WorkerThreads.h"
#include "vxroi/inputs/ListReader.h"
#include "vxroi/options/Checks.h"
#include "vxroi/options/CommonOptions.h"
#include "vxroi/options/ReadingOptions.h"

#include <CLI/CLI.hpp>

#include <QJsonDocument>
#include <QJsonObject>

#include <new>
#include <optional>

namespace faces {

using host::ExitCode;
using host::HostError;

namespace {

constexpr QLatin1String pathKey("path", 4);
constexpr QLatin1String facesKey("faces", 5);
constexpr QLatin1String errorKey("error", 5);

// The line of a list as an object with a path.
QJsonObject objectFrom(const vxroi::ListEntry& entry, bool isJsonAllowed)
{
    const auto refuse = [](const QString& reason) {
        throw HostError(ExitCode::Usage, QStringLiteral("line"), reason,
            QStringLiteral("write a path, or an object such as {\"path\": \"a.jpg\"}"));
    };
    if (entry.isTooLong)
        refuse(QStringLiteral("has more than %1 bytes").arg(vxroi::ListReader::mostBytes));
    if (!isJsonAllowed || !entry.bytes.startsWith('{'))
        return { { pathKey, host::textOfName(entry.bytes) } };
    const host::JsonObject parsed = host::parseObject(entry.bytes);
    if (!parsed.fault.isEmpty())
        refuse(parsed.fault);
    if (parsed.object.value(pathKey).toString().isEmpty())
        refuse(QStringLiteral("\"path\" is not a text"));
    return parsed.object;
}

// Answers one picture after another.
class Answers {
public:
    explicit Answers(const FacesArguments& arguments)
        : rules(arguments.reading)
        , isQuiet(arguments.quiet)
        , finder(arguments.size, arguments.threshold)
    {
    }

    // Prints \a object with the faces of the picture at its path, or why they are not known, which is also the result.
    std::optional<HostError> answer(QJsonObject object, const QString& path)
    {
        object.remove(facesKey);
        object.remove(errorKey);
        std::optional<HostError> failure = addFaces(object, path);
        print(object, failure);
        return failure;
    }

    static void print(QJsonObject object, const std::optional<HostError>& failure)
    {
        if (failure)
            object.insert(errorKey, failure->reason());
        host::writeOutput(QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n');
    }

private:
    std::optional<HostError> addFaces(QJsonObject& object, const QString& path)
    try {
        host::PictureFile picture(path, rules);
        object.insert(facesKey, host::jsonOf(finder.find(picture)));
        if (!isQuiet) {
            for (const QString& warning : picture.warnings())
                host::writeWarning(path, warning);
        }
        return std::nullopt;
    } catch (const HostError& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return HostError(ExitCode::Internal, path, QStringLiteral("there is not enough memory"),
            QStringLiteral("allow more, or search it at a smaller --size"));
    }

    host::ReadingRules rules;
    bool isQuiet;
    FaceFinder finder;
};

// Answers the pictures named on the command line.
ExitCode answerPictures(const FacesArguments& arguments)
{
    Answers answers(arguments);
    bool hasFailed = false;
    for (const std::string& picture : arguments.pictures) {
        const QString path = vxroi::pathFrom(picture);
        const auto failure = answers.answer({ { pathKey, path } }, path);
        if (failure && arguments.pictures.size() == 1)
            throw HostError(*failure);
        if (failure && !arguments.quiet)
            host::writeMessage(failure->what());
        hasFailed = hasFailed || failure;
    }
    return hasFailed ? ExitCode::SomeFailed : ExitCode::Success;
}

// Answers the lines of a list, each as it arrives.
ExitCode answerList(const FacesArguments& arguments)
{
    Answers answers(arguments);
    const auto answerTo = [&](const vxroi::ListEntry& entry) -> std::optional<HostError> {
        QJsonObject object;
        try {
            object = objectFrom(entry, !arguments.nulSeparated);
        } catch (const HostError& error) {
            const QString name = QStringLiteral("(line %1)").arg(entry.number);
            Answers::print({ { pathKey, name } }, error);
            return HostError(error.code(), name, error.reason(), error.remedy());
        }
        const QString path = object.value(pathKey).toString();
        // Lists name only files, so "-" is a file, not standard input.
        return answers.answer(object, host::isStandardStream(path) ? QStringLiteral("./-") : path);
    };
    vxroi::ListReader list(vxroi::pathFrom(arguments.from), arguments.nulSeparated ? '\0' : '\n');
    bool hasFailed = false;
    while (const std::optional<vxroi::ListEntry> entry = list.waitForNext()) {
        if (entry->bytes.isEmpty() && !entry->isTooLong)
            continue;
        const std::optional<HostError> failure = answerTo(*entry);
        if (failure && !arguments.quiet)
            host::writeMessage(
                host::bytesOfName(list.placeOf(*entry)).toStdString() + ": " + failure->what());
        hasFailed = hasFailed || failure;
    }
    return hasFailed ? ExitCode::SomeFailed : ExitCode::Success;
}

} // namespace

void FacesArguments::addTo(CLI::App& app)
{
    constexpr int leastSize = 80;
    constexpr int mostSize = 8000;
    app.add_option("PICTURE", pictures, "the picture files to read; - is standard input");
    CLI::Option* const list = app.add_option("--from", from,
                                     "read paths, or inputs as JSON, from the lines of this file; "
                                     "- is standard input")
                                  ->check(vxroi::names("file"))
                                  ->type_name("FILE");
    app.add_flag("-0,--null", nulSeparated, "paths in the list are NUL-terminated")->needs(list);
    app.add_option(
           "--size", size, "search at this size: pixels of the longer side; a face needs about 80")
        ->check(vxroi::wholeNumber(leastSize, mostSize))
        ->type_name("N")
        ->capture_default_str();
    app.add_option("--threshold", threshold, "the least score of a face")
        ->check(vxroi::number(-1, 10))
        ->type_name("X")
        ->capture_default_str();
    vxroi::addQuietOption(app, quiet);
    vxroi::addReadingOptions(app, reading, "Limits");
}

ExitCode runFaces(const FacesArguments& arguments)
{
    if (arguments.pictures.empty() == arguments.from.empty())
        throw HostError(ExitCode::Usage, QStringLiteral("input"),
            QStringLiteral("must be pictures or a list"),
            QStringLiteral("name pictures, or add --from FILE"));
    vxroi::startWorkerThreads(1);
    return arguments.from.empty() ? answerPictures(arguments) : answerList(arguments);
}

} // namespace faces
