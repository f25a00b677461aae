#include "workspace/windows/start_window.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include "toolkit/card.h"
#include "toolkit/colours.h"
#include "toolkit/dialog_boxes.h"
#include "toolkit/messages.h"
#include "toolkit/notice_bar.h"
#include "workspace/user_files.h"
#include "workspace/windows/click_label.h"
#include "workspace/windows/login_dialog.h"
#include "workspace/windows/name_list.h"
#include "workspace/windows/user_prompts.h"

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

/// Six red balls and a blue one: what the program is about.
class BallRow : public QWidget {
  public:
    explicit BallRow() { setFixedHeight(44); }

  protected:
    void paintEvent(QPaintEvent*) override {
        constexpr int kBalls = 7;
        constexpr int kDiameter = 30;
        constexpr int kStep = 40;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const toolkit::Colours& look = toolkit::colours(palette());
        const int left = (width() - (kBalls - 1) * kStep - kDiameter) / 2;
        for (int ball = 0; ball < kBalls; ++ball) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(ball + 1 == kBalls ? look.blueBall : look.redBall);
            painter.drawEllipse(QRectF(left + ball * kStep, (height() - kDiameter) / 2.0, kDiameter, kDiameter));
        }
    }
};

ClickLabel* button(const QString& name, const QString& text, ClickLabel::Look look = ClickLabel::Look::Plain) {
    auto* label = new ClickLabel(text, look);
    label->setObjectName(name);
    return label;
}

} // namespace

StartWindow::StartWindow(Settings& settings, UserList& users, sql::Engine& engine, std::filesystem::path folder,
                         QWidget* parent)
    : QWidget(parent), m_settings(settings), m_users(users), m_engine(engine), m_folder(std::move(folder)) {
    setObjectName(u"Frmpre"_s);
    setWindowTitle(u"欢迎进入云衡子.玄策乐透彩票助理"_s);
    auto* newUser = button(u"Label2"_s, u"新建用户"_s);
    auto* enterSystem = button(u"Label3"_s, u"进入系统"_s, ClickLabel::Look::Primary);
    auto* removeUser = button(u"Label4"_s, u"删除用户"_s);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(12);
    for (ClickLabel* label : {newUser, enterSystem, removeUser})
        buttons->addWidget(label, 1);
    m_notice = new toolkit::NoticeBar(this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(28, 22, 28, 24);
    layout->setSpacing(16);
    layout->addWidget(m_notice);
    layout->addWidget(buildHead());
    layout->addWidget(buildUsers(), 1);
    layout->addLayout(buttons);
    resize(520, 480);
    fillList();
    connect(newUser, &ClickLabel::clicked, this, &StartWindow::createUser);
    connect(enterSystem, &ClickLabel::clicked, this, &StartWindow::enter);
    connect(removeUser, &ClickLabel::clicked, this, &StartWindow::deleteUser);
    if (!m_settings.trouble().isEmpty())
        m_notice->tell(m_settings.trouble());
}

void StartWindow::tellTroubles() {
    for (const QString& trouble : m_users.troubles())
        toolkit::showMessage(this, trouble, windowTitle(), QMessageBox::Critical);
}

QWidget* StartWindow::buildHead() {
    auto* head = new QWidget;
    auto* title = new QLabel(windowTitle());
    title->setObjectName(u"Label1"_s);
    title->setAlignment(Qt::AlignCenter);
    QFont large = title->font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    large.setBold(true);
    title->setFont(large);
    auto* layout = new QVBoxLayout(head);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new BallRow);
    layout->addWidget(title);
    return head;
}

QWidget* StartWindow::buildUsers() {
    auto* frame = new toolkit::Card(u"Frame1"_s, u"用户名及彩票类型选择"_s);
    m_lstName = new NameList;
    m_lstName->setObjectName(u"LstName"_s);
    m_lstName->setAccessibleName(frame->title());
    m_lstName->setSpacing(2);
    frame->body().addWidget(m_lstName, 1);
    connect(m_lstName, &QListWidget::itemActivated, this, &StartWindow::enter);
    return frame;
}

/// The item data is the user's number in the settings, from 1.
void StartWindow::addItem(const QString& name) {
    m_lstName->addName(name)->setData(Qt::UserRole, m_lstName->count());
}

void StartWindow::fillList() {
    for (const UserList::User& user : m_users.users())
        addItem(user.name);
    m_lstName->setCurrentRow(m_users.lastEntered());
}

int StartWindow::selectedPlace() const {
    const QListWidgetItem* item = m_lstName->currentItem();
    return item && item->isSelected() ? m_lstName->currentRow() : -1;
}

void StartWindow::createUser() {
    if (m_users.isFull()) {
        toolkit::showMessage(this, u"用户数已达上限 %1 个，请先删除不用的用户然后再新建。"_s.arg(kMostUsers),
                             u"用户名错误"_s);
        return;
    }
    const QString name =
        askUserName(this, m_users.proposedName(), [this](const QString& asked) { return m_users.isTaken(asked); });
    const int place = m_users.add(name, askUserPassword(this));
    addItem(name);
    m_lstName->setCurrentRow(place);
    createUserFiles(m_engine, m_folder, name);
}

bool StartWindow::unlock(int place) {
    const QString password = m_users.users()[static_cast<std::size_t>(place)].password;
    if (password.isEmpty())
        return true;
    LoginDialog login(password, this);
    login.exec();
    return login.succeeded();
}

void StartWindow::enter() {
    const int place = selectedPlace();
    if (place < 0) {
        toolkit::showMessage(this, u"请建立或选择一个用户名然后再进入。"_s, u"用户名错误"_s);
        return;
    }
    if (!unlock(place))
        return;
    m_users.noteEntered(place);
    const QString name = m_users.users()[static_cast<std::size_t>(place)].name;
    try {
        m_workspace = enterUser(m_settings, m_folder, name);
    } catch (const ConversionError& failed) {
        toolkit::showMessage(this, failed.message(), windowTitle(), QMessageBox::Critical);
        return;
    }
    adoptNamelessFiles(m_folder, name);
    hide();
    emit entered();
}

void StartWindow::deleteUser() {
    const int place = selectedPlace();
    if (place < 0) {
        toolkit::showMessage(this, u"请选择一个用户名然后再删除。"_s, u"用户名错误"_s);
        return;
    }
    // The title is that of another question, and stays so.
    if (!toolkit::DialogBoxes(this).confirm(u"确实要删除该用户吗？删除之后将不可恢复其数据！"_s, u"读入历史"_s,
                                            workspace::Risk::Loss))
        return;
    if (!unlock(place)) {
        toolkit::showMessage(this, u"密码有误，没有权限删除该用户"_s);
        return;
    }
    if (!m_users.sharesFolder(place))
        deleteUserFiles(m_folder, m_users.users()[static_cast<std::size_t>(place)].name);
    m_users.remove(place);
    delete m_lstName->takeItem(place);
    m_lstName->setCurrentRow(-1); // the next press must not hit a neighbour that nobody picked
    for (int row = place; row < m_lstName->count(); ++row)
        m_lstName->item(row)->setData(Qt::UserRole, row + 1);
}

void StartWindow::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    emit closed();
}

} // namespace workspace
