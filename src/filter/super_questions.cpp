#include "filter/super_questions.h"

#include <climits>
#include <cmath>

#include "base/number_text.h"

using namespace Qt::StringLiterals;

namespace filter {
namespace {

constexpr int kMostNumbers = 10; // the fields of a template step that hold numbers, and as many for bankers
constexpr int kMostBankers = 9;
const QString kWrong = u"输入错误"_s;

struct Question {
    QString prompt;
    QString title;
    QString proposed{};
    int least;
    int most;
    QString outOfRange;
};

enum class Answered { Number, Bad, Ended };

struct Answer {
    Answered what;
    int number = 0;
};

/// Asks once. A bad answer is told; with Cancel there the chain ends.
Answer askOnce(const Question& question, workspace::Dialogs& dialogs) {
    const std::optional<QString> text = dialogs.askText(question.prompt, question.title, question.proposed);
    if (!text || text->isEmpty())
        return {Answered::Ended};
    bool isNumber = false;
    const double typed = text->trimmed().toDouble(&isNumber);
    isNumber = isNumber && std::isfinite(typed); // "inf" and "nan" are words here
    const int number = isNumber ? base::wholeWithin(typed, INT_MIN, INT_MAX) : 0;
    if (isNumber && number >= question.least && number <= question.most)
        return {Answered::Number, number};
    const bool again = dialogs.confirm(isNumber ? question.outOfRange : u"请输入数字"_s, kWrong);
    return {again ? Answered::Bad : Answered::Ended};
}

std::optional<int> ask(const Question& question, workspace::Dialogs& dialogs) {
    for (;;) {
        const Answer answer = askOnce(question, dialogs);
        if (answer.what == Answered::Number)
            return answer.number;
        if (answer.what == Answered::Ended)
            return std::nullopt;
    }
}

QString within(int most) {
    return u"请输入1~%1之间的数字"_s.arg(most);
}

/// One of the numbers of a list. \param prompt  with a place for the number's place in the list
Question numberQuestion(const QString& prompt, const QString& title, int place, int Bitnum) {
    return {.prompt = prompt.arg(place), .title = title, .least = 1, .most = Bitnum, .outOfRange = within(Bitnum)};
}

std::optional<std::vector<int>> askNumbers(int count, const QString& prompt, int Bitnum,
                                           workspace::Dialogs& dialogs) {
    std::vector<int> numbers;
    for (int place = 1; place <= count; ++place) {
        const auto number = ask(numberQuestion(prompt, u"相克数输入"_s, place, Bitnum), dialogs);
        if (!number)
            return std::nullopt;
        numbers.push_back(*number);
    }
    return numbers;
}

std::optional<Step> askHistory(const SuperFilter& filter, const QuestionContext& context,
                               workspace::Dialogs& dialogs) {
    const auto draws = ask(
        {.prompt = u"请输入过滤检索历史号码的期数，所填数字表示最近前若干期，缺省将检索所有期，所检索到的历史开出号码"
                   "将被滤除。花费的时间可能较长，请您稍等！"_s,
         .title = u"历史过滤"_s,
         .proposed = QString::number(context.Lsnum),
         .least = 0,
         .most = INT_MAX,
         .outOfRange = u"请输入一个正数"_s},
        dialogs);
    return draws ? std::optional<Step>(MatchHistory{&filter, *draws}) : std::nullopt;
}

std::optional<Step> askNumberFilter(const SuperFilter& filter, const QuestionContext& context,
                                    workspace::Dialogs& dialogs) {
    const bool sixReds = context.member.numbers() == 6;
    const auto count =
        ask({.prompt = u"相生表示所选的若干个号码单独出现的时候全部过滤掉，只有全部出现的时候才保留；相克表示"
                       "所选号码全部同时出现的时候将过滤掉。请输入相生/相克数字的数目，大小必须在1~7之间。"_s,
             .title = u"相生/相克个数"_s,
             .proposed = u"2"_s,
             .least = 1,
             .most = context.member.numbers(),
             .outOfRange = sixReds ? within(6) : u"请输入1~7的数字"_s},
            dialogs);
    if (!count)
        return std::nullopt;
    auto numbers =
        askNumbers(*count, sixReds ? u"请输入第%1个相克数"_s : u"请输入红%1个相克数"_s, context.Bitnum, dialogs);
    return numbers ? std::optional<Step>(FilterNumbers{&filter, std::move(*numbers)}) : std::nullopt;
}

/// Total, group size, numbers, bankers.
class GroupQuestions {
  public:
    GroupQuestions(const SuperFilter& filter, const QuestionContext& context, workspace::Dialogs& dialogs)
        : m_filter(filter), m_context(context), m_dialogs(dialogs) {}

    std::optional<Step> ask() {
        const std::optional<int> total = askTotal();
        const std::optional<int> size = total ? askSize(*total) : std::nullopt;
        while (size) {
            auto numbers = askNumbers(*total, u"请输入第%1个相克数"_s, m_context.Bitnum, m_dialogs);
            if (!numbers)
                break;
            std::vector<int> bankers;
            const Answered answered = askBankers(bankers);
            if (answered == Answered::Number)
                return FilterGroups{&m_filter, std::move(*numbers), *size, std::move(bankers)};
            if (answered == Answered::Ended)
                break;
        }
        return std::nullopt;
    }

  private:
    std::optional<int> askTotal();
    std::optional<int> askSize(int total);
    Answered askBankers(std::vector<int>& bankers);

    const SuperFilter& m_filter;
    const QuestionContext& m_context;
    workspace::Dialogs& m_dialogs;
};

std::optional<int> GroupQuestions::askTotal() {
    Question question{.prompt = u"请输入相克数字的总数目，大小必须在1~9之间。"_s,
                      .title = u"相克号码总个数"_s,
                      .proposed = u"4"_s,
                      .least = 0,
                      .most = INT_MAX,
                      .outOfRange = u"请输入一个正数"_s};
    for (;;) {
        const std::optional<int> total = filter::ask(question, m_dialogs);
        if (!total || *total <= kMostNumbers)
            return total;
        if (!m_dialogs.confirm(within(kMostNumbers), kWrong)) // there is no field for more
            return std::nullopt;
    }
}

std::optional<int> GroupQuestions::askSize(int total) {
    const QString prompt =
        u"请输入相克数字的分组每组数目，大小必须在1~%1之间。若组合的号码中含有设置个数以上的号码与相克数字"
        "中的相同，那么该组号码将被过滤掉"_s;
    return filter::ask({.prompt = prompt.arg(total),
                        .title = u"相克号码组个数"_s,
                        .proposed = u"2"_s,
                        .least = 1,
                        .most = total,
                        .outOfRange = within(total)},
                       m_dialogs);
}

/// \return Bad after a bad banker: the numbers are asked anew
Answered GroupQuestions::askBankers(std::vector<int>& bankers) {
    const QString prompt =
        u"请输入%1数字的总胆数目（每一组生克号中都必须出现的数字个数），大小必须在0~6之间。如果没有胆则此处填0。"_s;
    const QString kind = m_filter.keeps ? u"保留"_s : u"相克"_s;
    const auto count = filter::ask({.prompt = prompt.arg(kind),
                                    .title = u"相克号码总个数"_s,
                                    .proposed = u"0"_s,
                                    .least = 0,
                                    .most = kMostBankers,
                                    .outOfRange = within(kMostBankers)},
                                   m_dialogs);
    if (!count)
        return Answered::Ended;
    for (int place = 1; place <= *count; ++place) {
        const Question question =
            numberQuestion(u"请输入第%1个"_s + kind + u"胆"_s, kind + u"胆输入"_s, place, m_context.Bitnum);
        const Answer answer = askOnce(question, m_dialogs);
        if (answer.what != Answered::Number)
            return answer.what;
        bankers.push_back(answer.number);
    }
    return Answered::Number;
}

} // namespace

std::optional<Step> askSuperFilter(const SuperFilter& filter, const QuestionContext& context,
                                   workspace::Dialogs& dialogs) {
    switch (filter.kind) {
    case SuperKind::History:
        return askHistory(filter, context, dialogs);
    case SuperKind::Numbers:
        return askNumberFilter(filter, context, dialogs);
    case SuperKind::Groups:
        return GroupQuestions(filter, context, dialogs).ask();
    case SuperKind::Template:
        return TakeOutTemplate{&filter};
    }
    return std::nullopt;
}

} // namespace filter
