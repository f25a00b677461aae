// All members of the family as windows: each shows its catalogue, its super filters and what its features say.
#include <QComboBox>
#include <QLabel>
#include <QRadioButton>
#include <QTabBar>
#include <QTest>

#include "filter/windows/row_controls.h"
#include "support/controls.h"
#include "support/modal_script.h"
#include "windows/filter_window_support.h"

using namespace Qt::StringLiterals;
using test_support::control;
using test_support::controlAs;
using test_support::ModalScript;
using test_support::press;
using test_support::type;
using test_support::typeInto;

namespace filter {
namespace {

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// A window of any member over its table.
class FilterFamily : public FilterWindowFixture {
  protected:
    void open(const FilterMember& member, int highest = 8) {
        m_window.reset();
        m_window = std::make_unique<FilterWindow>(member, FilterContext{*m_database, m_history, 33, m_Baoliu});
        selection::GenerationInput input;
        for (int red = 1; red <= highest; ++red)
            input.chosen.reds.push_back(red);
        if (member.blue)
            input.chosen.blues = {3, 9};
        input.Genreds = highest;
        selection::Enumeration source(input);
        FilterWindowFixture::load(source);
        m_window->show();
    }
    bool has(const QString& name) { return m_window->findChild<QWidget*>(name) != nullptr; }
    QString captionOf(const QString& name) { return controlAs<QAbstractButton>(*m_window, name)->text(); }
    int shown() { return grid().model()->rowCount(); }
};

TEST_F(FilterFamily, EveryMemberShowsItsParametersAndSuperFilters) {
    for (const FilterMember& member : kFilterMembers) {
        SCOPED_TRACE(member.form);
        open(member);
        EXPECT_EQ(m_window->objectName(), text(member.form));
        for (const Parameter& parameter : member.catalogue()) {
            EXPECT_EQ(captionOf(text(parameter.option)), text(parameter.caption));
            EXPECT_TRUE(has(indexedName(u"Check1"_s, parameter.tick))) << parameter.option;
            EXPECT_EQ(has(indexedName(u"Combo1"_s, parameter.period)), parameter.period >= 0) << parameter.option;
            EXPECT_EQ(has(indexedName(text(parameter.boxes.name), parameter.boxes.list)), parameter.hasList())
                << parameter.option;
        }
        for (const SuperFilter& filter : superFiltersOf(member))
            EXPECT_EQ(controlAs<PressButton>(*m_window, text(filter.option))->text(), text(filter.caption));
        EXPECT_EQ(has(u"ChkBt(1)"_s), member.features.weights);
        EXPECT_EQ(has(u"ChkBt(7)"_s), member.blue);
        EXPECT_EQ(has(u"Option36"_s), member.features.lists);
        EXPECT_EQ(has(u"Combo1(20)"_s), member.features.periods);
        EXPECT_EQ(has(u"Check3"_s), member.features.tolerance);
        EXPECT_EQ(has(u"Command9"_s), member.features.templates);
        EXPECT_EQ(has(u"Option43"_s), member.reds == 6);
        EXPECT_EQ(has(text(exportOptionOf(member))), !member.exportName.empty());
    }
}

TEST_F(FilterFamily, OfSevenRedsTheModesHaveOtherNames) {
    open(*findMember("GAganf"));
    EXPECT_EQ(captionOf(u"Option22"_s), u"最值查询"_s);
    EXPECT_EQ(captionOf(u"Option21"_s), u"均值差幅查询"_s);
    EXPECT_EQ(captionOf(u"Option29"_s), u"多(名称勾选)参数整合过滤"_s);
    open(*findMember("GAgan"));
    EXPECT_EQ(captionOf(u"Option22"_s), u"范围查询"_s);
    EXPECT_EQ(captionOf(u"Option29"_s), u"多选(勾选)参数整合过滤"_s);
}

TEST_F(FilterFamily, EveryParameterOfSixAndOfSevenRedsRuns) {
    for (const char* form : {"GAganR", "GAganf"}) {
        const FilterMember& member = *findMember(form);
        open(member, 9);
        m_window->resize(1264, 762);
        for (const Parameter& parameter : member.catalogue()) {
            press(text(member.form), u"Command1"_s);
            m_statements.clear();
            press(text(member.form), text(parameter.option));
            EXPECT_GE(m_statements.size(), 3U) << form << parameter.option;
            EXPECT_TRUE(controlAs<PressButton>(*m_window, text(parameter.option))->isUsed());
        }
    }
}

TEST_F(FilterFamily, OfSixRedsARangeTakesOutBetsWithTheirReason) {
    open(*findMember("GAganR"));
    typeInto(u"GAganR"_s, u"Text18(0)"_s, u"1"_s);
    typeInto(u"GAganR"_s, u"Text18(1)"_s, u"1"_s);
    press(u"GAganR"_s, u"Option19"_s);
    EXPECT_EQ(shown(), 21) << "bets of 1..8 with the 5";
    EXPECT_EQ(grid().model()->columnCount(), 8);
    EXPECT_EQ(grid().model()->headerData(7, Qt::Horizontal), u"5整除个"_s);
    EXPECT_EQ(m_database->query("SELECT [Fliter] FROM [zuheR] WHERE [unslt] = true").textAt(0, 0),
              "5整除个数大小:0 保留1~1");
}

TEST_F(FilterFamily, OfSevenRedsTheIntegratedFilterKeepsTheStateBeforeIt) {
    open(*findMember("GAganf"));
    typeInto(u"GAganf"_s, u"Text12(0)"_s, u"2"_s);
    press(u"GAganf"_s, u"Check1(9)"_s);
    press(u"GAganf"_s, u"Option29"_s);
    EXPECT_EQ(shown(), 1) << "the one bet of 1..8 that begins with 2";
    press(u"GAganf"_s, u"cmdRetn"_s);
    EXPECT_EQ(shown(), 8);
}

TEST_F(FilterFamily, SuperFiltersOfSevenRedsGiveReasonsThoughParametersDoNot) {
    open(*findMember("GAganf"));
    m_window->findChild<QTabBar*>(u"FilterPagesBar"_s)->setCurrentIndex(1);
    ModalScript script({{u"InputBox"_s, type(u"1"_s)}, {u"InputBox"_s, type(u"8"_s)}});
    press(u"GAganf"_s, u"Option25(0)"_s);
    EXPECT_EQ(shown(), 1);
    EXPECT_EQ(m_database->query("SELECT [Fliter] FROM [zuhef] WHERE [unslt] = true").textAt(0, 0), "相克号过滤");
}

TEST_F(FilterFamily, OpeningFillsRangesAndListsFromTheHistory) {
    m_history.Lshm.push_back({2026002, 3, 6, 12, 18, 26, 32, 9});
    m_history.derived.emplace_back();
    m_history.Lsnum = 2;
    m_window = std::make_unique<FilterWindow>(kFilterMembers[0], FilterContext{*m_database, m_history, 33, m_Baoliu});
    selection::Keep keep;
    m_window->load(keep);
    m_window->show();
    const auto box = [&](const QString& name) { return m_window->findChild<QLineEdit*>(name)->text(); };
    EXPECT_EQ(box(u"Text12(0)"_s), u"2"_s);
    EXPECT_EQ(box(u"Text12(1)"_s), u"3"_s);
    EXPECT_EQ(box(u"Text12(3)"_s), u" 2 3 "_s);
    auto* period = controlAs<QComboBox>(*m_window, u"Combo1(10)"_s);
    period->setFocus();
    typeInto(u"GAgan"_s, u"Text12(0)"_s, u"1"_s);
    period->setCurrentIndex(1);
    emit period->activated(1);
    EXPECT_EQ(box(u"Text12(0)"_s), u"2"_s) << "the last ten draws";
    typeInto(u"GAgan"_s, u"Text13(0)"_s, u"1"_s);
    auto* all = controlAs<QComboBox>(*m_window, u"Combo1(20)"_s);
    all->setCurrentIndex(0);
    emit all->activated(0);
    EXPECT_EQ(box(u"Text13(0)"_s), u"5"_s);
}

} // namespace
} // namespace filter
