// One GET over HTTP/1.1, with a limit on everything that a server can send.
//
// start() returns at once; finished() tells the end, and giveUp() brings it about in any phase: name lookup,
// connection, TLS, headers, body. Left out on purpose: bodies without an announced length, which could be cut off
// without a sign, and bodies in any encoding. A redirect is an end like any other: whoever asked decides about it.
#pragma once

#include <QByteArray>
#include <QNetworkProxy>
#include <QObject>
#include <QSslSocket>
#include <QUrl>

namespace history {

class HttpGet : public QObject {
    Q_OBJECT
  public:
    enum class End {
        None,           ///< still going on
        Whole,          ///< body() has come to its last byte
        Moved,          ///< target() says where to
        NotEstablished, ///< no connection, or no TLS over it; a certificate that is not trusted is Failed
        Failed,
    };
    struct Limits {
        qint64 head; ///< bytes of the status line and all headers
        qint64 body;
    };

    /// \param url    http or https, with a host
    /// \param proxy  a HTTP proxy gets plain requests as they are, and a tunnel for https
    HttpGet(const QUrl& url, const QNetworkProxy& proxy, const Limits& limits);

    void start();
    /// Ends it, unless it has ended.
    void giveUp();

    /// Whether the request was sent: there is a connection, and TLS over it for https.
    bool isEstablished() const { return m_established; }
    End end() const { return m_end; }
    const QByteArray& body() const { return m_body; }
    const QUrl& target() const { return m_target; }
    /// Bytes of status lines and headers so far.
    qint64 headBytes() const { return m_headBytes; }
    /// Bytes of any kind so far.
    qint64 received() const { return m_received; }

  signals:
    /// \param total  announced length of the body
    void progressed(qint64 received, qint64 total);
    void finished();

  private:
    bool viaProxy() const;
    void send();
    void takeBytes();
    void takeHead(const QByteArray& bytes);
    void readHead(const QByteArray& head);
    bool readLength(const QList<QByteArray>& values);
    void takeBody(const QByteArray& bytes);
    void breakOff();
    void end(End end);

    QUrl m_url;
    QNetworkProxy m_proxy;
    Limits m_limits;
    QSslSocket m_socket;
    bool m_established = false;
    End m_end = End::None;
    QByteArray m_head; ///< until its last line has come
    qint64 m_headBytes = 0;
    qint64 m_received = 0;
    qint64 m_length = -1; ///< announced; -1 while the headers come
    QByteArray m_body;
    QUrl m_target;
};

} // namespace history
