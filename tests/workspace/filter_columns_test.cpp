#include "workspace/filter_columns.h"

#include <gtest/gtest.h>

namespace {

using workspace::FilterFamily;

// Both families, column by column, as the windows read and write them by name.
const std::string kExtremes = "[Tx2] string,[tx3] string,[tx4] string,[Tx5] string,[tx6] string,[tx7] string,"
                              "[Tx8] string,[tx9] string,[tx10] string,[tx11] string,[Tx12] string,[tx13] string,"
                              "[tx14] string,[Tx15] string,[tx16] string,[tx17] string,[Tx18] string,[tx19] string,"
                              "[tx20] string,[tx21] string,[Tx22] string,[tx23] string,[tx24] string,[Tx25] string,"
                              "[tx26] string,[ylc] string,[tx2p] string,[Tx21p] string,[tx5p] string,[tx6p] string,"
                              "[Zdqj] string";
const std::string kSixRedExtremes =
    "[sh] string,[shgw] string,[lhg] string,[os] string,[ds] string,[Gwds] string,"
    "[qj1] string,[qj2] string,[qj3] string,[qj4] string,[wz1] string,[wz2] string,"
    "[wz3] string,[wz4] string,[wz5] string,[wz6] string,[wz7] string,[zdzj] string,"
    "[czzj] string,[csq] string,[fzd] string,[Geweitong] string,[Osh] string,[Gwh] string,"
    "[Ylh] string,[ylc] string,[shp] string,[csqp] string,[osp] string,[dsp] string,"
    "[Xsh] string,[Dsh] string,[Zdqj] string";
const std::string kRanges = "[1to10_1] string,[1to10_2] string,[11to20_1] string,[11to20_2] string,[21to30_1] string,"
                            "[21to30_2] string,[31up_1] string,[31up_2] string,[lsh_1] string,[lsh_2] string,"
                            "[csq_1] string,[csq_2] string,[sh_1] string,[sh_2] string,[fzd_1] string,[fzd_2] string,"
                            "[ds_1] string,[ds_2] string,[zdzj_1] string,[zdzj_2] string,[czzj_1] string,"
                            "[czzj_2] string,[os_1] string,[os_2] string,[1z_1] string,[1z_2] string,[2z_1] string,"
                            "[2z_2] string,[3z_1] string,[3z_2] string,[4z_1] string,[4z_2] string,[5z_1] string,"
                            "[5z_2] string,[6z_1] string,[6z_2] string,[7z_1] string,[7z_2] string,[shgw_1] string,"
                            "[shgw_2] string,[Gwds_1] string,[Gwds_2] string,[Geweitong_0] string,"
                            "[Geweitong_1] string,[csqB_1] string,[csqB_2] string,[shB_1] string,[shB_2] string,"
                            "[osB_1] string,[osB_2] string,[dsB_1] string,[dsB_2] string,[Gwh_1] string,"
                            "[Gwh_2] string,[Jsh_1] string,[Jsh_2] string,[Osh_1] string,[Osh_2] string,"
                            "[Ylh_1] string,[Ylh_2] string,[Ylc_1] string,[Ylc_2] string,[Zdqj_1] string,"
                            "[Zdqj_2] string,[ZdqjNum_1] string,[ZdqjNum_2] string";
// Those of six reds have two parameters more.
const std::string kRangesSixRed = std::string(kRanges).insert(
    kRanges.find("[Zdqj_1]"), "[Xsh_1] string,[Xsh_2] string,[Dsh_1] string,[Dsh_2] string,");
const std::string kFlags = "[1j] Bit,[1o] Bit,[2j] Bit,[2o] Bit,[3j] Bit,[3o] Bit,[4j] Bit,[4o] Bit,[5j] Bit,"
                           "[5o] Bit,[6j] Bit,[6o] Bit,[7j] Bit,[7o] Bit";
const std::string kRun = "[RCperct] string,[RCcount] string";
const std::string kTicks = "[chk1] integer,[chk2] integer,[chk3] integer,[chk4] integer,[chk5] integer,"
                           "[chk6] integer,[chk7] integer,[chk8] integer,[chk9] integer,[chk10] integer,"
                           "[chk11] integer,[chk12] integer,[chk13] integer,[chk14] integer,[chk15] integer,"
                           "[chk16] integer,[chk17] integer,[chk18] integer,[chk19] integer,[chk20] integer,"
                           "[chk21] integer,[chk22] integer,[chk23] integer,[chk24] integer,[chk25] integer,"
                           "[chk26] integer,[chk27] integer,[chk28] integer,[chk29] integer,[chk30] integer";
const std::string kState = "[ljh] Bit,[baoliu] Bit,[sknum] integer,[skzu] integer,[sk0] integer,[sk1] integer,"
                           "[sk2] integer,[sk3] integer,[sk4] integer,[sk5] integer,[sk6] integer,[sk7] integer,"
                           "[sk8] integer,[sk9] integer";

TEST(FilterColumns, OfSavedSettingsAreThese) {
    EXPECT_EQ(workspace::canshuColumns(FilterFamily::SixAndBlue),
              "[Name] string,[opt36] Bit," + kExtremes + "," + kRanges + "," + kFlags + "," + kRun);
    EXPECT_EQ(workspace::canshuColumns(FilterFamily::SixRed),
              "[Name] string,[opt36] Bit," + kSixRedExtremes + "," + kRangesSixRed + "," + kFlags + "," + kRun);
}

TEST(FilterColumns, OfTemplatesAreThese) {
    EXPECT_EQ(workspace::mobanColumns(FilterFamily::SixAndBlue), "[Idx] integer,[intCmdnb] integer,[opt36] Bit," +
                                                                     kExtremes + "," + kRanges + "," + kFlags + "," +
                                                                     kRun + "," + kTicks + "," + kState);
    EXPECT_EQ(workspace::mobanColumns(FilterFamily::SixRed), "[Idx] integer,[intCmdnb] integer,[opt36] Bit," +
                                                                 kSixRedExtremes + "," + kRangesSixRed + "," +
                                                                 kFlags + "," + kRun + "," + kTicks + "," + kState);
}

} // namespace
