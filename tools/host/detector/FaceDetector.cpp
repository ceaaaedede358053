#include "FaceDetector.h"

#include "host/FileName.h"
#include "host/HostError.h"
#include "host/Remedies.h"
#include "host/records/Json.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

#include <stdexcept>
#include <string>
#include <utility>

namespace host {

namespace {

constexpr int mostFailuresInARow = 3;

Detection unknownBecause(const QString& reason)
{
    return { {}, QStringLiteral("its faces are not known: ") + reason };
}

// The answer to a question about the picture at \a path.
Detection detectionFrom(const QByteArray& answer, const QString& path)
try {
    const JsonObject parsed = parseObject(answer);
    if (!parsed.fault.isEmpty())
        throw std::invalid_argument(parsed.fault.toStdString());
    if (parsed.object.value(QLatin1String("path")).toString() != path)
        throw CoprocessError("answered for another picture");
    const std::optional<Detection> detection = Detection::in(parsed.object);
    if (!detection)
        throw std::invalid_argument(R"(neither "faces" nor "error")");
    return *detection;
} catch (const std::invalid_argument& fault) {
    throw CoprocessError(std::string("gave a wrong answer: ") + fault.what());
}

} // namespace

std::optional<Detection> Detection::in(const QJsonObject& object)
{
    const QJsonValue faces = object.value(QLatin1String("faces"));
    const QJsonValue error = object.value(QLatin1String("error"));
    if (faces.isUndefined() && error.isUndefined())
        return std::nullopt;
    if (!error.isUndefined() && (!error.isString() || error.toString().isEmpty()))
        throw std::invalid_argument("\"error\" is not a text");
    if (!error.isUndefined())
        return unknownBecause(error.toString());
    const std::optional<QVector<Face>> read = facesFrom(faces);
    if (!read)
        throw std::invalid_argument("\"faces\" " + faultOfFaces().toStdString());
    return Detection { *read, {} };
}

FaceDetector::FaceDetector(QStringList programAndArguments, OnProblem whatToDo)
    : arguments(std::move(programAndArguments))
    , onProblem(whatToDo)
{
}

std::shared_ptr<FaceDetector> FaceDetector::ofCommand(const QString& command, OnProblem onProblem)
{
    return std::make_shared<FaceDetector>(
        QStringList { QStringLiteral("/bin/sh"), QStringLiteral("-c"), command }, onProblem);
}

std::shared_ptr<FaceDetector> FaceDetector::installed(OnProblem onProblem)
{
    const QString name = QStringLiteral("vxroi-faces");
    const QString beside
        = QStandardPaths::findExecutable(name, { QCoreApplication::applicationDirPath() });
    const QString program = beside.isEmpty() ? QStandardPaths::findExecutable(name) : beside;
    if (program.isEmpty())
        throw HostError(ExitCode::Unavailable, name, QStringLiteral("is not installed"),
            remedies().missingDetector);
    return std::make_shared<FaceDetector>(QStringList { program, QStringLiteral("--from"),
                                              QStringLiteral("-"), QStringLiteral("--quiet") },
        onProblem);
}

Detection FaceDetector::detect(const QString& path, int mostSeconds)
{
    if (isStandardStream(path))
        return checked(
            path, unknownBecause(QStringLiteral("the detector reads files, not standard input")));
    if (failuresInARow >= mostFailuresInARow)
        return checked(path,
            unknownBecause(
                QStringLiteral("the detector has failed %1 times in a row, so it is not asked")
                    .arg(mostFailuresInARow)));
    try {
        Detection detection = ask(path, mostSeconds);
        failuresInARow = 0;
        return checked(path, std::move(detection));
    } catch (const CoprocessError& error) {
        ++failuresInARow;
        return checked(path,
            unknownBecause(QStringLiteral("the detector ") + QString::fromUtf8(error.what())));
    }
}

Detection FaceDetector::checked(const QString& path, Detection detection) const
{
    if (onProblem == OnProblem::Fail && !detection.problem.isEmpty())
        throw HostError(ExitCode::Unavailable, path, detection.problem, remedies().failedDetector);
    return detection;
}

Detection FaceDetector::ask(const QString& path, int mostSeconds)
{
    std::unique_ptr<Coprocess> process = takeIdle();
    if (!process)
        process = std::make_unique<Coprocess>(arguments);
    const QJsonObject question { { QStringLiteral("path"), path } };
    constexpr int halfASecond = 500; // in milliseconds
    const QByteArray answer
        = process->answerTo(QJsonDocument(question).toJson(QJsonDocument::Compact),
            QDeadlineTimer(qint64 { mostSeconds } * halfASecond));
    Detection detection = detectionFrom(answer, path);
    putBack(std::move(process));
    return detection;
}

std::unique_ptr<Coprocess> FaceDetector::takeIdle()
{
    const std::lock_guard<std::mutex> lock(mutex);
    if (idle.empty())
        return nullptr;
    std::unique_ptr<Coprocess> process = std::move(idle.back());
    idle.pop_back();
    return process;
}

void FaceDetector::putBack(std::unique_ptr<Coprocess> process)
{
    const std::lock_guard<std::mutex> lock(mutex);
    idle.push_back(std::move(process));
}

} // namespace host
