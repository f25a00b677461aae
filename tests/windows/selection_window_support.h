// The main window with one user, and what the tests of 选号管理 do in it and in its picker.
#pragma once

#include <QContextMenuEvent>
#include <QMenu>

#include "windows/history_window_support.h"

namespace history_window_tests {

using toolkit::DataGrid;

/// Checks the question for a number and answers it.
inline ModalStep asksNumber(const QString& title, const QString& proposed, const QString& number) {
    return {u"InputBox"_s, [=](QWidget& box) {
                EXPECT_EQ(box.windowTitle(), title);
                EXPECT_EQ(box.findChild<QLineEdit*>()->text(), proposed);
                type(number)(box);
            }};
}
class SelectionWindows : public HistoryWindow {
  protected:
    void SetUp() override { enterAs(u"张三"_s); }

    sql::Database& numsave() { return *program->workspace.dbNumsave; }

    void pressNumbers(std::initializer_list<int> reds, std::initializer_list<int> blues) {
        for (const int red : reds)
            press(form(), u"Command1(%1)"_s.arg(red));
        for (const int blue : blues)
            press(form(), u"Command2(%1)"_s.arg(blue));
    }
    void makeBanker(int red) {
        program->pad.pointAtRed(red);
        program->pad.mnuDan();
    }
    void clear() {
        press(form(), u"Command45"_s);
        press(form(), u"Command145"_s);
    }
    std::string padText() {
        return (text(u"Label100"_s) + u" |"_s + text(u"Label8"_s) + u" |"_s + text(u"Label3"_s)).toStdString();
    }
    void save(const QString& name) {
        const ModalScript script({{u"InputBox"_s, type(name)}});
        trigger(form(), u"mnuSave"_s);
    }
    /// Names of the rows of a table, a comma behind each.
    std::string names(const char* table) {
        const sql::Rows rows = numsave().query("SELECT [Name] FROM [" + std::string(table) + "]");
        std::string all;
        for (std::int64_t row = 0; row < rows.count(); ++row)
            all += rows.textAt(row, 0) + ',';
        return all;
    }

    static DataGrid& gridOf(QWidget& dialog, const QString& name) { return *controlAs<DataGrid>(dialog, name); }
    static QPoint middle(const DataGrid& grid, int row) {
        return grid.visualRect(grid.model()->index(row, 0)).center();
    }
    /// A double click on a row, as a user makes it.
    static ModalAction pickRow(const QString& grid, int row) {
        return [=](QWidget& dialog) {
            DataGrid& rows = gridOf(dialog, grid);
            ASSERT_LT(row, rows.model()->rowCount());
            QTest::mouseClick(rows.viewport(), Qt::LeftButton, {}, middle(rows, row));
            QTest::mouseDClick(rows.viewport(), Qt::LeftButton, {}, middle(rows, row));
        };
    }
    /// Right press on a row, then an entry of what opens.
    static void chooseEntry(QWidget& dialog, const QString& grid, int row, const QString& entry) {
        DataGrid& rows = gridOf(dialog, grid);
        const QPoint place = middle(rows, row);
        QTest::mouseClick(rows.viewport(), Qt::RightButton, {}, place);
        QContextMenuEvent asked(QContextMenuEvent::Mouse, place, rows.viewport()->mapToGlobal(place));
        QApplication::sendEvent(rows.viewport(), &asked);
        auto* menu = rows.findChild<QMenu*>(u"GridMenu"_s);
        ASSERT_NE(menu, nullptr);
        QAction* chosen = nullptr;
        for (QAction* action : menu->actions())
            if (action->objectName() == entry)
                chosen = action;
        ASSERT_NE(chosen, nullptr) << entry.toStdString();
        ASSERT_TRUE(chosen->isEnabled());
        menu->close();
        chosen->trigger();
    }
    /// The picker, a right press in it and its entry; then the picker is closed without a pick.
    void inPicker(const QString& grid, int row, const QString& entry, std::vector<ModalStep> steps) {
        steps.insert(steps.begin(), {u"frmnmFind"_s, [=](QWidget& dialog) {
                                         chooseEntry(dialog, grid, row, entry);
                                         QTest::keyClick(&dialog, Qt::Key_Escape);
                                     }});
        const ModalScript script(std::move(steps));
        trigger(form(), u"mnuCall"_s);
    }
};

} // namespace history_window_tests
