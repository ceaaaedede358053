// scaled-decode PICTURE: decodes it at the size that it would be analysed at, and nothing else.
#include "host/SalienceMap.h"

#include <QCoreApplication>
#include <QImageReader>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QImageReader reader(QCoreApplication::arguments().value(1));
    reader.setScaledSize(host::workingSizeOf(reader.size()));
    return reader.read().isNull() ? 1 : 0;
}
