#include "host/files/OutputName.h"

#include "host/HostError.h"

#include <gtest/gtest.h>

namespace {

QString nameFor(const char* pattern, const char* input)
{
    return host::OutputName(QString::fromUtf8(pattern))
        .nameFor(QString::fromUtf8(input), QStringLiteral("16x9"));
}

} // namespace

TEST(OutputName, replacesItsPlaceholdersFromThePicturesName)
{
    EXPECT_EQ(nameFor("out/{stem}-{ratio}.{ext}", "a/b.c.jpg"), QStringLiteral("out/b.c-16x9.jpg"));
    EXPECT_EQ(nameFor("{dir}/crops/{stem}.png", "a/b/c.jpg"), QStringLiteral("a/b/crops/c.png"));
    EXPECT_EQ(nameFor("{dir}/{stem}.png", "c.jpg"), QStringLiteral("./c.png"));
    EXPECT_EQ(nameFor("same.png", "c.jpg"), QStringLiteral("same.png"));
}

TEST(OutputName, replacesNoPlaceholderInTheNamesItPutsIn)
{
    EXPECT_EQ(nameFor("{stem}.{ext}", "{ext}{ratio}.png"), QStringLiteral("{ext}{ratio}.png"));
}

TEST(OutputName, refusesOtherBraces)
{
    for (const char* const pattern :
        { "{name}.png", "{stem.png", "stem}.png", "{}.png", "{{stem}}" })
        EXPECT_THROW(nameFor(pattern, "a.jpg"), host::HostError) << pattern;
}

TEST(OutputName, tellsWhetherItHasPlaceholders)
{
    EXPECT_TRUE(host::OutputName(QStringLiteral("a/{stem}.png")).hasPlaceholders());
    EXPECT_FALSE(host::OutputName(QStringLiteral("a/b.png")).hasPlaceholders());
}
