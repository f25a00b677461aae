#include "filter/windows/setting_picker.h"

#include <algorithm>

#include <QAction>
#include <QHBoxLayout>
#include <QStandardItemModel>
#include <QVBoxLayout>

#include "selection/saved_selections.h"
#include "toolkit/accent_button.h"
#include "toolkit/dialog_boxes.h"
#include "workspace/failure.h"

using namespace Qt::StringLiterals;

namespace filter {

namespace {

constexpr QSize kUsefulSize{460, 420};
constexpr int kNameWidth = 400;
const QString kTitle = u"调用过滤设置"_s;
const QString kUnchanged = u"保存的过滤设置都没有改变，窗口里的各框也没有改变。"_s;

} // namespace

SettingPicker::SettingPicker(const SavedSettings& settings, const QString& name, const toolkit::PlaceStore& places,
                             QWidget* parent)
    : QDialog(parent), m_settings(settings), m_names(new QStandardItemModel(this)), m_grid(new toolkit::DataGrid),
      m_ok(new toolkit::AccentButton(u"确定(&K)"_s)) {
    setObjectName(name);
    setWindowTitle(kTitle);
    layOut();
    reload();
    toolkit::placeOver(*this, kUsefulSize);
    toolkit::keepPlace(*this, places);
    m_grid->setFocus();
}

void SettingPicker::layOut() {
    m_grid->setObjectName(u"MSFlexGrid1"_s);
    m_grid->setAccessibleName(u"保存的过滤设置"_s);
    m_grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grid->setEmptyText(u"还没有保存的过滤设置：在过滤窗口用“保存过滤设置”保存。"_s);
    m_grid->setToolTip(u"双击或按 Enter 选用；按右键可以删除或改名"_s);
    m_grid->setModel(m_names);
    // The captions speak of selections, for the picker of saved selections has the same ones.
    addEntry(u"mnuDel"_s, u"删除选号(&D)"_s, QKeySequence::Delete, &SettingPicker::deleteChosen);
    addEntry(u"mnuName"_s, u"修改选号名字(&N)"_s, Qt::Key_F2, &SettingPicker::renameChosen);
    m_ok->setObjectName(u"cmdOK"_s);
    m_ok->setDefault(true);
    auto* cancel = new QPushButton(u"取消"_s);
    cancel->setObjectName(u"cmdCancel"_s);
    connect(m_ok, &QPushButton::clicked, this, &SettingPicker::pick);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_grid, &QAbstractItemView::doubleClicked, this, &SettingPicker::pick);
    connect(m_grid->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        const bool one = chosen().has_value();
        m_ok->setEnabled(one);
        m_ok->setToolTip(one ? QString() : u"先选中一行"_s);
        for (QAction* entry : m_entries)
            entry->setEnabled(one);
    });
    auto* foot = new QHBoxLayout;
    foot->addStretch();
    foot->addWidget(m_ok);
    foot->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->addWidget(m_grid, 1);
    layout->addLayout(foot);
}

void SettingPicker::addEntry(const QString& name, const QString& caption, const QKeySequence& keys,
                             void (SettingPicker::*act)()) {
    auto* entry = new QAction(caption, m_grid);
    entry->setObjectName(name);
    entry->setShortcut(keys);
    entry->setShortcutContext(Qt::WidgetShortcut);
    connect(entry, &QAction::triggered, this, act);
    m_grid->addAction(entry);
    m_grid->addMenuEntry(entry);
    m_entries << entry;
}

void SettingPicker::reload() {
    const int row = m_grid->currentIndex().row();
    const std::vector<QString> names = m_settings.names();
    m_names->clear();
    m_names->setHorizontalHeaderLabels({u"过滤设置名"_s});
    for (const QString& name : names) {
        auto* item = new QStandardItem(name);
        item->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        item->setToolTip(name);
        m_names->appendRow(item);
    }
    m_grid->setColumnWidths({kNameWidth});
    const int last = m_names->rowCount() - 1;
    m_grid->setCurrentIndex(m_names->index(row < 0 ? last : std::min(row, last), 0));
    m_ok->setEnabled(chosen().has_value());
    for (QAction* entry : m_entries)
        entry->setEnabled(chosen().has_value());
}

std::optional<QString> SettingPicker::chosen() const {
    const QModelIndexList marked = m_grid->selectionModel()->selectedRows();
    return marked.size() == 1 ? std::optional(marked.front().data().toString()) : std::nullopt;
}

void SettingPicker::pick() {
    Canshuname = chosen();
    if (Canshuname)
        accept();
}

template <class Change> void SettingPicker::change(const QString& happened, Change run) {
    const auto tell = [&](const std::exception& failed, const QString& advice) {
        toolkit::DialogBoxes(this).warn(workspace::failureMessage(failed, happened, kTitle, advice));
    };
    try {
        run();
        reload();
    } catch (const workspace::Failure& refused) { // a name that no statement can hold
        tell(refused, kUnchanged + u"带双引号的名字不能删除、改名或调用；取新名字时也请不要用双引号。"_s);
    } catch (const sql::SqlError& failed) {
        tell(failed, kUnchanged + u"请排除原因后重试。"_s);
    }
}

/// How many settings a statement for this name reaches: it tells capitals from small letters no more than the table.
int SettingPicker::namesakesOf(const QString& name) const {
    int namesakes = 0;
    for (int row = 0; row < m_names->rowCount(); ++row)
        namesakes += m_names->item(row)->text().compare(name, Qt::CaseInsensitive) == 0;
    return namesakes;
}

void SettingPicker::deleteChosen() {
    const std::optional<QString> name = chosen();
    if (!name)
        return;
    const int namesakes = namesakesOf(*name);
    workspace::Message question{u"确实要删除过滤设置“%1”吗？"_s.arg(*name), u"删除过滤设置"_s};
    question.note =
        namesakes > 1 ? u"叫这个名字的 %1 个设置都会删除，不能恢复。"_s.arg(namesakes) : u"删除后不能恢复。"_s;
    if (toolkit::DialogBoxes(this).confirm(question, workspace::Risk::Loss))
        change(u"过滤设置没有删除"_s, [&] { m_settings.remove(*name); });
}

void SettingPicker::renameChosen() {
    const std::optional<QString> name = chosen();
    if (!name)
        return;
    const std::optional<QString> newName = toolkit::DialogBoxes(this).askText(
        u"请输入本次修改的选号名字："_s, u"选号名字修改"_s, selection::proposedNewName(QDateTime::currentDateTime()));
    if (!newName)
        return;
    const int namesakes = namesakesOf(*name);
    if (namesakes == 1 ||
        toolkit::DialogBoxes(this).confirm(u"叫“%1”的 %2 个设置都会改名，是否继续？"_s.arg(*name).arg(namesakes),
                                           u"选号名字修改"_s, workspace::Risk::Loss))
        change(u"过滤设置的名字没有修改"_s, [&] { m_settings.rename(*name, *newName); });
}

std::optional<QString> pickSetting(const SavedSettings& settings, const QString& name,
                                   const toolkit::PlaceStore& places, QWidget* parent) {
    try {
        SettingPicker picker(settings, name, places, parent);
        picker.exec();
        return picker.Canshuname;
    } catch (const sql::SqlError& failed) {
        toolkit::DialogBoxes(parent).warn(workspace::failureMessage(failed, u"读不到保存的过滤设置"_s, kTitle,
                                                                    u"各框没有改变，请排除原因后重试。"_s));
        return std::nullopt;
    }
}

} // namespace filter
