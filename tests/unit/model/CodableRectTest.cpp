#include "model/CodableRect.h"

#include <gtest/gtest.h>

#include <limits>

namespace corvane {
namespace {

std::string sizeLabel(double width, double height) {
    return CodableRect{0, 0, width, height}.sizeLabel();
}

TEST(CodableRectTest, ConvertsFieldByFieldEitherWay) {
    const Rectangle rectangle{1.5, -2, 300, 200};
    const CodableRect stored{1.5, -2, 300, 200};
    EXPECT_EQ(CodableRect::of(rectangle), stored);
    EXPECT_EQ(stored.rectangle(), rectangle);
}

TEST(CodableRectTest, IsEqualWhenAllFourFieldsAre) {
    const CodableRect rect{1, 2, 3, 4};
    EXPECT_EQ(rect, (CodableRect{1, 2, 3, 4}));
    EXPECT_NE(rect, (CodableRect{9, 2, 3, 4}));
    EXPECT_NE(rect, (CodableRect{1, 9, 3, 4}));
    EXPECT_NE(rect, (CodableRect{1, 2, 9, 4}));
    EXPECT_NE(rect, (CodableRect{1, 2, 3, 9}));
}

TEST(CodableRectTest, LabelsItsSizeInWholeNumbersTruncatedTowardZero) {
    EXPECT_EQ(sizeLabel(300.7, 200.2), "300×200");
    EXPECT_EQ(sizeLabel(99.99, 0.5), "99×0");
    EXPECT_EQ(sizeLabel(-7.9, -0.5), "-7×0");
    EXPECT_EQ(sizeLabel(0x1p62, -0x1p63), "4611686018427387904×-9223372036854775808");
}

TEST(CodableRectTest, LabelsASizeBeyondWholeNumbersWithAnExponent) {
    EXPECT_EQ(sizeLabel(1e40, 200.7), "1e+40×200");
    EXPECT_EQ(sizeLabel(-0.5, -1.5e300), "0×-1.5e+300");
}

TEST(CodableRectDeathTest, ASizeThatIsNotFiniteStopsTheProgram) {
    using Limits = std::numeric_limits<double>;
    EXPECT_DEATH(sizeLabel(Limits::infinity(), 1), "");
    EXPECT_DEATH(sizeLabel(1, -Limits::infinity()), "");
    EXPECT_DEATH(sizeLabel(Limits::quiet_NaN(), 1), "");
    EXPECT_DEATH(sizeLabel(1, Limits::quiet_NaN()), "");
}

} // namespace
} // namespace corvane
