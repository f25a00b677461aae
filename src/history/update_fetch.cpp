#include "history/update_fetch.h"

#include <QEventLoop>
#include <QTimer>

#include "history/update_http.h"

using namespace Qt::StringLiterals;

namespace history {

namespace {

constexpr int kMostRedirects = 10;
constexpr int kLooks = 10; // within the patience: a server that slows down is given up at most a tenth of it late

QUrl withScheme(QUrl url, const QString& scheme) {
    url.setScheme(scheme);
    return url;
}

bool mayFollow(const QUrl& from, const QUrl& to) {
    const bool isSecure = to.scheme() == u"https"_s;
    return to.isValid() && !to.host().isEmpty() &&
           (isSecure || (to.scheme() == u"http"_s && from.scheme() == u"http"_s));
}

} // namespace

Fetch::Fetch(const QNetworkProxy& proxy, const FetchLimits& limits) : m_proxy(proxy), m_limits(limits) {}

Fetch::~Fetch() = default;

Fetched Fetch::run(const QUrl& url) {
    bool mayFallBack = url.scheme().isEmpty();
    QUrl next = mayFallBack ? withScheme(url, u"https"_s) : url;
    qint64 headBytes = m_limits.headBytes;
    for (int redirects = 0; redirects <= kMostRedirects && !m_cancelled;) {
        HttpGet get(next, m_proxy, {headBytes, m_limits.bytes});
        wait(get, mayFallBack);
        if (m_cancelled)
            break;
        if (get.end() == HttpGet::End::Whole)
            return {FetchEnd::Whole, get.body()};
        if (get.end() == HttpGet::End::NotEstablished && mayFallBack)
            next = withScheme(url, u"http"_s);
        else if (get.end() == HttpGet::End::Moved && mayFollow(next, get.target()) && ++redirects)
            next = get.target();
        else
            return {};
        mayFallBack = false;
        headBytes -= get.headBytes();
    }
    return {m_cancelled ? FetchEnd::Cancelled : FetchEnd::Failed, {}};
}

void Fetch::cancel() {
    m_cancelled = true;
    if (m_loop)
        m_loop->quit();
}

void Fetch::wait(HttpGet& get, bool mayFallBack) {
    QEventLoop loop;
    QTimer looks;
    m_loop = &loop;
    m_lookBacks.assign(1, 0);
    connect(&get, &HttpGet::progressed, this, &Fetch::progressed);
    connect(&get, &HttpGet::finished, &loop, &QEventLoop::quit);
    connect(&looks, &QTimer::timeout, this, [this, &get] { watch(get); });
    looks.start(m_limits.patience / kLooks);
    if (mayFallBack)
        QTimer::singleShot(m_limits.httpsFirst, &get, [&get] {
            if (!get.isEstablished())
                get.giveUp();
        });
    get.start();
    if (get.end() == HttpGet::End::None && !m_cancelled)
        loop.exec();
    m_loop = nullptr;
}

/// Gives up a server that has sent too little for as long as the patience lasts.
void Fetch::watch(HttpGet& get) {
    m_lookBacks.push_back(get.received());
    if (m_lookBacks.size() <= kLooks)
        return;
    const qint64 least = m_limits.bytesPerSecond * m_limits.patience.count() / 1000;
    if (m_lookBacks.back() - m_lookBacks.front() < least)
        get.giveUp();
    m_lookBacks.pop_front();
}

} // namespace history
