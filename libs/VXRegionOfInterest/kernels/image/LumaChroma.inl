// Luma and chroma of pixels; see LumaChroma.h.

VX_ALWAYS_INLINE double redOf(QRgb pixel) { return static_cast<int>(pixel >> 16U & 0xFFU); }
VX_ALWAYS_INLINE double greenOf(QRgb pixel) { return static_cast<int>(pixel >> 8U & 0xFFU); }
VX_ALWAYS_INLINE double blueOf(QRgb pixel) { return static_cast<int>(pixel & 0xFFU); }

void packLumaChroma(const QRgb* pixels, int count, QRgb* __restrict target)
{
    for (int i = 0; i < count; ++i) {
        const double red = redOf(pixels[i]);
        const double blue = blueOf(pixels[i]);
        const double luma = lumaOfRed * red + lumaOfGreen * greenOf(pixels[i]) + lumaOfBlue * blue;
        const double redDifference = (red - luma) * redDifferenceScale + chromaOfGrey;
        const double blueDifference = (blue - luma) * blueDifferenceScale + chromaOfGrey;
        target[i] = opaque | static_cast<QRgb>(static_cast<int>(luma)) << 16U
            | static_cast<QRgb>(static_cast<int>(blueDifference)) << 8U
            | static_cast<QRgb>(static_cast<int>(redDifference));
    }
}
