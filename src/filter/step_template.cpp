#include "filter/step_template.h"

#include <QStringList>

#include "filter/quiet.h"

using namespace Qt::StringLiterals;

namespace filter {
namespace {

constexpr std::string_view kIdx = "Idx";

using Numbers = std::array<int, workspace::kStepNumbers>;

std::string column(const char* stem, int number) {
    return stem + std::to_string(number);
}

std::int64_t truth(bool on) {
    return on ? -1 : 0;
}

/// Place of the n-th number of a group filter, from 0: sk1 to sk9, then sk0.
std::size_t groupPlace(std::size_t number) {
    return (number + 1) % workspace::kStepNumbers;
}

/// sknum, and the numbers into sk0 to sk9; fields beyond them get 0.
void writeNumbers(sql::Recordset& record, const std::vector<int>& numbers, bool group) {
    setQuietly(record, "sknum", static_cast<std::int64_t>(numbers.size()));
    Numbers sk{};
    for (std::size_t number = 0; number < numbers.size() && number < sk.size(); ++number)
        sk[group ? groupPlace(number) : number] = numbers[number];
    for (int place = 0; place < workspace::kStepNumbers; ++place)
        setQuietly(record, column("sk", place), std::int64_t{sk[static_cast<std::size_t>(place)]});
}

std::vector<int> numbersOf(const RecordedStep& recorded, bool group) {
    std::vector<int> numbers;
    const auto count = static_cast<std::size_t>(std::clamp(recorded.sknum, 0, workspace::kStepNumbers));
    for (std::size_t number = 0; number < count; ++number)
        numbers.push_back(recorded.sk[group ? groupPlace(number) : number]);
    return numbers;
}

QString joined(const std::vector<int>& numbers) {
    QStringList texts;
    for (const int number : numbers)
        texts << QString::number(number);
    return texts.join(u' ');
}

/// The second act for one kind of step after the other.
struct AnswerWriter {
    sql::Recordset& record;

    void operator()(const MatchHistory& step) const { setQuietly(record, "sknum", step.draws); }
    void operator()(const FilterNumbers& step) const { writeNumbers(record, step.numbers, false); }
    void operator()(const FilterGroups& step) const {
        setQuietly(record, "skzu", std::int64_t{step.groupSize});
        writeNumbers(record, step.numbers, true);
    }
    template <class Other> void operator()(const Other&) const {}
};

/// Whether a step was asked for something that a row keeps.
bool hasAnswers(const Step& step) {
    return std::holds_alternative<MatchHistory>(step) || std::holds_alternative<FilterNumbers>(step) ||
           std::holds_alternative<FilterGroups>(step);
}

} // namespace

int StepTemplate::count() const {
    std::int64_t rows = 0;
    quietly([&] { rows = m_database.rowCount("moban"); });
    return static_cast<int>(rows);
}

RecordedStep StepTemplate::read(const sql::Recordset& record) const {
    const auto number = [&](std::string_view name) { return static_cast<int>(sql::toInteger(record.field(name))); };
    RecordedStep step{.Idx = number("Idx"),
                      .intCmdnb = number("intCmdnb"),
                      .setting = readSetting(record, m_family),
                      .ljh = number("ljh") != 0,
                      .baoliu = number("baoliu") != 0,
                      .sknum = number("sknum"),
                      .skzu = number("skzu")};
    for (int tick = 1; tick <= workspace::kStoredTicks; ++tick)
        step.ticked[static_cast<std::size_t>(tick)] = number(column("chk", tick)) != 0;
    for (int place = 0; place < workspace::kStepNumbers; ++place)
        step.sk[static_cast<std::size_t>(place)] = number(column("sk", place));
    return step;
}

std::vector<RecordedStep> StepTemplate::steps() const {
    std::vector<RecordedStep> steps;
    quietly([&] {
        sql::Recordset rows = m_database.openRecordset("SELECT * FROM [moban]");
        for (; !rows.eof(); rows.moveNext())
            steps.push_back(read(rows));
    });
    return steps;
}

std::optional<RecordedStep> StepTemplate::at(int Idx) const {
    std::optional<RecordedStep> step;
    quietly([&] {
        const sql::Recordset row =
            m_database.openRecordset("SELECT * FROM [moban] WHERE [idx] =" + std::to_string(Idx));
        if (!row.eof())
            step = read(row);
    });
    return step;
}

void StepTemplate::append(int Curcmd) const {
    quietly([&] {
        sql::Recordset rows = m_database.openRecordset("moban");
        rows.addNew();
        rows.set("Idx", rows.recordCount() + 1);
        rows.set("intCmdnb", std::int64_t{Curcmd});
        rows.update();
    });
}

template <class Write> void StepTemplate::editLast(Write write) const {
    quietly([&] {
        sql::Recordset rows = m_database.openRecordset("moban");
        rows.moveLast();
        rows.edit();
        write(rows);
        rows.update();
    });
}

void StepTemplate::writeIntegrated(const WindowState& state) const {
    editLast([&](sql::Recordset& row) {
        setQuietly(row, "intCmdnb", std::int64_t{kIntegratedCode});
        writeSetting(row, settingOf(state, m_catalogue), m_family);
        for (int tick = 1; tick <= workspace::kStoredTicks; ++tick)
            setQuietly(row, column("chk", tick),
                       std::int64_t{state.rows[static_cast<std::size_t>(tick)].ticked ? 1 : 0});
        setQuietly(row, "ljh", truth(state.logic == Logic::And));
        setQuietly(row, "baoliu", truth(state.keep));
    });
}

void StepTemplate::writeAnswers(const Step& step) const {
    if (hasAnswers(step))
        editLast([&](sql::Recordset& row) { std::visit(AnswerWriter{row}, step); });
}

void StepTemplate::clear() const {
    quietly([&] { m_database.execute("DELETE FROM [moban]"); });
}

void StepTemplate::deleteLast() const {
    quietly([&] {
        sql::Recordset rows = m_database.openRecordset("moban");
        if (rows.recordCount() == 0)
            return;
        rows.moveLast();
        rows.remove();
    });
}

std::vector<StoredStep> StepTemplate::stored() const {
    std::vector<StoredStep> steps;
    quietly([&] {
        sql::Recordset rows = m_database.openRecordset("SELECT * FROM [moban]");
        for (; !rows.eof(); rows.moveNext()) {
            StoredStep step;
            for (int field = 0; field < rows.fieldCount(); ++field)
                if (rows.fieldName(field) != kIdx && !sql::isNull(rows.field(field)))
                    step.emplace_back(rows.fieldName(field), rows.field(field));
            steps.push_back(std::move(step));
        }
    });
    return steps;
}

void StepTemplate::replaceAll(const std::vector<StoredStep>& rows) const {
    quietly([&] {
        sql::Transaction whole(m_database);
        m_database.execute("DELETE FROM [moban]");
        sql::Recordset table = m_database.openRecordset("moban");
        for (std::size_t row = 0; row < rows.size(); ++row) {
            table.addNew();
            for (const auto& [name, value] : rows[row])
                table.set(name, value);
            table.set(kIdx, static_cast<std::int64_t>(row + 1));
            table.update();
        }
        whole.commit();
    });
}

Step stepOf(const RecordedStep& recorded, std::span<const SuperFilter> filters) {
    switch (recorded.intCmdnb) {
    case kIntegratedCode:
        return Integrated{};
    case kInvertLastCode:
        return InvertLast{};
    case kInvertAllCode:
        return InvertAll{};
    default:
        break;
    }
    const SuperFilter* filter = superFilterOf(filters, recorded.intCmdnb);
    switch (filter->kind) {
    case SuperKind::History:
        return MatchHistory{filter, recorded.sknum};
    case SuperKind::Groups:
        return FilterGroups{filter, numbersOf(recorded, true), recorded.skzu};
    case SuperKind::Template:
        return TakeOutTemplate{filter};
    case SuperKind::Numbers:
        break;
    }
    return FilterNumbers{filter, numbersOf(recorded, false)};
}

void restore(const RecordedStep& recorded, std::span<const Parameter> catalogue, WindowState& state) {
    restore(recorded.setting, catalogue, state);
    state.listsLocked = recorded.setting.opt36;
    for (std::size_t tick = 1; tick < recorded.ticked.size(); ++tick)
        state.rows[tick].ticked = recorded.ticked[tick];
    state.logic = recorded.ljh ? Logic::And : Logic::Or;
    state.keep = recorded.baoliu;
}

StepLine lineOf(const RecordedStep& recorded, std::span<const SuperFilter> filters) {
    switch (recorded.intCmdnb) {
    case kIntegratedCode:
        return {u"多参数整合过滤"_s, u"见参数表"_s};
    case kInvertLastCode:
        return {u"上一步过滤反选"_s, {}};
    case kInvertAllCode:
        return {u"全部组号反选"_s, {}};
    default:
        break;
    }
    const SuperFilter* filter = superFilterOf(filters, recorded.intCmdnb);
    const QString control = QString::fromUtf8(filter->caption);
    switch (filter->kind) {
    case SuperKind::History:
        return {control, u"期数 %1"_s.arg(recorded.sknum)};
    case SuperKind::Groups:
        return {control, u"%1 个，%2 个一组"_s.arg(recorded.sknum).arg(recorded.skzu)};
    case SuperKind::Template:
        return {control, {}};
    case SuperKind::Numbers:
        break;
    }
    return {control, joined(numbersOf(recorded, false))};
}

QString describe(const RecordedStep& recorded, std::span<const SuperFilter> filters) {
    const QString head = u"模板过滤第%1步，使用“"_s.arg(recorded.Idx);
    switch (recorded.intCmdnb) {
    case kIntegratedCode:
        return head + u"多参数整合过滤”功能，参数设置详见参数设置列表"_s;
    case kInvertLastCode:
        return head + u"上一步过滤反选(R)”按钮功能"_s;
    case kInvertAllCode:
        return head + u"全部组号反选(U)”按钮功能"_s;
    default:
        break;
    }
    const SuperFilter* filter = superFilterOf(filters, recorded.intCmdnb);
    const QString control = head + QString::fromUtf8(filter->caption) + u"”单选按钮功能"_s;
    const bool group = filter->kind == SuperKind::Groups;
    switch (filter->kind) {
    case SuperKind::History:
        return control + u"，检索期数为：%1"_s.arg(recorded.sknum);
    case SuperKind::Template:
        return control;
    case SuperKind::Groups:
    case SuperKind::Numbers:
        break;
    }
    return control + u"，总个数为：%1%2，分别为：%3"_s.arg(QString::number(recorded.sknum),
                                                           group ? u"，每组%1个"_s.arg(recorded.skzu) : QString(),
                                                           joined(numbersOf(recorded, group)));
}

} // namespace filter
