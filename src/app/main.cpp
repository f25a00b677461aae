// Builds the program object and starts it.
#include <QApplication>

#include "mainwin/windows/program.h"
#include "mainwin/windows/workspace_desk.h"
#include "toolkit/dialog_boxes.h"
#include "toolkit/look.h"
#include "workspace/failure.h"
#include "workspace/paths.h"
#include "workspace/windows/single_instance.h"

using namespace Qt::StringLiterals;

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"ssqdesk"_s);
    QApplication::setDesktopFileName(u"ssqdesk"_s);
    toolkit::applyLook(application);
    try {
        const std::filesystem::path folder = workspace::programFolder();
        const workspace::SingleInstance instance(folder);
        if (!workspace::mayStart(instance))
            return 0;
        QObject::connect(&instance, &workspace::SingleInstance::raiseAsked, &workspace::raiseActiveWindow);
        mainwin::Program program(folder);
        QObject::connect(&program, &mainwin::Program::ended, &application, &QApplication::quit, Qt::QueuedConnection);
        toolkit::setScheme(mainwin::storedScheme(program.settings));
        program.start();
        return QApplication::exec();
    } catch (const std::exception& failed) {
        toolkit::DialogBoxes(nullptr).warn(workspace::failureMessage(
            failed, u"程序不能启动"_s, u"启动错误"_s, u"已有的数据没有改变，请排除原因后重新启动。"_s));
        return 1;
    }
}
