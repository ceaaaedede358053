#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QVector>

/// \file
/// Single fields of a record's JSON, for callers that do not need a whole host::CropRecord.

namespace vxroi {

/// Whether \a object is a record: it has a path and a status.
bool isRecord(const QJsonObject& object);

/// The text in \a object under \a key; empty when there is none.
QString textIn(const QJsonObject& object, const char* key);

/// Whether the picture of \a record failed.
bool hasFailed(const QJsonObject& record);

/// The "output" objects of all crops of a record.
QVector<QJsonObject> outputsOf(const QJsonObject& record);

/// The outputs that a record names as written.
QStringList writtenOutputsOf(const QJsonObject& record);

} // namespace vxroi
