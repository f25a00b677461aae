// How the cells of a grid look: what a model tells through its roles, and the delegate that paints it.
//
// Numbers stand with their last digits under each other, in the middle of the column, in digits of equal width; reds
// red, blues blue. A row that is out has its numbers struck through and dimmed, so that the mark never rests on
// colour alone; a row that is in play can carry a tick before its first cell, one that hits is bold. A double click
// or a selection changes none of that.
#pragma once

#include <QStyledItemDelegate>

namespace toolkit {

enum class CellStyle { Plain, Red, Blue, Number, Text };
enum class RowState { Plain, InPlay, Out, Hit };

/// Roles that GridDelegate asks a model for.
inline constexpr int kCellStyleRole = Qt::UserRole + 100; ///< int of CellStyle
inline constexpr int kRowStateRole = Qt::UserRole + 101;  ///< int of RowState
inline constexpr int kDigitsRole = Qt::UserRole + 102;    ///< digits of a whole number at least, with zeros before it

class GridDelegate : public QStyledItemDelegate {
    Q_OBJECT
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace toolkit
