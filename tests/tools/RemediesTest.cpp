#include "host/Remedies.h"
#include "host/HostError.h"
#include "vxroi/options/OptionRemedies.h"

#include <gtest/gtest.h>

namespace {

const QString path = QStringLiteral("a.png");

} // namespace

TEST(Remedies, nameNoOptionWhereAProgramHasNone)
{
    EXPECT_STREQ(host::tooManyPixels(path, QStringLiteral("too many"), 7).what(),
        "a.png: too many; reduce its size");
    EXPECT_STREQ(
        host::tooSlow(path, 3).what(), "a.png: takes more than 3 seconds; reduce its size");
}

TEST(Remedies, nameTheOptionsOfTheCommandLine)
{
    vxroi::useOptionRemedies();
    EXPECT_STREQ(host::tooManyPixels(path, QStringLiteral("too many"), 7).what(),
        "a.png: too many; allow them with --max-pixels 7");
    EXPECT_STREQ(host::tooSlow(path, 3).what(),
        "a.png: takes more than 3 seconds; allow more with --max-seconds");
    host::useRemedies({});
}
