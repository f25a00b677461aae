#include "sql/parser.h"

#include <array>
#include <charconv>
#include <optional>

#include "base/number_text.h"
#include "sql/lexer.h"

namespace sql {

namespace {

struct TypeName {
    const char* word;
    ColumnType type;
};
constexpr std::array<TypeName, 8> kTypeNames = {{{"integer", ColumnType::Integer},
                                                 {"long", ColumnType::Integer},
                                                 {"short", ColumnType::Short},
                                                 {"double", ColumnType::Real},
                                                 {"string", ColumnType::Text},
                                                 {"text", ColumnType::Text},
                                                 {"bit", ColumnType::Bit},
                                                 {"single", ColumnType::Real}}};

struct FunctionName {
    const char* word;
    FunctionId id;
    std::size_t args;
};
constexpr std::array<FunctionName, 5> kFunctions = {{{"iif", FunctionId::IIf, 3},
                                                     {"instr", FunctionId::InStr, 2},
                                                     {"format", FunctionId::Format, 2},
                                                     {"chr", FunctionId::Chr, 1},
                                                     {"int", FunctionId::Int, 1}}};

struct AggregateName {
    const char* word;
    AggregateId id;
};
constexpr std::array<AggregateName, 5> kAggregates = {{{"count", AggregateId::Count},
                                                       {"sum", AggregateId::Sum},
                                                       {"min", AggregateId::Min},
                                                       {"max", AggregateId::Max},
                                                       {"avg", AggregateId::Avg}}};

struct Operator {
    const char* symbol;
    BinaryOp op;
};
constexpr std::array<Operator, 6> kComparisons = {{{"=", BinaryOp::Equal},
                                                   {"<>", BinaryOp::NotEqual},
                                                   {"<", BinaryOp::Less},
                                                   {"<=", BinaryOp::LessEqual},
                                                   {">", BinaryOp::Greater},
                                                   {">=", BinaryOp::GreaterEqual}}};

class Parser {
  public:
    explicit Parser(std::string_view text) : m_tokens(tokenize(text)) {}

    Statement statement() {
        Statement result = oneStatement();
        takeSymbol(";");
        if (peek().kind != TokenKind::End)
            fail("语句结尾有多余的内容");
        return result;
    }

  private:
    Statement oneStatement() {
        if (atWord("select")) {
            Statement result;
            result.select = select();
            return result;
        }
        if (takeWord("update"))
            return update();
        if (takeWord("insert"))
            return insert();
        if (takeWord("delete"))
            return remove();
        if (takeWord("create"))
            return create();
        if (takeWord("drop"))
            return drop();
        if (takeWord("alter"))
            return alter();
        fail("不是一个完整的语句");
    }

    Statement start(StatementKind kind) {
        Statement result;
        result.kind = kind;
        result.tableSpan = peek().span;
        result.table = name();
        return result;
    }

    Statement update() {
        Statement result = start(StatementKind::Update);
        expectWord("set");
        do {
            Assignment assignment;
            assignment.span = peek().span;
            assignment.column = columnName(result.table);
            expectSymbol("=");
            assignment.value = expression();
            result.assignments.push_back(std::move(assignment));
        } while (takeSymbol(","));
        result.where = whereClause();
        return result;
    }

    Statement insert() {
        expectWord("into");
        Statement result = start(StatementKind::Insert);
        if (takeSymbol("("))
            return insertValues(std::move(result));
        result.select = select();
        if (!result.select.into.empty())
            fail("追加语句中不能有 INTO");
        return result;
    }

    Statement insertValues(Statement result) {
        result.kind = StatementKind::InsertValues;
        do {
            Assignment assignment;
            assignment.span = peek().span;
            assignment.column = name();
            result.assignments.push_back(std::move(assignment));
        } while (takeSymbol(","));
        expectSymbol(")");
        expectWord("values");
        expectSymbol("(");
        for (std::size_t place = 0; place < result.assignments.size(); ++place) {
            if (place > 0)
                expectSymbol(",");
            result.assignments[place].value = expression();
        }
        expectSymbol(")");
        return result;
    }

    Statement remove() {
        takeSymbol("*");
        expectWord("from");
        Statement result = start(StatementKind::Delete);
        result.where = whereClause();
        return result;
    }

    Statement create() {
        expectWord("table");
        Statement result = start(StatementKind::Create);
        expectSymbol("(");
        do
            result.columns.push_back(columnDef());
        while (takeSymbol(","));
        expectSymbol(")");
        return result;
    }

    Statement drop() {
        expectWord("table");
        return start(StatementKind::Drop);
    }

    Statement alter() {
        expectWord("table");
        Statement result = start(StatementKind::AddColumn);
        if (takeWord("add")) {
            takeWord("column");
            result.columns.push_back(columnDef());
            return result;
        }
        expectWord("drop");
        takeWord("column");
        result.kind = StatementKind::DropColumn;
        result.column = name();
        return result;
    }

    ColumnDef columnDef() {
        ColumnDef column;
        column.name = name();
        const Token& type = peek();
        for (const TypeName& known : kTypeNames)
            if (type.kind == TokenKind::Word && sameName(type.text, known.word)) {
                column.type = known.type;
                advance();
                return column;
            }
        fail("不认识的字段类型");
    }

    Select select() {
        const Nesting nesting(*this);
        expectWord("select");
        Select result;
        result.distinct = takeWord("distinct");
        do
            result.items.push_back(selectItem());
        while (takeSymbol(","));
        if (takeWord("into"))
            result.into = name();
        expectWord("from");
        result.from = name();
        result.where = whereClause();
        if (takeWord("order")) {
            expectWord("by");
            do
                result.order.push_back(orderItem());
            while (takeSymbol(","));
        }
        return result;
    }

    SelectItem selectItem() {
        SelectItem item;
        if (takeSymbol("*")) {
            item.star = true;
            return item;
        }
        item.expr = expression();
        if (takeWord("as"))
            item.alias = name();
        return item;
    }

    OrderItem orderItem() {
        OrderItem item;
        item.expr = expression();
        if (takeWord("desc"))
            item.descending = true;
        else
            takeWord("asc");
        return item;
    }

    ExprPtr whereClause() { return takeWord("where") ? expression() : nullptr; }

    // ---- expressions -------------------------------------------------------------------------------------------

    ExprPtr expression() {
        const Nesting nesting(*this);
        ExprPtr left = conjunction();
        while (takeWord("or"))
            left = binary(BinaryOp::Or, std::move(left), conjunction());
        return left;
    }

    ExprPtr conjunction() {
        ExprPtr left = negation();
        while (takeWord("and"))
            left = binary(BinaryOp::And, std::move(left), negation());
        return left;
    }

    ExprPtr negation() {
        const Nesting nesting(*this);
        if (takeWord("not"))
            return unary(UnaryOp::Not, negation());
        return comparison();
    }

    ExprPtr comparison() {
        ExprPtr left = join();
        for (;;) {
            if (const auto op = takeComparison())
                left = binary(*op, std::move(left), join());
            else if (atWord("is"))
                left = isNull(std::move(left));
            else if (atWord("like") || atWord("in") || (atWord("not") && (aheadWord("like") || aheadWord("in"))))
                left = membership(std::move(left));
            else
                return left;
        }
    }

    ExprPtr isNull(ExprPtr left) {
        ExprPtr result = node(ExprKind::IsNull);
        expectWord("is");
        result->negated = takeWord("not");
        expectWord("null");
        result->args.push_back(std::move(left));
        return result;
    }

    ExprPtr membership(ExprPtr left) {
        ExprPtr result = node(ExprKind::Like);
        result->negated = takeWord("not");
        result->args.push_back(std::move(left));
        if (takeWord("like")) {
            result->args.push_back(join());
            return result;
        }
        expectWord("in");
        expectSymbol("(");
        result->kind = ExprKind::InSelect;
        result->subquery = std::make_unique<Select>(select());
        expectSymbol(")");
        return result;
    }

    ExprPtr join() {
        ExprPtr left = sum();
        while (takeSymbol("&"))
            left = binary(BinaryOp::Join, std::move(left), sum());
        return left;
    }

    ExprPtr sum() {
        ExprPtr left = remainder();
        for (;;) {
            if (takeSymbol("+"))
                left = binary(BinaryOp::Add, std::move(left), remainder());
            else if (takeSymbol("-"))
                left = binary(BinaryOp::Subtract, std::move(left), remainder());
            else
                return left;
        }
    }

    ExprPtr remainder() {
        ExprPtr left = product();
        while (takeWord("mod"))
            left = binary(BinaryOp::Mod, std::move(left), product());
        return left;
    }

    ExprPtr product() {
        ExprPtr left = sign();
        for (;;) {
            if (takeSymbol("*"))
                left = binary(BinaryOp::Multiply, std::move(left), sign());
            else if (takeSymbol("/"))
                left = binary(BinaryOp::Divide, std::move(left), sign());
            else
                return left;
        }
    }

    ExprPtr sign() {
        const Nesting nesting(*this);
        if (takeSymbol("+"))
            return sign();
        if (takeSymbol("-"))
            return negative(sign());
        return primary();
    }

    /// A minus before a number is part of the number, so that -1 prints and reads back as one literal.
    ExprPtr negative(ExprPtr operand) {
        if (operand->kind == ExprKind::Literal) {
            if (auto* whole = std::get_if<std::int64_t>(&operand->literal)) {
                *whole = -*whole;
                return operand;
            }
            if (auto* real = std::get_if<double>(&operand->literal)) {
                *real = -*real;
                return operand;
            }
        }
        return unary(UnaryOp::Negate, std::move(operand));
    }

    ExprPtr primary() {
        const Token& token = peek();
        switch (token.kind) {
        case TokenKind::Text:
            return literal(Value(token.text));
        case TokenKind::Integer:
            return wholeLiteral(token);
        case TokenKind::Real:
            return realLiteral(token);
        case TokenKind::Name:
            return column();
        case TokenKind::Word:
            return wordPrimary(token);
        case TokenKind::Symbol:
            if (takeSymbol("(")) {
                ExprPtr inner = expression();
                expectSymbol(")");
                return inner;
            }
            break;
        case TokenKind::End:
            break;
        }
        fail("缺少表达式");
    }

    /// A whole number beyond 32 bits is a real number.
    ExprPtr wholeLiteral(const Token& token) {
        std::int64_t number = 0;
        const char* end = token.text.data() + token.text.size();
        const auto [stop, status] = std::from_chars(token.text.data(), end, number);
        if (status != std::errc() || number > INT32_MAX)
            return realLiteral(token);
        return literal(Value(number));
    }

    ExprPtr realLiteral(const Token& token) {
        const double number = base::val(token.text); // never by the point of the machine's language
        if (number >= base::kLargestNumber)
            fail("数字太大");
        return literal(Value(number));
    }

    ExprPtr wordPrimary(const Token& token) {
        if (sameName(token.text, "true"))
            return literal(Value(std::int64_t{-1}));
        if (sameName(token.text, "false"))
            return literal(Value(std::int64_t{0}));
        if (sameName(token.text, "null"))
            return literal(Value());
        if (aheadSymbol("("))
            return call();
        for (const char* word : {"select", "from", "where", "and", "or", "not", "like", "in", "is", "set", "order",
                                 "by", "into", "as", "mod", "desc", "distinct"})
            if (sameName(token.text, word))
                fail("缺少表达式");
        return column();
    }

    ExprPtr call() {
        const Token word = peek();
        for (const AggregateName& known : kAggregates)
            if (sameName(word.text, known.word))
                return aggregate(known.id);
        for (const FunctionName& known : kFunctions)
            if (sameName(word.text, known.word))
                return function(known);
        fail("不认识的函数");
    }

    ExprPtr aggregate(AggregateId id) {
        ExprPtr result = node(ExprKind::Aggregate);
        advance();
        expectSymbol("(");
        if (id == AggregateId::Count && takeSymbol("*"))
            id = AggregateId::CountRows;
        else
            result->args.push_back(expression());
        expectSymbol(")");
        result->aggregate = id;
        return result;
    }

    ExprPtr function(const FunctionName& known) {
        ExprPtr result = node(ExprKind::Function);
        result->function = known.id;
        advance();
        expectSymbol("(");
        do
            result->args.push_back(expression());
        while (takeSymbol(","));
        if (result->args.size() != known.args)
            fail("函数的参数个数不对");
        expectSymbol(")");
        return result;
    }

    ExprPtr column() {
        ExprPtr result = node(ExprKind::Column);
        result->name = name();
        if (takeSymbol(".")) {
            result->table = std::move(result->name);
            result->name = name();
        }
        return result;
    }

    std::string columnName(const std::string& table) {
        std::string first = name();
        if (!takeSymbol("."))
            return first;
        if (!sameName(first, table))
            fail("字段不属于该表");
        return name();
    }

    // ---- nodes and tokens --------------------------------------------------------------------------------------

    ExprPtr node(ExprKind kind) const {
        ExprPtr result = std::make_unique<Expr>();
        result->kind = kind;
        result->span = peek().span;
        return result;
    }

    ExprPtr literal(Value value) {
        ExprPtr result = node(ExprKind::Literal);
        result->literal = std::move(value);
        advance();
        return result;
    }

    ExprPtr unary(UnaryOp op, ExprPtr operand) const {
        ExprPtr result = node(ExprKind::Unary);
        result->unary = op;
        result->span = operand->span;
        result->args.push_back(std::move(operand));
        return result;
    }

    ExprPtr binary(BinaryOp op, ExprPtr left, ExprPtr right) {
        if (++m_operators > kMostOperators)
            fail("语句过长");
        ExprPtr result = node(ExprKind::Binary);
        result->binary = op;
        result->span = {left->span.first, right->span.first + right->span.length - left->span.first};
        result->args.push_back(std::move(left));
        result->args.push_back(std::move(right));
        return result;
    }

    std::optional<BinaryOp> takeComparison() {
        for (const Operator& known : kComparisons)
            if (takeSymbol(known.symbol))
                return known.op;
        return std::nullopt;
    }

    const Token& peek(std::size_t ahead = 0) const { return m_tokens[std::min(m_at + ahead, m_tokens.size() - 1)]; }
    void advance() { m_at = std::min(m_at + 1, m_tokens.size() - 1); }
    bool isWord(const Token& token, std::string_view word) const {
        return token.kind == TokenKind::Word && sameName(token.text, word);
    }
    bool atWord(std::string_view word) const { return isWord(peek(), word); }
    bool aheadWord(std::string_view word) const { return isWord(peek(1), word); }
    bool aheadSymbol(std::string_view symbol) const {
        return peek(1).kind == TokenKind::Symbol && peek(1).text == symbol;
    }
    bool takeWord(std::string_view word) {
        if (!atWord(word))
            return false;
        advance();
        return true;
    }
    bool takeSymbol(std::string_view symbol) {
        if (peek().kind != TokenKind::Symbol || peek().text != symbol)
            return false;
        advance();
        return true;
    }
    void expectWord(std::string_view word) {
        if (!takeWord(word))
            fail("语法错误: 缺少 " + std::string(word));
    }
    void expectSymbol(std::string_view symbol) {
        if (!takeSymbol(symbol))
            fail("语法错误: 缺少 " + std::string(symbol));
    }
    std::string name() {
        const Token& token = peek();
        if (token.kind != TokenKind::Name && token.kind != TokenKind::Word)
            fail("缺少名称");
        advance();
        return token.text;
    }
    [[noreturn]] void fail(const std::string& text) const { throw SqlError(error::kSyntax, text, peek().span); }

    /// Counts open levels of nesting while it lives.
    class Nesting {
      public:
        explicit Nesting(Parser& parser) : m_parser(parser) {
            if (++m_parser.m_depth > kDeepestNesting)
                m_parser.fail("表达式嵌套过深");
        }
        ~Nesting() { --m_parser.m_depth; }
        Nesting(const Nesting&) = delete;
        Nesting& operator=(const Nesting&) = delete;

      private:
        Parser& m_parser;
    };

    // A chain of operators is a tree as deep as it is long: later passes walk it by recursion.
    static constexpr int kMostOperators = 2000;

    std::vector<Token> m_tokens;
    std::size_t m_at = 0;
    int m_depth = 0;
    int m_operators = 0;
};

} // namespace

Statement parse(std::string_view statement) {
    return Parser(statement).statement();
}

} // namespace sql
