#include "history/update_source.h"

#include "workspace/setting_names.h"

using namespace Qt::StringLiterals;

namespace history {

const QString kTextPath = u"/download/lshm/TXT/中国福利彩票双色球历史开奖号码.Txt"_s;

const DatabasePath kDatabasePaths[2] = {
    {u"/download/lshm/中国福利彩票双色球.mdb"_s, u"\\中国福利彩票双色球.mdb"_s},
    {u"/download/lshm/shuangseqiu.mdb"_s, u"\\shuangseqiu.mdb"_s},
};

namespace {

constexpr int kMostPort = 65535;

/// \return nothing for a text that names no port
std::optional<int> portOf(const QString& text) {
    bool whole = false;
    const int port = text.toInt(&whole);
    return whole && port >= 1 && port <= kMostPort ? std::optional(port) : std::nullopt;
}

std::optional<QNetworkProxy> proxyOf(const QString& text) {
    if (text.isEmpty())
        return QNetworkProxy(QNetworkProxy::NoProxy);
    const QUrl url(text.contains(u"://"_s) ? text : u"http://"_s + text, QUrl::StrictMode);
    const bool socks = url.scheme() == u"socks5"_s;
    if (!url.isValid() || url.host().isEmpty() || url.port() < 1 || (!socks && url.scheme() != u"http"_s))
        return std::nullopt;
    return QNetworkProxy(socks ? QNetworkProxy::Socks5Proxy : QNetworkProxy::HttpProxy, url.host(),
                         static_cast<quint16>(url.port()), url.userName(QUrl::FullyDecoded),
                         url.password(QUrl::FullyDecoded));
}

} // namespace

QUrl UpdateSource::url(const QString& path) const {
    QUrl url = server;
    url.setPath(path, QUrl::DecodedMode);
    return url;
}

std::optional<UpdateSource> updateSource(const workspace::Settings& settings) {
    const auto setting = [&settings](const QString& key) {
        return settings.value(workspace::setting::kProgram, u"Update"_s, key).trimmed();
    };
    UpdateSource source;
    const QString scheme = setting(u"Scheme"_s).toLower();
    if (!scheme.isEmpty() && scheme != u"http"_s && scheme != u"https"_s)
        return std::nullopt;
    source.server.setScheme(scheme);
    source.server.setHost(setting(u"Host"_s));
    if (const QString text = setting(u"Port"_s); !text.isEmpty()) {
        const std::optional<int> port = portOf(text);
        if (!port)
            return std::nullopt;
        source.server.setPort(*port);
    }
    const std::optional<QNetworkProxy> proxy = proxyOf(setting(u"Proxy"_s));
    if (source.server.host().isEmpty() || !proxy)
        return std::nullopt;
    source.proxy = *proxy;
    return source;
}

} // namespace history
