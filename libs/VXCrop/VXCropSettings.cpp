#include "VXCropSettings.h"

const QVector<VXCropSettings::Method>& VXCropSettings::methods()
{
    static const QVector<Method> all {
        { "sobel", &VXCropSettings::sobel, Sobel,
            "edges; black for every picture, it counts in the divisor alone" },
        { "gauss", &VXCropSettings::gauss, Gauss, "what is near the centre" },
        { "histogram", &VXCropSettings::histogram, ::Histogram, "large regions of one colour" },
        { "achanta", &VXCropSettings::achanta, Achanta, "colours that differ from their surround" },
        { "background", &VXCropSettings::background, std::nullopt,
            "what differs from what the border shows" },
    };
    return all;
}

VXCropSettings VXCropSettings::photo() { return {}; }

VXCropSettings VXCropSettings::library()
{
    VXCropSettings settings;
    settings.sobel = 20;
    settings.gauss = 2;
    settings.histogram = -10;
    settings.achanta = 10;
    settings.background = 0;
    return settings;
}
