#pragma once

#include "VXCropExport.h"

#include <VXRegionOfInterest/VXSalienzMethod.h>

#include <QVector>

#include <optional>

/// How a picture is analysed: which methods look at it, and how much each counts.
///
/// A weight is how much a method's map counts in the blend of all; 0 switches the method off, and
/// the map of a negative weight is subtracted. With one method on, its map is taken as it is.
///
/// Default-constructed settings are those of photo().
struct VXCROP_EXPORT VXCropSettings {
    /// The settings of the histogram method; see VXHistogramROI.
    struct HistogramTuning {
        int bins1 = 32; ///< bins of the first channel, at least 1
        int bins2 = 32; ///< bins of the second channel, at least 1
        double threshold = 0.67; ///< up to which difference blocks are merged
        int columns = 15; ///< of blocks, 1 to 100
        int rows = 11; ///< of blocks, 1 to 100
        double minWidth = 0.5; ///< of a region that counts, as a share of the picture
        double minHeight = 0.25; ///< of a region that counts, as a share of the picture
    };

    /// A method that has a weight here.
    struct Method {
        const char* name = nullptr; ///< in lower case, such as "achanta"
        int VXCropSettings::*weight = nullptr; ///< its weight
        /// What VXSalienzMixer calls it; nothing for VXBackgroundROI.
        std::optional<VXSalienzMethod> ofMixer;
        const char* finds = nullptr; ///< what its map shows, in a few words
    };

    /// The weight of edges. Their map is black for every picture: it counts in the divisor alone.
    int sobel = 0;
    int gauss = 0; ///< the weight of the centre prior
    int histogram = 0; ///< the weight of large regions of one colour
    int achanta = 0; ///< the weight of colour against its surround
    int background = 20; ///< the weight of what differs from the border
    HistogramTuning tuning; ///< for the histogram method

    /// The methods, in the order in which their maps are blended.
    static const QVector<Method>& methods();

    /// For photographs: what differs from the border, VXBackgroundROI, and nothing else.
    static VXCropSettings photo();

    /// The weights that a VXSalienzMixer comes with.
    static VXCropSettings library();
};
