// The reports of profit and loss (frmYk): a list to tick, the text of one, steps, and two deletions that ask first.
#pragma once

#include <functional>

#include <QDialog>

#include "prize/report_list.h"
#include "toolkit/window_place.h"

class QHBoxLayout;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

namespace toolkit {
class InkLabel;
}

namespace prize {

/// What a reports window works on; the settings outlive it.
struct ReportsContext {
    std::filesystem::path userFolder;
    workspace::Settings& settings;
    QString user;
    /// Prints a text, asking above the window; empty: there is no printing.
    std::function<void(QWidget& window, const QString& text)> print{};
};

class ReportsWindow : public QDialog {
    Q_OBJECT
  public:
    ReportsWindow(ReportsContext context, const toolkit::PlaceStore& places, QWidget* parent = nullptr);

  private:
    void layOut();
    QPushButton* makeButton(const QString& name, const QString& caption, const QString& hint,
                            void (ReportsWindow::*press)());
    void fillList();
    void readReports();
    void showLast();
    void mark(int entry);
    void show(const std::optional<QString>& text);
    using QWidget::show;
    void showStep(const std::optional<QString>& text);
    void previous() { showStep(m_reports.previous()); }
    void next() { showStep(m_reports.next()); }
    void print();
    void deleteAll();
    void deleteTicked();
    void tellLeft(const std::vector<std::filesystem::path>& files);

    ReportsContext m_context;
    ReportList m_reports;
    QListWidget* m_list;
    QPlainTextEdit* m_text;
    toolkit::InkLabel* m_unlisted;
};

} // namespace prize
