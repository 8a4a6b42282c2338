#include "app/SecondStart.h"

#include <QDeadlineTimer>
#include <QLocalSocket>
#include <utility>

#include "app/QtPaths.h"

namespace quarnel02 {

namespace {

constexpr char kEnd = '\0';  ///< of a path; no path contains it
constexpr char kTaken = 'y';
constexpr char kRefused = 'n';

QString SocketOf(const std::filesystem::path& directory) {
    return ToQString(directory / "quarnel02.socket");
}

/// What comes up to that letter, without it; what has come so far when time is up.
QByteArray ReadUpTo(QLocalSocket& socket, char end) {
    constexpr int patience = 2000;  // ms
    const QDeadlineTimer deadline(patience);
    QByteArray bytes = socket.readAll();
    while (!bytes.contains(end) &&
           socket.waitForReadyRead(static_cast<int>(deadline.remainingTime()))) {
        bytes += socket.readAll();
    }
    return bytes.left(bytes.indexOf(end));
}

}  // namespace

SecondStarts::SecondStarts(const std::filesystem::path& directory, Take take)
    : m_take(std::move(take)) {
    connect(&m_server, &QLocalServer::newConnection, this, &SecondStarts::Answer);
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    const QString socket = SocketOf(directory);
    QLocalServer::removeServer(socket);
    m_server.listen(socket);
}

SecondStarts::~SecondStarts() = default;

void SecondStarts::Answer() {
    while (QLocalSocket* socket = m_server.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        const QByteArray path = ReadUpTo(*socket, kEnd);
        socket->putChar(m_take(path.toStdString()) ? kTaken : kRefused);
        socket->flush();
        socket->disconnectFromServer();
    }
}

HandedOver HandOver(const std::filesystem::path& directory, const std::filesystem::path& file) {
    constexpr int patience = 3000;  // ms
    QLocalSocket socket;
    socket.connectToServer(SocketOf(directory));
    if (!socket.waitForConnected(patience)) {
        return HandedOver::NoAnswer;
    }
    socket.write(QByteArray::fromStdString(file.string()) + kEnd);
    char answer = kEnd;
    if (!socket.waitForReadyRead(patience) || !socket.getChar(&answer)) {
        return HandedOver::NoAnswer;
    }
    return answer == kTaken ? HandedOver::Taken : HandedOver::Refused;
}

}  // namespace quarnel02
