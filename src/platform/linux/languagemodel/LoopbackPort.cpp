#include "languagemodel/LoopbackPort.h"

#include <QFile>
#include <QHostAddress>
#include <QTcpServer>

#include <unistd.h>

namespace Quillstacks {

namespace {

// Columns of /proc/net/tcp: number, local address, remote address, state, queues, timer, retransmits, user, …
constexpr int addressColumn = 1;
constexpr int stateColumn = 3;
constexpr int userColumn = 7;
constexpr const char* listening = "0A";

} // namespace

quint16 LoopbackPort::takeFree() {
    QTcpServer server;
    return server.listen(QHostAddress::LocalHost, 0) ? server.serverPort() : 0;
}

bool LoopbackPort::isListenedOnBy(uint user, quint16 port, const QByteArray& table) {
    const QByteArray ending = ':' + QByteArray::number(port, 16).rightJustified(4, '0').toUpper();
    for (const QByteArray& line : table.split('\n')) {
        const QList<QByteArray> columns = line.simplified().split(' ');
        if (columns.size() > userColumn && columns.at(addressColumn).endsWith(ending) &&
            columns.at(stateColumn) == listening && columns.at(userColumn).toUInt() == user)
            return true;
    }
    return false;
}

bool LoopbackPort::isListenedOnByUs(quint16 port) {
    QFile table(QStringLiteral("/proc/net/tcp"));
    // A sandbox may hide the table; nobody else is inside it then.
    return !table.open(QIODevice::ReadOnly) || isListenedOnBy(::getuid(), port, table.readAll());
}

} // namespace Quillstacks
