#include "BatchFolder.h"

namespace {

class VxroiMerge : public BatchFolder {
protected:
    // Three parts of a batch over a list of all twelve pictures in reverse order.
    void SetUp() override
    {
        BatchFolder::SetUp();
        shell(QStringLiteral("find in -name '*.png' | sort -r > list"));
        for (const char* const part : { "1", "2", "3" })
            batch(QStringLiteral("--from list --ratio 1:1 --shard %1/3 > part-%1")
                      .arg(QLatin1String(part)));
    }

    Outcome merge(const char* options) const
    {
        return shell(QStringLiteral("\"$VXROI\" merge ") + QLatin1String(options));
    }
};

} // namespace

TEST_F(VxroiMerge, givesTheRecordsOfOneMachine)
{
    const QByteArray whole = batch(QStringLiteral("--from list --ratio 1:1")).out;
    const Outcome outcome = merge("part-* --from list");
    EXPECT_EQ(outcome.out, whole);
    EXPECT_EQ(outcome.exitCode, 1) << "one picture is none";
    EXPECT_TRUE(outcome.err.contains("vxroi: in/p05-broken.png: ")) << outcome.err.toStdString();
    EXPECT_TRUE(
        outcome.err.endsWith("vxroi: 11 ok, 1 failed (1 with code 65), 0 missing, 0 duplicate\n"))
        << outcome.err.toStdString();
    EXPECT_TRUE(merge("part-* --from list -q").err.isEmpty());
}

TEST_F(VxroiMerge, takesTheOrderOfAFolderWithoutAList)
{
    const QByteArray whole = batch(QStringLiteral("in -r --ratio 1:1")).out;
    EXPECT_EQ(merge("part-3 part-1 part-2").out, whole);
    EXPECT_EQ(merge("part-3 part-1 part-2 --folder in -r").out, whole);
}

TEST_F(VxroiMerge, listsWhatIsMissingOrHasFailedToRunAgain)
{
    const QStringList missing = pathsOf(contentOf(QStringLiteral("part-2")));
    EXPECT_FALSE(missing.isEmpty());
    const Outcome outcome = merge("part-1 part-3 --from list -o all --again again");
    EXPECT_EQ(outcome.exitCode, 1);
    const QStringList again = QString::fromUtf8(contentOf(QStringLiteral("again")))
                                  .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString& path : missing) {
        EXPECT_TRUE(again.contains(path)) << path.toStdString();
        EXPECT_TRUE(outcome.err.contains("vxroi: " + path.toUtf8() + ": has no record\n"));
    }
    EXPECT_TRUE(again.contains(QStringLiteral("in/p05-broken.png")));
    EXPECT_EQ(again.size(),
        missing.size() + (missing.contains(QStringLiteral("in/p05-broken.png")) ? 0 : 1));
    // Running that list completes the parts.
    batch(QStringLiteral("--from again --ratio 1:1 > part-4"));
    EXPECT_EQ(merge("part-1 part-3 part-4 --from list").out,
        batch(QStringLiteral("--from list --ratio 1:1")).out);
}

TEST_F(VxroiMerge, keepsLinesAsTheyAreToRunThemAgain)
{
    const QByteArray line = R"({ "path": "in/none.png", "focus": [0.5, 1] })";
    folder.save(line + '\n', QStringLiteral("lines"));
    shell(QStringLiteral(": > empty"));
    merge("empty --from lines --again again");
    EXPECT_EQ(contentOf(QStringLiteral("again")), line + '\n');
}

TEST_F(VxroiMerge, writesOddNamesSoThatAListTellsThem)
{
    shell(QStringLiteral(
        "mkdir odd; cp in/p00.png \"$(printf 'odd/two\\nlines.png')\"; cp in/p00.png 'odd/{}.png'; "
        "cd odd; cp ../in/p00.png '{x.png'; cd ..; : > empty"));
    merge("empty --folder odd --again again");
    const Outcome outcome = shell(QStringLiteral("\"$VXROI\" batch --from again --ratio 1:1"));
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err.toStdString();
    EXPECT_EQ(pathsOf(outcome.out).size(), 3);
}

TEST_F(VxroiMerge, saysWhichPartIsDamaged)
{
    const QByteArray part = contentOf(QStringLiteral("part-1"));
    folder.save(part + part.left(60), QStringLiteral("part-1"));
    const Outcome outcome = merge("part-1 -o all");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_TRUE(outcome.err.contains("part-1: 60 bytes were damaged by a crash"))
        << outcome.err.toStdString();
}

TEST_F(VxroiMerge, tellsTheLinesOfOnePictureApart)
{
    folder.save(QByteArray("{\"path\": \"in/p00.png\", \"focus\": [0, 0]}\nin/p00.png\n"
                           "{\"path\": \"in/p00.png\", \"focus\": [1, 1]}\n"),
        QStringLiteral("lines"));
    const QByteArray whole = batch(QStringLiteral("--from lines --ratio 1:1")).out;
    folder.save(whole, QStringLiteral("part"));
    const Outcome outcome = merge("part --from lines");
    EXPECT_EQ(outcome.out, whole);
    EXPECT_TRUE(outcome.err.contains("3 ok, 0 failed, 0 missing, 0 duplicate"));
}

TEST_F(VxroiMerge, takesOneOfSeveralRecordsAndRatherOneThatHasNotFailed)
{
    folder.save(QByteArray("in/p00.png\nin/late.png\n"), QStringLiteral("lines"));
    batch(QStringLiteral("--from lines --ratio 1:1 > early"));
    shell(QStringLiteral("cp in/p01.png in/late.png"));
    batch(QStringLiteral("--from lines --ratio 1:1 > late"));
    for (const char* const parts : { "early late --from lines", "late early --from lines" }) {
        const Outcome outcome = merge(parts);
        EXPECT_EQ(outcome.out, contentOf(QStringLiteral("late"))) << parts;
        EXPECT_TRUE(
            outcome.err.contains("in/late.png: has several records; the one in late is taken"));
        EXPECT_TRUE(outcome.err.contains("2 ok, 0 failed, 0 missing, 2 duplicate"));
        EXPECT_EQ(outcome.exitCode, 0);
    }
}

TEST_F(VxroiMerge, seesOutputsThatTwoPicturesHave)
{
    shell(QStringLiteral("mkdir other; cp in/p00.png other/p00.png; cp in/p01.png other/q.png; "
                         "printf 'in/p00.png\\nother/q.png\\n' > one; echo other/p00.png > two"));
    const QString options
        = QStringLiteral(" --ratio 1:1 -o '{stem}.png' --if-exists overwrite > part-");
    batch(QStringLiteral("--from one") + options + QStringLiteral("a"));
    batch(QStringLiteral("--from two") + options + QStringLiteral("b"));
    const Outcome outcome = merge("part-a part-b -o all");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_TRUE(outcome.err.contains(
        "vxroi: p00.png: is the output of two pictures, other/p00.png and one before it; "))
        << outcome.err.toStdString();
    EXPECT_EQ(merge("part-a").exitCode, 0);
}

TEST_F(VxroiMerge, refusesPartsOfDifferentBatches)
{
    for (const char* const options : { "--ratio 2:1", "--ratio 1:1 --preset library" }) {
        batch(QStringLiteral("--from list --shard 2/3 > other ") + QLatin1String(options));
        const Outcome outcome = merge("part-1 other part-3 --from list -o all -q");
        EXPECT_EQ(outcome.exitCode, 65) << options;
        EXPECT_TRUE(isOneLineNaming(outcome.err, QStringLiteral(" has the request ")));
        EXPECT_FALSE(QFile::exists(folder.path(QStringLiteral("all"))));
    }
    shell(QStringLiteral("sed 's/\"version\":\"[0-9.]*\"/\"version\":\"0.9.0\"/' part-2 > old"));
    EXPECT_TRUE(merge("part-1 old part-3 --from list").err.contains(" has the version "));
}

TEST_F(VxroiMerge, refusesWhatIsNoRecordsAndOverwritesNothing)
{
    EXPECT_EQ(merge("none --from list").exitCode, 66);
    EXPECT_TRUE(merge("list --from list").err.contains("list, line 1: is not a record"));
    EXPECT_EQ(merge("part-1 --from none").exitCode, 66);
    const QByteArray part = contentOf(QStringLiteral("part-1"));
    EXPECT_EQ(merge("part-1 part-2 -o part-1 --if-exists overwrite").exitCode, 73);
    EXPECT_EQ(merge("part-1 part-2 -o list").exitCode, 73);
    EXPECT_EQ(contentOf(QStringLiteral("part-1")), part);
    EXPECT_EQ(merge("part-1 part-2 -o x --again ./x").exitCode, 64);
    EXPECT_TRUE(merge("/dev/null").err.contains("/dev/null: is not a file"));
    EXPECT_EQ(merge("").exitCode, 64);
    EXPECT_EQ(merge("part-1 --from list --folder in").exitCode, 64);
}
