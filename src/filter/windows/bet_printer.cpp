#include "filter/windows/bet_printer.h"

#include <QDateTime>
#include <QDesktopServices>
#include <QUrl>

#include "output/bets_text.h"
#include "toolkit/busy_cursor.h"
#include "toolkit/dialog_boxes.h"
#include "toolkit/document_file.h"
#include "toolkit/print_window.h"
#include "workspace/failure.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace filter {

namespace {

const QString kDocumentError = u"Error"_s;
const QString kNoBetsPerLine = u"打印设置里每一行的注数是 0，打印在第一注就结束了。"_s;
const QString kSetPrintrow = u"请在“打印设置”里改成 1 或更大的数，再打印。"_s;
const QString kNothingChanged = u"组合和上次打印的文件都没有改变，请排除原因后重试。"_s;

/// Prints one list of bets.
class Printing {
  public:
    Printing(const output::PrintedBets& bets, const PrintSetting& setting, QWidget& window)
        : m_bets(bets), m_setting(setting), m_window(window), m_boxes(&window) {}

    void text() {
        const std::filesystem::path file = m_setting.folder / "Print.txt";
        const QString place = workspace::toQString(file);
        try {
            const output::Printed printed = written(file);
            if (printed == output::Printed::EndedAtFirstBet)
                m_boxes.tell({.text = kNoBetsPerLine,
                              .title = u"打印设置"_s,
                              .note = u"“%1”里只有购买期数。"_s.arg(place) + kSetPrintrow});
            if (printed != output::Printed::Whole)
                return;
        } catch (const std::exception& failed) {
            tellFailed(failed, place, u"打印"_s);
            return;
        }
        if (!m_setting.openText || !m_setting.openText(place))
            toolkit::PrintWindow(place, &m_window).exec();
    }

    void document() {
        const std::filesystem::path file = m_setting.folder / "Print.odt";
        const QString place = workspace::toQString(file);
        if (m_bets.perLine == 0 && m_bets.rows.count() > 0) {
            m_boxes.tell({.text = kNoBetsPerLine, .title = kDocumentError, .note = kSetPrintrow});
            return;
        }
        try {
            const toolkit::BusyCursor busy;
            const std::optional<QStringList> lines = output::betsDocumentLines(m_bets, m_boxes);
            if (!lines)
                return;
            toolkit::writeDocument(QStringList{output::printTimeLine(QDateTime::currentDateTime())} + *lines, file);
        } catch (const std::exception& failed) {
            tellFailed(failed, place, kDocumentError);
            return;
        }
        if (!QDesktopServices::openUrl(QUrl::fromLocalFile(place)))
            m_boxes.tell({.text = u"没有可以打开文档的程序，请安装一个文字处理软件。"_s,
                          .title = kDocumentError,
                          .note = u"组合已经写入“%1”。"_s.arg(place)});
    }

  private:
    output::Printed written(const std::filesystem::path& file) {
        const toolkit::BusyCursor busy;
        return output::writeBetsText(m_bets, file, m_boxes, QDateTime::currentDateTime());
    }

    void tellFailed(const std::exception& failed, const QString& place, const QString& title) {
        m_boxes.warn(workspace::failureMessage(failed, u"没有写入“%1”"_s.arg(place), title, kNothingChanged));
    }

    output::PrintedBets m_bets;
    const PrintSetting& m_setting;
    QWidget& m_window;
    toolkit::DialogBoxes m_boxes;
};

} // namespace

void printBets(const FilterMember& member, const sql::Rows& rows, std::int64_t issue, const PrintSetting& setting,
               QWidget& window) {
    Printing printing({rows, member.numbers(), issue, setting.perLine}, setting, window);
    if (member.table == wheelTableOf(member)) // they go to the word processor, where bets are numbered
        printing.document();
    else
        printing.text();
}

} // namespace filter
