#include "mainwin/windows/workspace_desk.h"

#include <algorithm>

#include "base/number_text.h"
#include "toolkit/dialog_boxes.h"
#include "workspace/setting_names.h"
#include "workspace/windows/rename_user.h"

using namespace Qt::StringLiterals;

namespace mainwin {

namespace {

const QString kLookSection = u"Option"_s;
const QString kLookKey = u"Look"_s;

} // namespace

toolkit::Scheme storedScheme(const workspace::Settings& settings) {
    const QString stored = settings.value(workspace::setting::kProgram, kLookSection, kLookKey);
    for (const toolkit::Scheme scheme : {toolkit::Scheme::Light, toolkit::Scheme::Dark})
        if (stored == QString::number(static_cast<int>(scheme)))
            return scheme;
    return toolkit::Scheme::System;
}

WorkspaceDesk::WorkspaceDesk(MainContext& context, const UserFiles& files, QWidget& window)
    : m_context(context), m_files(files), m_window(window) {
    Printrow = std::max(0, context.settings.number(u"setup"_s, u"dayin"_s, u"5"_s));
    Commands& commands = context.commands;
    workspace::Workspace& workspace = context.workspace;
    commands.on(u"mnuName"_s, [this](int) {
        const QString name =
            workspace::renameUser(&m_window, m_files.settings, m_files.users, m_files.engine, m_context.workspace);
        if (!name.isEmpty() && name != m_context.workspace.Username)
            emit renamed(name);
    });
    commands.on(u"meuS"_s, [this](int reds) { setRule(reds, m_context.workspace.BitnumB); });
    commands.on(u"mnuBlue"_s, [this](int blues) { setRule(m_context.workspace.Bitnum, blues); });
    commands.mark(u"meuS"_s, [&workspace](int reds) { return reds == workspace.Bitnum; });
    commands.mark(u"mnuBlue"_s, [&workspace](int blues) { return blues == workspace.BitnumB; });
    commands.on(u"mnuPtset"_s, [this](int) { askPrintRow(); });
    commands.on(u"mnuLook"_s, [this](int scheme) { chooseLook(scheme); });
    commands.mark(u"mnuLook"_s,
                  [this](int scheme) { return scheme == static_cast<int>(storedScheme(m_files.settings)); });
}

void WorkspaceDesk::chooseLook(int scheme) {
    m_files.settings.set(workspace::setting::kProgram, kLookSection, kLookKey, scheme);
    toolkit::setScheme(static_cast<toolkit::Scheme>(scheme));
}

void WorkspaceDesk::setRule(int reds, int blues) {
    workspace::Workspace& workspace = m_context.workspace;
    if (reds != workspace.Bitnum)
        m_context.settings.set(u"Initial"_s, u"Bitnum"_s, reds);
    if (blues != workspace.BitnumB)
        m_context.settings.set(u"Initial"_s, u"BitnumB"_s, blues);
    workspace.Bitnum = reds;
    workspace.BitnumB = blues;
    m_context.pad.setRule(reds, blues);
    emit ruleChanged();
}

void WorkspaceDesk::askPrintRow() {
    toolkit::DialogBoxes boxes(&m_window);
    const QString shown = m_context.settings.value(u"setup"_s, u"dayin"_s, u"5"_s);
    const auto isFit = [](double number) { return number >= 0 && number <= INT16_MAX; };
    std::optional<double> number;
    while (!number || !isFit(*number)) {
        const std::optional<QString> answer = boxes.askText(u"请输入打印的时候每一行的注数"_s, u"打印设置"_s, shown);
        number = answer ? base::leadingNumber(answer->toStdString()) : 0; // a cancelled prompt is a 0
        if (!number || !isFit(*number))
            boxes.tell(u"请输入数字"_s, u"输入错误"_s);
    }
    Printrow = base::wholeWithin(*number, 0, INT16_MAX);
    m_context.settings.set(u"setup"_s, u"dayin"_s, Printrow);
}

} // namespace mainwin
