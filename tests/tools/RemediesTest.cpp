#include "host/Remedies.h"
#include "host/HostError.h"
#include "vxroi/options/OptionRemedies.h"

#include <gtest/gtest.h>

namespace {

host::HostError tooMany()
{
    return host::tooManyPixels(QStringLiteral("a.png"), QStringLiteral("too many"), 7);
}

host::HostError tooSlow() { return host::tooSlow(QStringLiteral("a.png"), 3); }

} // namespace

TEST(Remedies, nameNoOptionWhereAProgramHasNone)
{
    EXPECT_STREQ(tooMany().what(), "a.png: too many; reduce its size");
    EXPECT_STREQ(tooSlow().what(), "a.png: takes more than 3 seconds; reduce its size");
}

TEST(Remedies, nameTheOptionsOfTheCommandLine)
{
    vxroi::useOptionRemedies();
    EXPECT_STREQ(tooMany().what(), "a.png: too many; allow them with --max-pixels 7");
    EXPECT_STREQ(
        tooSlow().what(), "a.png: takes more than 3 seconds; allow more with --max-seconds");
    host::useRemedies({});
}
