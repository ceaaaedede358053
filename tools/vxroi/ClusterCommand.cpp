#include "ClusterCommand.h"

#include "OutputFiles.h"

#include "host/HostError.h"
#include "host/StandardStreams.h"
#include "host/crop/CellGrid.h"
#include "host/records/Json.h"
#include "vxroi/concurrency/WorkerThreads.h"
#include "vxroi/options/CommonOptions.h"
#include "vxroi/options/Shapes.h"

#include <CLI/CLI.hpp>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace vxroi {

namespace {

using host::ExitCode;
using host::HostError;

QJsonObject jsonOf(const host::GridCell& cell)
{
    return { { QStringLiteral("column"), cell.column }, { QStringLiteral("row"), cell.row },
        { QStringLiteral("area"), host::jsonOf(cell.area) },
        { QStringLiteral("level"), cell.level } };
}

// The cells as one line of JSON.
QByteArray tableOf(
    const host::CellGrid& rated, const QSize& grid, const QString& path, const QSize& picture)
{
    QJsonArray cells;
    for (const host::GridCell& cell : rated.cells)
        cells.append(jsonOf(cell));
    const QJsonObject table { { QStringLiteral("path"), path },
        { QStringLiteral("oriented"), host::jsonOf(picture) },
        { QStringLiteral("columns"), grid.width() }, { QStringLiteral("rows"), grid.height() },
        { QStringLiteral("cells"), cells } };
    return QJsonDocument(table).toJson(QJsonDocument::Compact) + '\n';
}

void requireOutput(const ClusterArguments& arguments)
{
    if (!arguments.json && arguments.output.empty())
        throw HostError(ExitCode::Usage, QStringLiteral("cluster"),
            QStringLiteral("no output given"), QStringLiteral("add --json or --output"));
    if (!arguments.output.empty())
        requirePng(pathFrom(arguments.output));
}

} // namespace

void runCluster(const ClusterArguments& arguments)
{
    requireOutput(arguments);
    const QString input = pathFrom(arguments.picture);
    startWorkerThreads();
    host::Analysis analysis(input, arguments.analysis.rules);
    const QSize picture = analysis.picture().orientedSize();
    const host::CellGrid rated = host::rateCells(analysis.run().map(), picture, arguments.grid);
    if (!arguments.output.empty()) {
        OutputFiles files(input, arguments.ifExists);
        files.add(rated.picture, pathFrom(arguments.output));
        files.commit();
    }
    if (arguments.json)
        host::writeOutput(tableOf(rated, arguments.grid, input, picture));
    if (!arguments.quiet)
        for (const QString& warning : analysis.warnings())
            host::writeWarning(input, warning);
}

void addClusterCommand(CLI::App& app, ClusterArguments& arguments)
{
    CLI::App* const cluster
        = app.add_subcommand("cluster", "Rate the cells of a grid laid over a picture");
    cluster->add_option("PICTURE", arguments.picture, "the picture file to read")->required();
    const auto takeGrid = [&arguments](const std::string& grid) {
        arguments.grid = parseGrid(QString::fromStdString(grid));
    };
    cluster->add_option_function<std::string>("--grid", takeGrid, "columns and rows of the grid")
        ->type_name("CxR")
        ->default_str("12x8");
    cluster->add_flag("--json", arguments.json, "print the cells as a table, as JSON");
    cluster->add_option("-o,--output", arguments.output, "paint the cells into this PNG file")
        ->type_name("FILE");
    addIfExistsOption(*cluster, arguments.ifExists);
    addQuietOption(*cluster, arguments.quiet);
    arguments.analysis.addTo(*cluster);
    cluster->callback([&arguments] { runCluster(arguments); });
}

} // namespace vxroi
