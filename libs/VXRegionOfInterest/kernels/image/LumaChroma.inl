// Luma and chroma of pixels; see LumaChroma.h.

VX_ALWAYS_INLINE double redOf(QRgb pixel) { return static_cast<int>(pixel >> 16U & 0xFFU); }
VX_ALWAYS_INLINE double greenOf(QRgb pixel) { return static_cast<int>(pixel >> 8U & 0xFFU); }
VX_ALWAYS_INLINE double blueOf(QRgb pixel) { return static_cast<int>(pixel & 0xFFU); }

VX_ALWAYS_INLINE void toLumaChroma(double red, double green, double blue, double& luma,
    double& redDifference, double& blueDifference)
{
    luma = 0.299 * red + 0.587 * green + 0.114 * blue;
    redDifference = (red - luma) * 0.713 + 128.0;
    blueDifference = (blue - luma) * 0.564 + 128.0;
}

void packLumaChroma(const QRgb* pixels, int count, QRgb* __restrict target)
{
    for (int i = 0; i < count; ++i) {
        double luma;
        double redDifference;
        double blueDifference;
        toLumaChroma(redOf(pixels[i]), greenOf(pixels[i]), blueOf(pixels[i]), luma, redDifference,
            blueDifference);
        target[i] = 0xFF000000U | static_cast<QRgb>(static_cast<int>(luma)) << 16U
            | static_cast<QRgb>(static_cast<int>(blueDifference)) << 8U
            | static_cast<QRgb>(static_cast<int>(redDifference));
    }
}
