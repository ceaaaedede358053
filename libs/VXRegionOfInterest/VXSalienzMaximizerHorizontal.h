#pragma once

#include "VXSalienzMaximizerAbstract.h"

/// Finds the strip of columns that holds the most salience, for choosing a crop's left edge.
///
/// What it takes, returns and costs, and how ties and the last start are treated: see
/// VXSalienzMaximizerAbstract. It has no settings.
class VXREGIONOFINTEREST_EXPORT VXSalienzMaximizerHorizontal : public VXSalienzMaximizerAbstract {
public:
    VXSalienzMaximizerHorizontal();
    /// Copies every field.
    VXSalienzMaximizerHorizontal(const VXSalienzMaximizerHorizontal& other);
    /// Copies every field.
    VXSalienzMaximizerHorizontal& operator=(const VXSalienzMaximizerHorizontal&) = default;
    ~VXSalienzMaximizerHorizontal() override;

    /// Sums the red values of each column of \a image over its rows.
    /// \return one sum per column, none for a null \a image.
    QList<long long> sums(const QImage& image) const override;
};
