#pragma once

#include <VXCrop/VXCropSettings.h>

#include <QString>

#include <array>

/// \file
/// The names of presets and settings of the analysis.

namespace host {

/// Named settings.
struct Preset {
    const char* name;
    const char* text; ///< what it is for, in a few words
    VXCropSettings (*settings)();
};

inline constexpr std::array<Preset, 2> presets { {
    { "photo", "for photographs: what differs from the picture's border", VXCropSettings::photo },
    { "library", "the default weights of the library's blend of four methods",
        VXCropSettings::library },
} };

/// One setting of the histogram method and its range.
template <typename Value> struct HistogramSetting {
    const char* name;
    const char* text; ///< what it does, in a few words
    Value VXCropSettings::HistogramTuning::*value;
    Value least;
    Value most;
};

inline constexpr std::array<HistogramSetting<int>, 4> wholeSettings { {
    { "bins1", "bins of the blue difference, the first channel",
        &VXCropSettings::HistogramTuning::bins1, 1, 256 },
    { "bins2", "bins of the red difference, the second channel",
        &VXCropSettings::HistogramTuning::bins2, 1, 256 },
    { "columns", "blocks across the picture", &VXCropSettings::HistogramTuning::columns, 1, 100 },
    { "rows", "blocks down the picture", &VXCropSettings::HistogramTuning::rows, 1, 100 },
} };

inline constexpr std::array<HistogramSetting<double>, 3> realSettings { {
    { "threshold", "blocks that differ by no more than this are merged",
        &VXCropSettings::HistogramTuning::threshold, 0.0, 1e6 },
    { "min-width", "minimum width of a region, as a share of the picture",
        &VXCropSettings::HistogramTuning::minWidth, 0.0, 1.0 },
    { "min-height", "minimum height of a region, as a share of the picture",
        &VXCropSettings::HistogramTuning::minHeight, 0.0, 1.0 },
} };

/// Settings with every method off.
VXCropSettings withoutMethods();

/// The settings as one line: the name of the preset or the weights that are not 0, then the settings that differ from
/// their defaults, such as "photo" or "gauss=20 achanta=10 bins1=16". Equal settings give equal texts, whichever
/// options they came from.
QString textOf(const VXCropSettings& settings);

} // namespace host
