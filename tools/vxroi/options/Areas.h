#pragma once

#include "host/crop/Constraints.h"

#include <QPointF>
#include <QString>
#include <QVector>

#include <optional>

namespace vxroi {

/// Parses a length such as "120", in pixels, or "12.5%".
/// \return std::nullopt when \a text is anything else.
std::optional<host::Length> parseLength(const QString& text);

/// The area with the given left, top, width and height.
/// \param text the area as the user wrote it, with its option, for the error
/// \throws host::HostError when there are not four lengths, or the area is empty.
host::Area areaOf(const QVector<std::optional<host::Length>>& lengths, const QString& text);

/// Parses an area such as "10,20,300,200" or "25%,0,50%,100%".
/// \param option the option that has the value \a text
/// \throws host::HostError when \a text is anything else, or the area is empty.
host::Area parseArea(const QString& text, const QString& option);

/// The point with the given coordinates, as shares of a picture.
/// \param text the point as the user wrote it, with its option, for the error
/// \throws host::HostError when a coordinate is missing or not from 0 to 1.
QPointF focusOf(std::optional<double> x, std::optional<double> y, const QString& text);

/// Parses a point such as "0.5,0.33"; both coordinates are from 0 to 1.
/// \throws host::HostError when \a text is anything else.
QPointF parseFocus(const QString& text);

} // namespace vxroi
