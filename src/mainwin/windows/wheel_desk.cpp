#include "mainwin/windows/wheel_desk.h"

#include <map>

#include <QCoreApplication>

#include "filter/member.h"
#include "mainwin/windows/places.h"
#include "mainwin/windows/wheel_import_window.h"
#include "selection/wheel_import.h"
#include "selection/windows/compound_window.h"
#include "toolkit/dialog_boxes.h"
#include "workspace/failure.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;
using selection::WheelFamily;

namespace mainwin {

namespace {

selection::WheelPlaces wheelPlaces(const std::filesystem::path& folder, std::string_view name) {
    return {folder / std::string(name),
            workspace::toPath(QCoreApplication::applicationDirPath()) / std::string(name)};
}

} // namespace

std::filesystem::path wheelFile(const std::filesystem::path& folder, std::string_view name) {
    const selection::WheelPlaces places = wheelPlaces(folder, name);
    return workspace::isThere(places.own) ? places.own : places.shipped;
}

namespace {

std::string_view formOf(const selection::Pad& pad) {
    return pad.Bluecnt > 0 ? "GAganRote" : "GAganRoteR";
}

} // namespace

WheelDesk::WheelDesk(MainContext& context, selection::Wheels& wheels, FilterOpener& opener,
                     std::filesystem::path folder)
    : m_context(context), m_wheels(wheels), m_opener(opener), m_folder(std::move(folder)) {
    registerMenus();
    registerEntries();
    context.commands.on(u"meuRtxz"_s, [this](int) {
        m_wheels.openMenu(WheelFamily::Basic, m_context.pad);
        open(formOf(m_context.pad));
    });
    context.commands.on(u"mnuWheelIn"_s, [this](int) { importWheel(); });
    // The load step again, on the pad as it is now and the wheel that was chosen last.
    for (const auto& [name, form] :
         {std::pair(u"mnuCallRote"_s, "GAganRote"), std::pair(u"mnuCallRoteR"_s, "GAganRoteR")})
        context.commands.on(name, [this, form = form](int) { open(form); });
}

void WheelDesk::registerMenus() {
    const std::pair<QString, WheelFamily> menus[] = {{u"mnuRt"_s, WheelFamily::Basic},
                                                     {u"mnuExra"_s, WheelFamily::Extended},
                                                     {u"mnuQnjz"_s, WheelFamily::Super},
                                                     {u"mnuDtxj"_s, WheelFamily::Banker},
                                                     {u"mnuFuxj"_s, WheelFamily::Seven}};
    for (const auto& [menu, family] : menus)
        m_context.commands.opening(menu, [this, family = family] { m_wheels.openMenu(family, m_context.pad); });
}

void WheelDesk::registerEntries() {
    std::map<QString, std::vector<WheelEntry>> byName; // an array is one command
    for (const WheelEntry& entry : wheelEntries())
        byName[entry.name].push_back(entry);
    for (const auto& [name, entries] : byName)
        registerEntry(name, entries);
}

void WheelDesk::registerEntry(const QString& name, std::vector<WheelEntry> entries) {
    const auto of = [entries = std::move(entries)](int index) -> const WheelEntry& {
        for (const WheelEntry& entry : entries)
            if (entry.index == index)
                return entry;
        return entries.front();
    };
    Commands& commands = m_context.commands;
    commands.on(
        name, [this, of](int index) { choose(of(index)); }, [this, of](int index) { return obstacle(of(index)); });
    commands.caption(name, [this, of](int index) -> std::optional<QString> {
        const WheelEntry& entry = of(index);
        const auto rows = m_wheels.rows(entry.family, tableOf(entry));
        const selection::Pad& pad = m_context.pad;
        if (!rows)
            return std::nullopt; // it keeps what it was called last
        return wheelCaption(entry, {pad.Redcnt, pad.Dancnt, pad.Bluecnt}, *rows);
    });
}

std::string WheelDesk::tableOf(const WheelEntry& entry) const {
    const selection::Pad& pad = m_context.pad;
    return selection::wheelTableName(entry.family, entry.reds > 0 ? entry.reds : pad.Redcnt,
                                     entry.family == WheelFamily::Banker ? pad.Dancnt : 0, entry.pair);
}

QString WheelDesk::obstacle(const WheelEntry& entry) {
    if (m_wheels.rows(entry.family, tableOf(entry)))
        return {};
    const selection::Pad& pad = m_context.pad;
    return pad.Dancnt > 0 && entry.family == WheelFamily::Banker
               ? u"%1胆%2拖没有这种矩阵"_s.arg(pad.Dancnt).arg(pad.Redcnt)
               : u"%1 红没有这种矩阵"_s.arg(entry.reds > 0 ? entry.reds : pad.Redcnt);
}

/// An assistive tool may choose an entry without having opened its menu: that makes no difference.
void WheelDesk::choose(const WheelEntry& entry) {
    m_wheels.openMenu(entry.family, m_context.pad);
    if (entry.family == WheelFamily::Banker)
        m_wheels.chooseBanker(m_context.pad, entry.pair);
    else
        m_wheels.choose(entry.family, tableOf(entry));
    if (entry.family == WheelFamily::Seven)
        openCompound(tableOf(entry));
    else
        open(formOf(m_context.pad));
}

void WheelDesk::openCompound(const std::string& table) {
    const bool blue = m_context.pad.Bluecnt > 0;
    const auto told = selection::wheelTableNamed(WheelFamily::Seven, table);
    selection::CompoundWindow window(
        blue ? u"aganFRote"_s : u"aganFRoteR"_s, selection::CompoundBets(m_wheels.rsWheel, m_context.pad, blue),
        told ? wheelNotice(*told, static_cast<std::int64_t>(m_wheels.rsWheel.size())) : QString(),
        placesIn(m_context.settings), &m_opener.window());
    window.exec();
}

void WheelDesk::open(std::string_view form) {
    selection::Wheel source(m_wheels, m_context.pad);
    const bool blue = filter::findMember(form)->blue;
    m_opener.open(form, source, m_wheels.rowsToRead(m_context.pad) * (blue ? m_context.pad.Bluecnt : 1), notice());
}

void WheelDesk::importWheel() {
    const selection::Pad& pad = m_context.pad;
    WheelImportWindow window(
        pad.Redcnt, pad.Dancnt,
        [this](const selection::WheelTable& table) { return m_wheels.rows(table.family, table.name); },
        placesIn(m_context.settings), &m_opener.window());
    if (window.exec() == QDialog::Accepted)
        install(window.table(), window.rows());
}

void WheelDesk::install(const selection::WheelTable& table, std::span<const selection::PositionSet> rows) {
    const QString title = u"导入旋转矩阵"_s;
    const QString safe = u"原有的矩阵没有改变。请先排除原因，再导入一次。"_s;
    toolkit::DialogBoxes boxes(&m_opener.window());
    m_wheels.forget();
    try {
        const auto kept = selection::installWheel(
            m_opener.engine(), wheelPlaces(m_folder, selection::wheelFamily(table.family).file), table, rows);
        boxes.tell({u"矩阵已导入。"_s + wheelNotice(table, static_cast<std::int64_t>(rows.size())),
                    title,
                    {},
                    kept.empty() ? QString() : u"原有的矩阵文件保存为 %1"_s.arg(workspace::toQString(kept))});
    } catch (const workspace::Failure& failed) {
        boxes.warn(workspace::failureMessage(failed, u"矩阵没有导入"_s, title, safe));
    } catch (const sql::SqlError& failed) {
        boxes.warn(workspace::failureMessage(failed, u"矩阵没有导入"_s, title, safe));
    }
    m_wheels.forget();
}

QString WheelDesk::notice() {
    const auto table = m_wheels.guaranteed(m_context.pad);
    return table ? wheelNotice(*table, m_wheels.rowsToRead(m_context.pad)) : QString();
}

} // namespace mainwin
