#include "mainwin/main_texts.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace mainwin {

QString nextDrawText(const history::History& history) {
    const auto last = static_cast<std::size_t>(history.Lsnum);
    return u"在右输入 %1 历史号码:"_s.arg(history.Lshm[last][0] + 1);
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
    return std::clamp(kScale - 100.0 / numbers * kScale + percent * kScale, 0.0, kLongest);
}

} // namespace mainwin
