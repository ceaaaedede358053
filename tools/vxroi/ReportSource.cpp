#include "ReportSource.h"

#include "Inputs.h"
#include "OutputFiles.h"

#include <QFileInfo>

namespace vxroi {

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

// Pictures, which are cropped now.
class PicturesToReport final : public ReportSource {
public:
    explicit PicturesToReport(const ReportArguments& arguments)
        : pictures(picturesOf(arguments))
        , shapes(host::parseRatios(QString::fromStdString(arguments.ratios)))
        , hasMethods(arguments.methods)
        , cropper({ arguments.analysis.rules() }, arguments.analysis.maxPixels)
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

} // namespace

std::unique_ptr<ReportSource> sourceOf(const ReportArguments& arguments)
{
    return std::make_unique<PicturesToReport>(arguments);
}

} // namespace vxroi
