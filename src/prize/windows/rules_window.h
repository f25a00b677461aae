// The prize rules (frmPrize): a page a rule, what it matches, its label and its amount.
//
// Every click is stored at once; amounts are stored by 确定, which stays open on the page whose amount is not whole.
#pragma once

#include <QDialog>

#include "prize/rules.h"
#include "toolkit/window_place.h"

class QComboBox;

namespace toolkit {
class MaskEdit;
class PageTabs;
} // namespace toolkit

namespace prize {

class RulesWindow : public QDialog {
    Q_OBJECT
  public:
    /// \param settings  of the user; it outlives the window
    RulesWindow(workspace::UserSettings& settings, const toolkit::PlaceStore& places, QWidget* parent = nullptr);

  protected:
    /// Any key that goes down while Ctrl is held turns to the next page, wherever the keyboard is.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void layOut();
    QWidget* makePage(int page);
    QWidget* makeReds(int page);
    QWidget* makeBlue(int page);
    QWidget* makeLabel(int page);
    QWidget* makeAmount(int page);
    void nextPage();
    void store();

    workspace::UserSettings& m_settings;
    Rules m_rules;
    AmountTexts m_amounts; ///< `first` is what the boxes showed
    std::array<toolkit::MaskEdit*, kRules> m_boxes{};
    toolkit::PageTabs* m_pages;
};

} // namespace prize
