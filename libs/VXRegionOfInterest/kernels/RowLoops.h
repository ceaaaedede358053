#pragma once

#include <QRgb>

#include <cstddef>
#include <vector>

/// \file
/// The innermost loops, over rows of pixels and of numbers. Their source is compiled once for every
/// processor of its kind and again for wider ones; results are the same to the bit. A kernel takes
/// its loops as an argument, fastestRowLoops() unless a test or a benchmark asks for others.

namespace vx::kernels {

/// How many numbers the loops for surrounds touch at most beyond a row, and before it. They are read,
/// and overwritten by the rows that follow, but do not count.
constexpr int rowMargin = 16;

/// Channels of a row's pixels as whole numbers: red times 2¹⁶ plus blue, and green times 2⁸.
struct PackedRow {
    quint32* redBlue; ///< red in the upper half of a word, blue in the lower
    quint32* green; ///< in the second byte of a word and above
};

/// The same, even and odd columns apart. Beside the row both are zero.
struct PackedColumns {
    PackedRow even; ///< columns 0, 2, 4 ...
    PackedRow odd; ///< columns 1, 3, 5 ...
};

/// What one half of a row's surrounds has of each channel, in runs of 16 columns or fewer, as many as a
/// vector has: each of a run holds its own and what is before it in the run.
struct SurroundSums {
    quint32* red; ///< sums of red values
    quint32* green; ///< sums of green values
    quint32* blue; ///< sums of blue values
    std::ptrdiff_t count; ///< how many sums of each
};

/// What the surrounds of a row's pixels have. Those of the left half begin with column 0, and each ends
/// two columns later than the one before. Those of the right half end with the last column and each
/// begins two columns later; their sums are of the columns before them.
struct Surrounds {
    PackedColumns moved; ///< the latest rows that came or went
    SurroundSums left; ///< one more than columns, so that the last has all of the row
    SurroundSums right; ///< as many as columns
};

/// Rows that have been smoothed along themselves, with weights 1, 2, 1; outside the image zeros.
struct SmoothedRows {
    PackedRow above; ///< the row before
    PackedRow here; ///< the row itself
    PackedRow below; ///< the row after
};

/// What to multiply by, for each column and for the row. With W the sum of the smoothing weights, along
/// the row or down the columns, and n the columns or rows of a surround:
struct SurroundScale {
    const double* ofSums; ///< W / n, which gives a surround's mean the weight of a smoothed pixel
    const double* ofSquares; ///< 1 / W², which takes the weight away from squared differences
    double ofSumsInRow; ///< as ofSums, down the columns
    double ofSquaresInRow; ///< as ofSquares, down the columns
};

/// How far estimates in a row may be from what they stand for: by (slope · estimate + offset) ·
/// ofColumns[x] + floor.
struct Tolerance {
    const double* ofColumns; ///< a factor for each column
    double slope; ///< grows with the estimate
    double offset; ///< the same for every estimate
    double floor; ///< the same for every column as well
};

/// The smallest and the greatest of numbers.
struct Range {
    double least; ///< the smallest
    double greatest; ///< the greatest
};

/// A row's red, green and blue values as numbers.
struct ShortChannels {
    /// Red, green and blue.
    qint16* of[3]; // NOLINT(*-avoid-c-arrays): loops take no functions from std::array
};

/// How far from 0 sums may be that are kept in 16 bits.
constexpr int mostOfSmallSums = 32767;

/// Bytes and what each of them is multiplied by.
struct WeightedBytes {
    const quint8* bytes; ///< a row of them
    qint16 weight; ///< what each is multiplied by
};

/// How many maps are blended at once; more of them are added up one after the other.
constexpr std::size_t mapsAtOnce = 5;

/// What the red values of a row say of it.
struct RedMeasure {
    quint64 sum; ///< of all red values
    quint64 excess; ///< what those above a mean have more than that, together
    quint64 above; ///< how many are above it
};

/// Loops over pixels and levels.
struct PixelLoops {
    /// Writes levels as opaque grey.
    void (*writeGrey)(const quint8* levels, int count, QRgb* pixels);

    /// Whether pixels are all the same \a word.
    bool (*areAll)(const QRgb* pixels, int count, QRgb word);

    /// Reads the red values of pixels.
    void (*readReds)(const QRgb* pixels, int count, quint8* reds);

    /// Adds the red values of pixels.
    void (*addReds)(const QRgb* pixels, int count, quint32* sums);

    /// Measures the red values of pixels against \a mean.
    RedMeasure (*measureReds)(const QRgb* pixels, int count, int mean);
};

/// Loops over numbers.
struct NumberLoops {
    /// Widens \a range to \a count more numbers; what is not a number is passed over.
    void (*widenRange)(const double* numbers, std::ptrdiff_t count, Range& range);

    /// Writes the products of \a values and \a factor, truncated. \pre all lie between 0 and 255.
    void (*writeProducts)(const double* values, int count, double factor, quint8* levels);
};

/// The loops of the surround contrast.
struct ContrastLoops {
    int runLength; ///< columns in a run of \ref SurroundSums

    /// Adds up a row's pixels with weights 1, 2, 1 along it.
    void (*smoothAlong)(const QRgb* pixels, int width, const PackedRow& target);

    /// Adds two rows of pixels to surrounds, or takes them away.
    void (*moveSurrounds)(
        const QRgb* a, const QRgb* b, int width, bool adds, const Surrounds& surrounds);

    /// Writes how far pixels, smoothed, are from the means of their surrounds, squared, and widens \a
    /// range to that.
    void (*estimateContrasts)(int width, const Surrounds& surrounds, const SmoothedRows& smoothed,
        const SurroundScale& scale, double* contrasts, Range& range);

    /// Stretches contrasts: what they have over \a least, truncated, times 255, divided by \a
    /// range, truncated. \pre no level exceeds 255, and \a range is above 0.
    /// \return whether the levels are the same all over the tolerance.
    bool (*writeLevels)(const double* contrasts, int count, const Tolerance& tolerance,
        double least, int range, quint8* levels);
};

/// The loops of the blend.
struct BlendLoops {
    /// Adds \a values times \a weight, 32 bits that wrap.
    void (*addWeighted)(const quint8* values, int count, quint32 weight, quint32* sums);

    /// Divides signed sums by \a divisor, which wraps, truncates, clamps to 0 to 255 and writes opaque
    /// grey. \pre the divisor is not 0.
    void (*divideSums)(const quint32* sums, int count, int divisor, QRgb* pixels);

    /// As addWeighted() for each of `mapsAtOnce` maps and then divideSums(), faster. \pre no sum gets
    /// beyond ±`mostOfSmallSums`, and the divisor is above 0.
    void (*blendFew)(const WeightedBytes* maps, int count, int divisor, QRgb* pixels);
};

/// The loops of luma, chroma and histograms.
struct ChromaLoops {
    /// Packs luma and chroma as packedLumaChromaOf() does.
    void (*packLumaChroma)(const QRgb* pixels, int count, QRgb* target);

    /// The index of each pixel's bin in a table of so many rows and columns, see countChroma(). \pre
    /// the table has at most 2²³ bins.
    void (*findBins)(const QRgb* pixels, int count, int rows, int columns, quint32* indices);

    /// The same for pixels that packLumaChroma() has not packed yet. \pre both numbers are at most 257.
    void (*findChromaBins)(const QRgb* pixels, int count, int rows, int columns, quint32* indices);

    /// Adds up four tables of counts, and says of each row whether it holds nothing but zeros.
    void (*sumTables)(
        const qint32* const* tables, int rows, int columns, double* sums, quint8* emptyRows);
};

/// The loops of the edge response.
struct EdgeLoops {
    /// Reads a row's channels.
    void (*splitChannels)(const QRgb* pixels, int count, const ShortChannels& channels);

    /// The responses of a row's inner pixels to a 3 × 3 kernel, see respondToKernel(). \a rows are
    /// the row above, the row itself and the row below.
    void (*respondAlongRow)(const ShortChannels* rows, int width, const qint16* kernel, int divisor,
        const QRgb* source, QRgb* target);

    /// The magnitudes of two rows of responses, see combineResponses().
    void (*writeMagnitudes)(const QRgb* across, const QRgb* down, int count, QRgb* magnitudes);
};

/// The loops of the maximum filter.
struct DilationLoops {
    /// Writes the red values above \a threshold, and 0 for the others.
    /// \return whether all of those pixels are opaque grey once the bits \a alwaysSet are.
    bool (*readKeys)(const QRgb* pixels, int count, int threshold, QRgb alwaysSet, quint8* keys);

    /// Writes the bytes above \a threshold, and 0 for the others.
    /// \return whether there are any.
    bool (*keepAbove)(const quint8* bytes, std::ptrdiff_t count, int threshold, quint8* kept);

    /// Writes the greater of each two. \a maxima may be \a a.
    void (*writeMaxima)(const quint8* a, const quint8* b, std::ptrdiff_t count, quint8* maxima);

    /// Copies pixels, except those whose red is below the greater of two keys: they become that key as
    /// opaque grey.
    void (*spreadRow)(
        const quint8* a, const quint8* b, int count, const QRgb* source, QRgb* target);
};

/// The loops of the background map.
struct BackgroundLoops {
    /// Adds the channels of pixels: red times 2¹⁶ plus blue, and green.
    void (*addChannels)(const QRgb* pixels, int count, quint32* redBlue, quint32* green);

    /// Writes a row of pixels between cells, as opaque grey. Those from the end of the cell before to
    /// \a ends of a cell lie between its level and the next one, which there is for the last cell too;
    /// \a shares says where. The last end is the width of the row.
    void (*writeBetween)(
        const float* levels, const int* ends, int cells, const float* shares, QRgb* pixels);
};

/// The loops as they are compiled for one kind of processor.
struct RowLoops {
    const char* name; ///< the kind of processor: "plain", "avx2" or "avx512"
    PixelLoops pixels; ///< what several kernels do with pixels
    NumberLoops numbers; ///< what several kernels do with numbers
    ContrastLoops contrast; ///< for SurroundContrast.h
    BlendLoops blend; ///< for Blend.h
    ChromaLoops chroma; ///< for ChromaBins.h and LumaChroma.h
    EdgeLoops edges; ///< for EdgeResponse.h
    DilationLoops dilation; ///< for MaxFilter.h
    BackgroundLoops background; ///< for background/
};

/// The loops that this processor can run, from the plainest to the fastest.
std::vector<const RowLoops*> availableRowLoops();

/// The last of them; chosen once.
const RowLoops& fastestRowLoops();

} // namespace vx::kernels
