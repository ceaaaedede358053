// vxroi-scenes FOLDER: draws the sample scenes into FOLDER, one PNG each, and prints their names.

#include "SampleScenes.h"

#include "host/HostError.h"
#include "host/picture/PictureWriter.h"

#include <QCoreApplication>

#include <iostream>

namespace {

void drawInto(const QString& folder)
{
    for (const scenes::Scene& scene : scenes::sampleScenes()) {
        const QString path = QStringLiteral("%1/%2.png").arg(folder, scene.name);
        host::PictureWriter file(scene.draw(), path);
        file.commit(true);
        std::cout << path.toStdString() << '\n';
    }
}

} // namespace

int main(int argc, char** argv)
try {
    const QCoreApplication application(argc, argv);
    if (argc != 2)
        throw host::HostError(host::ExitCode::Usage, QStringLiteral("command line"),
            QStringLiteral("one folder is expected"), QStringLiteral("call vxroi-scenes FOLDER"));
    drawInto(QString::fromLocal8Bit(argv[1]));
    return 0;
} catch (const host::HostError& error) {
    std::cerr << "vxroi-scenes: " << error.what() << '\n';
    return static_cast<int>(error.code());
}
