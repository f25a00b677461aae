#include "sql/lexer.h"

#include <algorithm>
#include <array>

namespace sql {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}
bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}
char folded(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

class Scanner {
  public:
    explicit Scanner(std::string_view text) : m_text(text) {}

    std::vector<Token> run() {
        std::vector<Token> tokens;
        for (skipBlanks(); m_at < m_text.size(); skipBlanks())
            tokens.push_back(next());
        tokens.push_back({TokenKind::End, "", {m_text.size(), 0}});
        return tokens;
    }

  private:
    char peek(std::size_t ahead = 0) const { return m_at + ahead < m_text.size() ? m_text[m_at + ahead] : '\0'; }
    void skipBlanks() {
        while (m_at < m_text.size() && isBlank(m_text[m_at]))
            ++m_at;
    }

    Token next() {
        const char c = peek();
        if (c == '"' || c == '\'')
            return quoted(c);
        if (c == '[')
            return bracketed();
        if (isDigit(c) || (c == '.' && isDigit(peek(1))))
            return number();
        if (isLetter(c))
            return word();
        return symbol();
    }

    Token make(TokenKind kind, std::size_t first, std::string text) const {
        return {kind, std::move(text), {first, m_at - first}};
    }

    Token quoted(char quote) {
        const std::size_t first = m_at++;
        std::string text;
        while (m_at < m_text.size()) {
            const char c = m_text[m_at++];
            if (c != quote)
                text += c;
            else if (peek() == quote)
                text += m_text[m_at++];
            else
                return make(TokenKind::Text, first, std::move(text));
        }
        throw SqlError(error::kSyntax, "文本缺少结束的引号", {first, m_text.size() - first});
    }

    Token bracketed() {
        const std::size_t first = m_at;
        const std::size_t close = m_text.find(']', first);
        if (close == std::string_view::npos || close == first + 1)
            throw SqlError(error::kSyntax, "名称的方括号有误", {first, 1});
        m_at = close + 1;
        return make(TokenKind::Name, first, std::string(m_text.substr(first + 1, close - first - 1)));
    }

    Token number() {
        const std::size_t first = m_at;
        bool whole = true;
        digits();
        if (peek() == '.') {
            whole = false;
            ++m_at;
            digits();
        }
        const std::size_t sign = (peek(1) == '+' || peek(1) == '-') ? 1 : 0;
        if ((peek() == 'e' || peek() == 'E') && isDigit(peek(1 + sign))) {
            whole = false;
            m_at += 1 + sign;
            digits();
        }
        return make(whole ? TokenKind::Integer : TokenKind::Real, first,
                    std::string(m_text.substr(first, m_at - first)));
    }

    void digits() {
        while (isDigit(peek()))
            ++m_at;
    }

    Token word() {
        const std::size_t first = m_at;
        while (isLetter(peek()) || isDigit(peek()))
            ++m_at;
        return make(TokenKind::Word, first, std::string(m_text.substr(first, m_at - first)));
    }

    Token symbol() {
        static constexpr std::array<std::string_view, 16> kSymbols = {"<>", "<=", ">=", "=", "<", ">", "(", ")",
                                                                      ",",  ".",  "+",  "-", "*", "/", "&", ";"};
        for (const std::string_view symbol : kSymbols)
            if (m_text.substr(m_at, symbol.size()) == symbol) {
                const std::size_t first = m_at;
                m_at += symbol.size();
                return make(TokenKind::Symbol, first, std::string(symbol));
            }
        throw SqlError(error::kSyntax, "语句中有不认识的字符", {m_at, 1});
    }

    std::string_view m_text;
    std::size_t m_at = 0;
};

} // namespace

std::vector<Token> tokenize(std::string_view statement) {
    const std::size_t zero = statement.find('\0'); // ends a name or a text in SQLite
    if (zero != std::string_view::npos)
        throw SqlError(error::kSyntax, "语句中有不认识的字符", {zero, 1});
    return Scanner(statement).run();
}

bool sameName(std::string_view left, std::string_view right) {
    return left.size() == right.size() &&
           std::equal(left.begin(), left.end(), right.begin(), [](char a, char b) { return folded(a) == folded(b); });
}

std::string foldedName(std::string_view name) {
    std::string key(name);
    std::transform(key.begin(), key.end(), key.begin(), folded);
    return key;
}

} // namespace sql
