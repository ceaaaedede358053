// vxroi-evaluate [--detector COMMAND] FOLDER [CHOICE]...: prints how much crops of the photographs in FOLDER keep. A
// choice is a preset, or METHOD=N,...; with +faces at its end, faces are kept.

#include "Table.h"

#include "host/HostError.h"
#include "vxroi/options/SalienceOptions.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>
#include <iostream>
#include <memory>

namespace {

[[noreturn]] void refuse(const QString& reason, const QString& remedy)
{
    throw host::HostError(host::ExitCode::Usage, QStringLiteral("vxroi-evaluate"), reason, remedy);
}

void evaluatePhotographs()
{
    QCommandLineParser parser;
    const QCommandLineOption command(QStringLiteral("detector"), {}, QStringLiteral("COMMAND"));
    parser.addOption(command);
    parser.process(*QCoreApplication::instance());
    const QStringList arguments = parser.positionalArguments();
    if (arguments.isEmpty())
        refuse(QStringLiteral("no folder is named"),
            QStringLiteral("give a folder with the folders images and points, then presets or "
                           "weights such as gauss=20,achanta=10"));
    const QStringList names = arguments.size() > 1 ? arguments.mid(1) : vxroi::presetNames();
    const bool areFacesNeeded = std::any_of(names.begin(), names.end(),
        [](const QString& name) { return evaluate::choiceOf(name).areFacesKept; });
    if (areFacesNeeded != parser.isSet(command))
        refuse(QStringLiteral("a choice that keeps faces and a detector need each other"),
            QStringLiteral("give both, such as --detector vxroi-faces and photo+faces"));
    const std::shared_ptr<host::FaceDetector> detector = areFacesNeeded
        ? host::FaceDetector::ofCommand(parser.value(command), host::FaceDetector::OnProblem::Fail)
        : nullptr;
    const QVector<evaluate::Sample> samples
        = evaluate::samplesOf(arguments.first(), detector.get());
    std::cout << evaluate::tableOf(names, samples).toStdString();
    if (areFacesNeeded)
        std::cout << '\n' << evaluate::faceTableOf(names, samples).toStdString();
}

} // namespace

int main(int argc, char** argv)
try {
    const QCoreApplication application(argc, argv);
    evaluatePhotographs();
    return 0;
} catch (const host::HostError& error) {
    std::cerr << "vxroi-evaluate: " << error.what() << '\n';
    return static_cast<int>(error.code());
}
