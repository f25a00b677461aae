// main() of every window test: one QApplication without a display, with the program's look.
#include <QApplication>

#include <gtest/gtest.h>

#include "support/modal_script.h"
#include "toolkit/look.h"

int main(int count, char** arguments) {
    ::testing::InitGoogleTest(&count, arguments);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(count, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    toolkit::applyLook(application, toolkit::Scheme::Light);
    const test_support::UnexpectedDialogs guard;
    return RUN_ALL_TESTS();
}
