// The page of super filters: one thing to press each, kind after kind, with a line that says what a kind does.
#pragma once

#include <QWidget>

#include "filter/member.h"

class QGridLayout;

namespace filter {

class PressButton;

class SuperPage : public QWidget {
    Q_OBJECT

  public:
    SuperPage(const FilterMember& member, QWidget* parent);

    /// Blue from now on.
    void markUsed(const SuperFilter& filter);

  signals:
    /// \param button  right: a step of a filter template is wanted
    void filterPressed(const filter::SuperFilter& filter, Qt::MouseButton button);

  private:
    PressButton* makeButton(const SuperFilter& filter);
};

} // namespace filter
