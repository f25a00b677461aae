#include "workspace/windows/kept_notice.h"

#include "toolkit/notice_bar.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

QString namesOf(const KeptFiles& kept) {
    QStringList names;
    for (const std::filesystem::path& file : kept.files)
        names << toQString(file.filename());
    return names.join(u"、"_s);
}

bool hasDatabase(const KeptFiles& kept) {
    for (const std::filesystem::path& file : kept.files)
        if (file.extension() == ".mdb")
            return true;
    return false;
}

} // namespace

KeptNotice::KeptNotice(toolkit::NoticeBar& bar, std::filesystem::path userFolder, QObject* parent)
    : QObject(parent), m_bar(bar), m_userFolder(std::move(userFolder)) {
    connect(&m_bar, &toolkit::NoticeBar::closed, this, [this] {
        if (isShown())
            closeNotice(m_unread.front());
        refresh();
    });
    connect(&m_bar, &toolkit::NoticeBar::actionPressed, this, [this] {
        if (isShown())
            emit restoreWanted(KeptFiles(m_unread.front()));
    });
}

bool KeptNotice::isShown() const {
    return !m_unread.empty() && m_bar.accessibleName() == m_told;
}

void KeptNotice::refresh() {
    m_unread = unreadKeptFiles(m_userFolder);
    if (m_unread.empty())
        return m_bar.hide();
    const KeptFiles& newest = m_unread.front();
    QString text = u"%1\n保存的文件：%2（在 %3）"_s.arg(newest.what, namesOf(newest), toQString(newest.folder));
    if (m_unread.size() > 1)
        text += u"　另有 %1 次保存"_s.arg(m_unread.size() - 1);
    m_told = text;
    m_bar.tell(text, hasDatabase(newest) ? u"恢复"_s : QString());
}

} // namespace workspace
