#include "toolkit/window_place.h"

#include <utility>

#include <QEvent>
#include <QSplitter>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

QString encoded(const QByteArray& state) {
    return QString::fromLatin1(state.toBase64());
}
QByteArray decoded(const QString& text) {
    return QByteArray::fromBase64(text.toLatin1());
}

QString splitterKey(const QWidget& window, const QSplitter& splitter) {
    return window.objectName() + u'/' + splitter.objectName();
}

class PlaceKeeper : public QObject {
  public:
    PlaceKeeper(QWidget& window, PlaceStore store) : QObject(&window), m_window(window), m_store(std::move(store)) {
        window.installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Close)
            rememberPlace(m_window, m_store);
        return false;
    }

  private:
    QWidget& m_window;
    PlaceStore m_store;
};

} // namespace

bool restorePlace(QWidget& window, const PlaceStore& store) {
    if (!store.get)
        return false;
    const auto splitters = window.findChildren<QSplitter*>();
    for (QSplitter* splitter : splitters)
        splitter->restoreState(decoded(store.get(splitterKey(window, *splitter))));
    return window.restoreGeometry(decoded(store.get(window.objectName())));
}

void rememberPlace(const QWidget& window, const PlaceStore& store) {
    if (!store.set)
        return;
    store.set(window.objectName(), encoded(window.saveGeometry()));
    const auto splitters = window.findChildren<QSplitter*>();
    for (const QSplitter* splitter : splitters)
        store.set(splitterKey(window, *splitter), encoded(splitter->saveState()));
}

void keepPlace(QWidget& window, PlaceStore store) {
    restorePlace(window, store);
    new PlaceKeeper(window, std::move(store));
}

} // namespace toolkit
