#include "wheels/databases.h"

#include "selection/wheel_database.h"

namespace wheels {

namespace {

int buildFamily(sql::Engine& engine, const WheelStore& store, const selection::WheelFamilyInfo& family,
                const std::filesystem::path& file) {
    const std::unique_ptr<sql::Database> database = engine.create(file);
    sql::Transaction transaction(*database);
    int tables = 0;
    for (const selection::WheelTable& table : selection::wheelTables()) {
        const Wheel* wheel = store.find(table.problem);
        if (table.family != family.family || !isShipped(table, wheel))
            continue;
        selection::writeWheel(*database, table, wheel->rows);
        ++tables;
    }
    transaction.commit();
    return tables;
}

} // namespace

int buildDatabases(const WheelStore& store, const std::filesystem::path& folder) {
    int tables = 0;
    for (const selection::WheelFamilyInfo& family : selection::wheelFamilies()) {
        const std::filesystem::path file = folder / family.file;
        const std::filesystem::path fresh = file.string() + ".new";
        sql::Engine engine;
        tables += buildFamily(engine, store, family, fresh);
        std::filesystem::rename(fresh, file);
    }
    return tables;
}

} // namespace wheels
