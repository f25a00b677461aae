#include "prize/query_support.h"

#include <QTemporaryDir>

namespace prize_tests {

prize::Rules defaultRules() {
    const QTemporaryDir folder;
    workspace::Settings settings(folder.path().toStdString());
    workspace::UserSettings user(settings, u"张三"_s);
    return prize::readRules(user);
}

const prize::QueryEntry& entryOf(std::u16string_view command) {
    for (const prize::QueryEntry& entry : prize::kQueryEntries)
        if (entry.command == command)
            return entry;
    throw std::logic_error("no such entry");
}

QueryTable::QueryTable(std::u16string_view command, sql::Executor executor)
    : engine({.combinations = executor}), entry(entryOf(command)),
      database(engine.create(folder.path() / "filnum.mdb")) {
    // One entry writes its table's name otherwise; the database ignores case.
    const std::string table(entry.table == "zuhereadR" ? "zuheReadR" : entry.table);
    database->execute(workspace::createCombinationTable(table));
    database->setListener([this](std::string_view text) { m_statements.emplace_back(text); });
}

void QueryTable::hold(const std::vector<Bet>& bets) {
    std::vector<std::vector<std::int32_t>> columns(8);
    for (const Bet& bet : bets) {
        columns[0].push_back(static_cast<std::int32_t>(columns[0].size()) + 1);
        for (std::size_t number = 0; number < 7; ++number)
            columns[number + 1].push_back(bet.numbers[number]);
    }
    sql::RowBlock block;
    block.columns = {"idx", "fig1", "fig2", "fig3", "fig4", "fig5", "fig6", "fig7"};
    for (const auto& column : columns)
        block.values.emplace_back(column);
    const std::string table(entry.table);
    database->appendRows(table, block);
    for (std::size_t bet = 0; bet < bets.size(); ++bet)
        if (bets[bet].out)
            database->execute("UPDATE [" + table +
                              "] SET [unslt]=true, [fliter]=\"和值\" WHERE [idx] = " + std::to_string(bet + 1));
    takeStatements();
}

prize::Query QueryTable::opened(const prize::Rules& rules) {
    prize::Query query(*database, entry, kDraw, rules);
    query.open();
    return query;
}

std::vector<std::string> linesOf(const sql::Rows& rows) {
    std::vector<std::string> lines;
    for (std::int64_t row = 0; row < rows.count(); ++row) {
        lines.emplace_back();
        for (int column = 0; column < rows.columnCount(); ++column)
            lines.back() += (sql::isNull(rows.at(row, column)) ? "~" : rows.textAt(row, column)) + '|';
    }
    return lines;
}

std::vector<std::string> linesOf(const std::vector<prize::LevelRow>& levels) {
    std::vector<std::string> lines;
    for (const prize::LevelRow& level : levels)
        lines.push_back(level.label.toStdString() + ' ' + std::to_string(level.bets) + " x " +
                        (level.money ? std::to_string(*level.money) : "?") + " = " + std::to_string(level.won));
    return lines;
}

} // namespace prize_tests
