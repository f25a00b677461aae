#include "workspace/windows/single_instance.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

#include <QApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QWidget>

#include "toolkit/messages.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

constexpr int kWaitMs = 2000;
constexpr int kNameDigits = 16; // of the checksum: a socket's path holds 107 bytes

/// Where the socket lies. The user's number is in it where no folder is the user's own.
QString socketPath(const std::filesystem::path& folder) {
    QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (runtime.isEmpty())
        runtime = QDir::tempPath();
    std::error_code ignored;
    const std::filesystem::path whole = std::filesystem::weakly_canonical(folder, ignored);
    QCryptographicHash sum(QCryptographicHash::Sha1);
    sum.addData(QByteArray((whole.empty() ? folder : whole).c_str()));
    return runtime + u"/ssqdesk-%1-"_s.arg(::getuid()) + QString::fromLatin1(sum.result().toHex().left(kNameDigits));
}

} // namespace

SingleInstance::SingleInstance(const std::filesystem::path& programFolder, QObject* parent)
    : QObject(parent), m_path(socketPath(programFolder)),
      m_folder(::open(programFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    m_first = ::flock(m_folder, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
    if (!m_first)
        return;
    QLocalServer::removeServer(m_path); // left behind by a killed program
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, &SingleInstance::hear);
    m_server.listen(m_path);
}

SingleInstance::~SingleInstance() {
    if (m_folder >= 0)
        ::close(m_folder);
}

bool SingleInstance::raiseFirst() const {
    QLocalSocket socket;
    socket.connectToServer(m_path);
    if (!socket.waitForConnected(kWaitMs))
        return false;
    socket.write("raise\n");
    return socket.waitForBytesWritten(kWaitMs);
}

void SingleInstance::hear() {
    while (QLocalSocket* socket = m_server.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        emit raiseAsked();
    }
}

bool mayStart(const SingleInstance& instance) {
    if (instance.isFirst())
        return true;
    toolkit::showMessage(nullptr, u"此程序已经执行,无法重复执行本程序,否则严重影响本程序执行速度!"_s, {},
                         QMessageBox::Critical);
    instance.raiseFirst();
    return false;
}

void raiseActiveWindow() {
    QWidget* window = QApplication::activeModalWidget();
    if (!window)
        window = QApplication::activeWindow();
    for (QWidget* shown : QApplication::topLevelWidgets())
        if (!window && shown->isVisible() && shown->isWindow())
            window = shown;
    if (!window)
        return;
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->show();
    window->raise();
    window->activateWindow();
}

} // namespace workspace
