#include "Program.h"
#include "SampleFiles.h"
#include "support/Memory.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace {

// Where outputs are written, and where they must not be.
class VxroiOutputs : public testing::Test {
protected:
    const samples::SampleFolder folder;

    void SetUp() override
    {
        QDir(folder.path(QString())).mkpath(QStringLiteral("here/in"));
        folder.save(samples::picture({ 120, 80 }), QStringLiteral("here/in/a.png"));
    }

    // Runs a shell command in the folder "here".
    Outcome shell(const QString& command) const
    {
        return runShell(QStringLiteral("cd '%1/here' && %2").arg(folder.path(QString()), command));
    }

    void expectRefused(const Outcome& outcome, const char* reason) const
    {
        EXPECT_NE(outcome.exitCode, 0);
        EXPECT_TRUE((outcome.err + outcome.out).contains(reason))
            << outcome.err.toStdString() << outcome.out.toStdString();
        EXPECT_TRUE(folder.names().isEmpty()) << "nothing beside the folder \"here\"";
    }
};

} // namespace

TEST_F(VxroiOutputs, ofManyProcessesThatMustNotReplaceOneWins)
{
    // All of them find the name free and race for it.
    const Outcome outcome = shell(QStringLiteral(
        "for i in 1 2 3 4 5 6 7 8; do (\"$VXROI\" crop in/a.png --ratio $i:9 -o "
        "out.png 2>>errors && echo $i >>won) & done; wait; sort won; cat errors >&2"));
    EXPECT_EQ(outcome.exitCode, 0);
    const QList<QByteArray> won = shell(QStringLiteral("cat won")).out.trimmed().split('\n');
    ASSERT_EQ(won.size(), 1);
    EXPECT_EQ(shell(QStringLiteral("cat errors")).out.count("already exists"), 7);
    const QSize size = QImage(folder.path(QStringLiteral("here/out.png"))).size();
    EXPECT_EQ(size.width(), qRound(80.0 * won.first().toInt() / 9))
        << "what the winner has written";
    EXPECT_EQ(shell(QStringLiteral("ls")).out, "errors\nin\nout.png\nwon\n");
}

TEST_F(VxroiOutputs, doesNotFollowALinkToNothing)
{
    const Outcome outcome = shell(QStringLiteral(
        "ln -s ../../elsewhere.png out.png && \"$VXROI\" crop in/a.png --ratio 1:1 -o out.png "
        "--if-exists overwrite"));
    EXPECT_EQ(outcome.exitCode, 73);
    EXPECT_TRUE(isOneLineNaming(outcome.err, QStringLiteral("is a link to nothing")));
    EXPECT_FALSE(QFileInfo::exists(folder.path(QStringLiteral("elsewhere.png"))));
}

TEST_F(VxroiOutputs, replacesWhatALinkLeadsToAndKeepsItsPermissions)
{
    const Outcome outcome = shell(
        QStringLiteral("echo old > old.png && chmod 640 old.png && ln -s old.png out.png && "
                       "\"$VXROI\" crop in/a.png --ratio 1:1 -o out.png --if-exists overwrite && "
                       "test -L out.png && stat -c %a old.png"));
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err.toStdString();
    EXPECT_TRUE(outcome.out.endsWith("640\n"));
    EXPECT_EQ(QImage(folder.path(QStringLiteral("here/old.png"))).size(), QSize(80, 80));
    EXPECT_EQ(
        shell(
            QStringLiteral(
                "umask 027; \"$VXROI\" crop in/a.png --ratio 1:1 -o new.png && stat -c %a new.png"))
            .out.trimmed()
            .right(3),
        "640");
}

TEST_F(VxroiOutputs, aFailedSyncIsAFailedWrite)
{
    if (support::isSanitized)
        GTEST_SKIP() << "the sanitizer wants to be loaded first";
    const Outcome outcome = shell(QStringLiteral(
        "LD_PRELOAD='" VXROI_FAIL_SYNC "' \"$VXROI\" crop in/a.png --ratio 1:1 -o out.png"));
    EXPECT_EQ(outcome.exitCode, 74) << outcome.err.toStdString();
    EXPECT_EQ(shell(QStringLiteral("ls")).out, "in\n");
}

TEST_F(VxroiOutputs, placesNeverLeadOutOfTheFolderThatThePatternNames)
{
    expectRefused(
        shell(QStringLiteral(
            "cd in && \"$VXROI\" crop ../../here/in/a.png --ratio 1:1 -o 'out/{dir}/{stem}.png'")),
        "lies outside the folder out");
    shell(QStringLiteral("cp in/a.png ...png")); // whose stem is ".."
    expectRefused(shell(QStringLiteral(
                      "\"$VXROI\" crop ./...png --ratio 1:1 -o 'out/{stem}/../{stem}/x.png'")),
        "lies outside the folder out");
    shell(QStringLiteral("mkdir out ../away; ln -s ../../away out/in"));
    const Outcome linked
        = shell(QStringLiteral("\"$VXROI\" crop in/a.png --ratio 1:1 -o 'out/{dir}/{stem}.png'"));
    EXPECT_EQ(linked.exitCode, 73) << "a link leads away";
    EXPECT_TRUE(QDir(folder.path(QStringLiteral("away"))).isEmpty());
    // A pattern that begins with {dir} may write into the picture's folder.
    EXPECT_EQ(
        shell(QStringLiteral(
                  "cd out && \"$VXROI\" crop ../in/a.png --ratio 1:1 -o '{dir}-crops/{stem}.png'"))
            .exitCode,
        0);
    EXPECT_TRUE(QFileInfo::exists(folder.path(QStringLiteral("here/in-crops/a.png"))));
}

TEST_F(VxroiOutputs, listsNameOutputsInTheCurrentFolderOnlyUnlessAllowed)
{
    for (const QString& output : { QStringLiteral("../x.png"), folder.path(QStringLiteral("x.png")),
             QStringLiteral("none/../../x.png"), QStringLiteral("{dir}/../../{stem}.png") }) {
        folder.save(
            QStringLiteral("{\"path\": \"in/a.png\", \"out\": \"%1\"}\n").arg(output).toUtf8(),
            QStringLiteral("here/list"));
        expectRefused(shell(QStringLiteral("\"$VXROI\" batch --from list --ratio 1:1")),
            "lies outside the folder");
    }
    EXPECT_EQ(shell(QStringLiteral("\"$VXROI\" batch -q --from list --ratio 1:1 --allow-outside"))
                  .exitCode,
        0);
    EXPECT_TRUE(QFileInfo::exists(folder.path(QStringLiteral("a.png"))));
}

TEST_F(VxroiOutputs, refusesNamesThatCannotBe)
{
    const QString crop = QStringLiteral("\"$VXROI\" crop in/a.png --ratio 1:1 -o ");
    EXPECT_EQ(shell(crop + QStringLiteral("''")).exitCode, 64) << "an unset variable";
    const Outcome longName = shell(crop + QString(300, QLatin1Char('a')) + QStringLiteral(".png"));
    EXPECT_EQ(longName.exitCode, 73);
    EXPECT_TRUE(longName.err.contains("choose a shorter name")) << longName.err.toStdString();
    const QString longest = QString(251, QLatin1Char('a')) + QStringLiteral(".png");
    EXPECT_EQ(shell(crop + longest).exitCode, 0);
    EXPECT_EQ(shell(crop + longest + QStringLiteral(" --if-exists overwrite")).exitCode, 0);
}

TEST_F(VxroiOutputs, keepsStandardInputForTheList)
{
    folder.save(QByteArray("{\"path\": \"in/a.png\", \"map\": \"-\"}\nin/a.png\nin/a.png\n"),
        QStringLiteral("here/list"));
    const Outcome outcome
        = shell(QStringLiteral("\"$VXROI\" batch -q --from - --ratio 1:1 < list"));
    EXPECT_EQ(outcome.out.count('\n'), 3) << "no map is read from the list";
    EXPECT_EQ(
        shell(QStringLiteral("\"$VXROI\" batch -q --from list --ratio 1:1 --map -")).exitCode, 64);
}

TEST_F(VxroiOutputs, namesThePictureOrTheLineThatIsWrong)
{
    folder.save(QByteArray("{\"path\": \"in/a.png\", \"ratios\": [\"x\"]}\n{\n"),
        QStringLiteral("here/list"));
    const Outcome outcome = shell(QStringLiteral("\"$VXROI\" batch --from list --ratio 1:1"));
    EXPECT_TRUE(outcome.err.contains("vxroi: list, line 1: in/a.png: --ratio x: not a ratio"))
        << outcome.err.toStdString();
    EXPECT_TRUE(outcome.err.contains("vxroi: list, line 2: (line 2): not JSON"));
}
