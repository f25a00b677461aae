#include "mainwin/menu_table.h"

#include <array>

using namespace Qt::StringLiterals;

namespace mainwin {

namespace {

constexpr auto kMenu = RowKind::Menu;
constexpr auto kEntry = RowKind::Entry;
constexpr auto kChoice = RowKind::Choice;
const MenuRow kLine{1, RowKind::Separator, {}, {}};

using Rows = std::vector<MenuRow>;

void add(Rows& rows, std::initializer_list<MenuRow> more) {
    rows.insert(rows.end(), more);
}

/// One row for each index, with the index and an access key put into the caption.
void addArray(Rows& rows, int depth, RowKind kind, const QString& name, int first, const QString& caption,
              QStringView keys, Needs needs = Needs::Nothing) {
    for (qsizetype place = 0; place < keys.size(); ++place) {
        const int index = first + static_cast<int>(place);
        rows.push_back({depth, kind, name, caption.arg(index).arg(keys[place]), needs, index});
    }
}

void addSelectionMenu(Rows& rows) {
    add(rows, {
                  {0, kMenu, u"mnuSelect"_s, u"选号管理(&T)"_s},
                  {1, kEntry, u"mnuCall"_s, u"调用历史选号号码(&C)"_s},
                  {1, kEntry, u"mnuSave"_s, u"保存该次选号号码(&S)"_s},
                  {1, kEntry, u"mnuCallAdd"_s, u"添加历史选号号码(&A)"_s},
                  kLine,
                  {1, kMenu, u"mnuRedslt"_s, u"红球概率遗漏选号(&R)"_s, Needs::History},
                  {2, kEntry, u"mnuHihg"_s, u"选择多个高频号码(&H)"_s, Needs::History},
                  {2, kEntry, u"mnuLow"_s, u"选择多个低频号码(&L)"_s, Needs::History},
                  {2, kEntry, u"mnuYHigh"_s, u"选择遗漏高次号码(&I)"_s, Needs::History},
                  {2, kEntry, u"mnuYLow"_s, u"选择遗漏低次号码(&W)"_s, Needs::History},
                  {1, kMenu, u"mnuBluedslt"_s, u"蓝球概率遗漏选号(&B)"_s, Needs::History},
                  {2, kEntry, u"mnuHihgB"_s, u"选择多个高频号码(&H)"_s, Needs::History},
                  {2, kEntry, u"mnuLowB"_s, u"选择多个低频号码(&L)"_s, Needs::History},
                  {2, kEntry, u"mnuYHighB"_s, u"选择遗漏高次号码(&I)"_s, Needs::History},
                  {2, kEntry, u"mnuYLowB"_s, u"选择遗漏低次号码(&W)"_s, Needs::History},
                  kLine,
                  {1, kEntry, u"mnusltmoban"_s, u"选号模板设置功能(&M)"_s},
              });
}

void addDrawMenu(Rows& rows) {
    add(rows, {
                  {0, kMenu, u"meuCol"_s, u"摇奖控制(&O)"_s},
                  {1, kEntry, u"meuSta"_s, u"开始(&S)"_s, Needs::DrawStart},
                  {1, kEntry, u"meuSup"_s, u"暂停(&P)"_s, Needs::DrawPause},
                  {1, kEntry, u"meuRst"_s, u"重置(&T)"_s, Needs::DrawReset},
                  kLine,
                  {1, kMenu, u"meuSpd"_s, u"稳定系数(&T)"_s},
                  {2, kChoice, u"meuSpd1"_s, u"50(&N)"_s},
                  {2, kChoice, u"meuSpd2"_s, u"100(&O)"_s},
                  {2, kChoice, u"meuSpd3"_s, u"200(&R)"_s},
                  {2, kChoice, u"meuSpd4"_s, u"400(&U)"_s},
                  {2, kChoice, u"meuSpd5"_s, u"600(&E)"_s},
                  {2, kChoice, u"meuSpd6"_s, u"800(&I)"_s},
                  {2, kChoice, u"meuSpd7"_s, u"1000(&H)"_s},
                  {2, kChoice, u"meuSpd9"_s, u"1500(&V)"_s},
                  {2, kChoice, u"meuSpd10"_s, u"2500(&W)"_s},
                  {2, kChoice, u"meuSpd8"_s, u"无穷大(&I)"_s},
              });
}

void addHistoryMenu(Rows& rows) {
    add(rows, {
                  {0, kMenu, u"mnuHolmag"_s, u"历史管理(&H)"_s},
                  {1, kEntry, u"mnuNew"_s, u"历史号码文本下载更新(&N)"_s},
                  {1, kEntry, u"mnuNewol"_s, u"历史号码网上在线更新(&L)"_s},
                  kLine,
                  {1, kEntry, u"mnuLsApp"_s, u"手工追加最新历史号码(&A)"_s},
                  {1, kEntry, u"mnuRed"_s, u"整体读取历史号码文本(&R)"_s},
                  {1, kEntry, u"mnuRead"_s, u"追加读取历史号码文本(&D)"_s},
                  {1, kEntry, u"mnuEdit"_s, u"选择修改历史号码文本(&E)"_s},
                  kLine,
                  {1, kEntry, u"mnuDelast"_s, u"删除上次历史号码(&D)"_s, Needs::History},
                  {1, kEntry, u"meuCln"_s, u"清空历史号码列表(&C)"_s},
              });
}

void addWindowMenu(Rows& rows) {
    add(rows, {
                  {0, kMenu, u"meuWid"_s, u"功能窗口(&D)"_s},
                  {1, kEntry, u"mnuSy"_s, u"历史分析(&S)"_s, Needs::History},
                  {1, kEntry, u"meuRepot"_s, u"盈亏报告(&R)"_s},
                  {1, kEntry, u"meuAgarr"_s, u"摇奖排列组合(&A)"_s, Needs::DrawResult},
                  kLine,
                  {1, kEntry, u"mnuzhInq"_s, u"6红+1蓝组合中奖查询(&I)"_s, Needs::History},
                  {1, kEntry, u"mnuXzInq"_s, u"6红+1蓝旋转中奖查询(&X)"_s, Needs::History},
                  {1, kEntry, u"mnuWbInq"_s, u"6红+1蓝文本组合查询(&W)"_s, Needs::History},
                  {1, kEntry, u"mnuMbInq"_s, u"6红+1蓝模板中奖查询(&M)"_s, Needs::History},
                  {1, kEntry, u"mnuzhInqR"_s, u"6红球组合中奖查询(&U)"_s, Needs::History},
                  {1, kEntry, u"mnuXzInqR"_s, u"6红球旋转中奖查询(&Z)"_s, Needs::History},
                  {1, kEntry, u"mnuWbInqR"_s, u"6红球文本中奖查询(&B)"_s, Needs::History},
                  {1, kEntry, u"mnuMbInqR"_s, u"6红球模板中奖查询(&E)"_s, Needs::History},
                  {1, kEntry, u"mnufsInq"_s, u"7红球复式中奖查询(&Q)"_s, Needs::History},
                  kLine,
                  {1, kEntry, u"mnuCallfd"_s, u"调用上次复选胆拖 6红+1蓝  组合排列"_s},
                  {1, kEntry, u"mnuCallfdr"_s, u"调用上次复选胆拖 6红球单式组合排列"_s},
                  {1, kEntry, u"mnuCallRote"_s, u"调用上次旋转矩阵 6红+1蓝  组合排列"_s},
                  {1, kEntry, u"mnuCallRoteR"_s, u"调用上次旋转矩阵 6红球单式组合排列"_s},
                  {1, kEntry, u"mnuCallfdf"_s, u"调用上次复选胆拖 7红球复式组合排列"_s},
                  kLine,
                  {1, kEntry, u"mnuCallZhmbR"_s, u"调用 6红球 组号模板功能"_s},
                  {1, kEntry, u"mnuCallZhmb"_s, u"调用6红+1蓝组号模板功能"_s},
                  kLine,
                  {1, kEntry, u"mnuRdtxtR"_s, u"读取6红球组号文本过滤(&X)"_s},
                  {1, kEntry, u"mnuCatxtR"_s, u"调用6红球已读文本过滤(&Y)"_s},
                  {1, kEntry, u"mnuRdtxt"_s, u"读取6红+1蓝组号文本过滤(&D)"_s},
                  {1, kEntry, u"mnuCatxt"_s, u"调用6红+1蓝已读文本过滤(&A)"_s},
              });
}

/// One kind of wheel, 中{x}保{y}: the digits x and y, and its access key.
struct Guarantee {
    int xy;
    char16_t key;
};

void addGuarantees(Rows& rows, int depth, const QString& namePattern, const QString& captionPattern,
                   std::initializer_list<Guarantee> guarantees) {
    for (const auto& [xy, key] : guarantees)
        rows.push_back(
            {depth, kEntry, namePattern.arg(xy), captionPattern.arg(xy / 10).arg(xy % 10).arg(QChar(key))});
}

/// The extended wheels, a menu for each count of reds from 8 to 18.
void addExtendedWheels(Rows& rows) {
    constexpr std::u16string_view keys = u"ABCDEFGHIJK";
    const QString caption = u"红球中%1保%2(&%3)"_s;
    for (int reds = 8; reds <= 18; ++reds) {
        const QString menuCaption =
            u"红球%1数扩展矩阵(&%2)"_s.arg(reds).arg(QChar(keys[static_cast<std::size_t>(reds - 8)]));
        rows.push_back({2, kMenu, u"mnukzjz"_s, menuCaption, Needs::ExtendedWheel, reds});
        const QString name = u"mnuKjz%1%2"_s.arg(reds, 2, 10, QChar(u'0'));
        if (reds == 8)
            addGuarantees(rows, 3, name, caption, {{76, u'S'}});
        else if (reds == 9)
            addGuarantees(rows, 3, name, caption, {{55, u'V'}, {76, u'S'}});
        else
            addGuarantees(rows, 3, name, caption,
                          {{44, u'U'}, {54, u'O'}, {55, u'V'}, {64, u'R'}, {65, u'I'}, {76, u'S'}});
    }
}

void addWheels(Rows& rows) {
    rows.push_back({1, kMenu, u"mnuRt"_s, u"红球基本旋转矩阵（6红球排列）(&R)"_s});
    addArray(rows, 2, kEntry, u"meuRtxz"_s, 8, u"红球%1数选6中5(&%2)"_s, u"ABCDEFGHI", Needs::BasicWheel);
    rows.push_back({1, kMenu, u"mnuExra"_s, u"红球扩展旋转矩阵（6红球排列）(&E)"_s});
    addExtendedWheels(rows);
    const QString plain = u"中%1保%2(&%3)"_s;
    rows.push_back({1, kMenu, u"mnuQnjz"_s, u"红球超级旋转矩阵（6红球排列）(&A)"_s});
    addGuarantees(rows, 2, u"mnuRt%1"_s, plain,
                  {{54, u'F'}, {64, u'O'}, {74, u'N'}, {55, u'V'}, {65, u'I'}, {75, u'E'}, {76, u'S'}});
    rows.push_back({1, kMenu, u"mnuDtxj"_s, u"红球胆拖旋转矩阵（6红球排列）(&D)"_s, Needs::Bankers});
    constexpr std::array<Guarantee, 4> bankerWheels{{{44, u'U'}, {54, u'F'}, {55, u'V'}, {65, u'I'}}};
    for (int place = 0; place < 4; ++place) {
        const Guarantee& wheel = bankerWheels[static_cast<std::size_t>(place)];
        const QString caption = plain.arg(wheel.xy / 10).arg(wheel.xy % 10).arg(QChar(wheel.key));
        rows.push_back({2, kEntry, u"mnuZb"_s, caption, Needs::Nothing, 3 + place});
    }
    rows.push_back({1, kMenu, u"mnuFuxj"_s, u"红球复7式旋转矩阵（7红球排列）(&F)"_s});
    addGuarantees(
        rows, 2, u"mnuRtF%1"_s, plain,
        {{44, u'F'}, {54, u'F'}, {64, u'O'}, {74, u'N'}, {55, u'V'}, {65, u'I'}, {75, u'E'}, {66, u'X'}, {76, u'S'}});
}

void addBetMenu(Rows& rows) {
    add(rows, {
                  {0, kMenu, u"mnuSl"_s, u"组号方式(&M)"_s},
                  {1, kMenu, u"meuAgn"_s, u"红球摇奖复选选择（6红球排列）(&M)"_s, Needs::SevenReds},
                  {2, kEntry, u"mnuMilt"_s, u"多注单选摇奖设置(&M)"_s},
                  {2, RowKind::Separator, {}, {}},
              });
    addArray(rows, 2, kChoice, u"meuDanxuan"_s, 6, u"摇奖选%1个红球(&%2)"_s, u"ABCDEFGHIJK");
    add(rows, {
                  {1, kMenu, u"mnuDantuo"_s, u"红球摇奖胆拖选择（6红球排列）(&T)"_s, Needs::Bankers},
                  {2, kEntry, u"mnuDtuo"_s, u"摇奖胆拖排列(&D)"_s, Needs::DrawAndArrange},
                  kLine,
              });
    addWheels(rows);
    add(rows, {
                  kLine,
                  {1, kEntry, u"mnuLst"_s, u"红球复选组合排列（6红球排列）(&L)"_s, Needs::SevenReds},
                  {1, kEntry, u"mnuDtlst"_s, u"红球胆拖组合排列（6红球排列）(&S)"_s, Needs::SevenRedsAndBankers},
                  {1, kEntry, u"mnu8Lst"_s, u"红球复选7复式排列（7红球排列）(&G)"_s, Needs::EightReds},
                  {1, kEntry, u"mnuDt8lst"_s, u"红球胆拖7复式排列（7红球排列）(&H)"_s, Needs::EightRedsAndBankers},
                  kLine,
                  {1, kEntry, u"mnuWheelIn"_s, u"导入旋转矩阵…(&I)"_s},
              });
}

void addRest(Rows& rows) {
    add(rows, {
                  {0, kMenu, u"mnuUserset"_s, u"用户设置(&S)"_s},
                  {1, kEntry, u"mnuName"_s, u"用户名设置(&N)"_s},
                  {1, kMenu, u"meuBit"_s, u"彩票规则(&G)"_s},
              });
    addArray(rows, 2, kChoice, u"meuS"_s, 28, u"红球%1选6(&%2)"_s, u"EABCDFHIJKG");
    rows.push_back({2, RowKind::Separator, {}, {}});
    addArray(rows, 2, kChoice, u"mnuBlue"_s, 12, u"蓝球%1选1(&%2)"_s, u"WXYZSTB");
    add(rows, {
                  {1, kEntry, u"meuPlc"_s, u"中奖规则(&P)"_s},
                  {1, kEntry, u"mnuPtset"_s, u"打印设置(&R)"_s},
                  kLine,
                  {1, kChoice, u"mnuLook"_s, u"跟随系统"_s, Needs::Nothing, 0},
                  {1, kChoice, u"mnuLook"_s, u"浅色"_s, Needs::Nothing, 1},
                  {1, kChoice, u"mnuLook"_s, u"深色"_s, Needs::Nothing, 2},
                  {0, kMenu, u"mnuBoun"_s, u"附赠工具(&B)"_s},
                  {1, kEntry, u"mnuYsfx"_s, u"运势分析(&S)"_s},
                  {0, kMenu, u"meuHlp"_s, u"帮助说明(&H)"_s},
                  {1, kEntry, u"meuHelp"_s, u"帮助文档(&H)"_s},
                  {1, kEntry, u"meuDtl"_s, u"使用说明(&T)"_s},
                  {1, kEntry, u"meuAbt"_s, u"关于软件(&B)"_s},
              });
}

} // namespace

QString MenuRow::objectName() const {
    return index == kNoIndex ? name : u"%1(%2)"_s.arg(name).arg(index);
}

// add a menu entry here: a row in the function of its menu
std::vector<MenuRow> menuTable() {
    Rows rows;
    addSelectionMenu(rows);
    addDrawMenu(rows);
    addHistoryMenu(rows);
    addWindowMenu(rows);
    addBetMenu(rows);
    addRest(rows);
    return rows;
}

std::vector<ButtonRow> toolbarTable() {
    return {
        {u"sta"_s, u"开始"_s, u"开始摇奖分析"_s, u"ComSta"_s, Needs::DrawStart},
        {u"sup"_s, u"暂停"_s, u"暂停摇奖分析"_s, u"ComSpd"_s, Needs::DrawPause},
        {u"rst"_s, u"重新"_s, u"重新摇奖分析"_s, u"ComRst"_s, Needs::DrawReset},
        {},
        {u"ls"_s, u"历史分析"_s, u"历史分析窗口"_s, u"mnuSy"_s, Needs::History},
        {u"fx"_s, u"排列组合"_s, u"排列组合窗口"_s, u"meuAgarr"_s, Needs::DrawResult},
        {u"zj"_s, u"中奖查询"_s, u"中奖查询窗口"_s, u"mnuzhInq"_s, Needs::History},
        {u"yk"_s, u"盈亏报告"_s, u"盈亏报告窗口"_s, u"meuRepot"_s},
        {u"gz"_s, u"中奖规则"_s, u"中奖规则设定"_s, u"meuPlc"_s},
        {},
        {u"help"_s, u"帮助"_s, u"帮助和使用说明"_s, u"meuHelp"_s},
        {},
        {u"ext"_s, u"退出"_s, u"退出本程序"_s, u"ext"_s},
    };
}

std::vector<ButtonRow> buttonTable() {
    return {
        {u"ComSta"_s, u"开始(&G)"_s, {}, u"ComSta"_s, Needs::DrawStart},
        {u"ComSpd"_s, u"暂停(&P)"_s, {}, u"ComSpd"_s, Needs::DrawPause},
        {u"ComRst"_s, u"重置(&Z)"_s, {}, u"ComRst"_s, Needs::DrawReset},
        {u"cmdRead"_s, u"读取历史(&E)"_s, {}, u"mnuRed"_s},
        {u"cmdReadFirst"_s, u"读取历史"_s, {}, u"mnuRed"_s},
        {u"Command43"_s, u"历史更新(&W)"_s, u"放弃本次正在进行的输入操作"_s, u"mnuNewol"_s},
        {u"Command44"_s, u"删除上次(&L)"_s, {}, u"mnuDelast"_s, Needs::History},
        {u"Command48"_s, u"历史分析(&A)"_s, {}, u"mnuSy"_s, Needs::History},
    };
}

} // namespace mainwin
