#pragma once

#include "VXSalienzMaximizerAbstract.h"

/// Finds the strip of rows that holds the most salience, for choosing a crop's top edge.
///
/// What it takes, returns and costs, and how ties and the last start are treated: see
/// VXSalienzMaximizerAbstract. It has no settings.
class VXREGIONOFINTEREST_EXPORT VXSalienzMaximizerVertical : public VXSalienzMaximizerAbstract {
public:
    VXSalienzMaximizerVertical();
    /// Copies every field.
    VXSalienzMaximizerVertical(const VXSalienzMaximizerVertical& other);
    /// Copies every field.
    VXSalienzMaximizerVertical& operator=(const VXSalienzMaximizerVertical&) = default;
    ~VXSalienzMaximizerVertical() override;

    /// Sums the red values of each row of \a image over its columns.
    /// \return one sum per row, none for a null \a image.
    QList<long long> sums(const QImage& image) const override;
};
