// vxroi-evaluate FOLDER [PRESET | METHOD=N,...]...: prints how much crops of the photographs in FOLDER keep.

#include "Table.h"

#include "host/HostError.h"
#include "vxroi/options/SalienceOptions.h"

#include <QCoreApplication>

#include <iostream>

int main(int argc, char** argv)
try {
    const QCoreApplication application(argc, argv);
    if (argc < 2)
        throw host::HostError(host::ExitCode::Usage, QStringLiteral("vxroi-evaluate"),
            QStringLiteral("no folder is named"),
            QStringLiteral("give a folder with the folders images and points, then presets or "
                           "weights such as gauss=20,achanta=10"));
    const QStringList arguments = QCoreApplication::arguments();
    const QStringList names = argc > 2 ? arguments.mid(2) : vxroi::presetNames();
    for (const QString& name : names)
        evaluate::settingsOf(name); // refuses wrong ones before the photographs are read
    std::cout << evaluate::tableOf(names, evaluate::samplesOf(arguments.at(1))).toStdString();
    return 0;
} catch (const host::HostError& error) {
    std::cerr << "vxroi-evaluate: " << error.what() << '\n';
    return static_cast<int>(error.code());
}
