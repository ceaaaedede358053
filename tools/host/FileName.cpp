#include "FileName.h"

#include <QTextCodec>

namespace host {

namespace {

constexpr ushort firstHalf = 0xdc00;

bool isByte(QChar character)
{
    return character.unicode() >= firstHalf + 0x80 && character.unicode() <= firstHalf + 0xff;
}

// The length in bytes of the UTF-8 character at \a position; 0 when the bytes there are not UTF-8.
int characterBytes(const QByteArray& name, int position)
{
    constexpr int mostBytes = 4;
    for (int bytes = 1; bytes <= mostBytes && position + bytes <= name.size(); ++bytes) {
        const QByteArray part = name.mid(position, bytes);
        const QString text = QString::fromUtf8(part);
        if (text.toUtf8() == part)
            return bytes;
    }
    return 0;
}

class FileNameCodec : public QTextCodec {
public:
    QByteArray name() const override { return "UTF-8 of file names"; }
    int mibEnum() const override { return 0; }

protected:
    QString convertToUnicode(const char* bytes, int count, ConverterState* /*state*/) const override
    {
        return textOfName(QByteArray(bytes, count));
    }
    QByteArray convertFromUnicode(
        const QChar* text, int count, ConverterState* /*state*/) const override
    {
        return bytesOfName(QString(text, count));
    }
};

} // namespace

QString textOfName(const QByteArray& name)
{
    QString whole = QString::fromUtf8(name);
    if (whole.toUtf8() == name)
        return whole;
    QString text;
    for (int position = 0; position < name.size();) {
        const int bytes = characterBytes(name, position);
        if (bytes == 0)
            text += QChar(firstHalf + static_cast<uchar>(name.at(position)));
        else
            text += QString::fromUtf8(name.mid(position, bytes));
        position += qMax(bytes, 1);
    }
    return text;
}

QByteArray bytesOfName(const QString& text)
{
    QByteArray name;
    int begin = 0; // of the text that is plain UTF-8
    for (int position = 0; position < text.size(); ++position) {
        const bool isInPair = position > begin && text.at(position - 1).isHighSurrogate();
        if (!isByte(text.at(position)) || isInPair)
            continue;
        name += text.midRef(begin, position - begin).toUtf8();
        name += static_cast<char>(text.at(position).unicode() - firstHalf);
        begin = position + 1;
    }
    return name + text.midRef(begin).toUtf8();
}

bool mayBeName(const QString& text)
{
    return textOfName(bytesOfName(text)) == text && !text.contains(QChar(0));
}

void useForFileNames()
{
    QTextCodec::setCodecForLocale(new FileNameCodec); // Qt takes ownership
}

} // namespace host
