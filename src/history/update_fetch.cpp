#include "history/update_fetch.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTimer>

namespace history {

namespace {

constexpr int kMostRedirects = 10;
constexpr int kStatusOk = 200;

QNetworkRequest requestFor(const QUrl& url) {
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(kMostRedirects);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setRawHeader("User-Agent", "ssqdesk");
    request.setRawHeader("Accept-Encoding",
                         "identity"); // so that the announced length is that of the bytes that come
    return request;
}

} // namespace

Fetch::Fetch(const QNetworkProxy& proxy, const FetchLimits& limits) : m_proxy(proxy), m_limits(limits) {
    m_silence = new QTimer(this);
    m_silence->setSingleShot(true);
    m_silence->setInterval(limits.silence);
    connect(m_silence, &QTimer::timeout, this, [this] { stop(FetchEnd::Failed); });
}

Fetch::~Fetch() = default;

Fetched Fetch::run(const QUrl& url) {
    if (m_end != FetchEnd::Whole)
        return {m_end, {}};
    QNetworkAccessManager manager;
    start(url, manager);
    QEventLoop loop;
    connect(m_reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    if (!m_reply->isFinished())
        loop.exec();
    takeBytes();
    m_silence->stop();
    if (m_end == FetchEnd::Whole && !isWhole())
        m_end = FetchEnd::Failed;
    m_reply = nullptr; // goes with the manager
    return m_end == FetchEnd::Whole ? Fetched{m_end, m_bytes} : Fetched{m_end, {}};
}

void Fetch::cancel() {
    stop(FetchEnd::Cancelled);
}

void Fetch::start(const QUrl& url, QNetworkAccessManager& manager) {
    manager.setProxy(m_proxy);
    m_reply = manager.get(requestFor(url));
    connect(m_reply, &QNetworkReply::metaDataChanged, this, &Fetch::checkLength);
    connect(m_reply, &QNetworkReply::readyRead, this, &Fetch::takeBytes);
    m_silence->start();
}

void Fetch::checkLength() {
    m_silence->start();
    if (m_reply->header(QNetworkRequest::ContentLengthHeader).toLongLong() > m_limits.bytes)
        stop(FetchEnd::Failed);
}

void Fetch::takeBytes() {
    if (m_end != FetchEnd::Whole)
        return;
    m_silence->start();
    m_bytes += m_reply->readAll();
    if (m_bytes.size() > m_limits.bytes)
        return stop(FetchEnd::Failed);
    const QVariant total = m_reply->header(QNetworkRequest::ContentLengthHeader);
    emit progressed(m_bytes.size(), total.isValid() ? total.toLongLong() : -1);
}

void Fetch::stop(FetchEnd end) {
    if (m_end != FetchEnd::Whole)
        return;
    m_end = end;
    if (m_reply)
        m_reply->abort();
}

/// Only the length tells whether a body came whole. A cut connection looks like the end of a body without a length,
/// and when it cuts a body that is sent in chunks, the reply now and then ends without an error too.
bool Fetch::isWhole() const {
    if (!m_reply->isFinished() || m_reply->error() != QNetworkReply::NoError || m_bytes.isEmpty())
        return false;
    if (m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() != kStatusOk)
        return false;
    const QByteArray encoding = m_reply->rawHeader("Content-Encoding");
    if (!encoding.isEmpty() && encoding.compare("identity", Qt::CaseInsensitive) != 0)
        return false;
    const QVariant length = m_reply->header(QNetworkRequest::ContentLengthHeader);
    return length.isValid() && length.toLongLong() == m_bytes.size();
}

} // namespace history
