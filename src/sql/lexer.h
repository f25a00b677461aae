// Statement text to tokens.
//
// Names are plain (letters, digits, _, anything beyond ASCII) or in brackets; texts stand between double or single
// quotes, a doubled quote inside is one quote; numbers may have decimals and an exponent and may touch the next word
// ("16.5AND"). A quote without its partner, an unclosed bracket, a strange character, or a zero byte
// anywhere is a syntax error.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "sql/error.h"

namespace sql {

enum class TokenKind { Word, Name, Text, Integer, Real, Symbol, End };

struct Token {
    TokenKind kind = TokenKind::End;
    std::string text; ///< a word as written, a name without brackets, a text without quotes, a number, a symbol
    Span span;
};

/// \return the tokens, the last one of kind End  \throws SqlError kSyntax with the bytes at fault
std::vector<Token> tokenize(std::string_view statement);

/// Equal when ASCII letters are taken without case, as all names of the dialect are.
bool sameName(std::string_view left, std::string_view right);

/// The name with its ASCII letters small: a key for maps of names.
std::string foldedName(std::string_view name);

} // namespace sql
