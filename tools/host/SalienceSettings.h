#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

class VXSalienzMixer;

namespace host {

/// How a picture is analysed: which methods, and with which weights.
struct SalienceSettings {
    /// The weight of each method's map in the blend; 0 switches the method off. A map with a negative
    /// weight is subtracted.
    struct Weights {
        int sobel = 0;
        int gauss = 0;
        int histogram = 0;
        int achanta = 0;
    };

    /// The settings of the histogram method; see VXHistogramROI.
    struct HistogramTuning {
        int bins1 = 32;
        int bins2 = 32;
        double threshold = 0.67;
        int columns = 15;
        int rows = 11;
        double minWidth = 0.5;
        double minHeight = 0.25;
    };

    Weights weights;
    HistogramTuning histogram;

    /// The settings called \a name, one of presetNames().
    /// \throws HostError when there are none.
    static SalienceSettings preset(const QString& name);
    static QStringList presetNames();

    /// Changes one weight, given as "sobel=20".
    /// \throws HostError when \a text names no method, or its value is not between ±1000.
    void setWeight(const QString& text);

    /// Changes one setting of the histogram method, given as "bins1=32".
    /// \throws HostError when \a text names no setting, or its value is out of range.
    void tune(const QString& text);

    void configure(VXSalienzMixer& mixer) const;
};

} // namespace host
