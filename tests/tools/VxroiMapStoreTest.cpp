#include "BatchFolder.h"

#include <QImage>

#include <algorithm>

namespace {

class VxroiMapStore : public BatchFolder {
protected:
    QStringList kept() const
    {
        return QString::fromUtf8(shell(QStringLiteral("find maps -name '*.png' | sort")).out)
            .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }
};

} // namespace

TEST_F(VxroiMapStore, givesTheRecordsAndOutputsThatItWouldGiveWithout)
{
    for (const char* const options :
        { "--ratio 1:1", "--ratio 3:1,1:3", "--ratio 1:1 --preset library",
            "--ratio 1:1 --preset library --keep 0,0,10,10", "--ratio 1:1 --avoid 0,0,10,10" }) {
        const QString command
            = QStringLiteral("in -r -o 'out/{stem}-{ratio}.png' --if-exists overwrite ")
            + QLatin1String(options);
        const QByteArray without = batch(command).out;
        shell(QStringLiteral("rm -rf before; cp -r out before"));
        EXPECT_EQ(batch(command + QStringLiteral(" --maps maps")).out, without) << options;
        EXPECT_EQ(batch(command + QStringLiteral(" --maps maps")).out, without) << options;
        EXPECT_EQ(shell(QStringLiteral("diff -r before out")).exitCode, 0) << options;
    }
    // Eleven pictures with two presets each.
    EXPECT_EQ(kept().size(), 22);
}

TEST_F(VxroiMapStore, takesTheMapFromTheFolder)
{
    const QString command = QStringLiteral("\"$VXROI\" crop in/p00.png --ratio 1:1 --maps maps");
    shell(command);
    ASSERT_EQ(kept().size(), 1);
    // The picture has 60 columns and 90 rows. With all salience at the top of the map, so is the window.
    QImage top = QImage(folder.path(kept().first())).convertToFormat(QImage::Format_Grayscale8);
    top.fill(0);
    std::fill_n(top.scanLine(3), top.width(), uchar { 255 });
    folder.save(top, kept().first());
    EXPECT_EQ(shell(command).out, QByteArray("60x60+0+0\n"));
    EXPECT_EQ(shell(QStringLiteral("\"$VXROI\" crop in/p00.png --ratio 60:50 --maps maps")).out,
        QByteArray("60x50+0+0\n"));
}

TEST_F(VxroiMapStore, knowsAPictureThatHasChanged)
{
    const QString command = QStringLiteral("\"$VXROI\" crop in/p00.png --ratio 1:1 --maps maps");
    shell(command);
    shell(QStringLiteral("cp in/p01.png in/p00.png"));
    EXPECT_EQ(
        shell(command).out, shell(QStringLiteral("\"$VXROI\" crop in/p01.png --ratio 1:1")).out);
    EXPECT_EQ(kept().size(), 2);
}

TEST_F(VxroiMapStore, servesCopiesOfAPictureWhenItIsKnownByItsContent)
{
    batch(QStringLiteral("in --ratio 1:1 --checksum --maps maps"));
    const QStringList before = kept();
    EXPECT_EQ(before.size(), 9);
    shell(QStringLiteral("cp -r in copy"));
    batch(QStringLiteral("copy --ratio 1:1 --checksum --maps maps"));
    EXPECT_EQ(kept(), before);
}

TEST_F(VxroiMapStore, analysesAnewWhereAMapIsDamaged)
{
    const QString command = QStringLiteral("in --ratio 1:1 --maps maps");
    const QByteArray whole = batch(command).out;
    const QStringList all = kept();
    folder.save(QByteArray("no picture"), all.at(0));
    folder.save(samples::picture({ 7, 7 }), all.at(1));
    folder.save(QByteArray(), all.at(2));
    EXPECT_EQ(batch(command).out, whole);
    EXPECT_FALSE(QImage(folder.path(all.at(0))).isNull()) << "and keeps it again";
}

TEST_F(VxroiMapStore, keepsNoMapOfADamagedPicture)
{
    folder.save(samples::truncated(samples::encoded(samples::picture({ 400, 300 }), "jpg"), 60),
        QStringLiteral("cut.jpg"));
    const QString command
        = QStringLiteral("\"$VXROI\" crop cut.jpg --ratio 1:1 --json --on-broken warn --maps maps");
    const QByteArray first = shell(command).out;
    EXPECT_TRUE(first.contains("\"warnings\"")) << first.toStdString();
    EXPECT_EQ(shell(command).out, first);
    EXPECT_TRUE(kept().isEmpty());
}

TEST_F(VxroiMapStore, givesAReportItsHeat)
{
    batch(QStringLiteral("in/deeper --ratio 1:1 --maps maps > records"));
    const QString report
        = QStringLiteral("\"$VXROI\" report --from records --if-exists overwrite -o page.html");
    shell(report);
    EXPECT_FALSE(contentOf(QStringLiteral("page.html")).contains("class=\"heat-control\""));
    shell(report + QStringLiteral(" --maps maps"));
    EXPECT_TRUE(contentOf(QStringLiteral("page.html")).contains("class=\"heat-control\""));
}

TEST_F(VxroiMapStore, refusesAFolderThatCannotBe)
{
    const Outcome outcome
        = shell(QStringLiteral("\"$VXROI\" crop in/p00.png --ratio 1:1 --maps in/p01.png"));
    EXPECT_EQ(outcome.exitCode, 73);
    EXPECT_TRUE(isOneLineNaming(outcome.err, QStringLiteral("in/p01.png: ")));
}
