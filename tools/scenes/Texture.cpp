#include "Texture.h"

#include <algorithm>
#include <cmath>

namespace scenes {

namespace {

// An integer hash of a grid point, as a value between 0 and 1.
double hashed(int x, int y, unsigned seed)
{
    unsigned h = static_cast<unsigned>(x) * 0x9E3779B1U ^ static_cast<unsigned>(y) * 0x85EBCA77U
        ^ seed * 0xC2B2AE3DU;
    h = (h ^ h >> 15U) * 0x2C1B3C6DU;
    h = (h ^ h >> 12U) * 0x297A2D39U;
    h ^= h >> 15U;
    return h / 4294967295.0;
}

double smoothStep(double t) { return t * t * (3 - 2 * t); }

double between(double from, double to, double share) { return from + (to - from) * share; }

int brightened(int channel, double factor, double grain)
{
    return static_cast<int>(std::clamp(channel * factor + grain, 0.0, 255.0));
}

} // namespace

double valueNoise(double x, double y, unsigned seed)
{
    const int left = static_cast<int>(std::floor(x));
    const int top = static_cast<int>(std::floor(y));
    const double shareX = smoothStep(x - left);
    const double shareY = smoothStep(y - top);
    const double above = between(hashed(left, top, seed), hashed(left + 1, top, seed), shareX);
    const double below
        = between(hashed(left, top + 1, seed), hashed(left + 1, top + 1, seed), shareX);
    return between(above, below, shareY);
}

double fractalNoise(double x, double y, unsigned seed)
{
    double sum = 0;
    double strength = 0.5;
    for (unsigned octave = 0; octave < 4; ++octave) {
        sum += strength * valueNoise(x, y, seed + octave);
        strength *= 0.5;
        x *= 2;
        y *= 2;
    }
    return sum / 0.9375; // the strengths' sum
}

QColor mixed(const QColor& from, const QColor& to, double share)
{
    const auto channel = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
    return QColor(channel(from.red(), to.red()), channel(from.green(), to.green()),
        channel(from.blue(), to.blue()));
}

void addGrainAndVignette(QImage& scene, unsigned seed)
{
    for (int y = 0; y < scene.height(); ++y) {
        for (int x = 0; x < scene.width(); ++x) {
            const double u = 2.0 * x / scene.width() - 1;
            const double v = 2.0 * y / scene.height() - 1;
            const double light = 1 - 0.11 * (u * u + v * v);
            const double grain = 9 * (hashed(x, y, seed) - 0.5);
            const QRgb pixel = scene.pixel(x, y);
            scene.setPixel(x, y,
                qRgb(brightened(qRed(pixel), light, grain), brightened(qGreen(pixel), light, grain),
                    brightened(qBlue(pixel), light, grain)));
        }
    }
}

} // namespace scenes
