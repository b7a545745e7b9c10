#include "platform/drawing/SymbolImages.h"

#include "platform/drawing/StatusIconImages.h"

#include <QPainter>
#include <gtest/gtest.h>

namespace corvane::contract {

namespace {

/// How much of the image is painted, in whole pixels.
double ink(const QImage &image) {
    double sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            sum += image.pixelColor(x, y).alpha() / 255.0;
        }
    }
    return sum;
}

class SymbolTest : public testing::TestWithParam<const char *> {};

TEST_P(SymbolTest, IsDrawnInTheOneColourAskedFor) {
    drawing::SymbolImages symbols;
    const QColor colour(200, 30, 90);
    for (const int size : {16, 22, 64}) {
        const auto image = symbols.image(GetParam(), colour, size);
        ASSERT_EQ(image.size(), QSize(size, size));
        EXPECT_GT(ink(image), 0.08 * size * size);
        EXPECT_LT(ink(image), 0.75 * size * size);
        for (int y = 0; y < size; ++y) {
            for (int x = 0; x < size; ++x) {
                const auto pixel = image.pixelColor(x, y);
                if (pixel.alpha() == 255) {
                    EXPECT_EQ(pixel.rgb(), colour.rgb());
                }
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Symbols, SymbolTest,
                         testing::Values("cursorarrow.click.2", "play.fill", "stop.fill",
                                         "gearshape", "lock.shield", "rectangle.dashed",
                                         "person.crop.rectangle.stack", "plus.circle",
                                         "info.circle", "macwindow", "link", "ellipsis.circle",
                                         "globe", "heart.fill"));

TEST(SymbolImagesTest, HasNoImageForAnUnknownName) {
    drawing::SymbolImages symbols;
    EXPECT_TRUE(symbols.image("no.such.symbol", Qt::black, 16).isNull());
    EXPECT_TRUE(symbols.pixmap("no.such.symbol", Qt::black, 16, 1).isNull());
    EXPECT_TRUE(
        symbols.icon("no.such.symbol", QPalette(), QPalette::Text, QPalette::Text).isNull());
    EXPECT_TRUE(symbols.image("gearshape", Qt::black, 0).isNull());
}

TEST(SymbolImagesTest, DrawsHeavierWeightsWithMoreInk) {
    drawing::SymbolImages symbols;
    const auto inkOf = [&](FontWeight weight) {
        return ink(symbols.image("gearshape", Qt::black, 48, weight));
    };
    EXPECT_LT(inkOf(FontWeight::regular), inkOf(FontWeight::medium));
    EXPECT_LT(inkOf(FontWeight::medium), inkOf(FontWeight::semibold));
    EXPECT_LT(inkOf(FontWeight::semibold), inkOf(FontWeight::bold));
}

TEST(SymbolImagesTest, IsSharpOnADenseScreen) {
    drawing::SymbolImages symbols;
    const auto pixmap = symbols.pixmap("gearshape", Qt::black, 16, 2);
    EXPECT_EQ(pixmap.size(), QSize(32, 32));
    EXPECT_EQ(pixmap.deviceIndependentSize(), QSizeF(16, 16));
}

TEST(SymbolImagesTest, AnIconPaintsItselfWhereItIsTold) {
    drawing::SymbolImages symbols;
    QPalette palette;
    palette.setColor(QPalette::Active, QPalette::Text, Qt::red);
    QImage image(40, 40, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    symbols.icon("stop.fill", palette, QPalette::Text, QPalette::Text)
        .paint(&painter, 20, 20, 16, 16);
    painter.end();
    EXPECT_EQ(image.pixelColor(28, 28), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(10, 10), QColor(Qt::white));
}

TEST(SymbolImagesTest, AnIconIsDrawnInTheSizeAndColourItIsShownIn) {
    drawing::SymbolImages symbols;
    QPalette palette;
    palette.setColor(QPalette::Active, QPalette::Text, Qt::red);
    palette.setColor(QPalette::Disabled, QPalette::Text, Qt::green);
    palette.setColor(QPalette::Active, QPalette::HighlightedText, Qt::blue);
    const QIcon icon =
        symbols.icon("stop.fill", palette, QPalette::Text, QPalette::HighlightedText);
    ASSERT_FALSE(icon.isNull());
    const auto middle = [&icon](QIcon::Mode mode, int size) {
        const QImage image = icon.pixmap(QSize(size, size), 1, mode).toImage();
        EXPECT_EQ(image.size(), QSize(size, size));
        return image.pixelColor(size / 2, size / 2);
    };
    EXPECT_EQ(middle(QIcon::Normal, 16), QColor(Qt::red));
    EXPECT_EQ(middle(QIcon::Disabled, 19), QColor(Qt::green));
    EXPECT_EQ(middle(QIcon::Active, 64), QColor(Qt::blue));
    EXPECT_EQ(middle(QIcon::Selected, 24), QColor(Qt::blue));
}

TEST(StatusIconImagesTest, PaintsTheDotWhereTheIconSays) {
    drawing::SymbolImages symbols;
    StatusIcon icon{.image = {.name = "cursorarrow.click.2"}, .title = ""};
    const auto idle = drawing::statusIconImages(icon, Qt::white, symbols);
    icon.dot =
        StatusDot{.frame = {14, 2, 7, 7}, .cornerRadius = 3.5, .colour = {ColourName::systemGreen}};
    const auto running = drawing::statusIconImages(icon, Qt::white, symbols);
    ASSERT_EQ(idle.size(), running.size());
    ASSERT_FALSE(idle.isEmpty());
    for (qsizetype index = 0; index < idle.size(); ++index) {
        const auto size = running[index].width();
        EXPECT_GE(size, 16);
        EXPECT_LE(size, 64);
        const auto middle = running[index].pixelColor(size * 35 / 44, size * 11 / 44);
        EXPECT_GT(middle.green(), middle.red() + 50);
        EXPECT_GT(middle.green(), middle.blue() + 50);
        const auto before = idle[index].pixelColor(size * 35 / 44, size * 11 / 44);
        EXPECT_EQ(before.green(), before.red());
    }
}

TEST(StatusIconImagesTest, IsEmptyWithoutTheSymbol) {
    drawing::SymbolImages symbols;
    const StatusIcon icon{.image = {.name = "no.such.symbol"}, .title = ""};
    EXPECT_TRUE(drawing::statusIconImages(icon, Qt::white, symbols).isEmpty());
}

} // namespace

} // namespace corvane::contract
