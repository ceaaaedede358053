#include "vxroi/options/Suggestion.h"

#include <gtest/gtest.h>

namespace {

int distance(const char* one, const char* other)
{
    return vxroi::editDistance(QLatin1String(one), QLatin1String(other));
}

std::string nearest(const char* wrong)
{
    static const QStringList names { QStringLiteral("crop"), QStringLiteral("map"),
        QStringLiteral("ratio"), QStringLiteral("recursive"), QStringLiteral("resume") };
    return vxroi::nearestName(QLatin1String(wrong), names).toStdString();
}

} // namespace

TEST(Suggestion, countsTheLettersThatAreWrong)
{
    EXPECT_EQ(distance("", ""), 0);
    EXPECT_EQ(distance("crop", "crop"), 0);
    EXPECT_EQ(distance("", "map"), 3);
    EXPECT_EQ(distance("crop", "cropp"), 1) << "inserted";
    EXPECT_EQ(distance("batch", "bach"), 1) << "left out";
    EXPECT_EQ(distance("gauss", "gaudy"), 2) << "replaced";
    EXPECT_EQ(distance("ratio", "raito"), 1) << "exchanged";
    EXPECT_EQ(distance("ab", "ba"), 1);
    EXPECT_EQ(distance("kitten", "sitting"), 3);
    EXPECT_EQ(distance("ca", "abc"), 3) << "no letter is touched twice";
}

TEST(Suggestion, isTheSameBothWays)
{
    for (const char* const from : { "", "a", "ab", "ba", "abc", "crop", "carpo" }) {
        for (const char* const to : { "", "b", "cab", "corp", "opcr" })
            EXPECT_EQ(distance(from, to), distance(to, from)) << from << ' ' << to;
    }
}

TEST(Suggestion, namesWhatIsNear)
{
    EXPECT_EQ(nearest("cropp"), "crop");
    EXPECT_EQ(nearest("CROP"), "crop");
    EXPECT_EQ(nearest("raito"), "ratio");
    EXPECT_EQ(nearest("mpa"), "map");
    EXPECT_EQ(nearest("reusme"), "resume");
}

TEST(Suggestion, namesWhatBeginsSo)
{
    EXPECT_EQ(nearest("rec"), "recursive");
    EXPECT_EQ(nearest("rat"), "ratio");
    EXPECT_EQ(nearest("r"), "") << "begins three of them";
}

TEST(Suggestion, namesNothingThatIsFar)
{
    for (const char* const wrong : { "", "x", "frame", "cat", "photo.jpg", "ration-card" })
        EXPECT_EQ(nearest(wrong), "") << wrong;
}

TEST(Suggestion, listsTheNamesWhereNoneIsNear)
{
    const QStringList names { QStringLiteral("fail"), QStringLiteral("skip"),
        QStringLiteral("overwrite") };
    EXPECT_EQ(vxroi::suggestion(QStringLiteral("skp"), names).toStdString(), "did you mean skip?");
    EXPECT_EQ(vxroi::suggestion(QStringLiteral("replace"), names).toStdString(),
        "choose fail, skip or overwrite");
    EXPECT_EQ(vxroi::alternatives(names.mid(0, 2)).toStdString(), "fail or skip");
    EXPECT_EQ(vxroi::alternatives(names.mid(0, 1)).toStdString(), "fail");
}
