#include "sql/scalar.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/number_text.h"

namespace sql {

namespace {

char folded(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

bool isContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

/// Byte after the character that starts at `at`.
std::size_t nextCharacter(std::string_view text, std::size_t at) {
    const std::size_t longest = std::min(text.size(), at + 4);
    ++at;
    while (at < longest && isContinuation(text[at]))
        ++at;
    return at;
}

Value truth(bool holds) {
    return std::int64_t{holds ? -1 : 0};
}

} // namespace

int compareText(std::string_view left, std::string_view right) {
    const std::size_t shared = std::min(left.size(), right.size());
    for (std::size_t at = 0; at < shared; ++at) {
        const auto a = static_cast<unsigned char>(folded(left[at]));
        const auto b = static_cast<unsigned char>(folded(right[at]));
        if (a != b)
            return a < b ? -1 : 1;
    }
    return left.size() == right.size() ? 0 : (left.size() < right.size() ? -1 : 1);
}

// Greedy matching with one way back: after a star only the last star can be tried again, so this is O(text ·
// pattern).
bool likeText(std::string_view text, std::string_view pattern) {
    std::size_t at = 0;
    std::size_t want = 0;
    std::size_t star = std::string_view::npos;
    std::size_t resume = 0;
    while (at < text.size()) {
        if (want < pattern.size() && pattern[want] == '*') {
            star = want++;
            resume = at;
        } else if (want < pattern.size() && pattern[want] == '?') {
            at = nextCharacter(text, at);
            ++want;
        } else if (want < pattern.size() && folded(pattern[want]) == folded(text[at])) {
            ++at;
            ++want;
        } else if (star != std::string_view::npos) {
            want = star + 1;
            resume = nextCharacter(text, resume);
            at = resume;
        } else {
            return false;
        }
    }
    while (want < pattern.size() && pattern[want] == '*')
        ++want;
    return want == pattern.size();
}

std::int64_t inStr(std::string_view text, std::string_view part) {
    if (text.empty())
        return 0;
    const auto found = std::search(text.begin(), text.end(), part.begin(), part.end(),
                                   [](char a, char b) { return folded(a) == folded(b); });
    if (found == text.end() && !part.empty())
        return 0;
    return 1 + std::count_if(text.begin(), found, [](char c) { return !isContinuation(c); });
}

bool isZeroPattern(std::string_view pattern) {
    return !pattern.empty() && pattern.size() <= 20 && pattern.find_first_not_of('0') == std::string_view::npos;
}

std::string formatNumber(const Value& number, std::size_t digits) {
    if (isNull(number))
        return {};
    const double rounded = std::round(toReal(number));
    std::string text = base::numberText(std::fabs(rounded));
    if (text.size() < digits)
        text.insert(0, digits - text.size(), '0');
    return (rounded < 0 ? "-" : "") + text;
}

Value chr(const Value& code) {
    if (isNull(code))
        return {};
    const double number = base::roundHalfEven(toReal(code));
    if (!(number >= 0 && number <= 127))
        return {};
    return number == 0 ? Value(std::string()) : Value(std::string(1, static_cast<char>(number)));
}

Value modulo(const Value& left, const Value& right) {
    if (isNull(left) || isNull(right))
        return {};
    const double a = base::roundHalfEven(toReal(left));
    const double b = base::roundHalfEven(toReal(right));
    const auto fits = [](double number) { return number >= kIntegerLow && number <= kIntegerHigh; };
    if (!fits(a) || !fits(b) || b == 0)
        return {};
    return static_cast<std::int64_t>(a) % static_cast<std::int64_t>(b);
}

std::string cutText(std::string text) {
    if (text.size() <= kTextLimit)
        return text;
    std::size_t end = 0;
    for (std::size_t character = 0; character < kTextLimit && end < text.size(); ++character)
        end = nextCharacter(text, end);
    text.resize(end);
    return text;
}

int truthOf(const Value& value) {
    if (isNull(value))
        return -1;
    return toReal(value) != 0 ? 1 : 0;
}

Value storedValue(const Value& value, ColumnType type) {
    if (type == ColumnType::Bit)
        return truth(truthOf(value) == 1);
    if (isNull(value))
        return value;
    if (type == ColumnType::Text)
        return cutText(toText(value));
    if (type == ColumnType::Real)
        return toReal(value);
    const double rounded = base::roundHalfEven(toReal(value));
    const double low = type == ColumnType::Short ? -32768.0 : kIntegerLow;
    const double high = type == ColumnType::Short ? 32767.0 : kIntegerHigh;
    if (!(rounded >= low && rounded <= high))
        return {};
    return static_cast<std::int64_t>(rounded);
}

namespace {

/// The result in the type that binding gave the node: whole numbers stay whole, all else is real.
Value asNumber(double number, const Expr& expr) {
    if (!std::isfinite(number))
        return {};
    return expr.type == ExprType::Integer ? Value(static_cast<std::int64_t>(number)) : Value(number + 0.0); // no -0
}

Value arithmetic(const Expr& expr, const Value& left, const Value& right) {
    if (isNull(left) || isNull(right))
        return {};
    const double a = toReal(left);
    const double b = toReal(right);
    switch (expr.binary) {
    case BinaryOp::Add:
        return asNumber(a + b, expr);
    case BinaryOp::Subtract:
        return asNumber(a - b, expr);
    case BinaryOp::Multiply:
        return asNumber(a * b, expr);
    default:
        return b == 0 ? Value() : asNumber(a / b, expr);
    }
}

int compareValues(const Value& left, const Value& right) {
    if (std::holds_alternative<std::string>(left))
        return compareText(std::get<std::string>(left), std::get<std::string>(right));
    const double a = toReal(left);
    const double b = toReal(right);
    return a < b ? -1 : (a > b ? 1 : 0);
}

Value comparison(BinaryOp op, const Value& left, const Value& right) {
    if (isNull(left) || isNull(right))
        return {};
    const int order = compareValues(left, right);
    switch (op) {
    case BinaryOp::Equal:
        return truth(order == 0);
    case BinaryOp::NotEqual:
        return truth(order != 0);
    case BinaryOp::Less:
        return truth(order < 0);
    case BinaryOp::LessEqual:
        return truth(order <= 0);
    case BinaryOp::Greater:
        return truth(order > 0);
    default:
        return truth(order >= 0);
    }
}

Value conjunction(bool isAnd, int left, int right) {
    const int decides = isAnd ? 0 : 1;
    if (left == decides || right == decides)
        return truth(!isAnd);
    if (left == -1 || right == -1)
        return {};
    return truth(isAnd);
}

Value binary(const Expr& expr, const Value& left, const Value& right) {
    switch (expr.binary) {
    case BinaryOp::Add:
    case BinaryOp::Subtract:
    case BinaryOp::Multiply:
    case BinaryOp::Divide:
        return arithmetic(expr, left, right);
    case BinaryOp::Mod:
        return modulo(left, right);
    case BinaryOp::Join:
        return toText(left) + toText(right);
    case BinaryOp::And:
    case BinaryOp::Or:
        return conjunction(expr.binary == BinaryOp::And, truthOf(left), truthOf(right));
    default:
        return comparison(expr.binary, left, right);
    }
}

Value unary(const Expr& expr, const Value& operand) {
    if (isNull(operand))
        return {};
    if (expr.unary == UnaryOp::Not)
        return truth(truthOf(operand) == 0);
    return asNumber(-toReal(operand), expr);
}

Value choose(const Expr& expr, const Value& chosen) {
    const bool widen = expr.type == ExprType::Real && !isNull(chosen);
    return widen ? Value(toReal(chosen)) : chosen;
}

Value function(const Expr& expr, std::span<const Value> args) {
    const Value& first = args[0];
    switch (expr.function) {
    case FunctionId::IIf:
        return choose(expr, args[truthOf(first) == 1 ? 1 : 2]);
    case FunctionId::InStr:
        return isNull(first) || isNull(args[1]) ? Value() : Value(inStr(toText(first), toText(args[1])));
    case FunctionId::Format:
        return formatNumber(first, toText(args[1]).size());
    case FunctionId::Chr:
        return chr(first);
    case FunctionId::Int:
        return isNull(first) ? Value() : asNumber(std::floor(toReal(first)), expr);
    }
    return {};
}

} // namespace

Value applyNode(const Expr& expr, std::span<const Value> args) {
    switch (expr.kind) {
    case ExprKind::Literal:
        return expr.literal;
    case ExprKind::Unary:
        return unary(expr, args[0]);
    case ExprKind::Binary:
        return binary(expr, args[0], args[1]);
    case ExprKind::Function:
        return function(expr, args);
    case ExprKind::Like:
        if (isNull(args[0]) || isNull(args[1]))
            return {};
        return truth(likeText(toText(args[0]), toText(args[1])) != expr.negated);
    case ExprKind::IsNull:
        return truth(isNull(args[0]) != expr.negated);
    case ExprKind::Column:
    case ExprKind::InSelect:
    case ExprKind::Aggregate:
        break; // whole-table questions: the executors answer them
    }
    return {};
}

Value evaluate(const Expr& expr, const std::function<Value(int)>& column) {
    if (expr.kind == ExprKind::Column)
        return column(expr.column);
    std::array<Value, 3> args; // no node has more than three operands
    for (std::size_t place = 0; place < expr.args.size(); ++place)
        args[place] = evaluate(*expr.args[place], column);
    return applyNode(expr, std::span(args).first(expr.args.size()));
}

} // namespace sql
