#pragma once

#include "CropTask.h"

#include <QSemaphore>

#include <functional>

namespace host {

class CropOutputs;

/// Crops pictures. One object may be used from any number of threads.
class Cropper {
public:
    /// \param pixelsAtOnce the most pixels that all threads together may have decoded at a time; a larger picture waits
    /// until no other is being cropped.
    Cropper(CropRules rules, qint64 pixelsAtOnce);

    /// Receives a picture and its analysis; a HostError that it throws becomes the picture's failure.
    using Look = std::function<void(PictureFile& picture, const VXCrop& analysis)>;

    /// Chooses the crops of a picture and writes those that have outputs: all of them or none.
    /// \param look called once the crops are chosen; may be empty.
    /// \return the record; a failure is stored in it and never thrown.
    CropRecord crop(const CropTask& task, const Look& look = {});

private:
    void analyseAndWrite(
        CropRecord& record, const CropTask& task, const CropOutputs& outputs, const Look& look);
    void lookForFaces(CropRecord& record, const CropTask& task) const;
    void choose(CropRecord& record, const CropTask& task, const VXCrop& analysis,
        const PictureFile& picture) const;
    void setOutputSize(
        CropRecord& record, CropResult& crop, const CropShape& shape, int frameCount) const;

    CropRules rules;
    int budget; ///< in thousands of pixels
    QSemaphore unusedBudget;
};

} // namespace host
