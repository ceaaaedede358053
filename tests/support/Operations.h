#pragma once

#include <QImage>

#include <functional>
#include <string>
#include <vector>

namespace support {

/// A public operation of the library that takes an image.
struct Operation {
    std::string name;
    std::function<QImage(const QImage&)> run; ///< its result; null where that is no image
    bool copiesProperties = false; ///< whether the result has all the properties of the image
    bool makesNoPixels = false; ///< whether nobody has written the pixels of the result
};

/// Every one of them, with arguments that take each of its ways.
const std::vector<Operation>& operations();

} // namespace support
