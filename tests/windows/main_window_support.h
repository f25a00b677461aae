// The main window on a made-up workspace: settings in a map, commands that only note that they ran.
#pragma once

#include <map>
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
#include <QTest>
#include <QToolBar>

#include <gtest/gtest.h>

#include "mainwin/main_texts.h"
#include "mainwin/windows/form1.h"
#include "mainwin/windows/history_model.h"
#include "mainwin/windows/share_panel.h"
#include "support/controls.h"
#include "support/modal_script.h"
#include "toolkit/colours.h"
#include "toolkit/data_grid.h"
#include "toolkit/number_ball.h"

namespace main_window_tests {

using namespace Qt::StringLiterals;
using namespace test_support;
using mainwin::Form1;
using mainwin::Needs;
using mainwin::ProgramState;
using toolkit::NumberBall;

class MainWindow : public ::testing::Test {
  protected:
    workspace::Workspace workspace;
    history::History history;
    selection::Pad pad;
    std::map<QString, QString> stored; ///< "section/key"
    std::vector<QString> ran;          ///< commands, as "name" or "name(index)"
    std::unique_ptr<mainwin::MainContext> context;
    std::unique_ptr<Form1> form;

    void addDraw(const history::Draw& draw) {
        history.Lshm.push_back(draw);
        history.Lsnum = static_cast<int>(history.Lshm.size()) - 1;
    }

    /// \param allCommands  whether every command of the tree has a function, so that only the rules decide
    Form1& open(bool allCommands = true) {
        mainwin::UserSettings settings;
        settings.get = [this](const QString& section, const QString& key, const QString& fallback) {
            const auto found = stored.find(section + u'/' + key);
            return found == stored.end() ? fallback : found->second;
        };
        settings.set = [this](const QString& section, const QString& key, const QString& value) {
            stored[section + u'/' + key] = value;
        };
        form.reset();
        context.reset(new mainwin::MainContext{workspace, history, pad, settings, {}});
        if (allCommands) {
            for (const auto& row : mainwin::menuTable())
                record(row.name);
            for (const auto& table : {mainwin::toolbarTable(), mainwin::buttonTable()})
                for (const auto& row : table)
                    record(row.command);
        }
        form = std::make_unique<Form1>(*context);
        form->resize(1280, 770);
        form->show();
        return *form;
    }

    void record(const QString& name) {
        context->commands.on(
            name, [this, name](int index) { ran.push_back(index < 0 ? name : u"%1(%2)"_s.arg(name).arg(index)); });
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
