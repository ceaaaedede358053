#pragma once

#include <QString>
#include <QStringList>

namespace vxroi {

/// The restricted Damerau-Levenshtein distance: how many letters must be inserted, deleted, replaced, or exchanged with
/// their neighbour to turn one text into the other, with no letter edited twice.
int editDistance(const QString& one, const QString& other);

/// The name that a user who wrote \a wrong probably meant, ignoring case: one that begins with \a wrong, or the one
/// with the smallest edit distance, which must be at most a third of the longer text.
/// \return an empty text when no name is that near.
QString nearestName(const QString& wrong, const QStringList& names);

/// The names as an enumeration: "one, two or three".
QString alternatives(const QStringList& names);

/// The remedy for a \a wrong name: "did you mean gauss?", or "choose photo or library" when no name is near.
QString suggestion(const QString& wrong, const QStringList& names);

} // namespace vxroi
