#include "history/update_http.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace history {

namespace {

constexpr int kOk = 200;
constexpr int kRedirects[] = {301, 302, 303, 307, 308};
constexpr int kHttpPort = 80;
constexpr int kHttpsPort = 443;
constexpr qint64 kReadBuffer = 64 * 1024; // what waits in the socket between two looks at it
constexpr int kLongestLength = 15;        // digits of a Content-Length, beyond any limit

bool isSecure(const QUrl& url) {
    return url.scheme() == u"https"_s;
}

/// The host as the Host header names it.
QByteArray hostHeader(const QUrl& url) {
    QByteArray host = url.host(QUrl::FullyEncoded).toLatin1();
    if (host.contains(':'))
        host = '[' + host + ']';
    return url.port() < 0 ? host : host + ':' + QByteArray::number(url.port());
}

QByteArray requestTarget(const QUrl& url) {
    const QByteArray path = url.path(QUrl::FullyEncoded).toLatin1();
    const QByteArray target = path.isEmpty() ? QByteArray("/") : path;
    return url.hasQuery() ? target + '?' + url.query(QUrl::FullyEncoded).toLatin1() : target;
}

/// The number of a status line such as "HTTP/1.1 200 OK"; 0 for anything else.
int statusOf(const QByteArray& line) {
    const bool isStatus = line.startsWith("HTTP/1.") && line.size() >= 12 && line[8] == ' ';
    return isStatus ? line.mid(9, 3).toInt() : 0;
}

/// The values of a header in the lines behind the status line.
QList<QByteArray> valuesOf(const QList<QByteArray>& lines, const QByteArray& name) {
    QList<QByteArray> values;
    for (const QByteArray& line : lines.sliced(1)) {
        const qsizetype colon = line.indexOf(':');
        if (colon > 0 && line.left(colon).trimmed().compare(name, Qt::CaseInsensitive) == 0)
            values << line.sliced(colon + 1).trimmed();
    }
    return values;
}

} // namespace

HttpGet::HttpGet(const QUrl& url, const QNetworkProxy& proxy, const Limits& limits)
    : m_url(url), m_proxy(proxy), m_limits(limits) {
    m_socket.setReadBufferSize(kReadBuffer);
    connect(&m_socket, &QSslSocket::readyRead, this, &HttpGet::takeBytes);
    connect(&m_socket, &QSslSocket::errorOccurred, this, &HttpGet::breakOff);
    if (isSecure(url))
        connect(&m_socket, &QSslSocket::encrypted, this, &HttpGet::send);
    else
        connect(&m_socket, &QSslSocket::connected, this, &HttpGet::send);
}

/// Whether the proxy itself reads the request; otherwise the socket gets through it to the server.
bool HttpGet::viaProxy() const {
    return m_proxy.type() == QNetworkProxy::HttpProxy && !isSecure(m_url);
}

void HttpGet::start() {
    const int port = m_url.port(isSecure(m_url) ? kHttpsPort : kHttpPort);
    m_socket.setProxy(viaProxy() ? QNetworkProxy(QNetworkProxy::NoProxy) : m_proxy);
    if (viaProxy())
        m_socket.connectToHost(m_proxy.hostName(), m_proxy.port());
    else if (!isSecure(m_url))
        m_socket.connectToHost(m_url.host(), static_cast<quint16>(port));
    else if (QSslSocket::supportsSsl())
        m_socket.connectToHostEncrypted(m_url.host(), static_cast<quint16>(port));
    else
        end(End::NotEstablished);
}

void HttpGet::giveUp() {
    end(m_established ? End::Failed : End::NotEstablished);
}

void HttpGet::send() {
    m_established = true;
    QByteArray request =
        "GET " + (viaProxy() ? m_url.toEncoded(QUrl::RemoveFragment | QUrl::RemoveUserInfo) : requestTarget(m_url)) +
        " HTTP/1.1\r\nHost: " + hostHeader(m_url) +
        "\r\nUser-Agent: ssqdesk\r\nAccept: */*\r\nAccept-Encoding: identity\r\nCache-Control: no-cache\r\n"
        "Connection: close\r\n";
    if (viaProxy() && !m_proxy.user().isEmpty())
        request +=
            "Proxy-Authorization: Basic " + (m_proxy.user() + u':' + m_proxy.password()).toUtf8().toBase64() + "\r\n";
    m_socket.write(request + "\r\n");
}

void HttpGet::takeBytes() {
    while (m_end == End::None && m_socket.bytesAvailable() > 0) {
        const QByteArray bytes = m_socket.read(kReadBuffer);
        if (bytes.isEmpty())
            return;
        m_received += bytes.size();
        if (m_length < 0)
            takeHead(bytes);
        else
            takeBody(bytes);
    }
}

void HttpGet::takeHead(const QByteArray& bytes) {
    const qsizetype seen = std::max<qsizetype>(m_head.size() - 3, 0); // the mark may have begun there
    m_head += bytes;
    const qsizetype mark = m_head.indexOf("\r\n\r\n", seen);
    m_headBytes = mark < 0 ? m_head.size() : mark + 4;
    if (m_headBytes > m_limits.head)
        return end(End::Failed);
    if (mark < 0)
        return;
    const QByteArray rest = m_head.sliced(mark + 4);
    readHead(m_head.left(mark));
    if (m_end == End::None)
        takeBody(rest);
}

void HttpGet::readHead(const QByteArray& head) {
    QList<QByteArray> lines = head.split('\n');
    for (QByteArray& line : lines)
        line = line.trimmed();
    const int status = statusOf(lines.front());
    const QList<QByteArray> locations = valuesOf(lines, "Location");
    if (std::find(std::begin(kRedirects), std::end(kRedirects), status) != std::end(kRedirects) &&
        locations.size() == 1) {
        m_target = m_url.resolved(QUrl::fromEncoded(locations.front()));
        return end(End::Moved);
    }
    bool isPlain = valuesOf(lines, "Transfer-Encoding").isEmpty();
    for (const QByteArray& encoding : valuesOf(lines, "Content-Encoding"))
        isPlain = isPlain && encoding.compare("identity", Qt::CaseInsensitive) == 0;
    if (status != kOk || !isPlain || !readLength(valuesOf(lines, "Content-Length")))
        end(End::Failed);
}

/// \return whether the length is told once, or always alike, and is within the limit
bool HttpGet::readLength(const QList<QByteArray>& values) {
    if (values.isEmpty() || values.count(values.front()) != values.size())
        return false;
    const QByteArray& length = values.front();
    const bool isNumber = !length.isEmpty() && length.size() <= kLongestLength &&
                          std::all_of(length.begin(), length.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (!isNumber || length.toLongLong() < 1 || length.toLongLong() > m_limits.body)
        return false;
    m_length = length.toLongLong();
    return true;
}

void HttpGet::takeBody(const QByteArray& bytes) {
    m_body += bytes.left(m_length - m_body.size());
    emit progressed(m_body.size(), m_length);
    if (m_body.size() == m_length)
        end(End::Whole);
}

/// A server may close behind its last byte: what has come before that is taken first.
void HttpGet::breakOff() {
    takeBytes();
    const bool distrusted = !m_socket.sslHandshakeErrors().isEmpty();
    end(m_established || distrusted ? End::Failed : End::NotEstablished);
}

void HttpGet::end(End end) {
    if (m_end != End::None)
        return;
    m_end = end;
    m_socket.disconnect(this);
    m_socket.abort();
    emit finished();
}

} // namespace history
