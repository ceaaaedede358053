#include "Subject.h"

std::string benchmarks::nameOf(
    const std::string& subject, const char* way, Kind kind, const QSize& size)
{
    return subject + "/" + way + "/" + nameOf(kind) + "/" + std::to_string(size.width()) + "x"
        + std::to_string(size.height());
}

qint64 benchmarks::pixelsOf(const QSize& size) { return qint64 { size.width() } * size.height(); }
