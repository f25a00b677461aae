#include "support/first_steps.h"

#include "support/controls.h"
#include "support/modal_script.h"

using namespace Qt::StringLiterals;

namespace test_support {

void createUser(const QString& name, const QString& password) {
    const ModalScript script(
        {{u"InputBox"_s, type(name)}, {u"InputBox"_s, type(password)}, {u"InputBox"_s, type(password)}});
    press(u"Frmpre"_s, u"Label2"_s);
}

void enter() {
    press(u"Frmpre"_s, u"Label3"_s);
}

} // namespace test_support
