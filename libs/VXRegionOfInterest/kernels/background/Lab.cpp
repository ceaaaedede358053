#include "../image/ExactArithmetic.h"

#include "Lab.h"

#include <array>
#include <cmath>
#include <cstring>

namespace {

using Intensities = std::array<double, 256>;

// The linear light that each value of a channel stands for, as a share of the brightest.
Intensities linearIntensities()
{
    Intensities intensities {};
    for (std::size_t value = 0; value < intensities.size(); ++value) {
        const double share = static_cast<double>(value) / 255;
        intensities.at(value)
            = share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    }
    return intensities;
}

double intensityOf(int value)
{
    static const Intensities intensities = linearIntensities();
    return intensities[static_cast<std::size_t>(value)];
}

// The cube root of a number from 0.001 to 1, with a relative error of 1e-14. std::cbrt would take as long as all other
// steps of the background map together.
double cubeRoot(double number)
{
    // Dividing the bits of a float by 3 takes a third of its exponent: at most 4 % from the root.
    const auto single = static_cast<float>(number);
    quint32 bits = 0;
    std::memcpy(&bits, &single, sizeof bits);
    bits = bits / 3 + 709921077;
    float estimate = 0;
    std::memcpy(&estimate, &bits, sizeof estimate);
    // Halley's method: each step triples the number of correct digits.
    double root = estimate;
    for (int step = 0; step < 2; ++step) {
        const double cube = root * root * root;
        root = root * (cube + 2 * number) / (2 * cube + number);
    }
    return root;
}

// The cube root, continued by its tangent near 0, where it is too steep.
double compressed(double share)
{
    constexpr double linearBelow = 216.0 / 24389.0;
    return share > linearBelow ? cubeRoot(share) : (24389.0 / 27.0 * share + 16) / 116;
}

// How much each primary contributes to a tristimulus value, as a share of that of white.
struct Primaries {
    constexpr Primaries(double ofRed, double ofGreen, double ofBlue)
        : red(ofRed / (ofRed + ofGreen + ofBlue))
        , green(ofGreen / (ofRed + ofGreen + ofBlue))
        , blue(ofBlue / (ofRed + ofGreen + ofBlue))
    {
    }

    double mixed(double r, double g, double b) const { return red * r + green * g + blue * b; }

    double red;
    double green;
    double blue;
};

constexpr Primaries ofX(0.4124564, 0.3575761, 0.1804375);
constexpr Primaries ofY(0.2126729, 0.7151522, 0.0721750);
constexpr Primaries ofZ(0.0193339, 0.1191920, 0.9503041);

} // namespace

vx::kernels::Lab vx::kernels::labOf(QRgb colour)
{
    const double red = intensityOf(qRed(colour));
    const double green = intensityOf(qGreen(colour));
    const double blue = intensityOf(qBlue(colour));
    const double x = compressed(ofX.mixed(red, green, blue));
    const double y = compressed(ofY.mixed(red, green, blue));
    const double z = compressed(ofZ.mixed(red, green, blue));
    return { 116 * y - 16, 500 * (x - y), 200 * (y - z) };
}

double vx::kernels::distance(const Lab& one, const Lab& other)
{
    const double lightness = one.lightness - other.lightness;
    const double a = one.a - other.a;
    const double b = one.b - other.b;
    return std::sqrt(lightness * lightness + a * a + b * b);
}
