// minimal PICTURE CROPPED: crops a picture to the square that a person would choose.
#include <VXCrop/VXCrop.h>

#include <QImageReader>

#include <iostream>

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::cerr << "usage: minimal PICTURE CROPPED\n";
        return 64;
    }
    // The picture as it is seen: cameras store it as the sensor saw it and note how to turn it.
    QImageReader reader(QString::fromLocal8Bit(argv[1]));
    reader.setAutoTransform(true);
    const QImage picture = reader.read();
    if (picture.isNull()) {
        std::cerr << argv[1] << ": no picture\n";
        return 65;
    }
    // Analysed once; it may be asked for windows of other shapes as well.
    const VXCrop crop(picture);
    const QRect square = crop.window(QSize(1, 1)).window;
    std::cout << square.width() << 'x' << square.height() << '+' << square.x() << '+' << square.y()
              << '\n';
    return picture.copy(square).save(QString::fromLocal8Bit(argv[2])) ? 0 : 74;
}
