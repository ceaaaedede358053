#pragma once

#include <QStringList>

namespace host {

/// Collects what image codecs say while it lives, instead of letting it reach stderr.
///
/// Qt's codecs report through Qt's message handler, libpng straight to stderr; a program that owes
/// its user one clear line wants neither. Redirects process-wide, so one object at a time.
class CodecMessages {
public:
    CodecMessages();
    ~CodecMessages();
    CodecMessages(const CodecMessages&) = delete;
    CodecMessages& operator=(const CodecMessages&) = delete;

    /// Whether any Qt message so far contains \a words, whatever their case.
    bool mention(const QString& words) const;

private:
    QtMessageHandler previousHandler;
    int savedStderr;
};

} // namespace host
