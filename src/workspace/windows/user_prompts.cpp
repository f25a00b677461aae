#include "workspace/windows/user_prompts.h"

#include "toolkit/dialog_boxes.h"
#include "toolkit/messages.h"

using namespace Qt::StringLiterals;

namespace workspace {

QString askUserName(QWidget* parent, const QString& proposed, const std::function<bool(const QString&)>& isTaken) {
    for (;;) {
        const QString name = toolkit::askText(parent, u"请输入用户名和彩票标示(比如:张先生[北京体彩36选7])："_s,
                                              u"用户名输入"_s, proposed);
        if (!isTaken(name))
            return name;
        toolkit::showMessage(parent, u"此用户名已经被注册，请换用其他的名字"_s);
    }
}

QString askUserPassword(QWidget* parent) {
    const QString title = u"用户密码设置"_s;
    toolkit::DialogBoxes boxes(parent);
    const auto ask = [&](const QString& prompt) { return boxes.askSecret(prompt, title).value_or(QString()); };
    for (;;) {
        const QString password = ask(u"请输入用户密码(如果不需要密码则不输入)："_s);
        if (ask(u"请再次输入用户密码(如果不需要密码则不输入)："_s) == password)
            return password;
        toolkit::showMessage(parent, u"您两次设置的密码不同，请确认后再次输入"_s);
    }
}

} // namespace workspace
