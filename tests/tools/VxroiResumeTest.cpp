#include "BatchFolder.h"

#include <QElapsedTimer>
#include <QImage>

namespace {

class VxroiResume : public BatchFolder {
protected:
    // Crops the ten files in the folder, one of which is not a picture; resumes from existing records.
    Outcome resume(const char* options) const
    {
        return shell(command(options) + QStringLiteral(" --resume records"));
    }

    // Expects the records and the outputs of a run that starts from nothing.
    void expectAsUndisturbed(const char* options) const
    {
        const Outcome outcome
            = shell(QStringLiteral("rm -rf fresh; mkdir fresh; cd fresh; ln -s ../in in; ")
                + command(options));
        EXPECT_EQ(contentOf(QStringLiteral("records")), outcome.out) << options;
        EXPECT_EQ(
            shell(QStringLiteral(
                      "for file in fresh/out/*; do cmp \"$file\" out/${file##*/} || exit 1; done"))
                .exitCode,
            0)
            << options;
    }

private:
    static QString command(const char* options)
    {
        return QStringLiteral("\"$VXROI\" batch in -o 'out/{stem}.png' ") + QLatin1String(options);
    }
};

} // namespace

TEST_F(VxroiResume, completesRecordsThatWereCutShort)
{
    const QString options
        = QStringLiteral("in -r --ratio 1:1 -o 'out/{stem}.png' --resume records");
    EXPECT_EQ(batch(options).exitCode, 1);
    const QByteArray whole = contentOf(QStringLiteral("records"));
    EXPECT_EQ(pathsOf(whole).size(), 12);
    for (const int kept : { 0, 1, 17, whole.size() / 2, whole.size() - 1, whole.size() }) {
        folder.save(whole.left(kept), QStringLiteral("records"));
        EXPECT_EQ(batch(options).exitCode, 1) << kept;
        EXPECT_EQ(contentOf(QStringLiteral("records")), whole) << kept;
    }
}

TEST_F(VxroiResume, resumesWithoutTouchingAFileThatIsNotItsOwn)
{
    folder.save(QByteArray("mine"), QStringLiteral("p02.png"));
    const QString options = QStringLiteral("in --ratio 1:1 -o '{stem}.png' --resume records");
    EXPECT_EQ(batch(options).exitCode, 1);
    EXPECT_EQ(contentOf(QStringLiteral("p02.png")), QByteArray("mine"));
    const QByteArray whole = contentOf(QStringLiteral("records"));
    EXPECT_EQ(reasonOf(records(whole).at(2)), QStringLiteral("already exists"));
    const QByteArray uninterrupted
        = batch(QStringLiteral("in --ratio 1:1 -o '{stem}.png' --if-exists skip")).out;
    EXPECT_TRUE(uninterrupted.contains("\"status\":\"skipped\""));
}

TEST_F(VxroiResume, refusesWhatIsNoFileOfRecords)
{
    for (const char* const content :
        { "a diary", "a diary\n", R"({"a": 1})", "{}\n", R"({"error":{"message":"mine"}})" }) {
        folder.save(QByteArray(content), QStringLiteral("mine"));
        const Outcome outcome = batch(QStringLiteral("in --ratio 1:1 --resume mine"));
        EXPECT_EQ(outcome.exitCode, 64) << content;
        EXPECT_TRUE(outcome.err.contains("mine, line 1: is not a record"))
            << outcome.err.toStdString();
        EXPECT_EQ(contentOf(QStringLiteral("mine")), QByteArray(content));
    }
    EXPECT_EQ(batch(QStringLiteral("in --ratio 1:1 --resume in")).exitCode, 73) << "a folder";
}

TEST_F(VxroiResume, refusesAFileBesideTheRecordsThatIsNotItsOwn)
{
    for (const char* const content : { "my notes", "my notes\n", "-\0my notes" }) {
        const QByteArray mine(content, content[0] == '-' ? 10 : -1);
        folder.save(mine, QStringLiteral("records.outputs"));
        const Outcome outcome = batch(QStringLiteral("in --ratio 1:1 --resume records"));
        EXPECT_EQ(outcome.exitCode, 64);
        EXPECT_TRUE(outcome.err.contains("records.outputs: does not list the outputs of a batch"))
            << outcome.err.toStdString();
        EXPECT_EQ(contentOf(QStringLiteral("records.outputs")), mine);
    }
}

TEST_F(VxroiResume, knowsOutputsAfterANameThatIsCutShort)
{
    folder.save(QByteArray("+out/p00.png") + '\0' + "+out/p0", QStringLiteral("records.outputs"));
    shell(QStringLiteral(
        "mkdir out; echo ours > out/p00.png; echo mine > out/p0; mkfifo list; "
        "\"$VXROI\" batch -q --from list --ratio 1:1 -o 'out/{stem}.png' --resume records & "
        "exec 3> list; echo in/p01.png >&3; "
        "for i in $(seq 1200); do test -s records && break; sleep 0.05; done; "
        "kill -KILL $!; exec 3>&-; wait"));
    const QByteArray left = contentOf(QStringLiteral("records.outputs"));
    EXPECT_TRUE(left.split('\0').contains("+out/p01.png")) << left.toStdString();
}

TEST_F(VxroiResume, writesTimingsOverNothingElse)
{
    folder.save(QByteArray("in/p00.png\n"), QStringLiteral("list"));
    for (const char* const file : { "list", "in/p00.png", "records" }) {
        const QString name = QLatin1String(file);
        resume("--ratio 1:1");
        const QByteArray before = contentOf(name);
        const Outcome outcome = batch(QStringLiteral("in --ratio 1:1 --timings ") + name);
        EXPECT_EQ(outcome.exitCode, 73);
        EXPECT_TRUE(
            isOneLineNaming(outcome.err, name + QStringLiteral(": is not a file of timings")))
            << outcome.err.toStdString();
        EXPECT_EQ(contentOf(name), before);
    }
    EXPECT_EQ(batch(QStringLiteral("in --ratio 1:1 --timings timings")).exitCode, 1);
    EXPECT_EQ(batch(QStringLiteral("in --ratio 1:1 --timings timings")).exitCode, 1) << "anew";
    EXPECT_EQ(contentOf(QStringLiteral("timings")).count('\n'), 10);
}

TEST_F(VxroiResume, keepsWhatStandsAndSaysWhatItDid)
{
    EXPECT_TRUE(
        resume("--ratio 1:1").err.contains("0 kept, 9 done, 0 retried, 1 failed, 0 dropped"));
    const QByteArray first = contentOf(QStringLiteral("records"));
    const Outcome again = resume("--ratio 1:1 --timings timings");
    EXPECT_TRUE(again.err.contains("9 kept, 0 done, 0 retried, 1 failed, 0 dropped"))
        << again.err.toStdString();
    EXPECT_EQ(again.exitCode, 1);
    EXPECT_EQ(contentOf(QStringLiteral("records")), first);
    EXPECT_TRUE(contentOf(QStringLiteral("timings")).isEmpty()) << "nothing was computed";
}

TEST_F(VxroiResume, doesAnewWhatWasAskedForOtherwise)
{
    for (const char* const options :
        { "--ratio 1:1", "--ratio 2:1", "--ratio 2:1 --preset library", "--ratio 2:1 --focus 0,0",
            "--ratio 2:1 --keep 0,0,5,5", "--size 20x10", "--ratio 2:1 --quality 50",
            "--ratio 2:1 --fit pad", "--ratio 2:1 --metadata strip" }) {
        const Outcome outcome = resume(options);
        EXPECT_TRUE(outcome.err.contains("0 kept, 9 done")) << options << outcome.err.toStdString();
        expectAsUndisturbed(options);
    }
}

TEST_F(VxroiResume, doesAnewWhatALineAsksForOtherwise)
{
    const auto run = [this](const char* line) {
        folder.save(QByteArray(line) + '\n', QStringLiteral("list"));
        return shell(QStringLiteral("\"$VXROI\" batch --from list --ratio 1:1 --resume records"))
            .err;
    };
    EXPECT_TRUE(run(R"({"path": "in/p00.png"})").contains("0 kept, 1 done"));
    EXPECT_TRUE(run("in/p00.png").contains("1 kept, 0 done")) << "the same in other words";
    EXPECT_TRUE(run(R"({"path": "in/p00.png", "focus": [0.5, 1]})").contains("0 kept, 1 done"));
    EXPECT_TRUE(run(R"({"focus": [0.5, 1], "path": "in/p00.png"})").contains("1 kept, 0 done"));
}

TEST_F(VxroiResume, writesOutputsAnewThatAreMissing)
{
    resume("--ratio 1:1");
    const QByteArray whole = contentOf(QStringLiteral("records"));
    shell(QStringLiteral("rm out/p02.png out/p03.png"));
    EXPECT_TRUE(resume("--ratio 1:1").err.contains("7 kept, 2 done"));
    EXPECT_EQ(contentOf(QStringLiteral("records")), whole);
    expectAsUndisturbed("--ratio 1:1");
}

TEST_F(VxroiResume, doesAnewPicturesThatHaveChanged)
{
    resume("--ratio 1:1");
    shell(QStringLiteral("cp in/p04.png in/p02.png"));
    EXPECT_TRUE(resume("--ratio 1:1").err.contains("8 kept, 1 done"));
    expectAsUndisturbed("--ratio 1:1");
}

TEST_F(VxroiResume, knowsPicturesByTheirContentWhenAsked)
{
    resume("--ratio 1:1 --checksum");
    shell(QStringLiteral("touch in/*; sed 's/no picture/no painting/' -i in/p05-broken.png"));
    EXPECT_TRUE(resume("--ratio 1:1 --checksum --timings timings").err.contains("9 kept, 0 done"));
    EXPECT_EQ(pathsOf(contentOf(QStringLiteral("timings"))),
        QStringList { QStringLiteral("in/p05-broken.png") });
    const QJsonObject file = records(contentOf(QStringLiteral("records")))
                                 .at(5)
                                 .value(QStringLiteral("file"))
                                 .toObject();
    // The output of sha256sum for "no painting".
    EXPECT_EQ(file.value(QStringLiteral("sha256")).toString(),
        QStringLiteral("949dab1b4837bec7f2e4886d64c9a719bca29c688c10024a366d737f592efde1"));
    EXPECT_TRUE(resume("--ratio 1:1").err.contains("0 kept, 9 done")) << "by another mark";
}

TEST_F(VxroiResume, triesFailuresFromOutsideAgain)
{
    folder.save(QByteArray("in/p00.png\nin/late.png\nin/p01.png\nin/p05-broken.png\n"),
        QStringLiteral("list"));
    folder.save(QByteArray("mine"), QStringLiteral("p01-out.png"));
    const QString options = QStringLiteral(
        "\"$VXROI\" batch --from list --ratio 1:1 -o '{stem}-out.png' --resume records ");
    EXPECT_TRUE(shell(options).err.contains("0 kept, 1 done, 0 retried, 3 failed"));
    shell(QStringLiteral("cp in/p02.png in/late.png; rm p01-out.png"));
    EXPECT_TRUE(shell(options + QStringLiteral("--retry none"))
                    .err.contains("1 kept, 0 done, 0 retried, 3 failed"));
    const Outcome outcome = shell(options);
    EXPECT_TRUE(outcome.err.contains("1 kept, 0 done, 2 retried, 1 failed"))
        << outcome.err.toStdString();
    shell(options + QStringLiteral("--retry all --timings timings"));
    EXPECT_EQ(pathsOf(contentOf(QStringLiteral("timings"))),
        QStringList { QStringLiteral("in/p05-broken.png") });
}

TEST_F(VxroiResume, triesPicturesAgainThatWereBeyondALimit)
{
    EXPECT_TRUE(resume("--ratio 1:1 --max-pixels 6000").err.contains(" retried, 5 failed"));
    EXPECT_TRUE(resume("--ratio 1:1").err.contains("5 kept, 0 done, 4 retried, 1 failed"));
    expectAsUndisturbed("--ratio 1:1");
    EXPECT_TRUE(
        resume("--size 200x200 --upscale --max-pixels 6000").err.contains(" retried, 10 failed"));
    EXPECT_TRUE(resume("--size 200x200 --upscale").err.contains("0 done, 9 retried, 1 failed"))
        << "those of a crop";
}

TEST_F(VxroiResume, goesBackToWhatWasAskedForBeforeARunThatWasStopped)
{
    shell(QStringLiteral("mkfifo in/silent.png; echo in/p00.png > list; "
                         "printf '%s\\n' in/silent.png in/p00.png > longer"));
    const QString options = QStringLiteral("--resume records -o 'out/{stem}.png' -j 2 --ratio ");
    for (const char* const signal : { "TERM", "KILL" }) {
        batch(QStringLiteral("--from list ") + options + QStringLiteral("1:1"));
        const QByteArray wanted = contentOf(QStringLiteral("out/p00.png"));
        // The silent pipe comes first, so the record of the other picture has to wait for it.
        shell(QStringLiteral(
            "cp out/p00.png before; exec 3<> in/silent.png; "
            "\"$VXROI\" batch -q --from longer %1 2:1 3>&- & "
            "for i in $(seq 1200); do cmp -s before out/p00.png || break; sleep 0.05; done; "
            "kill -%2 $!; exec 3>&-; wait")
                  .arg(options, QLatin1String(signal)));
        EXPECT_NE(contentOf(QStringLiteral("out/p00.png")), wanted) << signal;
        batch(QStringLiteral("--from list ") + options + QStringLiteral("1:1"));
        EXPECT_EQ(contentOf(QStringLiteral("out/p00.png")), wanted) << signal;
        EXPECT_FALSE(QFile::exists(folder.path(QStringLiteral("records.outputs")))) << signal;
    }
}

TEST_F(VxroiResume, takesPicturesThatAreNewAndDropsThoseThatAreGone)
{
    resume("--ratio 1:1");
    shell(QStringLiteral(
        "cp in/p01.png in/a-new.png; cp in/p01.png in/p02-new.png; rm in/p03.png in/p04.png"));
    EXPECT_TRUE(
        resume("--ratio 1:1").err.contains("7 kept, 2 done, 0 retried, 1 failed, 2 dropped"));
    expectAsUndisturbed("--ratio 1:1");
    EXPECT_TRUE(QFile::exists(folder.path(QStringLiteral("out/p03.png")))) << "nothing is deleted";
    shell(QStringLiteral("cp in/p01.png in/p03.png"));
    EXPECT_TRUE(resume("--ratio 1:1").err.contains("9 kept, 1 done"))
        << "its output is still known as ours";
}

TEST_F(VxroiResume, neverReplacesAFileThatIsNotItsOwn)
{
    folder.save(QByteArray("mine"), QStringLiteral("out-p02.png"));
    const QString options
        = QStringLiteral("\"$VXROI\" batch in -o 'out-{stem}.png' --resume records --ratio ");
    for (const char* const ratio : { "1:1", "2:1", "1:1" }) {
        const Outcome outcome = shell(options + QLatin1String(ratio));
        EXPECT_TRUE(outcome.err.contains("in/p02.png: ")
            || outcome.err.contains("out-p02.png: already exists"));
        EXPECT_EQ(contentOf(QStringLiteral("out-p02.png")), QByteArray("mine"));
    }
}

TEST_F(VxroiResume, saysNothingOfTheWindowOfAFileThatWasThere)
{
    batch(QStringLiteral("in --ratio 1:1 -o 'out/{stem}.png'"));
    for (const char* const more : { "", "--resume records" }) {
        const Outcome outcome
            = batch(QStringLiteral("in --ratio 2:1 -o 'out/{stem}.png' --if-exists skip ")
                + QLatin1String(more));
        const QByteArray lines = more[0] == 0 ? outcome.out : contentOf(QStringLiteral("records"));
        EXPECT_TRUE(lines.startsWith(
            R"({"crops":[{"output":{"path":"out/p00.png","status":"skipped"},"shape":"2:1"}])"))
            << lines.toStdString();
    }
}

TEST_F(VxroiResume, repairsWhatACrashHasLeftAndSaysSo)
{
    resume("--ratio 1:1");
    const QByteArray whole = contentOf(QStringLiteral("records"));
    const int lines = whole.count('\n');
    const QList<QByteArray> ends { QByteArray(700, '\0'), whole.left(100),
        whole.left(100) + QByteArray(50, '\0'),
        QByteArray(700, '\0') + whole.left(whole.indexOf('\n')).right(30) + '\n' };
    for (const QByteArray& end : ends) {
        folder.save(whole + end, QStringLiteral("records"));
        const Outcome outcome = resume("--ratio 1:1");
        EXPECT_TRUE(outcome.err.contains(
            "damaged by a crash: " + QByteArray::number(end.size()) + " bytes"))
            << outcome.err.toStdString();
        EXPECT_TRUE(outcome.err.contains("9 kept")) << outcome.err.toStdString();
        EXPECT_EQ(contentOf(QStringLiteral("records")), whole);
    }
    // Damage in the middle: one record is lost.
    const int second = whole.indexOf('\n') + 1;
    folder.save(whole.left(second + 40)
            + QByteArray(whole.indexOf('\n', second) - second - 40, '\0')
            + whole.mid(whole.indexOf('\n', second)),
        QStringLiteral("records"));
    EXPECT_TRUE(resume("--ratio 1:1").err.contains("8 kept, 1 done"));
    EXPECT_EQ(contentOf(QStringLiteral("records")).count('\n'), lines);
    expectAsUndisturbed("--ratio 1:1");
}

TEST_F(VxroiResume, makesAnewARecordThatSomebodyHasHollowedOut)
{
    resume("--ratio 1:1");
    const QByteArray whole = contentOf(QStringLiteral("records"));
    shell(QStringLiteral(R"(sed -i '1s/"crops":\[.*\],"file"/"crops":[{}],"file"/' records)"));
    EXPECT_NE(contentOf(QStringLiteral("records")), whole);
    const Outcome outcome = resume("--ratio 1:1 --json");
    EXPECT_TRUE(outcome.err.contains("8 kept, 1 done")) << outcome.err.toStdString();
    EXPECT_EQ(contentOf(QStringLiteral("records")), whole);
}

TEST_F(VxroiResume, leavesAFileAloneThatSomebodyHasPutInTheOutputsPlace)
{
    resume("--ratio 1:1");
    folder.save(QByteArray("mine"), QStringLiteral("mine"));
    shell(QStringLiteral(
        "sleep 4; mv mine out/p02.png")); // as old as the outputs, but moved there later
    const Outcome outcome = resume("--ratio 2:1");
    EXPECT_TRUE(outcome.err.contains("out/p02.png: already exists")) << outcome.err.toStdString();
    EXPECT_TRUE(outcome.err.contains("0 kept, 8 done, 0 retried, 2 failed"))
        << outcome.err.toStdString();
    EXPECT_EQ(contentOf(QStringLiteral("out/p02.png")), QByteArray("mine"));
}

TEST_F(VxroiResume, removesTheDraftsOfAKilledRunAndNoOthers)
{
    resume("--ratio 1:1");
    folder.save(QByteArray("half"), QStringLiteral("out/.vxroi-0123456789abcdef"));
    folder.save(QByteArray("half"), QStringLiteral("out/.vxroi-fedcba9876543210"));
    folder.save(QByteArray("mine"), QStringLiteral("out/mine"));
    folder.save(QByteArray("+out/.vxroi-0123456789abcdef\0+out/mine\0", 39),
        QStringLiteral("records.outputs"));
    resume("--ratio 1:1");
    EXPECT_FALSE(QFile::exists(folder.path(QStringLiteral("out/.vxroi-0123456789abcdef"))));
    EXPECT_TRUE(QFile::exists(folder.path(QStringLiteral("out/.vxroi-fedcba9876543210"))));
    EXPECT_TRUE(QFile::exists(folder.path(QStringLiteral("out/mine"))));
}

TEST_F(VxroiResume, refusesRecordsThatAnotherRunWrites)
{
    const Outcome outcome = shell(QStringLiteral(
        "mkfifo list; \"$VXROI\" batch -q --from list --ratio 1:1 --resume records & exec 3> list; "
        "while ! test -e records; do sleep 0.1; done; sleep 0.5; "
        "\"$VXROI\" batch in --ratio 1:1 --resume records; code=$?; exec 3>&-; wait; exit $code"));
    EXPECT_EQ(outcome.exitCode, 73);
    EXPECT_TRUE(outcome.err.contains("records: is in use by another run"))
        << outcome.err.toStdString();
}

TEST_F(VxroiResume, completesAfterBeingKilledFiftyTimes)
{
    const QString arguments
        = QStringLiteral("batch -q in -r --ratio 1:1,2:3 -o 'out/{stem}-{ratio}.png' -j 2 ");
    shell(QStringLiteral("for i in $(seq 30); do cp in/p00.png in/q$i.png; done"));
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(shell(QStringLiteral("\"$VXROI\" %1 > expected").arg(arguments)).exitCode, 1);
    const double secondsInAll = static_cast<double>(timer.elapsed()) / 1000;
    shell(QStringLiteral("mv out expected-out"));
    const QByteArray expected = contentOf(QStringLiteral("expected"));
    EXPECT_EQ(pathsOf(expected).size(), 42);

    const QDir out(folder.path(QStringLiteral("out")));
    const QString resume = arguments + QStringLiteral("--resume records");
    int killedHalfway = 0;
    for (int series = 0; series < 10; ++series) {
        for (int kill = 0; kill < 5; ++kill) {
            const double seconds = secondsInAll * (10 + (series * 7 + kill * 11) % 50) / 100;
            shell(QStringLiteral("timeout -s KILL %1 \"$VXROI\" %2").arg(seconds).arg(resume));
            for (const QString& name : out.entryList(QDir::Files | QDir::Hidden))
                EXPECT_FALSE(QImage(out.filePath(name)).isNull()) << name.toStdString();
            const int done = QFile::exists(folder.path(QStringLiteral("records")))
                ? contentOf(QStringLiteral("records")).count('\n')
                : 0;
            killedHalfway += done > 0 && done < 42 ? 1 : 0;
        }
        EXPECT_EQ(shell(QStringLiteral("\"$VXROI\" ") + resume).exitCode, 1) << "one failed";
        EXPECT_EQ(contentOf(QStringLiteral("records")), expected);
        EXPECT_EQ(
            shell(QStringLiteral("diff -r out expected-out && rm -r out records")).exitCode, 0);
    }
    EXPECT_GT(killedHalfway, 0);
}
