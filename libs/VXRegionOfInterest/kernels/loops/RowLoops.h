#pragma once

#include <QRgb>

#include <cstddef>
#include <vector>

/// \file
/// The innermost loops, over rows of pixels and of numbers. Their source is compiled once for every
/// processor of its kind and again for wider ones; results are the same to the bit. A kernel takes
/// its loops as an argument, fastestRowLoops() unless a test or a benchmark asks for others.

namespace vx::kernels {

/// Three channels of a row, in the order of LumaChroma: channel c begins at values + c · stride.
struct ChannelRow {
    double* values;
    std::ptrdiff_t stride;
};

/// A row of the integral images of the three channels, even and odd columns apart: column x of
/// channel c is values[(2c + x % 2) · stride + x / 2]. Column -1, which is an odd one, is zero.
struct IntegralRow {
    double* values;
    std::ptrdiff_t stride;
};

/// How many words integrateEightRows() reads at most before and after a row of pixels, and how many
/// values it touches before and after each column half of an integral row.
constexpr int integralMargin = 16;

/// What smoothing down the columns keeps of the rows so far.
struct SmoothingState {
    ChannelRow alongRow; ///< the latest row, smoothed along itself
    ChannelRow weightedSum; ///< the row above it, plus 2 times that row
};

/// How many columns the surround of each pixel of a row has, as doubles.
struct SurroundColumns {
    const double* widths;
    const double* reciprocals; ///< 1 / widths
};

/// A row whose contrasts are asked for. The smoothing state has taken it in as its latest row.
struct ContrastRow {
    const QRgb* next; ///< the row below it, which the state takes in; null for the last row
    double weights; ///< the sum of the weights that smoothing down the columns has here
    IntegralRow bottom; ///< the row of the integral image that the surrounds end with
    IntegralRow above; ///< the one before they begin; null values where they begin with row 0
    double surroundRows; ///< how many rows they have
    double* contrasts; ///< receives the contrasts
};

/// The smallest and the greatest of numbers.
struct Range {
    double least;
    double greatest;
};

/// A row's red, green and blue values as numbers.
struct ShortChannels {
    qint16* of[3]; // NOLINT(*-avoid-c-arrays): loops take no functions from std::array
};

/// How large the sums may be that are divided as small ones.
constexpr int mostOfSmallSums = 1 << 21;

/// What the red values of a row say of it.
struct RedMeasure {
    quint64 sum;
    quint64 excess; ///< what those above a mean have more than that, together
    quint64 above; ///< how many are above it
};

/// The loops as they are compiled for one kind of processor.
struct RowLoops {
    const char* name; ///< the kind of processor: "plain", "avx2" or "avx512"

    /// Adds eight rows of pixels to an integral image. Every second row of it is kept, from the second
    /// on; the last of the four in \a kept comes with the row before these.
    void (*integrateEightRows)(const QRgb* const* rows, int width, const IntegralRow* kept);

    /// Takes the first row of an image into a smoothing state.
    void (*beginSmoothing)(const QRgb* firstRow, int width, const SmoothingState& state);

    /// Writes the squared distances of pixels, smoothed, to the means of their surrounds, for \a count
    /// rows, and widens \a range to them. \pre \a count is 1, or 4 for rows with weights of 4 that
    /// all have their surrounds in the same half of the image.
    void (*contrastRows)(int width, const SurroundColumns& surrounds, const SmoothingState& state,
        const ContrastRow* rows, int count, Range& range);

    /// Stretches contrasts: what they have over \a least, truncated, times 255, divided by \a
    /// range, truncated, as opaque grey. \pre no level exceeds 255, and \a range is above 0.
    void (*writeLevels)(const double* contrasts, int count, double least, int range, QRgb* pixels);

    /// Writes the products of \a values and \a factor, truncated, as opaque grey. \pre all lie
    /// between 0 and 255.
    void (*writeProducts)(const double* values, int count, double factor, QRgb* pixels);

    /// Reads the red values of pixels.
    void (*readReds)(const QRgb* pixels, int count, quint8* reds);

    /// Adds the red values of pixels.
    void (*addReds)(const QRgb* pixels, int count, quint32* sums);

    /// Measures the red values of pixels against \a mean.
    RedMeasure (*measureReds)(const QRgb* pixels, int count, int mean);

    /// Adds \a values times \a weight, 32 bits that wrap.
    void (*addWeighted)(const quint8* values, int count, quint32 weight, quint32* sums);

    /// Divides signed sums by \a divisor, which wraps, truncates, clamps to 0 to 255 and writes opaque
    /// grey. \pre the divisor is not 0.
    void (*divideSums)(const quint32* sums, int count, int divisor, QRgb* pixels);

    /// The same, faster. \pre the sums lie between ±\ref mostOfSmallSums, the divisor is above 0.
    void (*divideSmallSums)(const quint32* sums, int count, int divisor, QRgb* pixels);

    /// Packs luma and chroma as packedLumaChromaOf() does.
    void (*packLumaChroma)(const QRgb* pixels, int count, QRgb* target);

    /// Packs the two chroma bytes as packedLumaChromaOf() does, and 0 in place of luma.
    void (*packChroma)(const QRgb* pixels, int count, QRgb* target);

    /// The index of each pixel's bin in a table of so many rows and columns, see countChroma(). \pre
    /// the table has at most 2²³ bins.
    void (*findBins)(const QRgb* pixels, int count, int rows, int columns, quint32* indices);

    /// Adds up four tables of counts, and says of each row whether it holds nothing but zeros.
    void (*sumTables)(
        const qint32* const* tables, int rows, int columns, double* sums, quint8* emptyRows);

    /// Widens \a range to \a count more numbers; what is not a number is passed over.
    void (*widenRange)(const double* numbers, std::ptrdiff_t count, Range& range);

    /// Reads a row's channels.
    void (*splitChannels)(const QRgb* pixels, int count, const ShortChannels& channels);

    /// The responses of a row's inner pixels to a 3 × 3 kernel, see respondToKernel(). \a rows are
    /// the row above, the row itself and the row below.
    void (*respondAlongRow)(const ShortChannels* rows, int width, const qint16* kernel, int divisor,
        const QRgb* source, QRgb* target);

    /// The magnitudes of two rows of responses, see combineResponses().
    void (*writeMagnitudes)(const QRgb* across, const QRgb* down, int count, QRgb* magnitudes);

    /// Writes the red values above \a threshold, and 0 for the others.
    /// \return whether all of those pixels are opaque grey once the bits \a alwaysSet are.
    bool (*readKeys)(const QRgb* pixels, int count, int threshold, QRgb alwaysSet, quint8* keys);

    /// Writes the greater of each two. \a maxima may be \a a, and \a b may lie beyond it.
    void (*writeMaxima)(const quint8* a, const quint8* b, std::ptrdiff_t count, quint8* maxima);

    /// Copies pixels, except those whose red is below the greater of two keys: they become that key as
    /// opaque grey.
    void (*spreadRow)(
        const quint8* a, const quint8* b, int count, const QRgb* source, QRgb* target);
};

/// The loops that this processor can run, from the plainest to the fastest.
std::vector<const RowLoops*> availableRowLoops();

/// The last of them; chosen once.
const RowLoops& fastestRowLoops();

} // namespace vx::kernels
