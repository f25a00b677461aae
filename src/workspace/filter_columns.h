// The columns of saved filter settings (Canshu) and of filter templates (moban), which share their list.
//
// A filter window has two lists of boxes: extreme values and ranges. The range columns are named alike in both
// databases; the extreme-value columns of the six-red windows have names of their own. The box beside each name is
// the control that the column holds the text of. Text18, the blue of one window, holds 5整除个数 in the six-red ones;
// two parameters that only those have bring columns of their own (Xsh, Dsh). The list of 奇数之和 has no column.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace sql {
class Database;
}

namespace workspace {

struct BoxColumn {
    std::string_view column;       ///< in filnum.mdb; empty: it has none
    std::string_view columnSixRed; ///< in filnumR.mdb
    std::string_view box;          ///< the filter window's control
};

// Ranges: _1 is the lower box, _2 the higher one.
inline constexpr BoxColumn kRangeColumns[] = {
    {"1to10_1", "1to10_1", "Text8(0)"},
    {"1to10_2", "1to10_2", "Text8(1)"},
    {"11to20_1", "11to20_1", "Text9(0)"},
    {"11to20_2", "11to20_2", "Text9(1)"},
    {"21to30_1", "21to30_1", "Text10(0)"},
    {"21to30_2", "21to30_2", "Text10(1)"},
    {"31up_1", "31up_1", "Text11(0)"},
    {"31up_2", "31up_2", "Text11(1)"},
    {"lsh_1", "lsh_1", "Text4(0)"},
    {"lsh_2", "lsh_2", "Text4(1)"},
    {"csq_1", "csq_1", "Text21(0)"},
    {"csq_2", "csq_2", "Text21(1)"},
    {"sh_1", "sh_1", "Text2(0)"},
    {"sh_2", "sh_2", "Text2(1)"},
    {"fzd_1", "fzd_1", "Text22(0)"},
    {"fzd_2", "fzd_2", "Text22(1)"},
    {"ds_1", "ds_1", "Text6(0)"},
    {"ds_2", "ds_2", "Text6(1)"},
    {"zdzj_1", "zdzj_1", "Text19(0)"},
    {"zdzj_2", "zdzj_2", "Text19(1)"},
    {"czzj_1", "czzj_1", "Text20(0)"},
    {"czzj_2", "czzj_2", "Text20(1)"},
    {"os_1", "os_1", "Text5(0)"},
    {"os_2", "os_2", "Text5(1)"},
    {"1z_1", "1z_1", "Text12(0)"},
    {"1z_2", "1z_2", "Text12(1)"},
    {"2z_1", "2z_1", "Text13(0)"},
    {"2z_2", "2z_2", "Text13(1)"},
    {"3z_1", "3z_1", "Text14(0)"},
    {"3z_2", "3z_2", "Text14(1)"},
    {"4z_1", "4z_1", "Text15(0)"},
    {"4z_2", "4z_2", "Text15(1)"},
    {"5z_1", "5z_1", "Text16(0)"},
    {"5z_2", "5z_2", "Text16(1)"},
    {"6z_1", "6z_1", "Text17(0)"},
    {"6z_2", "6z_2", "Text17(1)"},
    {"7z_1", "7z_1", "Text18(0)"},
    {"7z_2", "7z_2", "Text18(1)"},
    {"shgw_1", "shgw_1", "Text3(0)"},
    {"shgw_2", "shgw_2", "Text3(1)"},
    {"Gwds_1", "Gwds_1", "Text7(0)"},
    {"Gwds_2", "Gwds_2", "Text7(1)"},
    {"Geweitong_0", "Geweitong_0", "Text23(0)"},
    {"Geweitong_1", "Geweitong_1", "Text23(1)"},
    {"csqB_1", "csqB_1", "Text21(2)"},
    {"csqB_2", "csqB_2", "Text21(3)"},
    {"shB_1", "shB_1", "Text2(2)"},
    {"shB_2", "shB_2", "Text2(3)"},
    {"osB_1", "osB_1", "Text5(2)"},
    {"osB_2", "osB_2", "Text5(3)"},
    {"dsB_1", "dsB_1", "Text6(2)"},
    {"dsB_2", "dsB_2", "Text6(3)"},
    {"Gwh_1", "Gwh_1", "Text25(0)"},
    {"Gwh_2", "Gwh_2", "Text25(1)"},
    {"Jsh_1", "Jsh_1", "Text27(0)"},
    {"Jsh_2", "Jsh_2", "Text27(1)"},
    {"Osh_1", "Osh_1", "Text24(0)"},
    {"Osh_2", "Osh_2", "Text24(1)"},
    {"Ylh_1", "Ylh_1", "Text26(0)"},
    {"Ylh_2", "Ylh_2", "Text26(1)"},
    {"Ylc_1", "Ylc_1", "Text28(0)"},
    {"Ylc_2", "Ylc_2", "Text28(1)"},
    {"", "Xsh_1", "Text29(0)"}, // 小数之和 and 大数之和 of the six-red windows
    {"", "Xsh_2", "Text29(1)"},
    {"", "Dsh_1", "Text30(0)"},
    {"", "Dsh_2", "Text30(1)"},
    {"Zdqj_1", "Zdqj_1", "Text66(2)"},
    {"Zdqj_2", "Zdqj_2", "Text66(3)"},
    {"ZdqjNum_1", "ZdqjNum_1", "Text66(0)"}, // these two belong to the extreme values as well
    {"ZdqjNum_2", "ZdqjNum_2", "Text66(1)"},
};

// Extreme values: the lists of the most frequent values. ZdqjNum_1 and ZdqjNum_2 of the ranges belong here too.
inline constexpr BoxColumn kExtremeColumns[] = {
    {"Tx2", "sh", "Text2(5)"},          {"tx3", "shgw", "Text3(3)"},  {"tx4", "lhg", "Text4(3)"},
    {"Tx5", "os", "Text5(5)"},          {"tx6", "ds", "Text6(5)"},    {"tx7", "Gwds", "Text7(3)"},
    {"Tx8", "qj1", "Text8(3)"},         {"tx9", "qj2", "Text9(3)"},   {"tx10", "qj3", "Text10(3)"},
    {"tx11", "qj4", "Text11(3)"},       {"Tx12", "wz1", "Text12(3)"}, {"tx13", "wz2", "Text13(3)"},
    {"tx14", "wz3", "Text14(3)"},       {"Tx15", "wz4", "Text15(3)"}, {"tx16", "wz5", "Text16(3)"},
    {"tx17", "wz6", "Text17(3)"},       {"Tx18", "wz7", "Text18(3)"}, {"tx19", "zdzj", "Text19(3)"},
    {"tx20", "czzj", "Text20(3)"},      {"tx21", "csq", "Text21(5)"}, {"Tx22", "fzd", "Text22(3)"},
    {"tx23", "Geweitong", "Text23(3)"}, {"tx24", "Osh", "Text24(3)"}, {"Tx25", "Gwh", "Text25(3)"},
    {"tx26", "Ylh", "Text26(3)"},       {"ylc", "ylc", "Text28(3)"},  {"tx2p", "shp", "Text2(7)"},
    {"Tx21p", "csqp", "Text21(7)"},     {"tx5p", "osp", "Text5(7)"},  {"tx6p", "dsp", "Text6(7)"},
    {"", "Xsh", "Text29(3)"},           {"", "Dsh", "Text30(3)"},     {"Zdqj", "Zdqj", "TxtZdqj"},
};

// Odd and even marks of the positions: Check2(4) to Check2(17).
inline constexpr std::string_view kPositionFlags[] = {
    "1j", "1o", "2j", "2o", "3j", "3o", "4j", "4o", "5j", "5o", "6j", "6o", "7j", "7o",
};

enum class FilterFamily { SixAndBlue, SixRed };

/// The column's name in the family's file; empty: it has none.
constexpr std::string_view nameIn(FilterFamily family, const BoxColumn& column) {
    return family == FilterFamily::SixAndBlue ? column.column : column.columnSixRed;
}

/// Marks Check1(1) to Check1(30) of a template step: chk1 to chk30. The marks 0 and 31 are not stored.
inline constexpr int kStoredTicks = 30;
/// Numbers of a template step: sk0 to sk9.
inline constexpr int kStepNumbers = 10;

/// "[Name] string,[opt36] Bit,…": the column list of table Canshu.
std::string canshuColumns(FilterFamily family);
/// The column list of table moban: a step's number and control, then Canshu's columns without Name, then the rest of
/// the window's state.
std::string mobanColumns(FilterFamily family);
/// Adds to both tables the columns that the tables of an older workspace lack; a table that is missing is made. What
/// the database refuses is passed over.
void completeFilterTables(sql::Database& database, FilterFamily family);

} // namespace workspace
