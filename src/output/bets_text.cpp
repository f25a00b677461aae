#include "output/bets_text.h"

#include <utility>

#include "output/new_file.h"
#include "output/sheet.h"

using namespace Qt::StringLiterals;

namespace output {

namespace {

const QString kLineEnd = u"\r\n"_s;
constexpr int kDigits = 2;

void appendBet(QString& line, const PrintedBets& bets, std::int64_t row) {
    for (int number = 1; number <= bets.numbers; ++number) {
        if (number > 1)
            line += u' ';
        appendCell(line, bets.rows.integerAt(row, number), kDigits);
    }
}

QString issueLine(const PrintedBets& bets) {
    return u"购买期数:%1"_s.arg(bets.issue);
}

/// Whether a line ends behind this row.
bool endsLine(const PrintedBets& bets, std::int64_t row) {
    return (row + 1) % bets.perLine == 0 || row + 1 == bets.rows.count();
}

std::unique_ptr<workspace::Progress> progressOf(const PrintedBets& bets, workspace::Dialogs& dialogs) {
    return dialogs.progress(u"正在准备打印 %1 注"_s.arg(bets.rows.count()));
}

/// \return false once it is given up
bool report(workspace::Progress& progress, const PrintedBets& bets, std::int64_t row) {
    return row % kReportRows != 0 ||
           progress.advance(static_cast<double>(row) / static_cast<double>(bets.rows.count()));
}

} // namespace

QString printTimeLine(const QDateTime& now) {
    return u"打印时间:"_s + now.toString(u"yyyy-MM-dd hh:mm:ss"_s);
}

Printed writeBetsText(const PrintedBets& bets, const std::filesystem::path& file, workspace::Dialogs& dialogs,
                      const QDateTime& now) {
    if (bets.rows.count() == 0)
        return Printed::Nothing;
    const auto progress = progressOf(bets, dialogs);
    TextFile out(file);
    QString text = issueLine(bets) + kLineEnd;
    if (bets.perLine == 0) {
        out.commit(text);
        return Printed::EndedAtFirstBet;
    }
    for (std::int64_t row = 0; row < bets.rows.count(); ++row) {
        if (!report(*progress, bets, row))
            return Printed::GivenUp;
        appendBet(text, bets, row);
        if (endsLine(bets, row))
            text += kLineEnd;
        out.take(text);
    }
    text += printTimeLine(now) + kLineEnd;
    out.commit(text);
    return Printed::Whole;
}

std::optional<QStringList> betsDocumentLines(const PrintedBets& bets, workspace::Dialogs& dialogs) {
    const auto progress = progressOf(bets, dialogs);
    const qsizetype digits = QString::number(bets.rows.count()).size();
    QStringList lines{issueLine(bets), QString()};
    QString line;
    for (std::int64_t row = 0; row < bets.rows.count(); ++row) {
        if (!report(*progress, bets, row))
            return {};
        line += u'<';
        appendCell(line, row + 1, static_cast<int>(digits));
        line += u'>';
        appendBet(line, bets, row);
        line += u"  "_s;
        if (endsLine(bets, row))
            lines << std::exchange(line, {});
    }
    return lines;
}

} // namespace output
