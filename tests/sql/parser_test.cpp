#include "sql/parser.h"

#include <random>

#include <gtest/gtest.h>

#include "sql/lexer.h"

namespace {

std::string printed(const std::string& statement) {
    return sql::print(sql::parse(statement));
}

std::string condition(const std::string& text) {
    const std::string all = printed("SELECT * FROM t WHERE " + text);
    return all.substr(all.find("WHERE ") + 6);
}

TEST(Lexer, ANumberMayTouchTheNextWordAndABracket) {
    const auto tokens = sql::tokenize("16.5)AND 9and .5 1E3E");
    ASSERT_EQ(tokens.size(), 9U);
    EXPECT_EQ(tokens[0].text, "16.5");
    EXPECT_EQ(tokens[1].text, ")");
    EXPECT_EQ(tokens[2].text, "AND");
    EXPECT_EQ(tokens[3].text, "9");
    EXPECT_EQ(tokens[4].text, "and");
    EXPECT_EQ(tokens[5].text, ".5");
    EXPECT_EQ(tokens[6].text, "1E3");
    EXPECT_EQ(tokens[7].text, "E");
    EXPECT_EQ(tokens[8].kind, sql::TokenKind::End);
}

TEST(Lexer, EveryTokenKnowsItsBytes) {
    const std::string text = "SELECT [名] FROM t";
    const auto tokens = sql::tokenize(text);
    EXPECT_EQ(text.substr(tokens[1].span.first, tokens[1].span.length), "[名]");
}

TEST(Parser, BindsFromSignsToOr) {
    EXPECT_EQ(condition("a=1 or b=2 and not c=3"), "(([a] = 1) OR (([b] = 2) AND (NOT ([c] = 3))))");
    EXPECT_EQ(condition("-a mod 2 = 0"), "(((-[a]) mod 2) = 0)");
    EXPECT_EQ(condition("a+b*c mod 3-1 > 0"), "((([a]+(([b]*[c]) mod 3))-1) > 0)");
    EXPECT_EQ(condition("\" x \" NOT LIKE \"* \"&[c]&\" *\""), "(\" x \" NOT LIKE ((\"* \" & [c]) & \" *\"))");
    EXPECT_EQ(condition("NOT [n] LIKE \"a\""), "(NOT ([n] LIKE \"a\"))");
    EXPECT_EQ(condition("1 - 2 - 3 = 4"), "(((1-2)-3) = 4)");
}

TEST(Parser, TellsWhereAStatementIsWrong) {
    try {
        sql::parse("UPDATE [zuhe] SET [canshu]=[fig6]-[fig1])");
        FAIL();
    } catch (const sql::SqlError& error) {
        EXPECT_EQ(error.number(), sql::error::kSyntax);
        EXPECT_EQ(error.span().first, 40U);
    }
}

TEST(Parser, RefusesNestingThatWouldExhaustTheStack) {
    std::string deep = "UPDATE t SET a=";
    for (int level = 0; level < 100000; ++level)
        deep += "(";
    EXPECT_THROW(sql::parse(deep), sql::SqlError);
    std::string signs = "UPDATE t SET a=";
    for (int level = 0; level < 100000; ++level)
        signs += "-";
    EXPECT_THROW(sql::parse(signs + "1"), sql::SqlError);
    std::string sum = "UPDATE t SET a=1";
    for (int term = 0; term < 100000; ++term)
        sum += "+1";
    EXPECT_THROW(sql::parse(sum), sql::SqlError);
}

/// A statement with some bytes changed, dropped or doubled.
std::string mutated(std::string text, std::mt19937& random) {
    static const std::string kBytes = "\"'[](),.&*-+<>= 0159abzNOT\n\xE5\x80\xFF";
    for (int change = 1 + static_cast<int>(random() % 4); change > 0 && !text.empty(); --change) {
        const std::size_t at = random() % text.size();
        switch (random() % 4) {
        case 0:
            text[at] = kBytes[random() % kBytes.size()];
            break;
        case 1:
            text.erase(at, 1 + random() % 5);
            break;
        case 2:
            text.insert(at, text.substr(random() % text.size(), random() % 12));
            break;
        default:
            text.insert(at, 1, kBytes[random() % kBytes.size()]);
            break;
        }
    }
    return text;
}

TEST(Parser, DamagedStatementsAreRefusedOrPrintTheSameAgain) {
    const std::vector<std::string> whole = {
        "UPDATE [zuhe] SET [unslt]=true , [Fliter] = \"各码数和大小:\" & [canshu] & \" 保留90~130\" WHERE "
        "[unslt]=false "
        "AND ([canshu] <90 OR [canshu] >130)",
        "SELECT Count(*) as [n], [a] FROM [zuhe] WHERE [T].[b] NOT IN (SELECT DISTINCT c FROM t) ORDER BY 1 DESC",
        "CREATE TABLE [zuhe]([idx] integer,[t] string,[p] Bit)",
        "insert into zuheMoban select fig1,fig2 from [zuhe] where unslt = false",
        "UPDATE [zuhe] SET [canshu]=IIf([fig2]-[fig1]>16.5,format([fig1],\"00\") & Chr(32),-[fig1] mod 3)"};
    std::mt19937 random(20031);
    int parsedCount = 0;
    for (int round = 0; round < 40000; ++round) {
        const std::string text = mutated(whole[random() % whole.size()], random);
        try {
            const std::string once = printed(text);
            ASSERT_EQ(printed(once), once) << text;
            ++parsedCount;
        } catch (const sql::SqlError& error) {
            ASSERT_EQ(error.number(), sql::error::kSyntax) << text;
            ASSERT_LE(error.span().first, text.size());
        }
    }
    EXPECT_GT(parsedCount, 100); // or the mutations would test nothing but refusals
}

} // namespace
