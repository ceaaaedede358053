#pragma once

#include "kernels/RowLoops.h"
#include "support/ImageAssert.h"

namespace support {

/// Succeeds when \a imageOf gives \a expected with every variant of the loops that this machine can
/// run.
template <typename ImageOf>
testing::AssertionResult everyVariantGives(const QImage& expected, const ImageOf& imageOf)
{
    for (const vx::kernels::RowLoops* const loops : vx::kernels::availableRowLoops()) {
        const testing::AssertionResult result = sameImage(expected, imageOf(*loops));
        if (!result)
            return testing::AssertionFailure() << loops->name << ": " << result.message();
    }
    return testing::AssertionSuccess();
}

} // namespace support
