// The catalogues against plain lists: saved settings and templates name controls by these numbers, and reasons and
// headings by these texts.
#include "filter/catalogue.h"

#include <gtest/gtest.h>

namespace filter {
namespace {

/// option, caption, history column, tick, period, low box, high box, count box, list box, defaults, grid title
constexpr std::string_view kRows[] = {
    "Option23 各码数和 Znum 0 0 Text2 0 1 4 5 | 0 999 20 | 各位数和",
    "Option3 各码和个位 Sumgwnum 1 1 Text3 0 1 2 3 | 0 9 3 | 各位和个位",
    "Option2 连号个数 Lxnum 2 2 Text4 0 1 2 3 | 0 9 3 | 连号个数",
    "Option4 偶数个数 Onum 3 3 Text5 0 1 4 5 | 0 9 3 | 偶数个数",
    "Option5 大数个数 Mornum 4 4 Text6 0 1 4 5 | 0 9 3 | 大数个数",
    "Option8 个位大数 Bignum 5 5 Text7 0 1 2 3 | 0 9 3 | 个位大数",
    "Option9 01~11区间 Qnum0 6 6 Text8 0 1 2 3 | 0 9 3 | 1~11区间",
    "Option10 12~22区间 Qnum1 7 7 Text9 0 1 2 3 | 0 9 3 | 12~22区间",
    "Option11 23~33区间 Qnum2 8 8 Text10 0 1 2 3 | 0 9 3 | 23~33区间",
    "Option12 3整除个数 Qnum3 18 9 Text11 0 1 2 3 | 0 9 3 | 3整除个",
    "Option39 个位数和 Zgnum 28 29 Text25 0 1 2 3 | 0 99 5 | 个位数之和",
    "Option41 奇数之和 Zjnum 26 27 Text27 0 1 2 3 | 0 99 10 | 红球奇数之和",
    "Option40 偶数之和 Zonum 27 28 Text24 0 1 2 3 | 0 99 10 | 红球偶数之和",
    "Option33 红蓝各位数和 ZnumB 25 23 Text2 2 3 6 7 | 0 999 20 | 各位数和",
    "Option31 红蓝偶数个数 OnumB 22 26 Text5 2 3 6 7 | 0 9 3 | 偶数个数",
    "Option32 红蓝大数个数 MornumB 23 25 Text6 2 3 6 7 | 0 9 3 | 大数个数",
    "Option20 重上期个数 Cnum 16 19 Text21 0 1 4 5 | 0 99 3 | 重上期个数",
    "Option34 红蓝重上期个 CnumB 24 24 Text21 2 3 6 7 | 0 99 3 | 重上期个数",
    "Option6 最大差值 Mxzounum 14 17 Text19 0 1 2 3 | 0 99 5 | 最大差值",
    "Option7 首尾差值 Apzounum 15 18 Text20 0 1 2 3 | 0 99 5 | 首尾差值",
    "Option66 自定区间  31 -1 Text66 0 1 -1 -1 | 0 9 3 | 自定义区间",
    "Option24 复杂度AC值 Fcodp 17 21 Text22 0 1 2 3 | 0 99 5 | 数字复杂度",
    "Option30 个位同号数 Modenum 21 22 Text23 0 1 2 3 | 0 99 3 | 个位同号数",
    "Option38 遗漏数和 Zynum 29 30 Text26 0 1 2 3 | 0 99 5 | 红球遗漏期数和",
    "Option42 遗漏极差 intyljz 30 31 Text28 0 1 2 3 | 0 99 5 | 遗漏极差",
    "Option13 红1位 fig1 9 10 Text12 0 1 2 3 | 0 99 6 | ",
    "Option14 红2位 fig2 10 11 Text13 0 1 2 3 | 0 99 6 | ",
    "Option15 红3位 fig3 11 12 Text14 0 1 2 3 | 0 99 6 | ",
    "Option16 红4位 fig4 12 13 Text15 0 1 2 3 | 0 99 6 | ",
    "Option17 红5位 fig5 13 14 Text16 0 1 2 3 | 0 99 6 | ",
    "Option18 红6位 fig6 19 15 Text17 0 1 2 3 | 0 99 6 | ",
    "Option19 蓝球 fig7 20 16 Text18 0 1 2 3 | 0 99 6 | ",
};

constexpr std::string_view kSixRedRows[] = {
    "Option23 各位数和 Znum 0 0 Text2 0 1 4 5 | 0 999 20 | 各位数和",
    "Option3 各位和个位 Sumgwnum 1 1 Text3 0 1 2 3 | 0 9 3 | 各位和个位",
    "Option2 连号个数 Lxnum 2 2 Text4 0 1 2 3 | 0 9 3 | 连号个数",
    "Option4 偶数个数 Onum 3 3 Text5 0 1 4 5 | 0 9 3 | 偶数个数",
    "Option5 大数个数 Mornum 4 4 Text6 0 1 4 5 | 0 9 3 | 大数个数",
    "Option8 个位大数 Bignum 5 5 Text7 0 1 2 3 | 0 9 3 | 个位大数",
    "Option9 01~11区间 Qnum0 6 6 Text8 0 1 2 3 | 0 9 3 | 1~11区间",
    "Option10 12~22区间 Qnum1 7 7 Text9 0 1 2 3 | 0 9 3 | 12~22区间",
    "Option11 23~33区间 Qnum2 8 8 Text10 0 1 2 3 | 0 9 3 | 23~33区间",
    "Option12 3整除个数 Qnum3 18 9 Text11 0 1 2 3 | 0 9 3 | 3整除个",
    "Option19 5整除个数 Qnum4 20 16 Text18 0 1 2 3 | 0 9 3 | 5整除个",
    "Option34 个位数和 Zgnum 28 29 Text25 0 1 2 3 | 0 99 5 | 个位数之和",
    "Option32 奇数之和 Zjnum 26 27 Text27 0 1 2 3 | 0 99 10 | 红球奇数之和",
    "Option33 偶数之和 Zonum 27 28 Text24 0 1 2 3 | 0 99 10 | 红球偶数之和",
    "Option39 小数之和 XZnumB 22 26 Text29 0 1 2 3 | 0 999 10 | 小数之和",
    "Option40 大数之和 DZnumB 23 25 Text30 0 1 2 3 | 0 999 10 | 大数之和",
    "Option20 重上期个数 Cnum 16 19 Text21 0 1 4 5 | 0 99 3 | 重上期个数",
    "Option6 最大差值 Mxzounum 14 17 Text19 0 1 2 3 | 0 99 5 | 最大差值",
    "Option7 首尾差值 Apzounum 15 18 Text20 0 1 2 3 | 0 99 5 | 首尾差值",
    "Option66 自定区间  31 -1 Text66 0 1 -1 -1 | 0 9 3 | 自定义区间",
    "Option24 复杂度AC值 Fcodp 17 21 Text22 0 1 2 3 | 0 99 5 | 数字复杂度",
    "Option41 同尾个数 Modenum 21 22 Text23 0 1 2 3 | 0 99 3 | 同尾个数",
    "Option35 遗漏数和 Zynum 29 30 Text26 0 1 2 3 | 0 99 5 | 遗漏期数和",
    "Option38 遗漏极差 intYljz 30 31 Text28 0 1 2 3 | 0 99 5 | 遗漏极差",
    "Option13 第1位 fig1 9 10 Text12 0 1 2 3 | 0 99 6 | ",
    "Option14 第2位 fig2 10 11 Text13 0 1 2 3 | 0 99 6 | ",
    "Option15 第3位 fig3 11 12 Text14 0 1 2 3 | 0 99 6 | ",
    "Option16 第4位 fig4 12 13 Text15 0 1 2 3 | 0 99 6 | ",
    "Option17 第5位 fig5 13 14 Text16 0 1 2 3 | 0 99 6 | ",
    "Option18 第6位 fig6 19 15 Text17 0 1 2 3 | 0 99 6 | ",
};

constexpr std::string_view kSevenRedRows[] = {
    "Option23 各位数和 Znum 0 -1 Text2 0 1 -1 -1 | 0 999 3 | 各位数和",
    "Option3 各位和个位 Sumgwnum 1 -1 Text3 0 1 -1 -1 | 0 9 3 | 各位和个位",
    "Option2 连号个数 Lxnum 2 -1 Text4 0 1 -1 -1 | 0 9 3 | 连号个数",
    "Option4 偶数个数 Onum 3 -1 Text5 0 1 -1 -1 | 0 9 3 | 偶数个数",
    "Option5 大数个数 Mornum 4 -1 Text6 0 1 -1 -1 | 0 9 3 | 大数个数",
    "Option8 个位大数 Bignum 5 -1 Text7 0 1 -1 -1 | 0 9 3 | 个位大数",
    "Option9 1~10区间  6 -1 Text8 0 1 -1 -1 | 0 9 3 | 1~10区间",
    "Option10 11~20区间  7 -1 Text9 0 1 -1 -1 | 0 9 3 | 11~20区间",
    "Option11 21~30区间  8 -1 Text10 0 1 -1 -1 | 0 9 3 | 21~30区间",
    "Option12 31~40区间  18 -1 Text11 0 1 -1 -1 | 0 9 3 | 31~40区间",
    "Option41 41以上  26 -1 Text27 0 1 -1 -1 | 0 9 3 | 41以上",
    "Option20 重上期个数 Cnum 16 -1 Text21 0 1 -1 -1 | 0 99 3 | 重上期个数",
    "Option6 最大差值 Mxzounum 14 -1 Text19 0 1 -1 -1 | 0 99 3 | 最大差值",
    "Option7 首尾差值 Apzounum 15 -1 Text20 0 1 -1 -1 | 0 99 3 | 首尾差值",
    "Option24 数字复杂度 Fcodp 17 -1 Text22 0 1 -1 -1 | 0 99 3 | 数字复杂度",
    "Option13 第1位 fig1 9 -1 Text12 0 1 -1 -1 | 0 99 3 | ",
    "Option14 第2位 fig2 10 -1 Text13 0 1 -1 -1 | 0 99 3 | ",
    "Option15 第3位 fig3 11 -1 Text14 0 1 -1 -1 | 0 99 3 | ",
    "Option16 第4位 fig4 12 -1 Text15 0 1 -1 -1 | 0 99 3 | ",
    "Option17 第5位 fig5 13 -1 Text16 0 1 -1 -1 | 0 99 3 | ",
    "Option18 第6位 fig6 19 -1 Text17 0 1 -1 -1 | 0 99 3 | ",
    "Option19 第7位  20 -1 Text18 0 1 -1 -1 | 0 99 3 | ",
};

struct Catalogue {
    std::span<const Parameter> parameters;
    std::span<const std::string_view> rows;
};

std::array<Catalogue, 3> catalogues() {
    return {{{sixAndBlueCatalogue(), kRows}, {sixRedCatalogue(), kSixRedRows}, {sevenRedCatalogue(), kSevenRedRows}}};
}

std::string print(const Parameter& p) {
    std::string line;
    for (const std::string_view text : {p.option, p.caption, p.history})
        line += std::string(text) + ' ';
    line += std::to_string(p.tick) + ' ' + std::to_string(p.period) + ' ' + std::string(p.boxes.name);
    for (const int box : {p.boxes.low, p.boxes.high, p.boxes.count, p.boxes.list})
        line += ' ' + std::to_string(box);
    line += " |";
    for (const int value : {p.defaults.low, p.defaults.high, p.defaults.count})
        line += ' ' + std::to_string(value);
    return line + " | " + std::string(p.gridTitle);
}

TEST(Catalogue, HoldsTheseParametersWithTheseControlsAndTexts) {
    for (const Catalogue& catalogue : catalogues()) {
        EXPECT_EQ(catalogue.parameters.size(), catalogue.rows.size());
        for (const std::string_view row : catalogue.rows) {
            const Parameter* p = findParameter(catalogue.parameters, row.substr(0, row.find(' ')));
            ASSERT_NE(p, nullptr) << row;
            EXPECT_EQ(print(*p), row);
        }
    }
}

TEST(Catalogue, APositionHasItsParityBoxesAndReason) {
    const char* reasons[] = {"红球1位奇偶性", "红球2位奇偶性", "红球3位奇偶性", "红球4位奇偶性",
                             "红球5位奇偶性", "红球6位奇偶性", "蓝球奇偶性"};
    for (const auto parameters : {sixAndBlueCatalogue(), sixRedCatalogue()})
        for (int position = 1; position <= 7; ++position) {
            const Parameter* p = findParameter(parameters, "Option" + std::to_string(12 + position));
            ASSERT_NE(p, nullptr);
            if (p->caption == "5整除个数") // stands where the blue number does elsewhere
                continue;
            EXPECT_EQ(p->column, "fig" + std::to_string(position));
            EXPECT_EQ(p->oddBox, 2 + 2 * position);
            EXPECT_EQ(p->parityReason, reasons[position - 1]);
        }
}

TEST(Catalogue, OfSevenRedsHasNoReasonsListsPositionBoxesOrParity) {
    for (const Catalogue& catalogue : catalogues())
        for (const Parameter& p : catalogue.parameters) {
            const bool seven = catalogue.parameters.data() == sevenRedCatalogue().data();
            EXPECT_EQ(p.reds, seven ? 7 : 6) << p.option;
            EXPECT_EQ(p.reasons, !seven) << p.option;
            EXPECT_EQ(p.hasParity(), !seven && p.isPosition()) << p.option;
            EXPECT_EQ(p.hasList(), !seven && !p.isInterval()) << p.option;
            EXPECT_EQ(p.weighed, !seven && !p.isPosition()) << p.option;
        }
}

TEST(Catalogue, AnExportIsHeadedByTheGridTitleButForTwo) {
    for (const Catalogue& catalogue : catalogues())
        for (const Parameter& p : catalogue.parameters) {
            const bool other = p.caption == "红蓝偶数个数" || p.caption == "红蓝各位数和";
            EXPECT_EQ(p.exportHeading(), other ? "遗漏极差" : p.gridTitle) << p.option;
            EXPECT_EQ(p.exportHeading().empty(), p.isPosition()) << p.option;
        }
}

TEST(Catalogue, OnlyTheParametersOfAllSevenNumbersSaySo) {
    for (const Catalogue& catalogue : catalogues())
        for (const Parameter& p : catalogue.parameters)
            EXPECT_EQ(p.wholeBet, p.caption.starts_with("红蓝")) << p.option;
}

std::string shownRows(std::span<const Parameter> parameters) {
    std::string shown;
    const Parameter* before = nullptr;
    for (const Parameter& p : parameters) {
        if (!before || before->group != p.group)
            shown += std::string(before ? " | " : "") + std::string(groupCaption(p.group)) + ":";
        shown += " " + std::string(p.caption);
        before = &p;
    }
    return shown;
}

TEST(Catalogue, GroupsFollowEachOtherAsTheWindowShowsThem) {
    EXPECT_EQ(shownRows(sixAndBlueCatalogue()),
              "和值: 各码数和 各码和个位 个位数和 奇数之和 偶数之和 | 个数: 连号个数 偶数个数 大数个数 个位大数 "
              "01~11区间 12~22区间 23~33区间 3整除个数 重上期个数 个位同号数 自定区间 | 位置: 红1位 红2位 红3位 "
              "红4位 红5位 红6位 蓝球 | 差值: 最大差值 首尾差值 复杂度AC值 | 遗漏: 遗漏数和 遗漏极差 | 红蓝: "
              "红蓝各位数和 红蓝偶数个数 红蓝大数个数 红蓝重上期个");
    EXPECT_EQ(shownRows(sixRedCatalogue()),
              "和值: 各位数和 各位和个位 个位数和 奇数之和 偶数之和 小数之和 大数之和 | 个数: 连号个数 偶数个数 "
              "大数个数 个位大数 01~11区间 12~22区间 23~33区间 3整除个数 5整除个数 重上期个数 同尾个数 自定区间 | "
              "位置: 第1位 第2位 第3位 第4位 第5位 第6位 | 差值: 最大差值 首尾差值 复杂度AC值 | 遗漏: 遗漏数和 "
              "遗漏极差");
    EXPECT_EQ(shownRows(sevenRedCatalogue()),
              "和值: 各位数和 各位和个位 | 个数: 连号个数 偶数个数 大数个数 个位大数 1~10区间 11~20区间 21~30区间 "
              "31~40区间 41以上 重上期个数 | 位置: 第1位 第2位 第3位 第4位 第5位 第6位 第7位 | 差值: 最大差值 "
              "首尾差值 数字复杂度");
}

TEST(Catalogue, TheKindSaysWhatIsCompared) {
    for (const Catalogue& catalogue : catalogues()) {
        for (const Parameter& p : catalogue.parameters) {
            const Kind kind = p.caption == "蓝球"           ? Kind::Blue
                              : p.caption == "自定区间"     ? Kind::Interval
                              : p.column.starts_with("fig") ? Kind::RedPosition
                                                            : Kind::Value;
            EXPECT_EQ(p.kind, kind) << p.option;
            EXPECT_EQ(p.place > 0 ? "fig" + std::to_string(p.place) : "", p.column) << p.option;
            EXPECT_TRUE(p.counts.ends_with("。")) << p.option;
            EXPECT_EQ(parameterAt(catalogue.parameters, p.tick), &p);
        }
        EXPECT_EQ(parameterAt(catalogue.parameters, 32), nullptr);
    }
}

} // namespace
} // namespace filter
