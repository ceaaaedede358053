#pragma once

#include <gtest/gtest.h>

#include <QImage>

#include <vector>

namespace support {

/// Succeeds when both images have the same size and format and hold the same pixels, of which it
/// compares the 32-bit words where the format has such words, and QImage::pixel otherwise. Prints
/// the first pixels that differ.
testing::AssertionResult sameImage(const QImage& expected, const QImage& actual);

/// The red values of \a image, row by row.
std::vector<int> reds(const QImage& image);

/// Succeeds when every pixel of \a image is opaque and grey.
testing::AssertionResult isOpaqueGrey(const QImage& image);

} // namespace support

/// Prints an image's size and format where GoogleTest shows it as a parameter.
void PrintTo(const QImage& image, std::ostream* stream);
