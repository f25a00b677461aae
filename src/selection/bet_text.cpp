#include "selection/bet_text.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "history/text_pieces.h"
#include "selection/row_writer.h"
#include "workspace/templates.h"

namespace selection {

namespace {

bool isDigit(char16_t character) {
    return character >= u'0' && character <= u'9';
}

bool isBlank(char16_t character) {
    return character == u' ' || character == u'\t';
}

/// The table of a reading, made anew at its first bet.
class BetTable {
  public:
    BetTable(sql::Database& database, const BetTextTarget& target) : m_database(database), m_target(target) {}

    void write(std::span<const std::int32_t> numbers) {
        if (!m_writer)
            begin();
        m_writer->write(numbers, {});
    }

    void complete() {
        if (!m_writer)
            return;
        m_writer->finish();
        m_former->release();
    }

  private:
    void begin() {
        m_former.emplace(m_database, m_target.table);
        sql::passOver(m_database, "DROP TABLE " + std::string(m_target.table));
        m_database.execute(workspace::createCombinationTable(m_target.table));
        const TableShape shape{.table = m_target.table, .reds = m_target.numbers, .blue = false};
        m_writer.emplace(m_database, shape, 0, nullptr);
    }

    sql::Database& m_database;
    BetTextTarget m_target;
    std::optional<sql::TableHold> m_former;
    std::optional<RowWriter> m_writer;
};

} // namespace

BetTextReader::BetTextReader(int numbers, int start, TakeBet take)
    : m_wanted(static_cast<std::size_t>(numbers)), m_start(std::max(start, 1)), m_take(std::move(take)) {}

void BetTextReader::take(QStringView piece) {
    for (const QChar character : piece)
        read(character.unicode());
}

void BetTextReader::read(char16_t character) {
    const bool secondHalf = std::exchange(m_afterReturn, character == u'\r') && character == u'\n';
    if (secondHalf)
        return;
    if (character == u'\n' || character == u'\r') {
        endLine();
        return;
    }
    m_blank = m_blank && isBlank(character);
    if (++m_place < m_start)
        return;
    if (isDigit(character)) {
        m_lastTwo = m_lastTwo % 10 * 10 + (character - u'0');
        ++m_digits;
        return;
    }
    endNumber();
}

void BetTextReader::endNumber() {
    if (m_digits >= 2 && m_numbers.size() < m_wanted)
        m_numbers.push_back(m_lastTwo);
    m_digits = 0;
}

void BetTextReader::endLine() {
    endNumber();
    if (m_numbers.size() == m_wanted) {
        ++m_bets;
        m_take(m_numbers);
    } else if (!m_blank) {
        ++m_passed;
        if (m_passedLines.size() < kMostListed)
            m_passedLines.push_back({m_line, static_cast<int>(m_numbers.size())});
    }
    ++m_line;
    m_place = 0;
    m_blank = true;
    m_numbers.clear();
}

void BetTextReader::finish() {
    if (m_place > 0)
        endLine();
}

BetTextResult readBets(sql::Database& database, const BetTextTarget& target, const std::filesystem::path& file,
                       int start, workspace::Progress* progress) {
    BetTable table(database, target);
    BetTextReader reader(target.numbers, start, [&](auto numbers) { table.write(numbers); });
    std::error_code unknown;
    const auto bytes = static_cast<double>(std::filesystem::file_size(file, unknown));
    double characters = 0;
    bool cancelled = false;
    history::readInPieces(file, [&](QStringView piece) {
        reader.take(piece);
        characters += static_cast<double>(piece.size()); // of a Chinese text fewer than its bytes: the bar jumps then
        cancelled = progress && bytes > 0 && !progress->advance(std::min(characters / bytes, 1.0));
        return !cancelled;
    });
    if (cancelled)
        return {.cancelled = true};
    reader.finish();
    table.complete();
    return {reader.bets(), reader.passed(), reader.passedLines()};
}

} // namespace selection
