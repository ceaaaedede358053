// scaled-decode PICTURE...: decodes each at the size at which it would be analysed, and does nothing else.
#include "host/picture/Decoder.h"

#include <VXCrop/VXCrop.h>

#include <QCoreApplication>

namespace {

void decode(const QString& path)
{
    host::Decoder decoder(path, host::ReadingRules());
    const QSize size(decoder.header().width(), decoder.header().height());
    const QSize wanted = VXCrop::workingSize(size);
    int shrink = 1;
    while (2 * shrink <= decoder.mostShrink() && size.width() >= 2 * shrink * wanted.width())
        shrink *= 2;
    decoder.decode(shrink, QRect(QPoint(), size), false);
}

} // namespace

int main(int argc, char** argv)
try {
    const QCoreApplication application(argc, argv);
    for (const QString& path : QCoreApplication::arguments().mid(1))
        decode(path);
    return 0;
} catch (const std::exception&) {
    return 1;
}
