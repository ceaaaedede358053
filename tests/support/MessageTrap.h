#pragma once

#include <QString>
#include <QVector>

namespace support {

/// Collects the messages that Qt's logger receives while the trap lives.
class MessageTrap {
public:
    MessageTrap();
    ~MessageTrap();
    MessageTrap(const MessageTrap&) = delete;
    MessageTrap& operator=(const MessageTrap&) = delete;

    /// The texts so far.
    QVector<QString> texts() const;

private:
    QtMessageHandler previousHandler;
};

} // namespace support
