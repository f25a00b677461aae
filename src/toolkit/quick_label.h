// A label on a card whose text changes many times a second. Its size is fixed, so that no change lays out the window;
// its characters are laid out once and kept; it paints its own ground, so that nothing behind it is painted.
//
// For numbers and the like: characters stand side by side, without kerning. bench/draw_bench shows what it saves.
#pragma once

#include <map>

#include <QFont>
#include <QLabel>
#include <QStaticText>

namespace toolkit {

/// Characters that are laid out already, in the font that was asked for last; one store for many labels.
class LaidOutCharacters {
  public:
    const QStaticText& of(QChar character, const QFont& font);

  private:
    QFont m_font;
    std::map<QChar, QStaticText> m_stored;
};

class QuickLabel : public QLabel {
    Q_OBJECT
  public:
    /// \param characters  outlives the label
    /// \param widest  the widest text that it will show
    QuickLabel(LaidOutCharacters& characters, const QString& widest);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    LaidOutCharacters& m_characters;
};

/// Fixes the size of a label to that of the widest text it will show, in the font that it has now.
void fixSize(QLabel& label, const QString& widest);

} // namespace toolkit
