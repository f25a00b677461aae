#include "crash/window_user.h"

#include <QListWidget>
#include <QTest>

#include "crash/say.h"
#include "support/controls.h"
#include "workspace/setting_names.h"

using namespace Qt::StringLiterals;
using test_support::controlAs;
using test_support::press;
using test_support::window;

namespace crash {

namespace {

constexpr int kMostUsersHere = 4; // so that each is entered often enough

std::string withTexts(std::string line, const Texts& texts) {
    for (const auto& [key, value] : texts)
        line += '\t' + key + '=' + value;
    return line;
}

} // namespace

// add a step here: what the user does in the main window, and how often
const WindowUser::Step WindowUser::kSteps[] = {
    {&WindowUser::typeDraw, 6},     {&WindowUser::deleteLast, 4},   {&WindowUser::correctNumber, 5},
    {&WindowUser::clearHistory, 1}, {&WindowUser::readWhole, 3},    {&WindowUser::readAppended, 3},
    {&WindowUser::pressBalls, 2},   {&WindowUser::filterBets, 6},   {&WindowUser::changeRule, 2},
    {&WindowUser::readBets, 4},     {&WindowUser::askPrintRow, 1},  {&WindowUser::chooseStability, 1},
    {&WindowUser::renameUser, 2},   {&WindowUser::closeProgram, 2},
};

WindowUser::WindowUser(std::filesystem::path home, std::filesystem::path texts, unsigned seed)
    : m_home(std::move(home)), m_texts(std::move(texts)), m_random(seed) {
    startProgram();
}

WindowUser::~WindowUser() = default;

void WindowUser::step() {
    m_answers.reset();
    QTest::qWait(below(20));
    if (m_entered) {
        std::vector<int> weights;
        for (const Step& step : kSteps)
            weights.push_back(step.weight);
        std::discrete_distribution<std::size_t> any(weights.begin(), weights.end());
        return (this->*kSteps[any(m_random)].act)();
    }
    const int count = m_program->users.count();
    if (count == 0 || (count < kMostUsersHere && oneOf(3)))
        createUser();
    else if (count > 1 && oneOf(4))
        deleteUser();
    else if (oneOf(10))
        closeProgram();
    else
        enter();
}

/// As main() starts it.
void WindowUser::startProgram() {
    m_entered = false;
    m_program.reset();
    m_instance.reset();
    m_instance = std::make_unique<workspace::SingleInstance>(m_home);
    if (!m_instance->isFirst())
        giveUp("what was killed stands in the way of the next start");
    m_program = std::make_unique<mainwin::Program>(m_home);
    m_program->start();
    say("found\tusers=" + usersText(m_program->users.users()));
}

void WindowUser::closeProgram() {
    window(m_entered ? u"Form1"_s : u"Frmpre"_s)->close();
    startProgram();
}

QString WindowUser::freshName() {
    const QStringList forms{u"用户%1"_s, u"张先生[北京36选7]%1"_s, u"a/b\\%1"_s, u"Li %1"_s};
    return forms[below(static_cast<int>(forms.size()))].arg(m_random());
}

void WindowUser::finishUsers(const std::string& expected) {
    if (usersText(m_program->users.users()) != expected)
        giveUp("the list of users is another one than was asked for");
    say("done");
}

void WindowUser::createUser() {
    auto expected = m_program->users.users();
    const QString name = freshName();
    const QString password = oneOf(3) ? u"key%1"_s.arg(below(100)) : QString();
    if (!expected.empty() && oneOf(5))
        m_answers.texts = {expected.front().name}; // refused, and asked again
    for (const QString& text : {name, password, password})
        m_answers.texts.push_back(text);
    expected.push_back({name, password});
    say(withTexts("begin\tnew user",
                  {{"users", usersText(expected)}, {keyOf("draws", name), "*"}, {keyOf("table", name), "*"}}));
    press(u"Frmpre"_s, u"Label2"_s);
    finishUsers(usersText(expected));
    say(withTexts("is", {{keyOf("draws", name), drawsText({}, 0)}}));
}

void WindowUser::pickUser(int place) {
    auto* list = controlAs<QListWidget>(*window(u"Frmpre"_s), u"LstName"_s);
    list->scrollToItem(list->item(place));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(place)).center());
    m_answers.password = m_program->users.users()[static_cast<std::size_t>(place)].password;
}

void WindowUser::deleteUser() {
    const int place = below(m_program->users.count());
    pickUser(place);
    auto expected = m_program->users.users();
    const QString name = expected[static_cast<std::size_t>(place)].name;
    m_answers.agree = !oneOf(3);
    if (m_answers.agree)
        expected.erase(expected.begin() + place);
    Texts then{{"users", usersText(expected)}, {"entered", "*"}};
    if (m_answers.agree)
        for (const char* what : {"draws", "table", "read", "template", "text"})
            then[keyOf(what, name)] = "*"; // his files go one after the other
    say(withTexts("begin\tdelete user", then));
    press(u"Frmpre"_s, u"Label4"_s);
    finishUsers(usersText(expected));
    if (m_answers.agree)
        say("gone\t" + name.toStdString());
}

void WindowUser::enter() {
    const int place = below(m_program->users.count());
    pickUser(place);
    const QString name = m_program->users.users()[static_cast<std::size_t>(place)].name;
    say(withTexts("begin\tenter", {{"entered", name.toStdString()}}));
    press(u"Frmpre"_s, u"Label3"_s);
    m_entered = true;
    form(); // it stands
    say("done");
    tellOpened();
}

void WindowUser::tellOpened() {
    m_blueOmissions = m_program->workspace.dbUser->rowCount("YlqsB");
    Texts texts = settingsOf(m_program->settings, user());
    texts[keyOf("draws", user())] = drawsText(draws(), m_blueOmissions);
    texts.merge(tablesOf(*m_program->workspace.dbFilnum, user()));
    say(withTexts("found", texts));
}

/// The new name is a new workspace, from the next start on.
void WindowUser::renameUser() {
    auto expected = m_program->users.users();
    const QString name = freshName();
    m_answers.texts = {name, {}, {}};
    expected[static_cast<std::size_t>(m_program->users.lastEntered())] = {name, {}};
    say(withTexts("begin\trename", {{"users", usersText(expected)},
                                    {"entered", "*"},
                                    {keyOf("draws", name), "*"},
                                    {keyOf("table", name), "*"}}));
    test_support::trigger(u"Form1"_s, u"mnuName"_s);
    finishUsers(usersText(expected));
    say(withTexts("is", {{"entered", name.toStdString()}, {keyOf("draws", name), drawsText({}, 0)}}));
    closeProgram();
}

QWidget& WindowUser::form() {
    QWidget* found = window(u"Form1"_s);
    if (!found)
        giveUp("the main window is not there");
    found->activateWindow();
    if (!QTest::qWaitForWindowActive(found))
        giveUp("the main window does not get active");
    return *found;
}

} // namespace crash
