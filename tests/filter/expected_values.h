// The statements that fill canshu, written out: 33 reds, last draw 2 5 11 17 25 33, ChkBt(3) clear, all others
// ticked.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace filter_test {

// clang-format off
inline const std::map<std::string, std::vector<std::string>> kExpectedValues = {
    {"Option23", {R"(UPDATE [zuhe] SET [canshu]=([fig1] * 1 + [fig2] * 1 + [fig3] * 0 + [fig4] * 1 + [fig5] * 1 + [fig6] * 1))"}},
    {"Option3", {R"(UPDATE [zuhe] SET [canshu]=([fig1] * 1 + [fig2] * 1 + [fig3] * 0 + [fig4] * 1 + [fig5] * 1 + [fig6] * 1) mod 10)"}},
    {"Option2", {R"(UPDATE [zuhe] SET [canshu]=-(( [fig2] - [fig1] = 1) * 1 +  ([fig3] - [fig2] = 1) * 0 + ([fig4] - [fig3] = 1) * 0 + ([fig5] - [fig4] = 1) * 1 + ([fig6] - [fig5] = 1) * 1))"}},
    {"Option4", {R"(UPDATE [zuhe] SET [canshu]=-([fig1] mod 2 = 0 ) * 1 -([fig2] mod 2 = 0) * 1 -([fig3] mod 2 = 0) * 0 -([fig4] mod 2 = 0) * 1 -([fig5] mod 2 = 0) * 1 -([fig6] mod 2 = 0) * 1)"}},
    {"Option5", {R"(UPDATE [zuhe] SET [canshu]=-(([fig1] >16.5) * 1 +  ([fig2] >16.5) * 1 + ([fig3] >16.5) * 0 + ([fig4] >16.5) * 1 + ([fig5] >16.5) * 1 + ([fig6] >16.5) * 1))"}},
    {"Option8", {R"(UPDATE [zuhe] SET [canshu]=-(([fig1] mod 10 >4) * 1 +  ([fig2] mod 10 >4) * 1 + ([fig3] mod 10 >4) * 0 + ([fig4] mod 10 >4) * 1 + ([fig5] mod 10 >4) * 1 + ([fig6] mod 10 >4) * 1))"}},
    {"Option9", {R"(UPDATE [zuhe] SET [canshu]=-(([fig1]<=11) * 1 +  ([fig2] <=11) * 1 + ([fig3] <=11) * 0 + ([fig4] <=11) * 1 + ([fig5] <=11) * 1 + ([fig6] <=11) * 1))"}},
    {"Option10", {R"(UPDATE [zuhe] SET [canshu]=-(([fig1]>11 and [fig1]<=22) * 1 +  ([fig2]>11 and [fig2]<=22) * 1 + ([fig3]>11 and [fig3]<=22) * 0 + ([fig4]>11 and [fig4]<=22) * 1 + ([fig5]>11 and [fig5]<=22) * 1 + ([fig6]>11 and [fig6]<=22) * 1))"}},
    {"Option11", {R"(UPDATE [zuhe] SET [canshu]=-(([fig1]>22 and [fig1]<=33) * 1 +  ([fig2]>22 and [fig2]<=33) * 1 + ([fig3]>22 and [fig3]<=33) * 0 + ([fig4]>22 and [fig4]<=33) * 1 + ([fig5]>22 and [fig5]<=33) * 1 + ([fig6]>22 and [fig6]<=33) * 1))"}},
    {"Option12", {R"(UPDATE [zuhe] SET [canshu]=-(([fig1] MOD 3 = 0) * 1 +  ([fig2] MOD 3 = 0) * 1 + ([fig3] MOD 3 = 0) * 0 + ([fig4] MOD 3 = 0) * 1 + ([fig5] MOD 3 = 0) * 1 + ([fig6] MOD 3 = 0) * 1))"}},
    {"Option39", {R"(UPDATE [zuhe] SET [canshu]=(([fig1] mod 10) * 1 + ([fig2] mod 10) * 1 + ([fig3] mod 10) * 0 + ([fig4] mod 10) * 1 + ([fig5] mod 10) * 1 + ([fig6] mod 10) * 1))"}},
    {"Option41", {R"(UPDATE [zuhe] SET [canshu]=-(([fig1]*([fig1] mod 2 = 1) * 1) + ([fig2]*([fig2] mod 2 = 1) * 1) + ([fig3]*([fig3] mod 2 = 1) * 0) + ([fig4]*([fig4] mod 2 = 1) * 1) + ([fig5]*([fig5] mod 2 = 1) * 1) + ([fig6]*([fig6] mod 2 = 1) * 1)))"}},
    {"Option40", {R"(UPDATE [zuhe] SET [canshu]=-(([fig1]*([fig1] mod 2 = 0) * 1) + ([fig2]*([fig2] mod 2 = 0) * 1) + ([fig3]*([fig3] mod 2 = 0) * 0) + ([fig4]*([fig4] mod 2 = 0) * 1) + ([fig5]*([fig5] mod 2 = 0) * 1) + ([fig6]*([fig6] mod 2 = 0) * 1)))"}},
    {"Option33", {R"(UPDATE [zuhe] SET [canshu]=([fig1] * 1 + [fig2] * 1 + [fig3] * 0 + [fig4] * 1 + [fig5] * 1 + [fig6] * 1 + [fig7] * 1))"}},
    {"Option31", {R"(UPDATE [zuhe] SET [canshu]=-([fig1] mod 2 = 0 ) * 1 -([fig2] mod 2 = 0) * 1 -([fig3] mod 2 = 0) * 0 -([fig4] mod 2 = 0) * 1 -([fig5] mod 2 = 0) * 1 -([fig6] mod 2 = 0) * 1 -([fig7] mod 2 = 0) * 1)"}},
    {"Option32", {R"(UPDATE [zuhe] SET [canshu]=-(([fig1] >16.5) * 1 +  ([fig2] >16.5) * 1 + ([fig3] >16.5) * 0 + ([fig4] >16.5) * 1 + ([fig5] >16.5) * 1 + ([fig6] >16.5) * 1 + ([fig7] >16.5) * 1))"}},
    {"Option20", {R"(UPDATE [zuhe] SET [canshu]=-((InStr(" 2 5 11 17 25 33 ",chr(32) & [fig1] & chr(32) ) > 0) * 1 + ( InStr(" 2 5 11 17 25 33 ",chr(32) & [fig2] & chr(32)) > 0) * 1 + ( InStr(" 2 5 11 17 25 33 ",chr(32) & [fig3] & chr(32)) > 0) * 0 + ( InStr(" 2 5 11 17 25 33 ",chr(32) & [fig4] & chr(32)) > 0) * 1 + ( InStr(" 2 5 11 17 25 33 ",chr(32) & [fig5] & chr(32)) > 0) * 1 + ( InStr(" 2 5 11 17 25 33 ",chr(32) & [fig6] & chr(32)) > 0) * 1))"}},
    {"Option34", {R"(UPDATE [zuhe] SET [canshu]=-((InStr(" 2 5 11 17 25 33 ",chr(32) & [fig1] & chr(32) ) > 0) * 1 + ( InStr(" 2 5 11 17 25 33 ",chr(32) & [fig2] & chr(32)) > 0) * 1 + ( InStr(" 2 5 11 17 25 33 ",chr(32) & [fig3] & chr(32)) > 0) * 0 + ( InStr(" 2 5 11 17 25 33 ",chr(32) & [fig4] & chr(32)) > 0) * 1 + ( InStr(" 2 5 11 17 25 33 ",chr(32) & [fig5] & chr(32)) > 0) * 1 + ( InStr(" 2 5 11 17 25 33 ",chr(32) & [fig6] & chr(32)) > 0) * 1 + ( InStr(" 2 5 11 17 25 33 ",chr(32) & [fig7] & chr(32)) > 0) * 1))"}},
    {"Option6", {
        R"(UPDATE [zuhe] SET [canshu]=IIf([fig6]-[fig5]>[fig5]-[fig4],[fig6]-[fig5],[fig5]-[fig4]))",
        R"(UPDATE [zuhe] SET [canshu]=IIf([canshu]>[fig0]-[fig6],[canshu],[fig0]-[fig6]))",
        R"(UPDATE [zuhe] SET [canshu]=IIf([canshu]>[fig6]-[fig5],[canshu],[fig6]-[fig5]))",
        R"(UPDATE [zuhe] SET [canshu]=IIf([canshu]>[fig5]-[fig4],[canshu],[fig5]-[fig4]))",
        R"(UPDATE [zuhe] SET [canshu]=IIf([canshu]>[fig4]-[fig2],[canshu],[fig4]-[fig2]))",
        R"(UPDATE [zuhe] SET [canshu]=IIf([canshu]>[fig2]-[fig1],[canshu],[fig2]-[fig1]))",
    }},
    {"Option7", {R"(UPDATE [zuhe] SET [canshu]=([fig6]-[fig1]))"}},
    {"Option66", {R"(UPDATE [zuhe] SET [canshu]=-(([fig1]>10and [fig1]<=20)* 1 +  ([fig2]>10and [fig2]<=20)* 1 + ([fig3]>10and [fig3]<=20)* 0 + ([fig4]>10and [fig4]<=20)* 1 + ([fig5]>10and [fig5]<=20)* 1 + ([fig6]>10and [fig6]<=20)* 1))"}},
    {"Option24", {}},
    {"Option30", {}},
    {"Option38", {}},
    {"Option42", {}},
    {"Option13", {}},
    {"Option14", {}},
    {"Option15", {}},
    {"Option16", {}},
    {"Option17", {}},
    {"Option18", {}},
    {"Option19", {}},
};

/// The statements of the windows with six reds that the windows with a blue do not have, for the same settings.
inline const std::map<std::string, std::vector<std::string>> kExpectedOfSixReds = {
    {"Option19", {R"(UPDATE [zuheR] SET [canshu]=-(([fig1] MOD 5 = 0) * 1 +  ([fig2] MOD 5 = 0) * 1 + ([fig3] MOD 5 = 0) * 0 + ([fig4] MOD 5 = 0) * 1 + ([fig5] MOD 5 = 0) * 1 + ([fig6] MOD 5 = 0) * 1))"}},
    {"Option39", {R"(UPDATE [zuheR] SET [canshu]=-(([fig1]*([fig1] <= 16.5) * 1) + ([fig2]*([fig2] <= 16.5) * 1) + ([fig3]*([fig3] <= 16.5) * 0) + ([fig4]*([fig4] <= 16.5) * 1) + ([fig5]*([fig5] <= 16.5) * 1) + ([fig6]*([fig6] <= 16.5) * 1)))"}},
    {"Option40", {R"(UPDATE [zuheR] SET [canshu]=-(([fig1]*([fig1] > 16.5) * 1) + ([fig2]*([fig2] > 16.5) * 1) + ([fig3]*([fig3] > 16.5) * 0) + ([fig4]*([fig4] > 16.5) * 1) + ([fig5]*([fig5] > 16.5) * 1) + ([fig6]*([fig6] > 16.5) * 1)))"}},
};

/// The statements of the windows with seven reds; the position boxes play no part there.
inline const std::map<std::string, std::vector<std::string>> kExpectedOfSevenReds = {
    {"Option23", {R"(UPDATE [zuhef] SET [canshu]=([fig1] + [fig2] + [fig3] + [fig4] + [fig5] + [fig6] + [fig7]))"}},
    {"Option3", {R"(UPDATE [zuhef] SET [canshu]=([fig1] + [fig2] + [fig3] + [fig4] + [fig5] + [fig6] + [fig7]) mod 10)"}},
    {"Option2", {R"(UPDATE [zuhef] SET [canshu]=-(( [fig2] - [fig1] = 1) +  ([fig3] - [fig2] = 1) + ([fig4] - [fig3] = 1) + ([fig5] - [fig4] = 1) + ([fig6] - [fig5] = 1) + ([fig7] - [fig6] = 1)))"}},
    {"Option4", {R"(UPDATE [zuhef] SET [canshu]=-(([fig1] mod 2 = 0) +  ([fig2] mod 2 = 0) + ([fig3] mod 2 = 0) + ([fig4] mod 2 = 0) + ([fig5] mod 2 = 0) + ([fig6] mod 2 = 0) + ([fig7] mod 2 = 0)))"}},
    {"Option5", {R"(UPDATE [zuhef] SET [canshu]=-(([fig1] > 16.5) +  ([fig2] > 16.5) + ([fig3] > 16.5) + ([fig4] > 16.5) + ([fig5] > 16.5) + ([fig6] > 16.5) + ([fig7] > 16.5)))"}},
    {"Option8", {R"(UPDATE [zuhef] SET [canshu]=-(([fig1] mod 10 >4) +  ([fig2] mod 10 >4) + ([fig3] mod 10 >4) + ([fig4] mod 10 >4) + ([fig5] mod 10 >4) + ([fig6] mod 10 >4) + ([fig7] mod 10 >4)))"}},
    {"Option9", {R"(UPDATE [zuhef] SET [canshu]=-(([fig1]<= 10) +  ([fig2] <= 10) + ([fig3] <= 10) + ([fig4] <= 10) + ([fig5] <= 10) + ([fig6] <= 10) + ([fig7] <= 10)))"}},
    {"Option10", {R"(UPDATE [zuhef] SET [canshu]=-(([fig1]>10 and [fig1]<=20) +  ([fig2]>10 and [fig2]<=20) + ([fig3]>10 and [fig3]<=20) + ([fig4]>10 and [fig4]<=20) + ([fig5]>10 and [fig5]<=20) + ([fig6]>10 and [fig6]<=20) + ([fig7]>10 and [fig7]<=20)))"}},
    {"Option11", {R"(UPDATE [zuhef] SET [canshu]=-(([fig1]>20 and [fig1]<=30) +  ([fig2]>20 and [fig2]<=30) + ([fig3]>20 and [fig3]<=30) + ([fig4]>20 and [fig4]<=30) + ([fig5]>20 and [fig5]<=30) + ([fig6]>20 and [fig6]<=30) + ([fig7]>20 and [fig7]<=30)))"}},
    {"Option12", {R"(UPDATE [zuhef] SET [canshu]=-(([fig1] > 30 and [fig1]< 40) +  ([fig2] > 30 and [fig1]< 40) + ([fig3] > 30 and [fig1]< 40) + ([fig4] > 30 and [fig1]< 40) + ([fig5] > 30 and [fig1]< 40) + ([fig6] > 30 and [fig1]< 40) + ([fig7] > 30 and [fig1]< 40)))"}},
    {"Option41", {R"(UPDATE [zuhef] SET [canshu]=-(([fig1] > 40) +  ([fig2] > 40) + ([fig3] > 40) + ([fig4] > 40) + ([fig5] > 40) + ([fig6] > 40) + ([fig7] > 40)))"}},
    {"Option20", {R"(UPDATE [zuhef] SET [canshu]=-((InStr(" 2 5 11 17 25 33 ",chr(32) & [fig1] & chr(32) ) > 0) + ( InStr(" 2 5 11 17 25 33 ",chr(32) & [fig2] & chr(32)) > 0) + ( InStr(" 2 5 11 17 25 33 ",chr(32) & [fig3] & chr(32)) > 0) + ( InStr(" 2 5 11 17 25 33 ",chr(32) & [fig4] & chr(32)) > 0) + ( InStr(" 2 5 11 17 25 33 ",chr(32) & [fig5] & chr(32)) > 0) + ( InStr(" 2 5 11 17 25 33 ",chr(32) & [fig6] & chr(32)) > 0) + ( InStr(" 2 5 11 17 25 33 ",chr(32) & [fig7] & chr(32)) > 0)))"}},
    {"Option6", {
        R"(UPDATE [zuhef] SET [canshu]=IIf([fig7]-[fig6]>[fig6]-[fig5],[fig7]-[fig6],[fig6]-[fig5]))",
        R"(UPDATE [zuhef] SET [canshu]=IIf([canshu]>[fig0]-[fig7],[canshu],[fig0]-[fig7]))",
        R"(UPDATE [zuhef] SET [canshu]=IIf([canshu]>[fig7]-[fig6],[canshu],[fig7]-[fig6]))",
        R"(UPDATE [zuhef] SET [canshu]=IIf([canshu]>[fig6]-[fig5],[canshu],[fig6]-[fig5]))",
        R"(UPDATE [zuhef] SET [canshu]=IIf([canshu]>[fig5]-[fig4],[canshu],[fig5]-[fig4]))",
        R"(UPDATE [zuhef] SET [canshu]=IIf([canshu]>[fig4]-[fig3],[canshu],[fig4]-[fig3]))",
        R"(UPDATE [zuhef] SET [canshu]=IIf([canshu]>[fig3]-[fig2],[canshu],[fig3]-[fig2]))",
        R"(UPDATE [zuhef] SET [canshu]=IIf([canshu]>[fig2]-[fig1],[canshu],[fig2]-[fig1]))",
    }},
    {"Option7", {R"(UPDATE [zuhef] SET [canshu]=([fig7]-[fig1]))"}},
    {"Option24", {}},
    {"Option13", {}},
    {"Option14", {}},
    {"Option15", {}},
    {"Option16", {}},
    {"Option17", {}},
    {"Option18", {}},
    {"Option19", {}},
};
// clang-format on

} // namespace filter_test
