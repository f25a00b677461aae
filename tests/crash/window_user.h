// A user at the windows of the program: random steps with real clicks and keys, each told before and after.
//
// Lines on the standard output, parts separated by tabs; KEY and VALUE are those of contents.h, a VALUE that ends in
// * stands for every text that begins so:
//   begin STEP KEY=VALUE…   the step starts; when it is done these values hold, until then the old ones or these
//   done                    all of the step is committed
//   is KEY=VALUE…           these values are in the files
//   maybe KEY=VALUE         this value is in memory and gets into the file soon
//   found KEY=VALUE…        the program has opened its files and shows these values
//   gone NAME               the user and all that belonged to him are deleted
//   failed WHAT             something went wrong by itself
// Order: construct, then step() for ever.
#pragma once

#include <filesystem>
#include <memory>
#include <random>

#include "crash/answers.h"
#include "crash/contents.h"
#include "mainwin/windows/program.h"
#include "workspace/windows/single_instance.h"

class QTableView;

namespace crash {

class WindowUser {
  public:
    WindowUser(std::filesystem::path home, std::filesystem::path texts, unsigned seed);
    ~WindowUser();

    /// One step in the window that stands, the first or the main one.
    void step();

  private:
    using Draws = std::vector<history::Draw>;

    // window_user.cpp: the program and its users
    void startProgram();
    void closeProgram();
    void createUser();
    void deleteUser();
    void enter();
    void renameUser();
    void pickUser(int place);
    void tellOpened();
    QString freshName();
    void finishUsers(const std::string& expected);

    // window_history.cpp: draws
    void typeDraw();
    void deleteLast();
    void correctNumber();
    void clearHistory();
    void readWhole();
    void readAppended();
    void readText(const QString& entry, const Draws& lines);
    void changeHistory(const char* step, const Draws& expected, std::int64_t blueOmissions, auto act);
    history::Draw randomDraw(std::int32_t issue);
    Draws draws() const;
    void keys(const QString& text);

    // window_filter.cpp: bets and settings
    void pressBalls();
    void filterBets();
    void readBets();
    /// Opens a window that fills a table, works in it and closes it.
    void fillAndFilter(const QString& entry, const ToldTable& table, std::int64_t bets);
    void pressInFilterWindow(QWidget& window);
    void pressParameter(QWidget& window);
    void toggleRow(QWidget& window);
    void addToTemplate(QWidget& window);
    void tellTable();
    void waitUntilStored();
    void changeRule();
    void chooseStability();
    void askPrintRow();

    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_random); }
    bool oneOf(int times) { return below(times) == 0; }
    QString user() const { return m_program->workspace.Username; }
    QWidget& form();

    struct Step {
        void (WindowUser::*act)();
        int weight;
    };
    static const Step kSteps[];

    std::filesystem::path m_home;
    std::filesystem::path m_texts;
    std::mt19937 m_random;
    Answers m_answers;
    std::unique_ptr<workspace::SingleInstance> m_instance;
    std::unique_ptr<mainwin::Program> m_program;
    bool m_entered = false;
    const ToldTable* m_shown = nullptr; ///< what the filter window works on
    std::int64_t m_blueOmissions = 0;   ///< rows of YlqsB
    int m_files = 0;
};

} // namespace crash
