#include "host/crop/AspectRatio.h"

#include "host/HostError.h"

#include <gtest/gtest.h>

namespace {

void expectRatio(const QString& text, double widthToHeight)
{
    const QSize ratio = host::parseAspectRatio(text);
    EXPECT_DOUBLE_EQ(static_cast<double>(ratio.width()) / ratio.height(), widthToHeight);
}

} // namespace

TEST(AspectRatio, isWidthToHeight)
{
    expectRatio(QStringLiteral("16:9"), 16.0 / 9);
    expectRatio(QStringLiteral("1:1"), 1);
    expectRatio(QStringLiteral("4:5"), 0.8);
    expectRatio(QStringLiteral("99999:1"), 99999);
}

TEST(AspectRatio, takesDecimals)
{
    expectRatio(QStringLiteral("1.91:1"), 1.91);
    expectRatio(QStringLiteral("1:0.0001"), 10000);
    expectRatio(QStringLiteral("2.5:1.25"), 2);
}

TEST(AspectRatio, takesOneNumberAsThatToOne)
{
    expectRatio(QStringLiteral("1.91"), 1.91);
    expectRatio(QStringLiteral("2"), 2);
}

TEST(AspectRatio, refusesAnythingElseAndNamesIt)
{
    for (const char* const bad : { "", ":", "0", "1.", " 1", "1:", ":1", "0:1", "1:0", "0.0:1",
             "-1:1", "1:-1", "16x9", "16/9", "16:9:1", "1e3:1", "1,5:1", " 1:1", "1:1\n", "inf:1",
             "nan:1", "123456:1", "1.00001:1", "\xD9\xA1:1", "vier:3" }) {
        try {
            host::parseAspectRatio(QString::fromUtf8(bad));
            ADD_FAILURE() << "accepted \"" << bad << '"';
        } catch (const host::HostError& error) {
            EXPECT_EQ(error.code(), host::ExitCode::Usage);
            EXPECT_EQ(std::string(error.what()).rfind("--ratio", 0), 0U) << error.what();
        }
    }
}
