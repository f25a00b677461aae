#include "mainwin/main_texts.h"

#include <algorithm>
#include <cmath>

#include <QLocale>

#include "history/typed_draw.h"

using namespace Qt::StringLiterals;

namespace mainwin {

QString nextDrawText(const history::History& history) {
    const std::optional<std::int32_t> next = history::nextIssue(history);
    return u"在右输入 %1 历史号码:"_s.arg(next ? QString::number(*next) : QString());
}

QString thousandsApart(std::int64_t number) {
    return QLocale(QLocale::Chinese).toString(static_cast<qlonglong>(number));
}

QString shareCaption(int number) {
    return u"%1的概率:"_s.arg(number, 2, 10, QChar(u'0'));
}

QString shareText(double percent) {
    return QString::number(percent, 'f', 2) + u'%';
}

double shareBarLength(double percent, int numbers) {
    constexpr double kScale = 3;
    constexpr double kLongest = 6;
    if (numbers <= 0 || !std::isfinite(percent)) // a share of a damaged file
        return 0;
    return std::clamp(kScale - 100.0 / numbers * kScale + percent * kScale, 0.0, kLongest);
}

} // namespace mainwin
