// Texts that follow from number columns of their row, kept as the recipe instead of as texts.
//
// "UPDATE … SET [Numstring] = format([fig1],"00") & Chr(32) & …" over all rows makes nearly as many different texts
// as there are rows. Nobody reads most of them: the statements that follow ask LIKE "*05*", and that is a question to
// the numbers. So the column keeps the recipe, texts are put together for the rows that are shown, and only a
// statement that needs the texts themselves settles them into a dictionary. A recipe is settled before a column that
// it reads changes, and before rows come or go.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sql/column.h"
#include "sql/tree.h"

namespace sql {

/// The number in decimal, with zeros in front up to so many digits.
void appendNumber(std::int32_t number, std::size_t digits, std::string& out);

/// The most bytes that a part can add to a text.
std::size_t longestText(const TextRecipe::Part& part);

/// The recipe that a bound expression is for this table, when it is one: texts, `Chr` and `format` of constants and
/// of whole-number columns without Nulls, joined. Nothing when it could be longer than a text column holds.
std::optional<TextRecipe> recipeFor(const Expr& expr, const ColumnTable& table);

/// The same of what is appended, where a bound expression appends to the text of a column: "[Fliter] & " 保留" & …".
std::optional<TextRecipe> appendedTo(int place, const Expr& expr, const ColumnTable& table);

std::string composedText(const ColumnTable& table, const TextRecipe& recipe, std::size_t row);
/// The same into a buffer, which is cleared first.
void composeText(const ColumnTable& table, const TextRecipe& recipe, std::size_t row, std::string& out);

/// The column holds this recipe from now on, in every row.
void setRecipe(ColumnTable& table, int place, TextRecipe recipe);

/// Turns recipes into texts: of one column; of all columns whose recipe reads a column; of all.
void settleText(ColumnTable& table, int place);
void settleReadersOf(ColumnTable& table, int place);
void settleTexts(ColumnTable& table);

/// A column has gone that no recipe reads: recipes call the columns behind it by their new places.
void closeGap(ColumnTable& table, int place);

/// The columns of a recipe that is two-digit numbers with one blank between them, while all numbers have two digits.
std::optional<std::vector<int>> paddedColumns(const ColumnTable& table, const TextRecipe& recipe);
/// The numbers of a pattern that is two-digit numbers with stars around and between them: "*05**11*" gives 5 and 11.
std::optional<std::vector<std::int32_t>> numbersOfPattern(std::string_view pattern);

} // namespace sql
