#pragma once

#include "host/Explanation.h"
#include "host/crop/CropShape.h"

#include <QString>

namespace host {

/// The name of a file that belongs to a picture or a crop, with placeholders for what differs
/// between them: {dir}, {stem} and {ext} of the picture's name, and for a crop {ratio}, its shape as in
/// "16x9".
class OutputName {
public:
    /// What has a file: a crop its output, a picture its map.
    enum class Of { Crop, Picture };

    /// \throws HostError when \a pattern has another placeholder, or an unmatched brace.
    explicit OutputName(const QString& pattern, Of owner = Of::Crop);

    /// The placeholders, and what they stand for.
    static QVector<Explanation> placeholders();

    /// The name for a crop of \a shape of the picture at \a input.
    /// \param suffix what {ext} stands for; empty: that of the picture.
    QString nameFor(const QString& input, const CropShape& shape, const QString& suffix = {}) const;

    /// The folder that the name is in before any placeholder but a {dir} that it begins with is replaced.
    QString folderFor(const QString& input) const;

    /// Whether there is any placeholder: then missing folders are made.
    bool hasPlaceholders() const;

private:
    QString text;
};

/// The path of a file that need not be there yet, by way of no link: two names of one file are one.
QString canonicalPathOf(const QString& path);

/// Whether the file at \a path, which need not be there yet, is or will be in \a folder or a folder within it.
bool isWithin(const QString& folder, const QString& path);

} // namespace host
