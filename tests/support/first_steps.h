// The steps with which every use of the program begins, in its first window.
#pragma once

#include <QString>

namespace test_support {

/// 新建用户: the name, and the password twice.
void createUser(const QString& name, const QString& password = {});
/// 进入系统 with the user who is picked.
void enter();

} // namespace test_support
