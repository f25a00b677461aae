// One file from an HTTP server, whole or not at all.
//
// run() returns when the fetch is over; meanwhile events are handled, so that windows paint and a button can call
// cancel(). An address without a scheme is tried over https first, and over http only where https cannot be
// established: nobody listens, or what listens speaks no TLS. Redirects are followed within http and https, never
// from https to http. A certificate that is not trusted, any status but 200, an empty body, a body whose length is
// not announced, that ends before it or is longer than the limit, headers beyond theirs, and a server that is silent
// or hardly sends anything: each is a failure. One object fetches one file.
#pragma once

#include <chrono>
#include <deque>

#include <QByteArray>
#include <QNetworkProxy>
#include <QObject>
#include <QUrl>

class QEventLoop;

namespace history {

class HttpGet;

struct FetchLimits {
    std::chrono::milliseconds patience = std::chrono::seconds(30); ///< how long bytes may come too slowly, or not
    qint64 bytes = 64LL * 1024 * 1024;                             ///< the longest body
    qint64 headBytes = 64LL * 1024;                                ///< all headers, those of redirects with them
    qint64 bytesPerSecond = 1024;                                  ///< slower is too slow
    /// How long https may take to stand where http can be tried instead: a server that speaks no TLS may just wait.
    std::chrono::milliseconds httpsFirst = std::chrono::seconds(8);
};

enum class FetchEnd { Whole, Cancelled, Failed };

struct Fetched {
    FetchEnd end = FetchEnd::Failed;
    QByteArray bytes; ///< empty unless whole
};

class Fetch : public QObject {
    Q_OBJECT
  public:
    explicit Fetch(const QNetworkProxy& proxy, const FetchLimits& limits = {});
    ~Fetch() override;

    /// \param url  http, https, or without a scheme
    Fetched run(const QUrl& url);
    /// Ends run() at once, in whatever phase; called before it, run() asks nobody.
    void cancel();

  signals:
    /// \param total  announced length of the body
    void progressed(qint64 received, qint64 total);

  private:
    void wait(HttpGet& get, bool mayFallBack);
    void watch(HttpGet& get);

    QNetworkProxy m_proxy;
    FetchLimits m_limits;
    bool m_cancelled = false;
    QEventLoop* m_loop = nullptr;   ///< while an answer is awaited
    std::deque<qint64> m_lookBacks; ///< bytes received at the last looks, newest last
};

/// Fetches a file of the update server while the user sees how far it is, and may cancel it.
class Fetcher {
  public:
    virtual ~Fetcher() = default;
    virtual Fetched fetch(const QUrl& url, const QNetworkProxy& proxy) = 0;
};

} // namespace history
