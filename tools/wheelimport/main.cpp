// wheelimport: puts a wheel of one's own into a wheel database, after proving it.
//
//   wheelimport DATABASE TABLE FILE      wheelimport build/release/Xuanzhuancj 0954 mine.txt
//
// The name of the database tells the family, that of the table what the wheel must guarantee. FILE is plain text, a
// row a line. A wheel that does not hold what it claims is refused, with the first positions that no row serves.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>

#include "selection/wheel_database.h"

namespace {

selection::WheelTable tableFor(const std::filesystem::path& database, const std::string& name) {
    for (const selection::WheelFamilyInfo& family : selection::wheelFamilies())
        if (database.filename() == family.file)
            if (const auto table = selection::wheelTableNamed(family.family, name))
                return *table;
    throw std::runtime_error(database.string() + " can have no table " + name);
}

std::string contents(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in)
        throw std::runtime_error("cannot read " + file);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

int import(const std::filesystem::path& path, const std::string& name, const std::string& file) {
    const selection::WheelTable table = tableFor(path, name);
    sql::Engine engine;
    const auto database = std::filesystem::exists(path) ? engine.open(path) : engine.create(path);
    if (const auto refusal = selection::importWheel(*database, table, contents(file))) {
        std::cerr << "refused: " << refusal->message(table) << '\n';
        return 1;
    }
    std::cout << database->rowCount(name) << " rows in table " << name << '\n';
    return 0;
}

} // namespace

int main(int count, char** words) {
    if (count != 4) {
        std::cerr << "wheelimport DATABASE TABLE FILE\n";
        return 2;
    }
    try {
        return import(words[1], words[2], words[3]);
    } catch (const std::exception& error) {
        std::cerr << "wheelimport: " << error.what() << '\n';
        return 2;
    }
}
