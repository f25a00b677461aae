// One file from an HTTP server, whole or not at all.
//
// run() returns when the fetch is over; meanwhile events are handled, so that windows paint and a button can call
// cancel(). Redirects are followed within http and https, never from https to http. A wrong certificate, any status
// but 200, an empty body, a body whose length is not announced, that ends before it or is longer than the limit, and
// a server that falls silent: each is a failure. One object fetches one file.
#pragma once

#include <chrono>

#include <QByteArray>
#include <QNetworkProxy>
#include <QObject>
#include <QUrl>

class QNetworkAccessManager;
class QNetworkReply;
class QTimer;

namespace history {

struct FetchLimits {
    std::chrono::milliseconds silence = std::chrono::seconds(30); ///< the longest time without a byte
    qint64 bytes = 64LL * 1024 * 1024;                            ///< the longest body
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

    Fetched run(const QUrl& url);
    /// Ends run(); called before it, run() returns at once.
    void cancel();

  signals:
    /// \param total  announced length of the body, -1 when it is not known
    void progressed(qint64 received, qint64 total);

  private:
    void start(const QUrl& url, QNetworkAccessManager& manager);
    void takeBytes();
    void checkLength();
    void stop(FetchEnd end);
    bool isWhole() const;

    QNetworkProxy m_proxy;
    FetchLimits m_limits;
    QNetworkReply* m_reply = nullptr;
    QTimer* m_silence = nullptr;
    FetchEnd m_end = FetchEnd::Whole;
    QByteArray m_bytes;
};

} // namespace history
