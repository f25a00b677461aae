// The trace of a ranking: a line for each ranked number, in a logical scale 5000 ticks wide and as high as the
// highest red, whatever its size in pixels.
//
// It is a picture that grows: a tick paints its own short lines into an image. The ticks are kept too, so that a
// trace of another size is painted anew. A run of a hundred ticks is a few pixels wide: Ctrl and the wheel show fewer
// ticks across, and the tool tip says the ranking under the mouse.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include <QColor>
#include <QPixmap>
#include <QWidget>

namespace mainwin {

class TracePicture : public QWidget {
    Q_OBJECT
  public:
    static constexpr int kLogicalWidth = 5000;

    explicit TracePicture(QWidget* parent = nullptr);
    void setLogicalHeight(int height);
    /// The lines of one tick: for each place from what stood there to what stands there now. Every 5000 ticks the
    /// picture begins again.
    void add(int tick, std::span<const std::int16_t> before, std::span<const std::int16_t> now);
    void clear();
    QSize sizeHint() const override;
    /// The tick, modulo 5000, that stands at a pixel from the left.
    int tickAt(int pixel) const;
    QString describe(int pixel) const;

    /// The colour of the k-th line: seven in turn.
    static QColor lineColour(std::size_t place);

  protected:
    bool event(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    struct Tick {
        int x;
        std::vector<std::int16_t> before;
        std::vector<std::int16_t> now;
    };
    void begin();
    QRectF paintTick(QPainter& painter, const Tick& tick) const;

    int m_logicalHeight = 33;
    int m_magnified = 1;         ///< a power of 2
    int m_shown = kLogicalWidth; ///< ticks across
    int m_first = 0;             ///< tick at the left end
    std::vector<Tick> m_ticks;
    QPixmap m_picture; ///< null: to be painted anew
};

} // namespace mainwin
