#include "filter/windows/template_control.h"

#include <algorithm>

#include <QCursor>
#include <QMenu>

#include "filter/windows/setting_picker.h"
#include "filter/windows/template_page.h"
#include "toolkit/dialog_boxes.h"
#include "workspace/failure.h"

using namespace Qt::StringLiterals;

namespace filter {

namespace {

workspace::FilterFamily familyOf(const FilterMember& member) {
    return member.file == CombinationFile::SixReds ? workspace::FilterFamily::SixRed
                                                   : workspace::FilterFamily::SixAndBlue;
}

} // namespace

TemplateControl::TemplateControl(const FilterMember& member, sql::Database& database, FilterControls& controls,
                                 TemplatePage& page, const toolkit::PlaceStore& places, QWidget& window)
    : QObject(&window), m_member(member), m_controls(controls), m_page(page),
      m_template(database, familyOf(member), member.catalogue()), m_settings(database, familyOf(member)),
      m_places(places), m_window(window) {
    workspace::completeFilterTables(database, familyOf(member));
    connect(&page, &TemplatePage::stepBrowsed, this, &TemplateControl::browse);
    connect(&page, &TemplatePage::replayWanted, this, &TemplateControl::replay);
    connect(&page, &TemplatePage::deleteLastWanted, this, &TemplateControl::deleteLast);
    connect(&page, &TemplatePage::clearWanted, this, &TemplateControl::clear);
    connect(&page, &TemplatePage::saveWanted, this, &TemplateControl::saveSetting);
    connect(&page, &TemplatePage::callWanted, this, &TemplateControl::callSetting);
    showSteps();
}

void TemplateControl::showSteps() {
    std::vector<toolkit::LineList::Line> lines;
    for (const RecordedStep& step : m_template.steps()) {
        const StepLine line = lineOf(step, superFiltersOf(m_member));
        lines.push_back({line.control, line.asked});
    }
    m_page.show(lines);
}

void TemplateControl::openPopup(int Curcmd) {
    QMenu mnuAdm(u"添加模板(&D)"_s, &m_window);
    mnuAdm.setObjectName(u"mnuAdm"_s);
    QAction* mnuAdf = mnuAdm.addAction(u"添加到过滤模板(&A)"_s);
    mnuAdf->setObjectName(u"mnuAdf"_s);
    if (mnuAdm.exec(QCursor::pos()) == mnuAdf)
        m_template.append(Curcmd);
}

void TemplateControl::recordIntegrated() {
    openPopup(kIntegratedCode);
    m_template.writeIntegrated(m_controls.state());
    showSteps();
}

void TemplateControl::recordInvert(int code) {
    openPopup(code);
    showSteps();
}

void TemplateControl::recordAnswers(const SuperFilter& filter, const Step& answered) {
    openPopup(filter.code);
    m_template.writeAnswers(answered);
    showSteps();
}

void TemplateControl::replay() {
    for (const RecordedStep& step : m_template.steps()) {
        m_page.describe({});
        if (step.intCmdnb == kIntegratedCode) {
            WindowState state = m_controls.state();
            restore(step, m_member.catalogue(), state);
            m_controls.write(state);
        }
        if (!m_controls.runStep(stepOf(step, superFiltersOf(m_member))))
            break;
    }
}

void TemplateControl::browse(int Idx) {
    const std::optional<RecordedStep> step = m_template.at(Idx);
    if (!step)
        return;
    if (step->intCmdnb == kIntegratedCode) {
        WindowState state = m_controls.state();
        restore(*step, m_member.catalogue(), state);
        m_controls.write(state);
    }
    m_page.describe(filter::describe(*step, superFiltersOf(m_member)));
}

/// Steps that are recorded meanwhile stay behind those that come back.
void TemplateControl::tellGone(const std::vector<StoredStep>& gone, std::size_t place, const QString& told) {
    showSteps();
    m_controls.tellWithUndo(told, u"撤销"_s, [this, gone, place] {
        std::vector<StoredStep> all = m_template.stored();
        all.insert(all.begin() + static_cast<std::ptrdiff_t>(std::min(place, all.size())), gone.begin(), gone.end());
        m_template.replaceAll(all);
        showSteps();
    });
}

void TemplateControl::clear() {
    const std::vector<StoredStep> gone = m_template.stored();
    m_template.clear();
    tellGone(gone, 0, u"过滤模板已清空：%1 步"_s.arg(gone.size()));
}

void TemplateControl::deleteLast() {
    const std::vector<StoredStep> all = m_template.stored();
    if (all.empty())
        return;
    m_template.deleteLast();
    tellGone({all.back()}, all.size() - 1, u"已删除过滤模板的第 %1 步"_s.arg(all.size()));
}

void TemplateControl::saveSetting() {
    toolkit::DialogBoxes boxes(&m_window);
    const std::optional<QString> name = boxes.askText(u"请输入本次的过滤设置名字："_s, u"过滤设置保存"_s,
                                                      proposedSettingName(QDateTime::currentDateTime()));
    if (!name)
        return;
    try {
        m_settings.save(*name, settingOf(m_controls.state(), m_member.catalogue()));
    } catch (const sql::SqlError& failed) {
        boxes.warn(workspace::failureMessage(failed, u"过滤设置没有保存"_s, u"过滤设置保存"_s));
    }
}

void TemplateControl::callSetting() {
    const QString form = m_member.file == CombinationFile::SixReds ? u"frmFindR"_s : u"frmFind"_s;
    const std::optional<QString> name = pickSetting(m_settings, form, m_places, &m_window);
    if (!name)
        return;
    const auto tell = [this](const std::exception& failed, const QString& advice) {
        toolkit::DialogBoxes(&m_window).warn(
            workspace::failureMessage(failed, u"过滤设置没有调用"_s, u"调用过滤设置"_s, advice));
    };
    try {
        WindowState state = m_controls.state();
        if (const std::optional<SettingRow> row = m_settings.call(*name)) {
            restore(*row, m_member.catalogue(), state);
            m_controls.write(state);
        }
    } catch (const workspace::Failure& refused) {
        tell(refused, u"各框没有改变。带双引号的名字不能调用；请在窗口里重新设好，用没有双引号的名字保存。"_s);
    } catch (const sql::SqlError& failed) {
        tell(failed, u"各框没有改变，请排除原因后重试。"_s);
    }
}

} // namespace filter
