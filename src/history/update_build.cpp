#include "history/update_build.h"

#include <fstream>
#include <span>

#include "history/update_check.h"
#include "workspace/failure.h"
#include "workspace/safe_file.h"
#include "workspace/templates.h"

using namespace Qt::StringLiterals;

namespace history {

namespace {

constexpr const char* kTemplate = "Lishihaoma.mdb";

void writeShares(sql::Database& database, const char* table, std::span<const Share> shares) {
    sql::Recordset records = database.openRecordset(table);
    for (const Share& share : shares) {
        records.edit();
        records.set("gailv", share.gailv);
        records.set("Glnum", std::int64_t{share.Glnum});
        records.update();
        records.moveNext();
    }
}

} // namespace

NewHistory::NewHistory(sql::Engine& engine) : m_engine(engine) {
    if (!m_folder.isValid())
        throw workspace::Failure(u"不能建立临时文件夹"_s, m_folder.errorString());
    const std::filesystem::path folder = workspace::toPath(m_folder.path());
    m_file = folder / kTemplate;
    for (const workspace::TemplateFile& file : workspace::kTemplateFiles)
        if (file.templateName != std::string_view(kTemplate)) // those that are there already are not made
            std::ofstream(folder / file.templateName);
    workspace::makeMissingTemplates(engine, folder);
}

void NewHistory::fill(const HistoryTables& history) {
    const std::unique_ptr<sql::Database> database = m_engine.open(m_file);
    sql::Transaction all(*database);
    history.fig.appendTo(*database, "fig");
    history.ylqs.appendTo(*database, "Ylqs");
    history.ylqsB.appendTo(*database, "YlqsB");
    writeShares(*database, "Gailv", history.gailv);
    writeShares(*database, "GailvB", history.gailvB);
    all.commit();
}

} // namespace history
