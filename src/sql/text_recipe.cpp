#include "sql/text_recipe.h"

#include <algorithm>
#include <charconv>

#include "sql/bind.h"
#include "sql/scalar.h"

namespace sql {

namespace {

constexpr std::size_t kLongestNumber = 11; // "-2147483648"

const Column& columnAt(const ColumnTable& table, int place) {
    return table.columns[static_cast<std::size_t>(place)];
}

bool isPlainNumber(const Expr& expr, const ColumnTable& table) {
    if (expr.kind != ExprKind::Column)
        return false;
    const Column& column = columnAt(table, expr.column);
    return (column.def.type == ColumnType::Integer || column.def.type == ColumnType::Short) && column.nulls.none();
}

/// Collects the parts of a chain of joins, left to right. A text waits in `literal` for the number behind it.
class Collector {
  public:
    explicit Collector(const ColumnTable& table) : m_table(table) {}

    bool take(const Expr& expr) {
        if (readsNoColumn(expr)) {
            m_literal += toText(evaluate(expr, [](int) { return Value(); }));
            return true;
        }
        if (expr.kind == ExprKind::Binary && expr.binary == BinaryOp::Join)
            return take(*expr.args[0]) && take(*expr.args[1]);
        if (isPlainNumber(expr, m_table))
            return add(expr.column, 0);
        if (expr.kind == ExprKind::Function && expr.function == FunctionId::Format &&
            isPlainNumber(*expr.args[0], m_table))
            return add(expr.args[0]->column, toText(expr.args[1]->literal).size());
        return false;
    }

    /// What is joined behind the column of this place.
    bool takeBehind(int place, const Expr& expr) {
        if (expr.kind == ExprKind::Column)
            return expr.column == place;
        return expr.kind == ExprKind::Binary && expr.binary == BinaryOp::Join && takeBehind(place, *expr.args[0]) &&
               take(*expr.args[1]);
    }

    std::optional<TextRecipe> finish() {
        std::size_t longest = m_literal.size();
        for (const TextRecipe::Part& part : m_recipe.parts)
            longest += longestText(part);
        if (m_recipe.parts.empty() || longest > kTextLimit)
            return std::nullopt;
        return finishAny();
    }
    /// However long, and if it is but a text.
    TextRecipe finishAny() {
        if (!m_literal.empty())
            m_recipe.parts.push_back({std::move(m_literal), -1, 0, 0});
        return std::move(m_recipe);
    }

  private:
    bool add(int column, std::size_t digits) {
        m_recipe.parts.push_back({std::move(m_literal), column, 0, static_cast<std::uint8_t>(digits)});
        m_literal.clear();
        return true;
    }

    const ColumnTable& m_table;
    TextRecipe m_recipe;
    std::string m_literal;
};

} // namespace

void appendNumber(std::int32_t number, std::size_t digits, std::string& out) {
    char buffer[16];
    const std::int64_t size = number < 0 ? -std::int64_t{number} : number;
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, size).ptr;
    const auto length = static_cast<std::size_t>(end - buffer);
    if (number < 0)
        out += '-';
    if (length < digits)
        out.append(digits - length, '0');
    out.append(buffer, length);
}

std::size_t longestText(const TextRecipe::Part& part) {
    const bool hasNumber = part.column >= 0 || part.field != 0;
    return part.literal.size() + (hasNumber ? std::max<std::size_t>(part.digits + 1U, kLongestNumber) : 0);
}

std::optional<TextRecipe> recipeFor(const Expr& expr, const ColumnTable& table) {
    Collector collector(table);
    return expr.type == ExprType::Text && collector.take(expr) ? collector.finish() : std::nullopt;
}

std::optional<TextRecipe> appendedTo(int place, const Expr& expr, const ColumnTable& table) {
    Collector collector(table);
    if (expr.kind != ExprKind::Binary || !collector.takeBehind(place, expr))
        return std::nullopt;
    return collector.finishAny();
}

void composeText(const ColumnTable& table, const TextRecipe& recipe, std::size_t row, std::string& out) {
    out.clear();
    for (const TextRecipe::Part& part : recipe.parts) {
        out += part.literal;
        if (part.column >= 0)
            appendNumber(columnAt(table, part.column).numbers.get(row), part.digits, out);
    }
}

std::string composedText(const ColumnTable& table, const TextRecipe& recipe, std::size_t row) {
    std::string text;
    composeText(table, recipe, row, text);
    return text;
}

void setRecipe(ColumnTable& table, int place, TextRecipe recipe) {
    Column& column = table.columns[static_cast<std::size_t>(place)];
    column.replaceDictionary();
    column.numbers.rebuild(table.rows, 0, 0);
    column.nulls.setNone();
    column.recipe = std::make_shared<const TextRecipe>(std::move(recipe));
    column.markAllDirty(table.rows);
}

void settleText(ColumnTable& table, int place) {
    Column& column = table.columns[static_cast<std::size_t>(place)];
    if (!column.recipe)
        return;
    const std::shared_ptr<const TextRecipe> recipe = std::move(column.recipe);
    column.recipe.reset();
    column.replaceDictionary();
    Numbers codes;
    std::vector<std::int32_t> block;
    std::string text;
    std::string before;
    std::int32_t code = 0;
    for (std::size_t row = 0; row < table.rows; ++row) {
        composeText(table, *recipe, row, text);
        if (row == 0 || text != before)
            code = column.dictionary->intern(text);
        before.swap(text);
        block.push_back(code);
        if (block.size() == kChunkRows || row + 1 == table.rows) {
            codes.append(block);
            block.clear();
        }
    }
    column.numbers = std::move(codes);
    column.nulls.setNone();
    column.markAllDirty(table.rows);
}

void settleReadersOf(ColumnTable& table, int place) {
    for (std::size_t reader = 0; reader < table.columns.size(); ++reader) {
        const auto recipe = table.columns[reader].recipe;
        if (recipe && std::any_of(recipe->parts.begin(), recipe->parts.end(),
                                  [place](const TextRecipe::Part& part) { return part.column == place; }))
            settleText(table, static_cast<int>(reader));
    }
}

void settleTexts(ColumnTable& table) {
    for (std::size_t place = 0; place < table.columns.size(); ++place)
        settleText(table, static_cast<int>(place));
}

void closeGap(ColumnTable& table, int place) {
    for (Column& column : table.columns) {
        if (!column.recipe)
            continue;
        TextRecipe moved = *column.recipe;
        for (TextRecipe::Part& part : moved.parts)
            if (part.column > place)
                --part.column;
        column.recipe = std::make_shared<const TextRecipe>(std::move(moved));
    }
}

std::optional<std::vector<int>> paddedColumns(const ColumnTable& table, const TextRecipe& recipe) {
    std::vector<int> columns;
    for (const TextRecipe::Part& part : recipe.parts) {
        const std::string_view expected = columns.empty() ? "" : " ";
        if (part.column < 0 || part.digits != 2 || part.literal != expected)
            return std::nullopt;
        const Numbers& numbers = columnAt(table, part.column).numbers;
        if (numbers.low() < 0 || numbers.high() > 99)
            return std::nullopt;
        columns.push_back(part.column);
    }
    return columns;
}

std::optional<std::vector<std::int32_t>> numbersOfPattern(std::string_view pattern) {
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    std::vector<std::int32_t> numbers;
    if (pattern.empty() || pattern.front() != '*' || pattern.back() != '*')
        return std::nullopt;
    for (std::size_t at = 0; at < pattern.size();) {
        if (pattern[at] == '*') {
            ++at;
            continue;
        }
        const bool twoDigits =
            at + 2 < pattern.size() && isDigit(pattern[at]) && isDigit(pattern[at + 1]) && pattern[at + 2] == '*';
        if (!twoDigits)
            return std::nullopt;
        numbers.push_back((pattern[at] - '0') * 10 + (pattern[at + 1] - '0'));
        at += 2;
    }
    return numbers.empty() ? std::nullopt : std::optional(numbers);
}

} // namespace sql
