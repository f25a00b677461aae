#include "prize/report.h"

#include "output/new_file.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace prize {

namespace {

constexpr int kBetNumbers = 7;
constexpr std::int64_t kTellRows = 4096; // bets between two reports of the progress

const QString kLineEnd = u"\r\n"_s;

QString stem(const QDateTime& when) {
    const QDate date = when.date();
    const QTime time = when.time();
    return u"%1-%2-%3日%4.%5.%6秒"_s.arg(date.year() % 100, 2, 10, QChar(u'0'))
        .arg(date.month())
        .arg(date.day())
        .arg(time.hour())
        .arg(time.minute())
        .arg(time.second());
}

std::filesystem::path freeFile(const std::filesystem::path& folder, const QDateTime& when) {
    std::filesystem::path file = folder / workspace::toPath(reportName(when));
    for (int next = 2; workspace::isThere(file); ++next)
        file = folder / workspace::toPath(stem(when) + u" (%1)"_s.arg(next) + kReportEnding);
    return file;
}

QString drawText(const history::Draw& draw) {
    QStringList reds;
    for (std::size_t red = 1; red <= history::kRedsDrawn; ++red)
        reds << QString::number(draw[red]);
    return u"开奖结果%1  +  %2"_s.arg(reds.join(u' ')).arg(draw.back());
}

QString head(const Query& query, const QDateTime& when) {
    QStringList lines{u"兑奖日期:"_s + when.toString(u"yyyy-MM-dd"_s), u"兑奖时间:"_s + when.toString(u"HH:mm:ss"_s)};
    if (!query.entry().method.empty())
        lines << u"组号方式:"_s + QString::fromUtf8(query.entry().method);
    lines << u"开奖期数:%1"_s.arg(query.draw().front()) << drawText(query.draw());
    // The last rule has no line, on purpose.
    for (int row = 1; row < kRules; ++row)
        if (query.rules().beginsLevel(row))
            lines << u"%1中出%2注"_s.arg(query.rules().Prizerank[static_cast<std::size_t>(row)])
                         .arg(query.PrizeCount[static_cast<std::size_t>(row)]);
    lines << u"购买%1注"_s.arg(query.Cost / query.entry().kind.price) << u"支出%1圆"_s.arg(query.Cost)
          << u"收入%1圆"_s.arg(query.Income) << u"盈亏%1圆"_s.arg(query.Income - query.Cost) << u"个人购买情况如下:"_s
          << QString();
    return lines.join(kLineEnd);
}

void appendBet(QString& text, const sql::Rows& bets, std::int64_t row) {
    text += u"    "_s;
    for (int number = 1; number <= kBetNumbers; ++number) {
        if (number > 1)
            text += u' ';
        text += u"%1"_s.arg(bets.integerAt(row, number), 2, 10, QChar(u'0'));
    }
    text += u"     "_s;
}

} // namespace

QString reportName(const QDateTime& when) {
    return stem(when) + kReportEnding;
}

std::filesystem::path writeReport(const std::filesystem::path& userFolder, const Query& query, const QDateTime& when,
                                  workspace::Progress* progress) {
    const std::filesystem::path folder = userFolder / workspace::toPath(kReportFolder);
    std::filesystem::create_directories(folder);
    const std::filesystem::path place = freeFile(folder, when);
    output::TextFile file(place);
    QString text = head(query, when);
    const sql::Rows& bets = query.lastOpened();
    const std::int64_t count = bets.count();
    for (std::int64_t row = 0; row < count; ++row) {
        appendBet(text, bets, row);
        if (row % 2 == 1 || row + 1 == count)
            text += kLineEnd;
        file.take(text);
        if (progress && row % kTellRows == 0 &&
            !progress->advance(static_cast<double>(row) / static_cast<double>(count)))
            return {};
    }
    file.commit(text);
    return place;
}

} // namespace prize
