#include "ReportCommand.h"

#include "Inputs.h"
#include "OrderedWork.h"
#include "OutputFiles.h"
#include "ReportArticle.h"

#include "host/FileName.h"
#include "host/HostError.h"
#include "host/StandardError.h"

#include <CLI/CLI.hpp>

#include <QFile>
#include <QFileInfo>

namespace vxroi {

namespace {

using host::ExitCode;
using host::HostError;

QStringList picturesOf(const ReportArguments& arguments)
{
    QStringList pictures;
    for (const std::string& input : arguments.inputs) {
        const QString path = pathFrom(input);
        pictures += QFileInfo(path).isDir() ? picturesIn(path, arguments.recursive)
                                            : QStringList { path };
    }
    if (pictures.isEmpty())
        throw HostError(ExitCode::MissingInput, QStringLiteral("report"),
            QStringLiteral("there is no picture in the folder"),
            QStringLiteral("name another, or add --recursive"));
    return pictures;
}

void addPart(host::OutputFile& page, const char* name)
{
    QFile part(QStringLiteral(":/report/") + QLatin1String(name));
    part.open(QIODevice::ReadOnly);
    page.write(part.readAll());
}

} // namespace

ExitCode runReport(const ReportArguments& arguments)
{
    const QStringList pictures = picturesOf(arguments);
    const QString output = pathFrom(arguments.output);
    for (const QString& picture : pictures)
        requireFreeName(picture, output, arguments.ifExists);
    const auto shapes = host::parseRatios(QString::fromStdString(arguments.ratios));
    const host::AnalysisRules rules = arguments.analysis.rules();

    host::OutputFile page(output);
    addPart(page, "head.html");
    page.write(
        QStringLiteral("<p>%1 pictures. A number says how much of the map a window keeps.</p>\n")
            .arg(pictures.size())
            .toUtf8());
    addPart(page, "sorting.html");
    page.write("<main id=\"pictures\">\n");

    struct Article {
        QByteArray html;
        QString failure;
    };
    OrderedWork<Article> work(defaultWorkerCount());
    bool hasFailed = false;
    const auto finishOne = [&] {
        const Article article = work.finishFirst();
        page.write(article.html);
        if (!article.failure.isEmpty())
            host::writeError("vxroi: " + host::bytesOfName(article.failure).toStdString() + '\n');
        hasFailed = hasFailed || !article.failure.isEmpty();
    };
    for (int position = 0; position < pictures.size(); ++position) {
        work.begin([&, position]() -> Article {
            const ReportEntry entry = reportEntryOf(pictures.at(position), shapes, rules);
            return { articleOf(entry, position), entry.failure };
        });
        if (work.isFull())
            finishOne();
    }
    while (!work.isEmpty())
        finishOne();
    page.write("</main>\n");
    addPart(page, "tail.html");
    page.commit(arguments.ifExists == "overwrite");
    return hasFailed ? ExitCode::SomeFailed : ExitCode::Success;
}

void addReportCommand(CLI::App& app, ReportArguments& arguments, host::ExitCode& exitCode)
{
    CLI::App* const report = app.add_subcommand(
        "report", "Write a page that shows the crops of many pictures and why they were chosen");
    report->add_option("PICTURE", arguments.inputs, "picture files, and folders of them")
        ->required();
    report->add_flag("-r,--recursive", arguments.recursive, "also the folders within folders");
    report->add_option("-o,--output", arguments.output, "write the page to this HTML file")
        ->type_name("FILE")
        ->required();
    report->add_option("--ratio", arguments.ratios, "shapes of the crops, such as 16:9 or 1:1,4:5")
        ->type_name("W:H,...")
        ->capture_default_str();
    addIfExistsOption(*report, arguments.ifExists);
    arguments.analysis.addTo(*report);
    report->callback([&] { exitCode = runReport(arguments); });
}

} // namespace vxroi
