#pragma once

#include "host/Explanation.h"

#include <QString>
#include <QVector>

namespace host {

/// A pattern for the names of files that belong to pictures or crops. Its placeholders are {dir}, {stem} and {ext},
/// parts of the picture's name, and for crops {ratio}, the shape as in "16x9".
class OutputName {
public:
    /// What the pattern names: the output of a crop, or the map of a picture.
    enum class Of { Crop, Picture };

    /// \throws HostError when \a pattern has an unknown placeholder or an unmatched brace.
    explicit OutputName(const QString& pattern, Of owner = Of::Crop);

    /// The placeholders and their meanings.
    static QVector<Explanation> placeholders();

    /// The name for a crop of the picture at \a input.
    /// \param shape the value of {ratio}; see CropShape::fileName().
    /// \param suffix the value of {ext}; empty: the suffix of the picture.
    QString nameFor(const QString& input, const QString& shape, const QString& suffix = {}) const;

    /// The folder that the pattern itself names: the part before its first placeholder. A {dir} at its very beginning
    /// counts as the folder of \a input. Outputs must not leave this folder.
    QString folderFor(const QString& input) const;

    /// Whether there are placeholders; then missing folders are created.
    bool hasPlaceholders() const;

private:
    QString text;
};

/// The absolute path of a file, which need not exist, with all links resolved: two names of one file become equal.
QString canonicalPathOf(const QString& path);

/// Whether \a path lies in \a folder or in a folder within it. Neither need exist.
bool isWithin(const QString& folder, const QString& path);

} // namespace host
