// frmWheelImport, 导入旋转矩阵: a user's own wheel, read from a text, proven, and accepted or not.
//
// The user says what the wheel is for (family, numbers, bankers, guarantee) and chooses a text; what the text shows
// by itself, the numbers in a row and the largest position, is put into the boxes. Every change of the boxes proves
// anew, behind a progress that can be given up. The window writes nothing: after it is accepted table() and rows()
// say what was proven. A text that is refused stays shown with the reason, and 导入 waits.
#pragma once

#include <functional>

#include <QDialog>

#include "selection/wheel_database.h"
#include "toolkit/colours.h"
#include "toolkit/window_place.h"

class QComboBox;
class QLabel;
class QPushButton;
class QSpinBox;

namespace toolkit {
class InkLabel;
class RowsGrid;
class RowsModel;
} // namespace toolkit

namespace mainwin {

class WheelImportWindow : public QDialog {
    Q_OBJECT
  public:
    /// Rows of a table that is there; nothing: there is none.
    using RowsThere = std::function<std::optional<std::int64_t>(const selection::WheelTable&)>;

    /// \param reds, bankers  on the pad: what the wheel is probably for
    WheelImportWindow(int reds, int bankers, RowsThere rowsThere, const toolkit::PlaceStore& places, QWidget* parent);

    /// What was proven. After acceptance only.
    const selection::WheelTable& table() const { return *m_table; }
    const std::vector<selection::PositionSet>& rows() const { return m_proof.rows; }

  private:
    void build();
    QWidget* buildPurpose();
    QWidget* buildText();
    QWidget* buildFoot();
    void chooseFile();
    /// Puts the family and the numbers that the text itself shows into the boxes.
    void guess();
    void showFamily();
    void showGuarantees();
    void prove();
    void showResult();
    void say(const QString& text, QColor toolkit::Colours::*ink);
    selection::WheelFamily family() const;

    RowsThere m_rowsThere;
    QComboBox* m_family;
    QSpinBox* m_reds;
    QSpinBox* m_bankers;
    QComboBox* m_guarantee;
    QLabel* m_file;
    toolkit::InkLabel* m_result;
    toolkit::InkLabel* m_there;
    toolkit::RowsModel* m_model;
    toolkit::RowsGrid* m_grid;
    QPushButton* m_again;
    QPushButton* m_ok;
    bool m_showing = false; ///< the boxes are being filled, and not by the user
    std::optional<std::string> m_text;
    std::optional<selection::WheelTable> m_table; ///< that the boxes name
    selection::WheelProof m_proof;
};

} // namespace mainwin
