// frmSltnum: the steps of the selection template. At the left the kinds of steps to add, at the right the template's
// own steps; 使用模板选号 replays them on the pad, which stands behind the window and shows it at once.
#pragma once

#include <vector>

#include <QDialog>

#include "selection/selection_template.h"
#include "toolkit/window_place.h"

class QListWidget;
class QPushButton;

namespace toolkit {
class DataGrid;
class NoticeBar;
} // namespace toolkit

namespace selection {

class CellTable;

class TemplateWindow : public QDialog {
    Q_OBJECT
  public:
    /// Everything outlives the window; Xhmb is there (openTemplate).
    struct Context {
        workspace::Workspace& workspace;
        const history::History& history;
        Pad& pad;
        toolkit::PlaceStore places;
    };
    /// \throws sql::SqlError when the steps cannot be read
    explicit TemplateWindow(const Context& context, QWidget* parent = nullptr);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QPushButton* makeButton(QPushButton* button, const QString& name, void (TemplateWindow::*act)());
    QWidget* buildKinds();
    QWidget* buildSteps();
    void addSteps();
    void deleteStep();
    void replay();
    void reload();
    void showState();
    /// What a step that brings a saved selection would press; nothing for the other kinds.
    QString savedText(const TemplateStep& step) const;
    /// The number of a new step: typed, or a saved selection that was picked. \return nothing when given up
    std::optional<int> askNumber(const StepKind& kind);
    /// Runs a change of the template. \param happened  what a failure says
    template <class Change> bool attempt(const QString& happened, Change run);

    Context m_context;
    std::vector<TemplateStep> m_steps;
    toolkit::NoticeBar* m_notice;
    QListWidget* m_kinds;
    toolkit::DataGrid* m_grid;
    CellTable* m_cells;
    QPushButton* m_add;
    QPushButton* m_delete;
    QPushButton* m_use;
};

} // namespace selection
