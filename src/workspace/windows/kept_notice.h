// The notice of files that were kept when others took their places: newest first, one after another, until each was
// closed; what is not closed comes back at the next start. Others may use the bar too: what they told is closed
// without a kept file being taken for read.
#pragma once

#include <filesystem>
#include <vector>

#include <QObject>

#include "workspace/keeping.h"

namespace toolkit {
class NoticeBar;
}

namespace workspace {

class KeptNotice : public QObject {
    Q_OBJECT

  public:
    /// \param bar         outlives this
    /// \param userFolder  whose kept files are told
    KeptNotice(toolkit::NoticeBar& bar, std::filesystem::path userFolder, QObject* parent = nullptr);

    /// Looks at the folder anew.
    void refresh();

  signals:
    /// 恢复 was pressed: these files are to take their places again. Call refresh() when that is done.
    void restoreWanted(const workspace::KeptFiles& kept);

  private:
    bool isShown() const;

    toolkit::NoticeBar& m_bar;
    std::filesystem::path m_userFolder;
    std::vector<KeptFiles> m_unread;
    QString m_told;
};

} // namespace workspace
