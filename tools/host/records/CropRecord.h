#pragma once

#include "host/HostError.h"
#include "host/crop/CropWindow.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

namespace host {

/// What became of the file of one crop.
enum class OutputState {
    None, ///< none was asked for
    Written,
    Planned, ///< a dry run: it would have been written
    Skipped, ///< a file of that name already exists
};

/// The name of \a state in records: "written", "planned", "skipped"; empty for None.
QString nameOf(OutputState state);

/// A share as records have it: with four digits after the point, so that it reads well.
double roundedShare(double share);

/// One crop of a picture.
struct CropResult {
    QString shape; ///< the ratio or the size, as asked for
    VXCropWindow chosen; ///< its window is null where none was chosen, as the crop was skipped
    QRect stored; ///< the window in pixels of the picture as it is stored
    QSize outputSize; ///< of the picture that is written
    QSize contentSize; ///< of the crop in it
    QString outputPath;
    OutputState state = OutputState::None;
};

/// What was asked for, as hashes of 16 hexadecimal digits: the same hashes ask for the same.
struct CropRequest {
    QString ofRun; ///< the options that decide what becomes of every picture
    QString ofLine; ///< what the picture's line in a list says; empty: nothing but its path
};

/// What the program has to say of one picture: its crops, or why there are none.
struct CropRecord {
    QString path; ///< as given
    QString version = QStringLiteral(VXROI_VERSION); ///< of the program that made it
    QString settings; ///< how it was analysed
    CropRequest request;
    std::optional<QJsonObject> file; ///< the state of the picture's file; see stateOf()
    std::optional<QJsonObject> mapFile; ///< that of the file that its map came from
    QString format;
    QSize stored;
    QSize oriented;
    int orientation = 1;
    int frames = 1; ///< that are analysed and written
    QStringList warnings;
    QVector<CropResult> crops;
    std::optional<HostError> failure;

    /// The outputs that were written.
    QStringList writtenOutputs() const;

    /// The record as one line of JSON, without the line's end. The same record gives the same bytes.
    QByteArray toJson() const;

    /// Reads what toJson() has written. Keys that it does not know are left alone; of a crop that was skipped, the
    /// window and what belongs to it may be missing.
    /// \throws HostError whose reason says why \a object is no record.
    static CropRecord fromJson(const QJsonObject& object);
};

} // namespace host
