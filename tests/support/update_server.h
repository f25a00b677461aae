// A real web server for the tests of the network, with faults on demand: update_server.py as a child process.
#pragma once

#include <filesystem>

#include <QProcess>
#include <QStandardPaths>
#include <QStringList>

#include <gtest/gtest.h>

#include "workspace/safe_file.h"

namespace test_support {

class UpdateServer {
  public:
    /// \param certificate  with its key, in one PEM file; empty: no TLS
    explicit UpdateServer(const std::filesystem::path& folder, const QString& certificate = {}) {
        QStringList arguments{QStringLiteral(SSQ_TEST_DATA "/support/update_server.py"),
                              workspace::toQString(folder)};
        if (!certificate.isEmpty())
            arguments << certificate;
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QStandardPaths::findExecutable(QStringLiteral("python3"), systemFolders()), arguments);
        m_port = line().toInt();
        EXPECT_NE(m_port, 0) << "the server does not start; is python3 there?";
    }
    ~UpdateServer() {
        m_process.closeWriteChannel();
        if (!m_process.waitForFinished(1000))
            m_process.kill();
        m_process.waitForFinished();
    }
    UpdateServer(const UpdateServer&) = delete;
    UpdateServer& operator=(const UpdateServer&) = delete;

    int port() const { return m_port; }

    /// \param fault  a name of the script, "first-" before it for the first database path only; "none" ends it
    /// \param detail  the port that "moved-to-http" sends to
    void setFault(const QString& fault, const QString& detail = {}) {
        m_process.write((fault + u' ' + detail + u'\n').toUtf8());
        const QString answer = QStringLiteral("fault ") + fault;
        for (QString read = line(); read != answer; read = line()) {
            ASSERT_FALSE(read.isEmpty()) << "no fault " << fault.toStdString();
            m_requests << read;
        }
    }

    /// The request targets since the last call, as they came.
    QStringList takeRequests() {
        setFault(QStringLiteral("none"));
        return std::exchange(m_requests, {});
    }

  private:
    /// The system's own python starts sooner than one behind a wrapper. No such: the search path.
    static QStringList systemFolders() {
        const QString own = QStringLiteral("/usr/bin");
        return QStandardPaths::findExecutable(QStringLiteral("python3"), {own}).isEmpty() ? QStringList()
                                                                                          : QStringList(own);
    }

    /// The next line of the server; empty when none comes.
    QString line() {
        while (!m_process.canReadLine())
            if (!m_process.waitForReadyRead(10000))
                return {};
        return QString::fromUtf8(m_process.readLine()).trimmed();
    }

    QProcess m_process;
    int m_port = 0;
    QStringList m_requests;
};

} // namespace test_support
