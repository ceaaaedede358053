#include "CropOutputs.h"

#include "host/FileName.h"
#include "host/files/OutputFile.h"
#include "host/picture/Formats.h"
#include "host/picture/PictureFile.h"

#include <QDir>
#include <QFileInfo>

namespace host {

namespace {

void warnOfLostFrames(CropRecord& record, const CropResult& crop, const WritingRules& rules)
{
    const Format& format = formatOf(crop.outputPath, rules);
    if (record.frames > 1 && !format.abilities.testFlag(Ability::Frames))
        record.warnings.append(QStringLiteral("animated: %1 holds only the first frame")
                                   .arg(QLatin1String(format.name)));
}

} // namespace

CropOutputs::CropOutputs(const CropRules& cropRules, const CropTask& cropTask)
    : rules(cropRules)
    , task(cropTask)
{
}

void CropOutputs::plan(CropRecord& record) const
{
    for (int i = 0; i < task.shapes.size(); ++i) {
        CropResult crop;
        crop.shape = task.shapes.at(i).name;
        crop.outputPath = task.outputs.value(i);
        if (!crop.outputPath.isEmpty()) {
            refuseToOverwriteInput(task.path, crop.outputPath);
            if (!task.map.isEmpty())
                refuseToOverwriteInput(task.map, crop.outputPath);
            requireReplaceable(crop.outputPath);
            requireKnownFormat(crop.outputPath, rules.writing);
        }
        crop.state = planFor(crop.outputPath);
        record.crops.append(crop);
    }
}

bool CropOutputs::mayReplace(const QString& output) const
{
    return rules.ifExists == IfExists::Overwrite || task.ownOutputs.contains(output);
}

OutputState CropOutputs::planFor(const QString& output) const
{
    if (output.isEmpty())
        return OutputState::None;
    const bool exists = !isStandardStream(output) && QFileInfo::exists(output);
    if (exists && !rules.isResumed)
        return planForTakenName(output);
    return rules.isDryRun ? OutputState::Planned : OutputState::Written;
}

OutputState CropOutputs::planForTakenName(const QString& output) const
{
    if (!mayReplace(output) && rules.ifExists == IfExists::Fail)
        throwAlreadyExists(output);
    if (!mayReplace(output))
        return OutputState::Skipped;
    return rules.isDryRun ? OutputState::Planned : OutputState::Written;
}

void CropOutputs::write(CropRecord& record, PictureFile& picture) const
{
    QVector<CropResult*> crops;
    QVector<Cut> cuts;
    for (CropResult& crop : record.crops) {
        if (crop.state != OutputState::Written)
            continue;
        crops.append(&crop);
        cuts.append(
            { crop.chosen.window, crop.contentSize, crop.outputSize, rules.writing.background });
    }
    if (crops.isEmpty())
        return;
    const QVector<vips::VImage> pictures = picture.readCuts(cuts);
    std::deque<PictureWriter> files;
    WritingRules writing = rules.writing;
    for (int i = 0; i < crops.size(); ++i) {
        CropResult& crop = *crops.at(i);
        if (isStandardStream(crop.outputPath) && writing.format == nullptr)
            writing.format = formatCalled(picture.format());
        warnOfLostFrames(record, crop, writing);
        if (rules.makesFolders)
            QDir().mkpath(QFileInfo(crop.outputPath).path());
        files.emplace_back(pictures.at(i), crop.outputPath, writing, picture.deadline());
        const PictureWriter::Existing existing = files.back().existing();
        if (existing == PictureWriter::Existing::Other)
            crop.state = planForTakenName(crop.outputPath);
        const bool isUnchanged
            = existing == PictureWriter::Existing::Same && rules.ifExists != IfExists::Overwrite;
        if (crop.state != OutputState::Written || isUnchanged)
            files.pop_back();
    }
    commit(files);
}

void CropOutputs::commit(std::deque<PictureWriter>& files) const
{
    QStringList created;
    QStringList replaced;
    for (const PictureWriter& file : files) {
        if (isStandardStream(file.path()))
            continue;
        created.append(file.draftPath());
        (QFileInfo::exists(file.path()) ? replaced : created).append(file.path());
    }
    if (rules.journal != nullptr)
        rules.journal->willWrite(created, replaced);
    try {
        for (PictureWriter& file : files) {
            file.commit(mayReplace(file.path()));
            created.removeAll(file.path());
        }
    } catch (const HostError&) {
        if (rules.journal != nullptr)
            rules.journal->haveNotCreated(created);
        throw;
    }
}

} // namespace host
