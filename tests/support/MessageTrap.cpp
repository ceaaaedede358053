#include "MessageTrap.h"

namespace support {

namespace {

QVector<QString> caught;

void catchMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& text)
{
    caught.append(text);
}

} // namespace

MessageTrap::MessageTrap()
    : previousHandler(qInstallMessageHandler(catchMessage))
{
    caught.clear();
}

MessageTrap::~MessageTrap() { qInstallMessageHandler(previousHandler); }

QVector<QString> MessageTrap::texts() const { return caught; }

} // namespace support
