#include "toolkit/window_place.h"

#include <algorithm>
#include <utility>

#include <QEvent>
#include <QScreen>
#include <QSplitter>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

constexpr int kFrameWidth = 2;
constexpr int kTitleHeight = 32;

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

void placeOver(QWidget& window, QSize wanted) {
    // The frame of a window is not known before it is shown: the parent's is taken, else a usual one.
    const QWidget* parent = window.parentWidget() ? window.parentWidget()->window() : nullptr;
    QMargins frame(kFrameWidth, kTitleHeight, kFrameWidth, kFrameWidth);
    if (parent && parent->isVisible()) {
        const QRect inner = parent->geometry();
        const QRect outer = parent->frameGeometry();
        frame = {inner.left() - outer.left(), inner.top() - outer.top(), outer.right() - inner.right(),
                 outer.bottom() - inner.bottom()};
    }
    const QRect work = (parent ? parent->screen() : window.screen())->availableGeometry().marginsRemoved(frame);
    QRect place({}, wanted.boundedTo(work.size()));
    place.moveCenter(parent ? parent->geometry().center() : work.center());
    place.moveLeft(std::clamp(place.left(), work.left(), work.right() + 1 - place.width()));
    place.moveTop(std::clamp(place.top(), work.top(), work.bottom() + 1 - place.height()));
    window.setGeometry(place);
}

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
