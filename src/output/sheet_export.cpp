#include "output/sheet_export.h"

#include <QLocale>

#include "output/sheet_csv.h"
#include "output/sheet_text.h"
#include "output/sheet_workbook.h"
#include "workspace/failure.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace output {

namespace {

const QString kTitle = u"导出"_s;

Written write(const Sheet& sheet, const std::filesystem::path& file, workspace::Dialogs& dialogs) {
    const QString ending = workspace::toQString(file.extension()).toLower();
    if (ending == u".xlsx")
        return writeWorkbook(sheet, file, dialogs);
    return ending == u".csv" ? writeCsv(sheet, file, dialogs) : writeText(sheet, file, dialogs);
}

/// The former file under a second name, which goes again unless the new file has come.
class FormerFile {
  public:
    FormerFile(const std::filesystem::path& file, const QDateTime& now) : m_kept(freeName(file, now)) {
        std::error_code failed;
        std::filesystem::create_hard_link(std::filesystem::canonical(file), m_kept, failed);
        if (failed && !workspace::copyWholeFile(file, m_kept))
            throw workspace::Failure(u"不能保存原来的文件"_s, workspace::toQString(m_kept));
    }
    ~FormerFile() {
        std::error_code ignored;
        if (!m_keep)
            std::filesystem::remove(m_kept, ignored);
    }
    FormerFile(const FormerFile&) = delete;
    FormerFile& operator=(const FormerFile&) = delete;

    void keep() { m_keep = true; }
    QString name() const { return workspace::toQString(m_kept.filename()); }

  private:
    static std::filesystem::path freeName(const std::filesystem::path& file, const QDateTime& now) {
        const QString stem = workspace::toQString(file.stem()) + u" 保存 "_s + now.toString(u"yyyy-MM-dd HHmmss"_s);
        const QString ending = workspace::toQString(file.extension());
        std::filesystem::path name = file.parent_path() / workspace::toPath(stem + ending);
        for (int next = 2; std::filesystem::exists(name); ++next)
            name = file.parent_path() / workspace::toPath(u"%1 (%2)%3"_s.arg(stem).arg(next).arg(ending));
        return name;
    }

    std::filesystem::path m_kept;
    bool m_keep = false;
};

bool mayReplace(const std::filesystem::path& file, workspace::Dialogs& dialogs) {
    return dialogs.confirm({.text = u"“%1”已经存在，是否替换？"_s.arg(workspace::toQString(file.filename())),
                            .title = kTitle,
                            .note = u"原来的文件会改名，留在同一个文件夹里。"_s},
                           workspace::Risk::Loss);
}

void tellDone(const Sheet& sheet, const std::filesystem::path& file, const QString& former,
              workspace::Dialogs& dialogs) {
    const QString rows = QLocale(QLocale::Chinese).toString(static_cast<qlonglong>(sheet.rows.count()));
    QString text = u"已导出 %1 行到“%2”。"_s.arg(rows, workspace::toQString(file));
    if (!former.isEmpty())
        text += u"原来的文件现在叫“%1”。"_s.arg(former);
    dialogs.tell(text, kTitle);
}

} // namespace

Written writeKeeping(const Sheet& sheet, const std::filesystem::path& file, workspace::Dialogs& dialogs,
                     const QDateTime& now, QString& former) {
    std::optional<FormerFile> kept;
    if (std::filesystem::exists(file))
        kept.emplace(file, now);
    const Written written = write(sheet, file, dialogs);
    if (kept && written == Written::Whole) {
        kept->keep();
        former = kept->name();
    }
    return written;
}

bool exportSheet(const Sheet& sheet, const std::filesystem::path& file, workspace::Dialogs& dialogs,
                 const QDateTime& now) {
    if (sheet.columns.empty()) {
        dialogs.tell(u"表格的列都隐藏了，没有可以导出的内容。请先显示要导出的列。"_s, kTitle);
        return false;
    }
    try {
        if (std::filesystem::exists(file) && !mayReplace(file, dialogs))
            return false;
        QString former;
        if (writeKeeping(sheet, file, dialogs, now, former) == Written::GivenUp)
            return false;
        tellDone(sheet, file, former, dialogs);
        return true;
    } catch (const std::exception& failure) {
        dialogs.warn(workspace::failureMessage(
            failure, u"没有导出到“%1”"_s.arg(workspace::toQString(file)), kTitle,
            u"表中的数据没有改变，原有的文件也没有改变。请排除原因后重试，或换一个文件夹。"_s));
        return false;
    }
}

} // namespace output
