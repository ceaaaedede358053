// scaled-decode PICTURE: decodes it at the size that it would be analysed at, and nothing else.
#include <VXCrop/VXCrop.h>

#include <QCoreApplication>
#include <QImageReader>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QImageReader reader(QCoreApplication::arguments().value(1));
    reader.setScaledSize(VXCrop::workingSize(reader.size()));
    return reader.read().isNull() ? 1 : 0;
}
