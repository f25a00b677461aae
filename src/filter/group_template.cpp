#include "filter/group_template.h"

#include <array>
#include <string>

#include "filter/quiet.h"
#include "workspace/templates.h"

namespace filter {

namespace {

constexpr std::string_view kLostColumns[] = {
    "[idx] integer",   "[unslt] bit",    "[canshu] integer", "[Numstring] string",
    "[SKnum] integer", "[JSqihao] long", "[Fliter] string",  "[preunslt] bit",
    "[tmpunslt] bit",  "[Gpslt] bit",    "[Errnum] integer",
};

constexpr std::string_view kWantedColumns[] = {"[unslt] bit",     "[canshu] integer", "[Numstring] string",
                                               "[SKnum] integer", "[preunslt] bit",   "[tmpunslt] bit"};

constexpr std::array<char, 6> kSeparators{'!', '@', '#', '$', '%', '^'}; // behind each number but the last

} // namespace

std::string GroupTemplate::numbers() const {
    std::string list;
    for (int place = 1; place <= m_member.numbers(); ++place)
        list += (place > 1 ? ",fig" : "fig") + std::to_string(place);
    return list;
}

std::optional<std::int64_t> GroupTemplate::add() const {
    if (!m_database.hasTable(m_template))
        clear(); // an older workspace may lack it
    const std::int64_t before = count();
    sql::TableHold former(m_database, m_template);
    sql::passOver(m_database, "DROP TABLE Tmp"); // what a failure has left would take the place of the template
    const auto run = [this](const std::string& statement) { return sql::passOver(m_database, statement); };
    run("insert into " + m_template + " select " + numbers() + " from [" + std::string(m_member.table) +
        "] where unslt = false");
    run("select distinct " + numbers() + " into Tmp from " + m_template);
    run("DROP TABLE " + m_template);
    const bool rebuilt = run("select * into " + m_template + " from Tmp");
    run("DROP TABLE Tmp");
    if (!rebuilt)
        return std::nullopt;
    for (const std::string_view column : kLostColumns)
        run("ALTER TABLE [" + m_template + "] ADD COLUMN " + std::string(column));
    numberRows();
    former.release();
    return count() - before;
}

void GroupTemplate::numberRows() const {
    const std::array<std::string, 1> inputs{"fig1"};
    const std::array<std::string, 1> outputs{"idx"};
    std::int32_t row = 0;
    quietly([&] {
        m_database.computeColumns(m_template, inputs, outputs, [&row](const sql::RowBatch& batch) {
            for (std::size_t place = 0; place < batch.rows; ++place) {
                batch.outputs[0].values[place] = ++row;
                batch.outputs[0].written[place] = 1;
            }
        });
    });
}

void GroupTemplate::clear() const {
    sql::passOver(m_database, "DROP TABLE " + m_template);
    sql::passOver(m_database, workspace::createCombinationTable(m_template));
}

std::string GroupTemplate::key() const {
    std::string text = "('('";
    for (int place = 1; place <= m_member.numbers(); ++place) {
        text += " & fig" + std::to_string(place);
        if (place < m_member.numbers())
            text += std::string(" & '") + kSeparators[static_cast<std::size_t>(place - 1)] + "'";
    }
    return text + " & ')')";
}

void GroupTemplate::takeOutMembers() const {
    const std::string table(m_member.table);
    sql::passOver(m_database, "ALTER TABLE [" + table + "] ADD COLUMN [Numstring] string");
    sql::passOver(m_database, "UPDATE [" + table + "] SET [Numstring]= " + key());
    sql::passOver(m_database, "UPDATE [" + m_template + "] SET [Numstring]= " + key());
    sql::passOver(m_database, "UPDATE [" + table +
                                  "] SET [unslt]= true  WHERE Numstring IN (SELECT  Numstring FROM [" + m_template +
                                  "])");
}

void GroupTemplate::addMissingColumns() const {
    for (const std::string_view column : kWantedColumns)
        sql::passOver(m_database,
                      "ALTER TABLE [" + std::string(m_member.table) + "] ADD COLUMN " + std::string(column));
}

std::int64_t GroupTemplate::count() const {
    std::int64_t rows = 0;
    quietly([&] { rows = m_database.rowCount(m_template); });
    return rows;
}

} // namespace filter
