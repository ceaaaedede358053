#include <VXRegionOfInterest/VXBackgroundROI.h>
#include <VXRegionOfInterest/VXDisjointSet.h>
#include <VXRegionOfInterest/VXGaussROI.h>
#include <VXRegionOfInterest/VXGaussianBlur.h>
#include <VXRegionOfInterest/VXHistogram.h>
#include <VXRegionOfInterest/VXHistogramROI.h>
#include <VXRegionOfInterest/VXMaxFilter.h>
#include <VXRegionOfInterest/VXSalienzAchanta.h>
#include <VXRegionOfInterest/VXSalienzClusterer.h>
#include <VXRegionOfInterest/VXSalienzMaximizerHorizontal.h>
#include <VXRegionOfInterest/VXSalienzMaximizerVertical.h>
#include <VXRegionOfInterest/VXSalienzMixer.h>
#include <VXRegionOfInterest/VXSegmentEdge.h>
#include <VXRegionOfInterest/VXSobelROI.h>
#include <VXRegionOfInterest/VXVeryImportantAreasROI.h>

#include <gtest/gtest.h>

#include <cstring>

#if defined(__x86_64__) && defined(__linux__)

namespace {

// Where a virtual function stands in its class's table, from 0. In the Itanium C++ ABI a pointer to one
// holds one more than the offset of its entry in bytes.
template <typename Function> std::ptrdiff_t slotOf(Function function)
{
    std::ptrdiff_t offset = 0;
    static_assert(sizeof(function) >= sizeof(offset), "a pointer to a member function");
    std::memcpy(&offset, &function, sizeof(offset));
    return (offset - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

} // namespace

// Hosts are compiled with these sizes in them: another size needs another SONAME.
TEST(Layout, everyClassIsAsLargeAsItsFields)
{
    EXPECT_EQ(sizeof(VXAbstractROI), 16U) << "table 8, switch 1 and 3 unused, weight 4";
    EXPECT_EQ(sizeof(VXBackgroundROI), 16U) << "nothing beside the base";
    EXPECT_EQ(sizeof(VXGaussROI), 16U) << "nothing beside the base";
    EXPECT_EQ(sizeof(VXGaussianBlur), 24U) << "the kernel";
    EXPECT_EQ(sizeof(VXMaxFilter), 24U) << "size and threshold";
    EXPECT_EQ(sizeof(VXSobelROI), 56U) << "nine numbers of 4, and 4 unused";
    EXPECT_EQ(sizeof(VXHistogramROI), 56U) << "three numbers of 8 and four of 4";
    EXPECT_EQ(sizeof(VXSalienzAchanta), 40U) << "a maximum filter";
    EXPECT_EQ(sizeof(VXVeryImportantAreasROI), 32U) << "a list and a size";
    EXPECT_EQ(sizeof(VXHistogram), 24U) << "a shared table and two counts";
    EXPECT_EQ(sizeof(VXDisjointSet), 24U) << "a vector, three numbers of 4 and 4 unused";
    EXPECT_EQ(sizeof(VXSegmentEdge), 16U) << "two indices and a weight";
    EXPECT_EQ(sizeof(VXSalienzClusterer), 16U) << "table and two counts";
    EXPECT_EQ(sizeof(VXSalienzMaximizerHorizontal), 8U) << "the table";
    EXPECT_EQ(sizeof(VXSalienzMaximizerVertical), 8U) << "the table";
    EXPECT_EQ(sizeof(VXSalienzMixer), 16U) << "a map and a size";
}

// Two destructors come first: one for objects, one that deletes as well.
TEST(Layout, virtualFunctionsKeepTheirSlots)
{
    EXPECT_EQ(slotOf(&VXAbstractROI::evaluate), 2);
    EXPECT_EQ(slotOf(&VXSobelROI::evaluate), 2);
    EXPECT_EQ(slotOf(&VXSobelROI::convolute), 3);
    EXPECT_EQ(slotOf(&VXMaxFilter::evaluate), 2);
    EXPECT_EQ(slotOf(&VXHistogramROI::evaluate), 2);
    EXPECT_EQ(slotOf(&VXSalienzMaximizerAbstract::sums), 2);
    EXPECT_EQ(slotOf(&VXSalienzMaximizerHorizontal::sums), 2);
}

#endif
