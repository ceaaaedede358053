#include "ClusterCommand.h"

#include "OutputFiles.h"
#include "WorkerThreads.h"

#include "host/Analysis.h"
#include "host/CellGrid.h"
#include "host/Json.h"
#include "host/StandardOutput.h"
#include "host/picture/PictureFile.h"

#include <CLI/CLI.hpp>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace vxroi {

namespace {

QJsonObject jsonOf(const host::GridCell& cell)
{
    return { { QStringLiteral("column"), cell.column }, { QStringLiteral("row"), cell.row },
        { QStringLiteral("area"), host::jsonOf(cell.area) },
        { QStringLiteral("level"), cell.level } };
}

} // namespace

void runCluster(const ClusterArguments& arguments)
{
    const QString input = pathFrom(arguments.picture);
    const QString output = pathFrom(arguments.output);
    const QSize grid = host::parseGrid(QString::fromStdString(arguments.grid));
    const host::AnalysisRules rules = arguments.analysis.rules();
    if (!output.isEmpty())
        requirePng(output);

    startWorkerThreads();
    host::PictureFile picture(input, rules.reading);
    const QImage map = host::analysisOf(picture, rules.salience).map();
    const host::CellGrid rated = host::rateCells(map, picture.orientedSize(), grid);
    if (!output.isEmpty()) {
        OutputFiles files(input, arguments.ifExists);
        files.add(rated.picture, output);
        files.commit();
    }

    QJsonArray cells;
    for (const host::GridCell& cell : rated.cells)
        cells.append(jsonOf(cell));
    const QJsonObject table { { QStringLiteral("path"), input },
        { QStringLiteral("oriented"), host::jsonOf(picture.orientedSize()) },
        { QStringLiteral("columns"), grid.width() }, { QStringLiteral("rows"), grid.height() },
        { QStringLiteral("cells"), cells } };
    host::writeOutput(QJsonDocument(table).toJson(QJsonDocument::Compact) + '\n');
}

void addClusterCommand(CLI::App& app, ClusterArguments& arguments)
{
    CLI::App* const cluster = app.add_subcommand(
        "cluster", "Print how salient each cell of a grid over a picture is, as JSON");
    cluster->add_option("PICTURE", arguments.picture, "the picture file to read")->required();
    cluster->add_option("--grid", arguments.grid, "columns and rows of the grid")
        ->type_name("CxR")
        ->capture_default_str();
    cluster->add_option("-o,--output", arguments.output, "paint the cells into this PNG file")
        ->type_name("FILE");
    addIfExistsOption(*cluster, arguments.ifExists);
    arguments.analysis.addTo(*cluster);
    cluster->callback([&arguments] { runCluster(arguments); });
}

} // namespace vxroi
