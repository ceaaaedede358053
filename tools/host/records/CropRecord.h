#pragma once

#include "CropWindow.h"
#include "Faces.h"
#include "host/HostError.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

namespace host {

/// The state of the output file of one crop.
enum class OutputState {
    None, ///< no output was requested
    Written,
    Planned, ///< a dry run would have written it
    Skipped, ///< a file of that name already exists
};

/// The name of \a state in records: "written", "planned", "skipped"; empty for None.
QString nameOf(OutputState state);

/// A share as it appears in records: rounded to four decimals, which is easy to read.
double roundedShare(double share);

/// One crop of a picture.
struct CropResult {
    QString shape; ///< the ratio or the size, as the user wrote it
    VXCropWindow chosen; ///< its window is null when the crop was skipped before one was chosen
    QRect stored; ///< the window in the stored picture, before its EXIF orientation is applied
    QSize outputSize; ///< of the written picture
    QSize contentSize; ///< of the crop in the written picture, which may be padded
    QString outputPath;
    OutputState state = OutputState::None;
};

/// What was requested for a picture, as hashes of 16 hexadecimal digits: equal hashes mean equal requests.
struct CropRequest {
    QString optionsHash; ///< of the options that determine the results of every picture
    QString lineHash; ///< of the picture's line in a list; empty: the line has only a path
};

/// The result for one picture: its crops, or why there are none.
struct CropRecord {
    QString path; ///< as given
    QString version = QStringLiteral(VXROI_VERSION); ///< of the program that made the record
    QString settings; ///< how the picture was analysed; see textOf()
    CropRequest request;
    std::optional<QJsonObject> file; ///< the state of the picture's file; see stateOf()
    std::optional<QJsonObject> mapFile; ///< the state of the file that the map was read from
    QString format;
    QSize stored;
    QSize oriented;
    int orientation = 1;
    int frames = 1; ///< how many are analysed and written
    std::optional<QVector<Face>> faces; ///< nullopt: none were looked for, or they are not known
    QStringList warnings;
    QVector<CropResult> crops;
    std::optional<HostError> failure;

    /// The paths of the outputs that were written.
    QStringList writtenOutputs() const;

    /// The record as one line of JSON, without a newline. Equal records give equal bytes.
    QByteArray toJson() const;

    /// Reads what toJson() has written. Unknown keys are ignored. A skipped crop may lack its window and the values
    /// that depend on it.
    /// \throws HostError whose reason says why \a object is not a record.
    static CropRecord fromJson(const QJsonObject& object);
};

} // namespace host
