#include "PreviewWindow.h"

#include "host/FileName.h"
#include "host/HostError.h"
#include "host/StandardStreams.h"

#include <QApplication>
#include <QCommandLineParser>

namespace {

using host::FaceDetector;

// The detector that the command line asks for; null when it asks for none.
std::shared_ptr<FaceDetector> detectorOf(
    const QCommandLineParser& parser, const QCommandLineOption& command)
{
    if (parser.isSet(command))
        return FaceDetector::ofCommand(parser.value(command), FaceDetector::OnProblem::Warn);
    return parser.isSet(QStringLiteral("faces"))
        ? FaceDetector::installed(FaceDetector::OnProblem::Warn)
        : nullptr;
}

} // namespace

int main(int argc, char** argv)
try {
    const QApplication application(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption command(QStringLiteral("detector"),
        QStringLiteral("Find faces with this command."), QStringLiteral("COMMAND"));
    parser.addOption(
        { QStringLiteral("faces"), QStringLiteral("Find faces with the program vxroi-faces.") });
    parser.addOption(command);
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("PICTURE"), QStringLiteral("The picture to show."),
        QStringLiteral("[PICTURE]"));
    parser.process(application);
    viewer::PreviewWindow window(detectorOf(parser, command));
    constexpr int width = 960;
    constexpr int height = 720;
    window.resize(width, height);
    window.show();
    if (!parser.positionalArguments().isEmpty())
        window.open(parser.positionalArguments().first());
    return QApplication::exec();
} catch (const host::HostError& error) {
    host::writeMessage(error.what());
    return static_cast<int>(error.code());
}
