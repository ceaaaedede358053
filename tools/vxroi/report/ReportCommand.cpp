#include "ReportCommand.h"

#include "ReportArticle.h"
#include "ReportSource.h"
#include "ReportStyle.h"
#include "vxroi/OutputFiles.h"
#include "vxroi/concurrency/OrderedWork.h"

#include "host/FileName.h"
#include "host/HostError.h"
#include "host/StandardStreams.h"
#include "host/picture/Engine.h"

#include "vxroi/options/Checks.h"
#include "vxroi/options/CommonOptions.h"
#include "vxroi/options/Shapes.h"

#include <QFile>

namespace vxroi {

namespace {

using host::ExitCode;

QByteArray pagePart(const char* name)
{
    QFile part(QStringLiteral(":/report/") + QLatin1String(name));
    part.open(QIODevice::ReadOnly);
    return part.readAll();
}

// One page, to which articles are written in order as they are finished.
class Page {
public:
    explicit Page(const ReportArguments& arguments)
        : source(sourceOf(arguments))
        , file(pathFrom(arguments.output))
        , mayReplace(arguments.ifExists == host::IfExists::Overwrite)
        , isQuiet(arguments.quiet)
        , work(defaultWorkerCount())
    {
    }

    ExitCode run()
    {
        host::startEngine();
        file.write(pagePart("head.html") + pageStyle() + pagePart("controls.html"));
        while (const auto makeEntry = source->next()) {
            work.begin([position = count++, makeEntry = *makeEntry]() -> Article {
                const ReportEntry entry = makeEntry();
                return { articleOf(entry, position), entry.failure };
            });
            if (work.isFull())
                finishOne();
        }
        while (!work.isEmpty())
            finishOne();
        return finish();
    }

private:
    struct Article {
        QByteArray html;
        std::optional<host::HostError> failure;
    };

    void finishOne()
    {
        const Article article = work.finishFirst();
        file.write(article.html);
        if (!article.failure)
            return;
        ++failed;
        if (!isQuiet)
            host::writeMessage(article.failure->what());
    }

    ExitCode finish()
    {
        if (count == 0 && !isQuiet)
            host::writeWarning(QStringLiteral("report"),
                QStringLiteral("there are no pictures, so there is nothing to do; name another "
                               "folder or file, or add --recursive"));
        if (count == 0)
            return ExitCode::Success;
        file.write(QStringLiteral("</main>\n<footer>Pictures: %1, failed: %2. Drawn by vxroi %3."
                                  "</footer>\n")
                       .arg(count)
                       .arg(failed)
                       .arg(QStringLiteral(VXROI_VERSION))
                       .toUtf8()
            + pagePart("tail.html"));
        file.commit(mayReplace);
        return failed > 0 ? ExitCode::SomeFailed : ExitCode::Success;
    }

    std::unique_ptr<ReportSource> source;
    host::OutputFile file;
    bool mayReplace;
    bool isQuiet;
    int count = 0;
    int failed = 0;
    OrderedWork<Article> work;
};

// The pictures of records have already been analysed, so options of the analysis would have no effect.
void requireNoAnalysisOptions(const CLI::App& report)
{
    for (const char* const option : { "--recursive", "--ratio", "--methods", "--preset", "--weight",
             "--tune", "--faces", "--detector", "--detector-required" }) {
        if (report.count(option) > 0)
            throw host::HostError(ExitCode::Usage, QLatin1String(option),
                QStringLiteral("cannot be combined with --from"),
                QStringLiteral("leave one of them out, or crop again"));
    }
}

} // namespace

ExitCode runReport(const ReportArguments& arguments) { return Page(arguments).run(); }

void addReportCommand(CLI::App& app, ReportArguments& arguments, host::ExitCode& exitCode)
{
    CLI::App* const report = app.add_subcommand(
        "report", "Write a page that shows the crops of many pictures and why they were chosen");
    report->add_option("PICTURE", arguments.inputs, "picture files, and folders of them");
    report->add_flag("-r,--recursive", arguments.recursive, "include the folders within folders");
    report
        ->add_option("--from", arguments.from,
            "show the records in this file, as batch or crop --json wrote them, and choose no new "
            "crops; - is standard input")
        ->check(names("file"))
        ->type_name("FILE");
    report->add_option("-o,--output", arguments.output, "write the page to this HTML file")
        ->type_name("FILE")
        ->required();
    const auto takeRatios = [&arguments](const std::string& ratios) {
        arguments.ratios = parseRatios(QString::fromStdString(ratios));
    };
    report
        ->add_option_function<std::string>(
            "--ratio", takeRatios, "shapes of the crops, such as 16:9 or 1:1,4:5")
        ->type_name("W:H,...")
        ->default_str("1:1");
    report->add_flag("--methods", arguments.methods, "also show the map of each method");
    addIfExistsOption(*report, arguments.ifExists);
    addMapsOption(*report, arguments.maps);
    arguments.faces.addTo(*report);
    addQuietOption(*report, arguments.quiet);
    arguments.analysis.addTo(*report);
    report->callback([&, report] {
        if (!arguments.from.empty())
            requireNoAnalysisOptions(*report);
        exitCode = runReport(arguments);
    });
}

} // namespace vxroi
