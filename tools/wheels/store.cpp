#include "wheels/store.h"

#include <algorithm>
#include <array>
#include <bit>
#include <fstream>
#include <set>
#include <sstream>
#include <stdexcept>

namespace wheels {

namespace {

constexpr std::array<const char*, 5> kFiles = {"basic.txt", "extended.txt", "super.txt", "banker.txt", "seven.txt"};
constexpr const char* kHelpers = "helpers.txt";
constexpr std::size_t kLine = 110;

[[noreturn]] void refuse(const std::filesystem::path& file, int line, const std::string& why) {
    throw std::runtime_error(file.string() + ":" + std::to_string(line) + ": " + why);
}

PositionSet setFromLetters(const std::string& letters, int positions) {
    PositionSet set = 0;
    for (const char letter : letters) {
        if (letter < 'a' || letter >= 'a' + positions)
            return 0;
        set |= PositionSet{1} << (letter - 'a');
    }
    return set;
}

void writeRows(std::ostream& out, const std::vector<PositionSet>& rows) {
    std::size_t column = 0;
    for (const PositionSet row : rows) {
        std::string letters;
        for (const std::int32_t position : selection::positionsOf(row))
            letters += static_cast<char>('a' + position - 1);
        if (column + letters.size() + 1 > kLine) {
            out << '\n';
            column = 0;
        }
        out << (column == 0 ? "" : " ") << letters;
        column += letters.size() + 1;
    }
    out << '\n';
}

class FileWriter {
  public:
    explicit FileWriter(std::filesystem::path file) : m_file(std::move(file)) {}

    void table(const std::string& name, const WheelProblem& problem, const Wheel& wheel, const std::string& sameAs) {
        m_out << "table " << name << ' ' << problem.positions << ' ' << problem.row << ' ' << problem.chosen << ' '
              << problem.common;
        if (!sameAs.empty()) {
            m_out << " as " << sameAs << '\n';
            return;
        }
        m_out << " rows " << wheel.rows.size() << '\n';
        for (const std::string& step : wheel.made)
            m_out << "made " << step << '\n';
        writeRows(m_out, wheel.rows);
    }

    void finish() const {
        const std::filesystem::path fresh = m_file.string() + ".new";
        std::ofstream out(fresh, std::ios::binary);
        out << m_out.str();
        out.close();
        if (!out)
            throw std::runtime_error("cannot write " + fresh.string());
        std::filesystem::rename(fresh, m_file);
    }

  private:
    std::filesystem::path m_file;
    std::ostringstream m_out;
};

std::string helperName(const WheelProblem& problem) {
    return "h" + std::to_string(problem.positions) + "_" + std::to_string(problem.row) +
           std::to_string(problem.chosen) + std::to_string(problem.common);
}

bool before(PositionSet left, PositionSet right) {
    // The lowest position that only one of them has decides.
    const PositionSet difference = left ^ right;
    return difference != 0 && (left & (difference & (~difference + 1))) != 0;
}

} // namespace

std::string fileName(selection::WheelFamily family) {
    return kFiles[static_cast<std::size_t>(family)];
}

void sortRows(std::vector<PositionSet>& rows) {
    std::sort(rows.begin(), rows.end(), before);
}

bool isShipped(const selection::WheelTable& table, const Wheel* wheel) {
    return wheel != nullptr &&
           (table.family != selection::WheelFamily::Super || wheel->rows.size() <= selection::kMostSuperRows);
}

WheelStore::WheelStore(std::filesystem::path folder) : m_folder(std::move(folder)) {
    for (const char* name : kFiles)
        read(m_folder / name);
    read(m_folder / kHelpers);
}

void WheelStore::read(const std::filesystem::path& file) {
    std::ifstream in(file);
    Wheel* wheel = nullptr;
    int rowSize = 0;
    int positions = 0;
    std::size_t announced = 0;
    int number = 0;
    const auto finishTable = [&] {
        if (wheel != nullptr && wheel->rows.size() != announced)
            refuse(file, number, "a table with another number of rows than it announces");
    };
    for (std::string line; std::getline(in, line);) {
        ++number;
        std::istringstream words(line);
        std::string word;
        words >> word;
        if (word.empty() || word[0] == '#')
            continue;
        if (word == "made" && wheel != nullptr) {
            wheel->made.push_back(line.substr(5));
        } else if (word == "table") {
            finishTable();
            WheelProblem problem;
            std::string name, kind;
            words >> name >> problem.positions >> problem.row >> problem.chosen >> problem.common >> kind;
            const bool same = kind == "as";
            if (!same && (kind != "rows" || !(words >> announced)))
                refuse(file, number, "not the head of a table");
            if (same != (m_wheels.count(problem) != 0))
                refuse(file, number, same ? "rows of a table that is not there" : "a problem for the second time");
            wheel = same ? nullptr : &m_wheels[problem];
            rowSize = problem.row;
            positions = problem.positions;
        } else {
            for (; words; words >> word) {
                const PositionSet row = setFromLetters(word, positions);
                if (wheel == nullptr || std::popcount(row) != rowSize)
                    refuse(file, number, "not a row: " + word);
                wheel->rows.push_back(row);
            }
        }
    }
    finishTable();
}

const Wheel* WheelStore::find(const WheelProblem& problem) const {
    const auto found = m_wheels.find(problem);
    return found == m_wheels.end() ? nullptr : &found->second;
}

bool WheelStore::offer(const WheelProblem& problem, Wheel wheel) {
    const Wheel* stored = find(problem);
    if (stored != nullptr && stored->rows.size() <= wheel.rows.size())
        return false;
    sortRows(wheel.rows);
    m_wheels[problem] = std::move(wheel);
    m_changed = true;
    return true;
}

void WheelStore::save() {
    if (!m_changed)
        return;
    std::map<WheelProblem, std::string> written;
    std::array<std::vector<const selection::WheelTable*>, 5> families;
    const std::vector<selection::WheelTable> tables = selection::wheelTables();
    for (const selection::WheelTable& table : tables)
        if (isShipped(table, find(table.problem)))
            families[static_cast<std::size_t>(table.family)].push_back(&table);
    for (std::size_t family = 0; family < families.size(); ++family) {
        FileWriter writer(m_folder / kFiles[family]);
        for (const selection::WheelTable* table : families[family]) {
            writer.table(table->name, table->problem, *find(table->problem), written[table->problem]);
            if (written[table->problem].empty())
                written[table->problem] = table->name;
        }
        writer.finish();
    }
    FileWriter helpers(m_folder / kHelpers);
    for (const auto& [problem, wheel] : m_wheels)
        if (written.count(problem) == 0)
            helpers.table(helperName(problem), problem, wheel, "");
    helpers.finish();
    m_changed = false;
}

} // namespace wheels
