#include "output/page_range.h"

#include <QLocale>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace output {

namespace {

const QString kTitle = u"打印"_s;

} // namespace

std::optional<PageRange> readPageRange(const QString& text, int pages) {
    static const QRegularExpression form(u"^\\s*(\\d+)\\s*(?:[-~－～]\\s*(\\d+)\\s*)?$"_s);
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return {};
    bool fits = false;
    const int first = match.captured(1).toInt(&fits);
    const int last = match.hasCaptured(2) && fits ? match.captured(2).toInt(&fits) : first;
    if (!fits || first < 1 || last < first || last > pages)
        return {};
    return PageRange{first, last};
}

std::optional<PageRange> askPageRange(int pages, workspace::Dialogs& dialogs) {
    const QString count = QLocale(QLocale::Chinese).toString(pages);
    QString proposed = u"1-%1"_s.arg(pages);
    while (true) {
        const std::optional<QString> answer =
            dialogs.askText(u"一共 %1 页。请输入要打印的页，例如 1-20"_s.arg(count), kTitle, proposed);
        if (!answer)
            return {};
        if (const std::optional<PageRange> range = readPageRange(*answer, pages))
            return range;
        proposed = *answer;
        dialogs.tell(u"请输入 1 到 %1 之间的页，例如 5 或 1-20"_s.arg(count), kTitle);
    }
}

} // namespace output
