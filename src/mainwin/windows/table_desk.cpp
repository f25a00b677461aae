#include "mainwin/windows/table_desk.h"

#include "base/number_text.h"
#include "mainwin/main_texts.h"
#include "toolkit/dialog_boxes.h"
#include "workspace/failure.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace mainwin {

namespace {

constexpr std::size_t kToldLines = 20;                // of those that were passed over
constexpr std::string_view kApartTable = "zuheReadR"; // read into filnum, shown from filnumR
constexpr std::string_view kApartForm = "GAganReadR";
constexpr int kFarthestStart = 1'000'000'000;

const QString kStartPrompt =
    u"该功能每行读取一注，该文本文件每行从第几个字符开始读取。（如果每注前面有序号，应该避免将序号作为号码读入，"
    u"如果没有序号可以从第一个字符也就是顶格读取）"_s;

/// "读入 3 注，跳过 2 行（第4行：0个号码；第5行：3个号码）"
QString resultText(const selection::BetTextResult& result) {
    QString text = u"读入 %1 注"_s.arg(thousandsApart(result.bets));
    if (result.bets == 0)
        text += u"：文本里没有一注，表中仍是上次读入的组号"_s;
    if (result.passed == 0)
        return text + u"。"_s;
    QStringList lines;
    for (const selection::PassedLine& line : result.passedLines) {
        if (lines.size() == static_cast<qsizetype>(kToldLines))
            break;
        lines << u"第%1行：%2个号码"_s.arg(line.line).arg(line.numbers);
    }
    if (result.passed > lines.size())
        lines << u"…"_s;
    return text + u"，跳过 %1 行（%2）。"_s.arg(thousandsApart(result.passed), lines.join(u"；"_s));
}

} // namespace

TableDesk::TableDesk(MainContext& context, FilterOpener& opener) : m_context(context), m_opener(opener) {
    Commands& commands = context.commands;
    const std::pair<QString, std::string_view> kept[] = {
        {u"mnuCallfd"_s, "GAganMb"},  {u"mnuCallfdr"_s, "GAganRMb"},   {u"mnuCallfdf"_s, "GAganfMb"},
        {u"mnuCatxt"_s, "GAganRead"}, {u"mnuCallZhmb"_s, "GAganZhMb"}, {u"mnuCallZhmbR"_s, "GAganZhMbR"}};
    for (const auto& [name, form] : kept)
        commands.on(name, [this, form = form](int) { m_opener.openKept(form); });
    commands.on(u"mnuRdtxt"_s, [this](int) { readText({{"zuheRead", 7}, "GAganRead"}); });
    commands.on(u"mnuCatxtR"_s, [this](int) { openApart({}, m_opener.rowsOf(kApartForm) == 0); });
    // Its window shows the table of that name in filnumR, while the reading writes the one in filnum: meant so.
    commands.on(u"mnuRdtxtR"_s, [this](int) { readText({{kApartTable, 6}, kApartForm, true}); });
}

void TableDesk::readText(const TextBets& bets) {
    toolkit::DialogBoxes boxes(&m_opener.window());
    const QString file = boxes.chooseFile({}, m_fileFilter);
    m_fileFilter = u"Text(*.txt)|*.txt"_s; // from the second time on
    const std::optional<int> start = askStart();
    if (!start)
        return;
    const QString told = file.isEmpty() ? u"没有选择文件：表中仍是上次读入的组号。"_s : read(bets, file, *start);
    if (told.isNull())
        return;
    if (bets.apart)
        openApart(told, true);
    else
        m_opener.openKept(bets.form, told);
}

/// \param offered  whether the window offers them, if there are any
void TableDesk::openApart(const QString& notice, bool offered) {
    std::int64_t bets = 0;
    sql::Database& filnum = *m_context.workspace.dbFilnum;
    if (offered && filnum.hasTable(kApartTable))
        bets = filnum.rowCount(kApartTable);
    if (bets == 0) {
        m_opener.openKept(kApartForm, notice);
        return;
    }
    const QString count = thousandsApart(bets);
    selection::CopiedBets source(filnum);
    const BetOffer offer{
        source,
        u"显示读入的 %1 注"_s.arg(count),
        u"把 filnum 中读入的组号复制到这个窗口的表里；filnum 中的不变"_s,
        u"文本组号已读入 filnum，窗口显示的是 filnumR 中的表"_s,
        {u"窗口里现有 %1 注和它们的过滤状态将换成文本读入的 %2 注。要继续吗？\n要保留现有的，请先取消，在表上按右键“导出…”。"_s
             .arg(thousandsApart(m_opener.rowsOf(kApartForm)), count),
         u"显示读入的组号"_s},
        u"窗口里现在是文本读入的 %1 注；filnum 中的没有改变。"_s.arg(count)};
    m_opener.openKept(kApartForm, notice, &offer);
}

/// \return nothing for an empty answer, which ends the command
std::optional<int> TableDesk::askStart() {
    toolkit::DialogBoxes boxes(&m_opener.window());
    while (true) {
        const QString answer = boxes.askText(kStartPrompt, u"读取设置"_s, u"1"_s).value_or(QString());
        if (answer.isEmpty())
            return std::nullopt;
        const std::optional<double> place = base::leadingNumber(answer.toStdString());
        if (place && *place >= 1 && *place <= kFarthestStart)
            return base::wholeWithin(*place, 1, kFarthestStart);
        boxes.tell(u"请输入数字"_s, u"输入错误"_s);
    }
}

/// \return what is told of it; null when it was given up or has failed
QString TableDesk::read(const TextBets& bets, const QString& file, int start) {
    toolkit::DialogBoxes boxes(&m_opener.window());
    try {
        const auto progress = boxes.progress(u"读取 %1"_s.arg(file));
        const selection::BetTextResult result = selection::readBets(*m_context.workspace.dbFilnum, bets.target,
                                                                    workspace::toPath(file), start, progress.get());
        if (result.cancelled)
            return {};
        if (!bets.apart)
            return resultText(result);
        store(); // no window stands on this file that would
        return resultText(result) +
               (result.bets > 0 ? u"文本组号已读入 filnum，窗口显示的是 filnumR 中的表。"_s : QString());
    } catch (const workspace::Failure& failed) {
        boxes.warn(workspace::failureMessage(failed, u"文本没有读入"_s, u"读取设置"_s));
    } catch (const sql::SqlError& failed) {
        boxes.warn(workspace::failureMessage(failed, u"文本没有读入"_s, u"读取设置"_s,
                                             u"表中仍是上次读入的组号。排除原因后再读一次。"_s));
    }
    return {};
}

/// A failure is told; the bets are there until the program ends, and are stored again then.
void TableDesk::store() {
    try {
        if (m_context.workspace.dbFilnum->storePending())
            m_context.workspace.dbFilnum->store();
    } catch (const sql::SqlError& failed) {
        toolkit::DialogBoxes(&m_opener.window())
            .warn(workspace::failureMessage(failed, u"读入的组号没有写入文件"_s, u"读取设置"_s,
                                            u"组号都还在，退出时会再写一次。请先排除原因。"_s));
    }
}

} // namespace mainwin
