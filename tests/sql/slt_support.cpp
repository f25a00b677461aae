#include "sql/slt_support.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <sstream>

#include "scratch_folder.h"
#include "sql/parser.h"

namespace slt {

namespace {

class Runner {
  public:
    Runner(const std::filesystem::path& file, const Options& options)
        : m_options(options), m_engine(std::make_unique<sql::Engine>(options.engine)), m_input(file) {
        if (!m_input)
            throw std::runtime_error("no such file: " + file.string());
        m_db = m_engine->create(m_folder.path() / "case.mdb");
    }

    Outcome run() {
        std::string line;
        while (next(line)) {
            if (line.starts_with("# data:"))
                data(line.substr(7));
            else if (line.starts_with("statement "))
                statement(line);
            else if (line.starts_with("query "))
                query(line);
            else if (!line.empty() && line[0] != '#')
                fail("not a line of a case: " + line);
        }
        return m_outcome;
    }

  private:
    bool next(std::string& line) {
        ++m_line;
        return static_cast<bool>(std::getline(m_input, line));
    }
    void fail(const std::string& text) {
        m_outcome.failures.push_back("line " + std::to_string(m_line) + ": " + text);
    }

    void data(const std::string& text) {
        std::istringstream words(text);
        std::string table;
        words >> table;
        std::vector<std::vector<int>> bets(1);
        for (std::string word; words >> word;) {
            if (word == "|") {
                bets.emplace_back();
                continue;
            }
            const std::size_t plus = word.find('+');
            bets.back().push_back(std::stoi(word));
            if (plus != std::string::npos)
                bets.back().push_back(std::stoi(word.substr(plus + 1)));
        }
        if (bets.back().empty())
            bets.pop_back();
        makeBets(*m_db, table, bets);
    }

    /// What actually runs: the statement itself or its print, on a file that may just have been reopened.
    std::string prepared(const std::string& text) {
        if (m_options.reopen) {
            m_db->store();
            m_db.reset();
            m_engine = std::make_unique<sql::Engine>(m_options.engine);
            m_db = m_engine->open(m_folder.path() / "case.mdb");
        }
        if (!m_options.reprint)
            return text;
        try {
            return sql::print(sql::parse(text));
        } catch (const sql::SqlError&) {
            return text;
        }
    }

    void statement(const std::string& head) {
        std::istringstream words(head);
        std::string word;
        std::string expected;
        int number = 0;
        words >> word >> expected >> number;
        std::string text;
        next(text);
        ++m_outcome.statements;
        int got = 0;
        std::string what;
        try {
            const std::string runs = prepared(text); // first: it may open the file anew
            m_db->execute(runs);
        } catch (const sql::SqlError& error) {
            got = error.number();
            what = error.what();
        }
        if ((expected == "ok") != (got == 0) || (expected == "error" && number != got))
            fail(text + "\n  expected " + (expected == "ok" ? "no error" : std::to_string(number)) + ", got " +
                 std::to_string(got) + " " + what);
    }

    void query(const std::string& head) {
        std::istringstream words(head);
        std::string word;
        std::string types;
        std::string label;
        bool sorted = false;
        words >> word >> types;
        while (words >> word)
            word == "rowsort" ? static_cast<void>(sorted = true) : static_cast<void>(label = word);
        std::string text;
        next(text);
        ++m_outcome.statements;
        std::vector<std::string> expected = expectedRows();
        std::vector<std::string> got = actualRows(text, types);
        if (sorted) {
            std::sort(expected.begin(), expected.end());
            std::sort(got.begin(), got.end());
        }
        if (m_hasExpected && expected != got)
            fail(text + "\n  expected " + joined(expected) + "\n  got      " + joined(got));
        if (!label.empty() && !m_labels.emplace(label, got).second && m_labels[label] != got)
            fail(text + "\n  differs from the other query of label " + label);
    }

    std::vector<std::string> expectedRows() {
        std::vector<std::string> rows;
        std::string line;
        m_hasExpected = false;
        while (next(line) && !line.empty()) {
            if (line == "----")
                m_hasExpected = true;
            else
                rows.push_back(line);
        }
        return rows;
    }

    std::vector<std::string> actualRows(const std::string& text, const std::string& types) {
        std::vector<std::string> result;
        try {
            const std::string runs = prepared(text);
            const sql::Rows rows = m_db->query(runs);
            if (rows.columnCount() != static_cast<int>(types.size()))
                fail(text + "\n  has " + std::to_string(rows.columnCount()) + " columns");
            for (std::int64_t row = 0; row < rows.count(); ++row) {
                std::string line;
                for (int column = 0; column < rows.columnCount(); ++column)
                    line += (column ? "\t" : "") + shown(rows.at(row, column));
                result.push_back(line);
            }
        } catch (const sql::SqlError& error) {
            fail(text + "\n  failed: " + error.what());
        }
        return result;
    }

    static std::string joined(const std::vector<std::string>& rows) {
        std::string text;
        for (const std::string& row : rows)
            text += "{" + row + "} ";
        return text;
    }

    Options m_options;
    ScratchFolder m_folder;
    std::unique_ptr<sql::Engine> m_engine;
    std::unique_ptr<sql::Database> m_db;
    std::ifstream m_input;
    int m_line = 0;
    bool m_hasExpected = false;
    std::map<std::string, std::vector<std::string>> m_labels;
    Outcome m_outcome;
};

std::string createStatement(const std::string& table, int numbers) {
    std::string columns = "[idx] integer";
    for (int place = 1; place <= numbers; ++place)
        columns += ",[fig" + std::to_string(place) + "] integer";
    return "CREATE TABLE [" + table + "](" + columns +
           ",[canshu] integer,[Numstring] string,[SKnum] integer,[JSqihao] long,[Fliter] string,[unslt] Bit,"
           "[preunslt] Bit,[tmpunslt] bit,[Gpslt] bit,[Errnum] integer)";
}

} // namespace

std::string shown(const sql::Value& value) {
    if (sql::isNull(value))
        return "NULL";
    if (const auto* real = std::get_if<double>(&value)) {
        char buffer[64];
        std::snprintf(buffer, sizeof buffer, "%.6f", *real);
        std::string text = buffer;
        text.erase(text.find_last_not_of('0') + 1);
        return text.back() == '.' ? text.substr(0, text.size() - 1) : text;
    }
    const std::string text = sql::toText(value);
    return text.empty() ? "(empty)" : text;
}

void makeBets(sql::Database& db, const std::string& table, const std::vector<std::vector<int>>& bets) {
    const std::size_t numbers = bets.empty() ? 7 : bets[0].size();
    db.execute(createStatement(table, static_cast<int>(numbers)));
    std::vector<std::vector<std::int32_t>> columns(numbers + 1);
    sql::RowBlock block;
    for (std::size_t column = 0; column <= numbers; ++column) {
        block.columns.push_back(column == 0 ? "idx" : "fig" + std::to_string(column));
        for (std::size_t bet = 0; bet < bets.size(); ++bet)
            columns[column].push_back(column == 0 ? static_cast<std::int32_t>(bet + 1) : bets[bet][column - 1]);
        block.values.emplace_back(columns[column]);
    }
    db.appendRows(table, block);
}

Outcome runFile(const std::filesystem::path& file, const Options& options) {
    return Runner(file, options).run();
}

} // namespace slt
