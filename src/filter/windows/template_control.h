// The filter template and the saved settings of a window: records what is pressed with the right button, replays,
// browses, saves and calls back.
//
// It reads and writes the window's controls through FilterControls and shows the template on its page. Recording
// keeps its order: the popup, then the second act on the last row, chosen or not (step_template.h).
#pragma once

#include <functional>
#include <optional>

#include <QObject>

#include "filter/member.h"
#include "filter/saved_settings.h"
#include "filter/step_template.h"
#include "toolkit/window_place.h"

namespace filter {

class TemplatePage;

/// What the template needs of its window.
class FilterControls {
  public:
    virtual ~FilterControls() = default;
    virtual WindowState state() const = 0;
    virtual void write(const WindowState& state) = 0;
    /// \return false when the user gave the step up
    virtual bool runStep(const Step& step) = 0;
    /// Tells at the top of the window; `undo` is done when its button is pressed.
    virtual void tellWithUndo(const QString& text, const QString& action, std::function<void()> undo) = 0;
};

class TemplateControl : public QObject {
    Q_OBJECT
  public:
    /// \param member  one whose window has templates  \param controls, page  outlive it
    TemplateControl(const FilterMember& member, sql::Database& database, FilterControls& controls, TemplatePage& page,
                    const toolkit::PlaceStore& places, QWidget& window);

    /// A right press on the integrated filter.
    void recordIntegrated();
    /// A right press on one of the two inverts.
    void recordInvert(int code);
    /// A right press on a super filter whose questions have been answered.
    void recordAnswers(const SuperFilter& filter, const Step& answered);

  private:
    /// Opens the popup; a choice adds a row.
    void openPopup(int Curcmd);
    void replay();
    void browse(int Idx);
    void clear();
    void deleteLast();
    /// \param place  of the first of them among all steps, from 0
    void tellGone(const std::vector<StoredStep>& gone, std::size_t place, const QString& told);
    void saveSetting();
    void callSetting();
    void showSteps();

    const FilterMember& m_member;
    FilterControls& m_controls;
    TemplatePage& m_page;
    StepTemplate m_template;
    SavedSettings m_settings;
    toolkit::PlaceStore m_places;
    QWidget& m_window;
};

} // namespace filter
