#include "ui/qt/single_instance.h"

#include <unistd.h>

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QFile>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QThread>

namespace tallyo {
namespace {

constexpr int kPatienceMilliseconds = 2000;
constexpr int kPauseMilliseconds = 50;
constexpr int kHashDigits = 24;

// The same for every way to write the folder, another for every person.
QString ServerName(const std::filesystem::path& appDir) {
  std::error_code error;
  const std::filesystem::path folder = std::filesystem::weakly_canonical(appDir, error);
  const QByteArray hash = QCryptographicHash::hash(QByteArray::fromStdString(folder.string()),
                                                   QCryptographicHash::Sha256);
  const QString name = QString("tallyo-%1-%2")
                           .arg(getuid())
                           .arg(QString::fromLatin1(hash.toHex().left(kHashDigits)));
  const QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
  return runtime.isEmpty() ? name : runtime + '/' + name;
}

}  // namespace

SingleInstance::SingleInstance(const std::filesystem::path& appDir) {
  const QString name = ServerName(appDir);
  QLocalServer::removeServer(name);  // what a killed program left
  server_.setSocketOptions(QLocalServer::UserAccessOption);
  server_.listen(name);
  QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this] {
    while (QLocalSocket* const visitor = server_.nextPendingConnection()) {
      visitor->disconnectFromServer();
      visitor->deleteLater();
      if (handler_) {
        handler_();
      }
    }
  });
}

bool SingleInstance::RaiseRunning(const std::filesystem::path& appDir) {
  QLocalSocket socket;
  socket.connectToServer(ServerName(appDir));
  // A first program that has only just begun does not listen yet.
  const QDeadlineTimer patience(kPatienceMilliseconds);
  while (socket.state() != QLocalSocket::ConnectedState && !patience.hasExpired()) {
    QThread::msleep(kPauseMilliseconds);
    socket.connectToServer(ServerName(appDir));
  }
  // The first program ends the connection when it has seen it.
  return socket.waitForConnected(kPatienceMilliseconds) &&
         (socket.state() == QLocalSocket::UnconnectedState ||
          socket.waitForDisconnected(kPatienceMilliseconds));
}

}  // namespace tallyo
