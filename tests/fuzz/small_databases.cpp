#include "fuzz/small_databases.h"

#include <cstdlib>
#include <fstream>
#include <vector>

namespace fuzz {

namespace {

/// Columns of `rows` numbers that look random and are the same in every run.
std::vector<std::vector<std::int32_t>> numbers(int rows) {
    std::vector<std::vector<std::int32_t>> values(5);
    for (int row = 0; row < rows; ++row) {
        values[0].push_back(row);
        values[1].push_back(row * 7919 % 34);
        values[2].push_back(row * 31 % 12 - 4);
        values[3].push_back((row * 1049 % 200003 - 100000) * 3);
        values[4].push_back(row * 613 % 3000);
    }
    return values;
}

void fillTable(sql::Database& db, const std::string& table, int rows) {
    const auto values = numbers(rows);
    db.execute("CREATE TABLE [" + table +
               "]([id] integer,[a] integer,[b] integer,[w] integer,[s] integer,[t] string,"
               "[u] string,[p] bit,[q] bit,[r] double,[h] short)");
    db.appendRows(table, {{"id", "a", "b", "w", "s"}, {values.begin(), values.end()}});
    for (const char* change : {"[t]=\"x\" & [b], [p]=([a] mod 2 = 0) WHERE [a] < 25", "[b]=Null WHERE [a] mod 7 = 3",
                               "[u]=\" 3 \" & [a] & \" \" WHERE [id] mod 3 = 1", "[r]=[w]/7, [h]=[s]"})
        db.execute("UPDATE [" + table + "] SET " + change);
}

std::string bytesOf(sql::Executor executor, void (*fill)(sql::Database&)) {
    const FastFolder folder;
    const auto file = folder.path() / "small.mdb";
    {
        sql::Engine engine({.combinations = executor});
        const auto db = engine.create(file);
        fill(*db);
        db->store();
    }
    return readFile(file);
}

} // namespace

FastFolder::FastFolder() {
    std::error_code failed;
    const std::filesystem::path memory = "/dev/shm";
    const bool fast = std::filesystem::is_directory(memory, failed);
    std::string name = ((fast ? memory : std::filesystem::temp_directory_path()) / "ssqdesk-fuzz-XXXXXX").string();
    if (!mkdtemp(name.data()))
        throw std::runtime_error("no scratch folder");
    m_path = name;
}

FastFolder::~FastFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::string readFile(const std::filesystem::path& file) {
    std::ifstream input(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(input), std::istreambuf_iterator<char>()};
}

void putDatabase(const std::filesystem::path& file, std::string_view bytes) {
    std::error_code ignored;
    for (const char* beside : {"-journal", "-wal", "-shm"})
        std::filesystem::remove(file.string() + beside, ignored);
    std::ofstream output(file, std::ios::binary | std::ios::trunc);
    output.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string smallTables(sql::Executor executor) {
    return bytesOf(executor, [](sql::Database& db) {
        fillTable(db, "zuhe", 70);
        fillTable(db, "zuheR", 70);
    });
}

namespace {

void fillWorkspace(sql::Database& db, int rows) {
    fillTable(db, "zuhe", 70);
    fillTable(db, "Tmp", rows);
    db.execute("CREATE TABLE [fig]([idx] integer,[fig0] integer,[fig1] integer,[Sumjonum] Bit)");
    db.execute("CREATE TABLE [Gailv]([Number] short,[gailv] double,[Glnum] short)");
    for (int number = 1; number <= 33; ++number) {
        const std::string text = std::to_string(number);
        db.execute("INSERT INTO [fig] ([idx],[fig0],[fig1]) VALUES (" + text + ",2003001+" + text + "," + text + ")");
        db.execute("INSERT INTO [Gailv] ([Number],[gailv],[Glnum]) VALUES (" + text + ",3.5,0)");
    }
}

} // namespace

std::string smallWorkspace() {
    return bytesOf(sql::Executor::Column, [](sql::Database& db) { fillWorkspace(db, 40); });
}

std::string workspaceOfTwoChunks() {
    return bytesOf(sql::Executor::Column, [](sql::Database& db) { fillWorkspace(db, 66000); });
}

} // namespace fuzz
