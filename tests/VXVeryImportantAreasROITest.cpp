#include <VXRegionOfInterest/VXVeryImportantAreasROI.h>

#include "support/ImageAssert.h"

#include <QPainter>

#include <climits>

namespace {

struct Message {
    QtMsgType type;
    QByteArray category;
    QByteArray file;
    int line;
    QByteArray function;
    QString text;
};

QVector<Message> messages;

void record(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    messages.append({ type, context.category, context.file, context.line, context.function, text });
}

// The messages that drawing the areas into an image of this size logs.
QVector<Message> messagesOf(VXVeryImportantAreasROI& method, const QSize& size)
{
    messages.clear();
    const QtMessageHandler previous = qInstallMessageHandler(record);
    method.evaluate(QImage(size, QImage::Format_RGB32));
    qInstallMessageHandler(previous);
    return messages;
}

QImage drawn(const QList<QRect>& areas, const QSize& size)
{
    return VXVeryImportantAreasROI(areas, size).evaluate(QImage(size, QImage::Format_RGB32));
}

// A black image with the grey ellipse of a halo.
QImage withHalo(const QSize& size, const QRect& ellipse)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.setPen(Qt::gray);
    painter.setBrush(Qt::gray);
    painter.drawEllipse(ellipse);
    return image;
}

constexpr QRgb white = 0xFFFFFFFF;
constexpr QRgb halo = 0xFFA0A0A4; // Qt::gray
constexpr QRgb black = 0xFF000000;

} // namespace

TEST(VXVeryImportantAreasROI, isEnabledWithWeightZeroWhenFresh)
{
    VXVeryImportantAreasROI method({}, QSize());
    EXPECT_TRUE(method.isEnabled());
    EXPECT_EQ(method.getWeight(), 0);
}

TEST(VXVeryImportantAreasROI, noAreasGiveAnOpaqueBlackMap)
{
    QImage expected(30, 20, QImage::Format_ARGB32);
    expected.fill(black);
    EXPECT_TRUE(support::sameImage(expected, drawn({}, QSize(30, 20))));
}

TEST(VXVeryImportantAreasROI, paintsAnAreaWhiteWithAGreyEllipseAroundIt)
{
    const QRect area(10, 10, 20, 10);
    const QImage map = drawn({ area }, QSize(60, 40));
    // The ellipse in the rectangle at (-1, 4) of size 40 x 20, drawn by itself.
    const QImage ellipse = withHalo({ 60, 40 }, { -1, 4, 40, 20 });
    for (int y = 0; y < 40; ++y) {
        for (int x = 0; x < 60; ++x) {
            // The pen's outline reaches one pixel beyond the right and lower edge.
            const bool isInArea = area.adjusted(0, 0, 1, 1).contains(x, y);
            EXPECT_EQ(map.pixel(x, y), isInArea ? white : ellipse.pixel(x, y)) << x << ", " << y;
        }
    }
    EXPECT_EQ(map.pixel(5, 14), halo);
    EXPECT_EQ(map.pixel(45, 14), black);
    EXPECT_EQ(map.pixel(5, 30), black);
}

TEST(VXVeryImportantAreasROI, drawsAllHalosBeforeAnyArea)
{
    const QRect first(20, 20, 20, 20);
    const QRect second(35, 25, 20, 20);
    for (const QList<QRect>& areas :
        { QList<QRect> { first, second }, QList<QRect> { second, first } }) {
        const QImage map = drawn(areas, QSize(100, 80));
        for (int y = 0; y < 80; ++y) {
            for (int x = 0; x < 100; ++x) {
                const bool isInArea = first.contains(x, y) || second.contains(x, y);
                EXPECT_TRUE(!isInArea || map.pixel(x, y) == white) << x << ", " << y;
            }
        }
    }
}

TEST(VXVeryImportantAreasROI, truncatesAnOddCentreTowardZero)
{
    // Corners -4 and -1: the sum -5 gives the centre -2, so the halo begins at -6 and ends at 2.
    const QImage expected = withHalo({ 20, 20 }, { -6, -6, 8, 8 });
    EXPECT_TRUE(support::sameImage(expected, drawn({ QRect(-4, -4, 4, 4) }, QSize(20, 20))));
}

TEST(VXVeryImportantAreasROI, drawsInTheCoordinatesOfTheAreasWhateverTheSize)
{
    const QList<QRect> areas { QRect(10, 10, 20, 10) };
    VXVeryImportantAreasROI method(areas, QSize(400, 200));
    messages.clear();
    const QtMessageHandler previous = qInstallMessageHandler(record);
    const QImage map = method.evaluate(QImage(200, 100, QImage::Format_RGB32));
    qInstallMessageHandler(previous);
    EXPECT_TRUE(support::sameImage(drawn(areas, QSize(200, 100)), map));
    EXPECT_EQ(messages.size(), 1);
}

TEST(VXVeryImportantAreasROI, logsNothingWhenTheSizesAgree)
{
    VXVeryImportantAreasROI method({ QRect(1, 1, 5, 5) }, QSize(200, 100));
    EXPECT_TRUE(messagesOf(method, QSize(200, 100)).isEmpty());
    VXVeryImportantAreasROI empty({}, QSize(0, 0));
    EXPECT_TRUE(messagesOf(empty, QSize(0, 0)).isEmpty());
}

TEST(VXVeryImportantAreasROI, logsItsWarningOncePerCallWhenTheSizesDiffer)
{
    VXVeryImportantAreasROI method({}, QSize(400, 200));
    for (const QSize& size : { QSize(200, 100), QSize(400, 100), QSize(200, 200) }) {
        const QVector<Message> logged = messagesOf(method, size);
        ASSERT_EQ(logged.size(), 1);
        EXPECT_EQ(logged.first().type, QtWarningMsg);
        EXPECT_EQ(logged.first().category, "default");
        EXPECT_EQ(logged.first().file, "libs/VXRegionOfInterest/VXVeryImportantAreasROI");
        EXPECT_EQ(logged.first().line, 49);
        EXPECT_EQ(logged.first().function,
            "virtual QImage VXVeryImportantAreasROI::evaluate(const QImage &)");
        EXPECT_EQ(logged.first().text,
            QStringLiteral("TODO: umrechnen der Größe! (worldmatrix berechnen)"));
    }
}

TEST(VXVeryImportantAreasROI, returnsANullMapForANullImage)
{
    VXVeryImportantAreasROI method({ QRect(1, 1, 5, 5) }, QSize(0, 0));
    EXPECT_TRUE(method.evaluate(QImage()).isNull());
}

TEST(VXVeryImportantAreasROI, drawsHalosOfAnySizeThatAnIntCanMeasure)
{
    // 800 million pixels wide, and still an ellipse around the middle row.
    const QRect wide(QPoint(-400000000, 50), QPoint(400000000, 70));
    const QImage map = drawn({ wide }, QSize(100, 150));
    const QImage expected = withHalo({ 100, 150 }, { -800000001, 39, 1600000002, 42 });
    EXPECT_EQ(expected.pixel(50, 45), halo);
    for (int y = 0; y < 150; ++y) {
        const bool isInArea = y >= 50 && y <= 71;
        EXPECT_EQ(map.pixel(50, y), isInArea ? white : expected.pixel(50, y)) << y;
    }
}

TEST(VXVeryImportantAreasROI, drawsInvalidRectanglesAsQtDoes)
{
    const QRect area(59, 29, -27, -9); // centre (45, 24), so the halo begins at (72, 33)
    QImage expected = withHalo({ 100, 80 }, { 45 + 27, 24 + 9, -54, -18 });
    QPainter painter(&expected);
    painter.setPen(Qt::white);
    painter.setBrush(Qt::white);
    painter.drawRects(&area, 1);
    painter.end();
    EXPECT_TRUE(support::sameImage(expected, drawn({ area }, QSize(100, 80))));
}

TEST(VXVeryImportantAreasROI, cutsOffWhatLiesOutsideAndDrawsAnyRectangle)
{
    const QSize size(50, 40);
    const QRect everything(QPoint(INT_MIN / 4, INT_MIN / 4), QPoint(INT_MAX / 4, INT_MAX / 4));
    EXPECT_EQ(drawn({ everything }, size).pixel(25, 20), white);
    const QList<QRect> extremes { QRect(), QRect(5, 5, 0, 0), QRect(20, 20, -7, -3),
        QRect(QPoint(INT_MIN, INT_MIN), QPoint(INT_MAX, INT_MAX)),
        QRect(QPoint(INT_MAX, INT_MAX), QPoint(INT_MIN, INT_MIN)), QRect(INT_MIN, INT_MIN, 10, 10),
        QRect(QPoint(INT_MAX, 3), QPoint(INT_MAX, 9)), QRect(-1000000, 10, 2000000, 5) };
    for (const QRect& area : extremes) {
        const QImage map = drawn({ area }, size);
        EXPECT_EQ(map.size(), size);
        EXPECT_TRUE(
            map.pixel(49, 39) == black || map.pixel(49, 39) == white || map.pixel(49, 39) == halo);
    }
}
