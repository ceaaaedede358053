#include "ReportSource.h"

#include "vxroi/OutputFiles.h"
#include "vxroi/inputs/Inputs.h"
#include "vxroi/records/RecordLines.h"

#include "host/HostError.h"
#include "vxroi/options/CommonOptions.h"

#include <QFileInfo>

namespace vxroi {

using host::CropRecord;
using host::ExitCode;
using host::HostError;

namespace {

using MakeEntry = std::function<ReportEntry()>;

QStringList picturesOf(const ReportArguments& arguments)
{
    QStringList pictures;
    for (const std::string& input : arguments.inputs) {
        const QString path = pathFrom(input);
        pictures += QFileInfo(path).isDir() ? picturesIn(path, arguments.recursive)
                                            : QStringList { path };
    }
    return pictures;
}

// A stored map lacks the maps of single methods, so it cannot be used when these are requested.
host::CropRules rulesOf(const ReportArguments& arguments)
{
    host::CropRules rules { arguments.analysis.rules };
    rules.analysis.maps = arguments.methods ? nullptr : mapsIn(arguments.maps);
    rules.detector = arguments.faces.detector();
    return rules;
}

// The pictures on the command line, whose crops are chosen now.
class PicturesToReport final : public ReportSource {
public:
    explicit PicturesToReport(const ReportArguments& arguments)
        : pictures(picturesOf(arguments))
        , shapes(arguments.ratios)
        , hasMethods(arguments.methods)
        , cropper(rulesOf(arguments), arguments.analysis.rules.reading.mostPixels)
    {
        for (const QString& picture : pictures)
            requireFreeName(picture, pathFrom(arguments.output), arguments.ifExists);
    }

    std::optional<MakeEntry> next() override
    {
        if (nextIndex == pictures.size())
            return std::nullopt;
        host::CropTask task;
        task.path = pictures.at(nextIndex++);
        task.shapes = shapes;
        return [this, task] { return entryOf(cropper, task, hasMethods); };
    }

private:
    QStringList pictures;
    QVector<host::CropShape> shapes;
    bool hasMethods;
    host::Cropper cropper;
    int nextIndex = 0;
};

// Records, whose crops were chosen earlier.
class RecordsToReport final : public ReportSource {
public:
    explicit RecordsToReport(const ReportArguments& arguments)
        : records(pathFrom(arguments.from))
        , output(pathFrom(arguments.output))
        , ifExists(arguments.ifExists)
        , rules(arguments.analysis.rules.reading)
        , maps(mapsIn(arguments.maps))
    {
        const QString recordsPath = QFileInfo(pathFrom(arguments.from)).canonicalFilePath();
        if (!recordsPath.isEmpty() && recordsPath == QFileInfo(output).canonicalFilePath())
            throw HostError(ExitCode::CannotCreate, output,
                QStringLiteral("is the file of records itself"),
                QStringLiteral("choose another name"));
    }

    std::optional<MakeEntry> next() override
    {
        const std::optional<CropRecord> record = records.next();
        if (!record)
            return std::nullopt;
        requireFreeName(record->path, output, ifExists);
        return [this, record] { return entryOf(*record, rules, maps.get()); };
    }

private:
    RecordLines records;
    QString output;
    host::IfExists ifExists;
    host::ReadingRules rules;
    std::shared_ptr<const host::MapStore> maps;
};

} // namespace

std::unique_ptr<ReportSource> sourceOf(const ReportArguments& arguments)
{
    if (arguments.inputs.empty() == arguments.from.empty())
        throw HostError(ExitCode::Usage, QStringLiteral("report"),
            QStringLiteral("takes pictures or records, not both"),
            QStringLiteral("name pictures or folders, or add --from FILE"));
    if (arguments.from.empty())
        return std::make_unique<PicturesToReport>(arguments);
    return std::make_unique<RecordsToReport>(arguments);
}

} // namespace vxroi
