// The maximum filter's loops, over red values as bytes.

bool readKeys(const QRgb* pixels, int count, int threshold, QRgb alwaysSet, quint8* __restrict keys)
{
    QRgb differences = 0;
    for (int i = 0; i < count; ++i) {
        const QRgb red = pixels[i] >> 16U & 0xFFU;
        const bool isAbove = static_cast<int>(red) > threshold;
        const QRgb difference = (pixels[i] | alwaysSet) ^ (0xFF000000U | red * 0x010101U);
        differences |= isAbove ? difference : 0;
        keys[i] = static_cast<quint8>(isAbove ? red : 0);
    }
    return differences == 0;
}

void writeMaxima(const quint8* a, const quint8* b, std::ptrdiff_t count, quint8* __restrict maxima)
{
    for (std::ptrdiff_t i = 0; i < count; ++i)
        maxima[i] = a[i] > b[i] ? a[i] : b[i];
}

void overwriteDarker(const quint8* a, const quint8* b, int count, QRgb* __restrict pixels)
{
    for (int i = 0; i < count; ++i) {
        const QRgb key = a[i] > b[i] ? a[i] : b[i];
        const QRgb grey = 0xFF000000U | key * 0x010101U;
        pixels[i] = key > (pixels[i] >> 16U & 0xFFU) ? grey : pixels[i];
    }
}
