// The group template (组号模板): bets that survived, gathered from many runs into one lasting table without doubles.
//
// zuheMoban holds bets of six reds and a blue, zuheMobanR bets of six reds. A bet is its numbers: adding joins the
// survivors of a table to the template, keeps one of each, and numbers them anew from 1. The template lasts until it
// is cleared.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "filter/member.h"

namespace filter {

/// The template that takes the bets of a member; nothing for members of seven reds.
constexpr std::string_view groupTemplateOf(const FilterMember& member) {
    return member.reds == 7 ? std::string_view() : member.blue ? "zuheMoban" : "zuheMobanR";
}

class GroupTemplate {
  public:
    /// \param member  one that has a template, or is one
    GroupTemplate(sql::Database& database, const FilterMember& member)
        : m_database(database), m_member(member), m_template(groupTemplateOf(member)) {}

    /// Adds the bets in play of the member's table.
    /// \return bets that came to it; nothing when it could not be rebuilt: it is as it was then
    std::optional<std::int64_t> add() const;
    /// Makes it anew without a bet.
    void clear() const;
    /// 组合模版同号滤: takes out every bet of the member's table that the template holds. No snapshot, no reason. In
    /// the template's own window the table is compared with itself.
    void takeOutMembers() const;
    /// Adds the columns that an older table may lack, once its bets have been taken out and are shown.
    void addMissingColumns() const;
    /// Bets that it holds.
    std::int64_t count() const;

  private:
    std::string numbers() const;
    std::string key() const;
    void numberRows() const;

    sql::Database& m_database;
    const FilterMember& m_member;
    std::string m_template;
};

} // namespace filter
