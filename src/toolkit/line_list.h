// A list of short lines, each a text at the left and a quiet one at the right that gives way first.
//
// For what a window keeps in view beside its controls: ticked parameters, recorded steps. It scrolls when there are
// more lines than room; numbered, it shows 1, 2, … in front.
#pragma once

#include <QListView>

class QStandardItemModel;

namespace toolkit {

class LineList : public QListView {
    Q_OBJECT
  public:
    struct Line {
        QString text;
        QString aside{};
        bool operator==(const Line&) const = default;
    };

    /// \param name  its objectName  \param empty  what stands there while there is no line
    LineList(const QString& name, const QString& empty, QWidget* parent = nullptr);

    /// Lines get numbers in front.
    void setNumbered();
    void show(const std::vector<Line>& lines);
    using QWidget::show;
    int count() const;
    /// The mark, from 0; -1 for none.
    void mark(int line);

    QSize sizeHint() const override { return minimumSizeHint(); }
    QSize minimumSizeHint() const override;

  signals:
    /// The user marked a line, from 0.
    void lineChosen(int line);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString m_empty;
    QStandardItemModel* m_lines;
    bool m_telling = true;
};

} // namespace toolkit
