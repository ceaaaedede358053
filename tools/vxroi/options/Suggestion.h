#pragma once

#include <QString>
#include <QStringList>

namespace vxroi {

/// How many letters have to be inserted, left out, replaced, or exchanged with their neighbour to turn one text
/// into the other, when no letter is touched twice: the restricted Damerau-Levenshtein distance.
int editDistance(const QString& one, const QString& other);

/// The one of \a names that somebody who wrote \a wrong is likely to have meant, in whatever case: one that begins
/// with it, or the nearest one, of which two letters out of three at least are right.
/// \return an empty text when none is near enough.
QString nearestName(const QString& wrong, const QStringList& names);

/// "one, two or three"
QString alternatives(const QStringList& names);

/// What to do about a \a wrong name: "did you mean gauss?", or "choose photo or library" when no name is near.
QString suggestion(const QString& wrong, const QStringList& names);

} // namespace vxroi
