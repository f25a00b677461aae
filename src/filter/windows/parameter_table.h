// The dense table of a filter window: one row a parameter with its tick, option button, range, parity or interval,
// count, list and period, in aligned columns.
//
// It is built from the catalogue. The count boxes stand in Frame11 and the lists in Frame13, two columns that show
// only in list mode; they keep the row heights of the table, so that their boxes stay in line. A press on a parameter
// comes out as a signal; the boxes are read when a run asks for them.
#pragma once

#include <vector>

#include <QComboBox>
#include <QGridLayout>
#include <QWidget>

#include "filter/catalogue.h"
#include "filter/windows/row_controls.h"

namespace filter {

class ParameterTable : public QWidget {
    Q_OBJECT

  public:
    ParameterTable(std::span<const Parameter> catalogue, QWidget* parent);

    /// What the boxes of a row hold now.
    RowInput input(const Parameter& parameter) const;
    /// Puts the interval's ends and the picked numbers into `settings`.
    void readInterval(RunSettings& settings) const;
    /// Shows or hides counts, lists and picked numbers, and titles the interval parameter.
    void showLists(bool shown);
    void markUsed(const Parameter& parameter);

  signals:
    void parameterPressed(const filter::Parameter& parameter);

  private:
    struct Row {
        const Parameter* parameter = nullptr;
        TickBox* tick = nullptr;
        PressButton* option = nullptr;
        QLineEdit* low = nullptr;
        QLineEdit* high = nullptr;
        QLineEdit* count = nullptr;
        QLineEdit* list = nullptr;
        QCheckBox* odd = nullptr;
        QCheckBox* even = nullptr;
        QComboBox* period = nullptr;
    };

    void buildHeads();
    void buildRow(const Parameter& parameter, int line);
    void buildRange(Row& row, int line);
    void buildParity(Row& row, int line);
    void buildInterval(const Row& row, int line);
    void buildLists(Row& row, int line);
    void buildPeriod(Row& row, int line);
    void orderTabs();
    QLineEdit* makeBox(const QString& name, const QString& text, const QString& accessible, int width,
                       QWidget* parent);
    QFrame* makeFrame(const QString& name, int column, int lines, QGridLayout** layout);
    const Row* rowOf(const Parameter& parameter) const;

    QGridLayout* m_grid;
    QFrame* m_counts = nullptr; ///< Frame11
    QFrame* m_lists = nullptr;  ///< Frame13
    QGridLayout* m_countGrid = nullptr;
    QGridLayout* m_listGrid = nullptr;
    QLineEdit* m_intervalAbove = nullptr;
    QLineEdit* m_intervalTo = nullptr;
    QLineEdit* m_pickedNumbers = nullptr;
    std::vector<Row> m_rows;
};

} // namespace filter
