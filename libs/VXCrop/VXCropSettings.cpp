#include "VXCropSettings.h"

const QVector<VXCropSettings::Method>& VXCropSettings::methods()
{
    static const QVector<Method> all {
        { "sobel", &VXCropSettings::sobel, Sobel },
        { "gauss", &VXCropSettings::gauss, Gauss },
        { "histogram", &VXCropSettings::histogram, ::Histogram },
        { "achanta", &VXCropSettings::achanta, Achanta },
        { "background", &VXCropSettings::background, std::nullopt },
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
