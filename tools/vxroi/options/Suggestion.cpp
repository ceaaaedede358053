#include "Suggestion.h"

#include <QVector>

#include <algorithm>
#include <limits>

namespace vxroi {

namespace {

// At row i and column j, the edit distance between the first i letters of one text and the first j of the other.
using Distances = QVector<QVector<int>>;

// The entry of the table for two prefixes.
// \param known the table, filled for all shorter prefixes.
int distanceOf(const QStringRef& one, const QStringRef& other, const Distances& known)
{
    const int i = one.size();
    const int j = other.size();
    if (i == 0 || j == 0)
        return std::max(i, j);
    const int replaced = known[i - 1][j - 1] + (one[i - 1] == other[j - 1] ? 0 : 1);
    const int least = std::min({ known[i - 1][j] + 1, known[i][j - 1] + 1, replaced });
    const bool isExchanged
        = i > 1 && j > 1 && one[i - 1] == other[j - 2] && one[i - 2] == other[j - 1];
    return isExchanged ? std::min(least, known[i - 2][j - 2] + 1) : least;
}

// Whether \a name begins with \a start. A single letter is not enough: too many names would match.
bool isCompletionOf(const QString& name, const QString& start)
{
    return start.size() > 1 && name.startsWith(start);
}

bool isNear(const QString& wrong, const QString& name, int distance)
{
    return 3 * distance <= std::max(wrong.size(), name.size());
}

} // namespace

int editDistance(const QString& one, const QString& other)
{
    Distances distances(one.size() + 1, QVector<int>(other.size() + 1));
    for (int i = 0; i <= one.size(); ++i) {
        for (int j = 0; j <= other.size(); ++j)
            distances[i][j] = distanceOf(one.leftRef(i), other.leftRef(j), distances);
    }
    return distances.last().last();
}

QString nearestName(const QString& wrong, const QStringList& names)
{
    const QString written = wrong.toLower();
    QString nearest;
    int least = std::numeric_limits<int>::max();
    for (const QString& name : names) {
        const int distance = isCompletionOf(name, written) ? 0 : editDistance(written, name);
        if (distance < least && isNear(written, name, distance)) {
            nearest = name;
            least = distance;
        }
    }
    return nearest;
}

QString alternatives(const QStringList& names)
{
    if (names.size() < 2)
        return names.join(QString());
    return QStringList(names.mid(0, names.size() - 1)).join(QStringLiteral(", "))
        + QStringLiteral(" or ") + names.last();
}

QString suggestion(const QString& wrong, const QStringList& names)
{
    const QString nearest = nearestName(wrong, names);
    return nearest.isEmpty() ? QStringLiteral("choose ") + alternatives(names)
                             : QStringLiteral("did you mean %1?").arg(nearest);
}

} // namespace vxroi
