#include "workspace/windows/rename_user.h"

#include "workspace/paths.h"
#include "workspace/setting_names.h"
#include "workspace/user_files.h"
#include "workspace/windows/user_prompts.h"

using namespace Qt::StringLiterals;

namespace workspace {

QString renameUser(QWidget* parent, Settings& settings, UserList& users, sql::Engine& engine, const Workspace& open) {
    const int place = users.lastEntered();
    const QString section = u"Username%1"_s.arg(place + 1);
    const QString proposed = settings.value(setting::kProgram, section, u"Name"_s, u"未知彩票"_s);
    const QString name = askUserName(
        parent, proposed, [&](const QString& asked) { return !asked.isEmpty() && users.isTaken(asked, place); });
    if (name.isEmpty())
        return {};
    const QString password = askUserPassword(parent);
    const QString before = users.users()[static_cast<std::size_t>(place)].name;
    const QString folder = folderName(name);
    const bool isNew = folder != folderName(before) && folder != folderName(open.Username);
    if (isNew)
        createUserFiles(engine, open.folder, name, kRenamedUserFiles);
    users.rename(place, name, password, isNew ? UserList::Workspace::New : UserList::Workspace::Standing);
    return name;
}

} // namespace workspace
