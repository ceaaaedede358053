#pragma once

#include <QStringList>

#include <string>

namespace host {

/// Collects what image codecs say in this thread while it lives, instead of letting it reach stderr.
///
/// Qt's codecs report through Qt's message handler, libpng straight to stderr; a program that owes
/// its user one clear line wants neither. While any object lives, in whatever thread, stderr leads
/// nowhere; writeError() gets through. One object at a time in each thread.
class CodecMessages {
public:
    CodecMessages();
    ~CodecMessages();
    CodecMessages(const CodecMessages&) = delete;
    CodecMessages& operator=(const CodecMessages&) = delete;

    /// Whether any Qt message of this thread so far contains \a words, whatever their case.
    bool mention(const QString& words) const;

private:
    friend void collectCodecMessage(const QString& message);

    QStringList lines;
};

/// Writes \a text to the program's stderr, wherever codecs' stderr leads at the moment.
void writeError(const std::string& text);

} // namespace host
