#include "viewer/PreviewWindow.h"

#include "SampleFiles.h"

#include <QApplication>
#include <QStatusBar>

#include <gtest/gtest.h>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace {

class PreviewWindow : public testing::Test {
protected:
    const samples::SampleFolder folder;
    const QString path = folder.save(samples::picture({ 600, 400 }), QStringLiteral("picture.png"));
    viewer::PreviewWindow window;

    void SetUp() override
    {
        window.resize(800, 600);
        window.show();
        QApplication::processEvents();
    }

    QImage grabbed()
    {
        QApplication::processEvents();
        return window.grab().toImage();
    }
};

} // namespace

TEST_F(PreviewWindow, showsThePictureAndTellsItsCrop)
{
    const QImage before = grabbed();
    EXPECT_TRUE(window.crop().isNull());
    window.open(path);
    EXPECT_NE(grabbed(), before);
    EXPECT_EQ(window.crop().size(), QSize(400, 400));
    EXPECT_TRUE(window.statusBar()->currentMessage().startsWith(QStringLiteral("keeps 400 × 400")));
}

TEST_F(PreviewWindow, cropsToTheShapeThatIsSelected)
{
    window.open(path);
    const QImage square = grabbed();
    window.shapes().setCurrentText(QStringLiteral("3:1"));
    EXPECT_EQ(window.crop().size(), QSize(600, 200));
    EXPECT_NE(grabbed(), square);
}

TEST_F(PreviewWindow, keepsItsSizeWhateverItShows)
{
    window.open(path);
    grabbed();
    EXPECT_EQ(window.size(), QSize(800, 600));
    window.resize(500, 400);
    grabbed();
    EXPECT_EQ(window.size(), QSize(500, 400));
}

TEST_F(PreviewWindow, saysWhatIsWrongWithAFileAndShowsTheLastPictureStill)
{
    window.open(path);
    const QRect crop = window.crop();
    window.open(folder.path(QStringLiteral("none.png")));
    EXPECT_TRUE(window.statusBar()->currentMessage().contains(QStringLiteral("no such file")));
    EXPECT_EQ(window.crop(), crop);
}

TEST_F(PreviewWindow, keepsFacesWholeAndSaysWhyTheyAreNotKnown)
{
    QImage grey(600, 200, QImage::Format_RGB32);
    grey.fill(Qt::gray);
    const QString uniform = folder.save(grey, QStringLiteral("grey.png"));
    const auto withDetector = [&](const QString& answer) {
        return host::FaceDetector::ofCommand(
            QStringLiteral("read -r line; echo '{\"path\": \"%1\", %2}'").arg(uniform, answer),
            host::FaceDetector::OnProblem::Warn);
    };
    viewer::PreviewWindow finding(withDetector(
        QStringLiteral(R"("faces": [{"x": 500, "y": 50, "width": 60, "height": 60}])")));
    finding.open(uniform);
    EXPECT_TRUE(finding.crop().contains(QRect(500, 50, 60, 60)));
    EXPECT_TRUE(finding.statusBar()->currentMessage().startsWith(QStringLiteral("keeps")));
    EXPECT_FALSE(finding.statusBar()->currentMessage().contains(QLatin1Char(';')));

    viewer::PreviewWindow blind(withDetector(QStringLiteral(R"("error": "too dark")")));
    blind.open(uniform);
    EXPECT_EQ(blind.crop(), QRect(200, 0, 200, 200));
    EXPECT_TRUE(blind.statusBar()->currentMessage().endsWith(
        QStringLiteral("; its faces are not known: too dark")));
}

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Qt's offscreen platform leaks the screen that it creates here.
#ifdef __SANITIZE_ADDRESS__
    __lsan_disable();
#endif
    const QApplication application(argc, argv);
#ifdef __SANITIZE_ADDRESS__
    __lsan_enable();
#endif
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
