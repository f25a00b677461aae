// The main window on a made-up workspace, with the desks that need no database; commands of the others only note that
// they ran.
#pragma once

#include <memory>
#include <set>

#include <QAbstractItemModelTester>
#include <QAction>
#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>

#include <gtest/gtest.h>

#include "mainwin/main_texts.h"
#include "mainwin/windows/draw_desk.h"
#include "mainwin/windows/form1.h"
#include "mainwin/windows/history_model.h"
#include "mainwin/windows/share_panel.h"
#include "mainwin/windows/workspace_desk.h"
#include "sql/database.h"
#include "support/controls.h"
#include "support/modal_script.h"
#include "toolkit/colours.h"
#include "toolkit/data_grid.h"
#include "toolkit/number_ball.h"
#include "workspace/setting_names.h"

namespace main_window_tests {

using namespace Qt::StringLiterals;
using namespace test_support;
using mainwin::Form1;
using mainwin::Needs;
using mainwin::ProgramState;
using toolkit::NumberBall;

class MainWindow : public ::testing::Test {
  protected:
    QTemporaryDir configuration;
    workspace::Settings settings{configuration.path().toStdString()};
    workspace::UserList users{settings};
    sql::Engine engine;
    workspace::Workspace workspace;
    history::History history; ///< what the book holds next
    history::Book book;
    selection::Pad pad;
    selection::ClockNumbers random;
    std::unique_ptr<selection::Simulator> simulator;
    selection::GenerationInput generation;
    std::vector<QString> ran; ///< commands, as "name" or "name(index)"
    std::unique_ptr<mainwin::MainContext> context;
    std::unique_ptr<Form1> form;
    std::unique_ptr<mainwin::DrawDesk> drawDesk;
    std::unique_ptr<mainwin::WorkspaceDesk> workspaceDesk;

    /// Held at once by a window that is open.
    void addDraw(const history::Draw& draw) {
        history.Lshm.push_back(draw);
        history.Lsnum = static_cast<int>(history.Lshm.size()) - 1;
        history.derived.resize(history.Lshm.size());
        if (form)
            book.replace(history);
    }

    QString application() const { return workspace::setting::ofUser(workspace.Username); }
    /// \param path  "section/key" of the user's settings
    QString stored(const QString& path) {
        return settings.value(application(), path.section(u'/', 0, 0), path.section(u'/', 1));
    }
    void store(const QString& path, const QString& value) {
        settings.set(application(), path.section(u'/', 0, 0), path.section(u'/', 1), value);
    }

    /// \param allCommands  whether every command of the tree has a function, so that only the rules decide
    Form1& open(bool allCommands = true) {
        closeForm();
        book.replace(history);
        simulator = std::make_unique<selection::Simulator>(pad, random);
        context.reset(new mainwin::MainContext{workspace, book, pad, *simulator,
                                               workspace::UserSettings(settings, workspace.Username)});
        form = std::make_unique<Form1>(*context);
        drawDesk = std::make_unique<mainwin::DrawDesk>(*context, generation, *form);
        workspaceDesk =
            std::make_unique<mainwin::WorkspaceDesk>(*context, mainwin::UserFiles{settings, users, engine}, *form);
        QObject::connect(workspaceDesk.get(), &mainwin::WorkspaceDesk::ruleChanged, form.get(), &Form1::showRule);
        if (allCommands)
            recordTheRest();
        form->refreshCommands();
        form->resize(1280, 770);
        form->show();
        return *form;
    }

    ~MainWindow() override { closeForm(); }

    void closeForm() {
        workspaceDesk.reset();
        drawDesk.reset();
        form.reset();
    }

    void recordTheRest() {
        for (const auto& row : mainwin::menuTable())
            if (row.kind == mainwin::RowKind::Entry || row.kind == mainwin::RowKind::Choice)
                record(row.name);
        for (const auto& table : {mainwin::toolbarTable(), mainwin::buttonTable()})
            for (const auto& row : table)
                if (!row.command.isEmpty())
                    record(row.command);
    }

    void record(const QString& name) {
        if (!context->commands.isRegistered(name))
            context->commands.on(name, [this, name](int index) {
                ran.push_back(index < 0 ? name : u"%1(%2)"_s.arg(name).arg(index));
            });
    }

    QString text(const QString& label) { return controlAs<QLabel>(*form, label)->text(); }
    NumberBall& ball(const QString& name) { return *controlAs<NumberBall>(*form, name); }
    bool entryEnabled(const QString& name) {
        if (auto* menu = form->findChild<QMenu*>(name)) {
            EXPECT_EQ(menu->menuAction()->isEnabled(), menu->isEnabled());
            return menu->isEnabled();
        }
        return action(*form, name)->isEnabled();
    }
    QString caption(const QString& name) {
        if (auto* menu = form->findChild<QMenu*>(name))
            return menu->title();
        return action(*form, name)->text();
    }
    void openMenu(const QString& name) { emit form->findChild<QMenu*>(name)->aboutToShow(); }
    void pressNumbers(const QString& pattern, std::initializer_list<int> numbers) {
        for (const int number : numbers)
            press(*form, pattern.arg(number));
    }
    void makeBanker(int number) {
        rightPress(*form, u"Command1(%1)"_s.arg(number));
        auto* menu = form->findChild<QMenu*>(u"mnuDt"_s);
        EXPECT_TRUE(menu->isVisible());
        action(*form, u"mnuDan"_s)->trigger();
        menu->close();
    }
};

inline const history::Draw kFirstDraw{2003001, 10, 11, 12, 13, 26, 28, 11};
inline const history::Draw kSecondDraw{2003002, 4, 9, 19, 20, 21, 26, 12};

} // namespace main_window_tests
