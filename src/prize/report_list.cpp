#include "prize/report_list.h"

#include <algorithm>

#include <QFile>

#include "history/text_pieces.h"
#include "prize/report.h"
#include "workspace/failure.h"
#include "workspace/keeping.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace prize {

namespace {

using Paths = std::vector<std::filesystem::path>;

/// The numbers of a name: "26-11-22日9.5.7秒 (2)兑奖.txt" gives 26 11 22 9 5 7 2, which is the order of time.
std::vector<int> numbersOf(const std::filesystem::path& file) {
    std::vector<int> numbers;
    bool inNumber = false;
    for (const QChar letter : workspace::toQString(file.filename())) {
        const int digit = letter.digitValue();
        if (digit >= 0 && !inNumber)
            numbers.push_back(digit);
        else if (digit >= 0)
            numbers.back() = std::min(numbers.back() * 10 + digit, 1'000'000);
        inNumber = digit >= 0;
    }
    return numbers;
}

/// The reports of a folder, oldest first; none where it cannot be searched.
Paths reportsIn(const std::filesystem::path& folder) {
    Paths files;
    std::error_code ignored;
    for (std::filesystem::directory_iterator entry(folder, ignored), end; !ignored && entry != end;
         entry.increment(ignored))
        if (workspace::toQString(entry->path().filename()).endsWith(kReportEnding) && entry->is_regular_file(ignored))
            files.push_back(entry->path());
    std::sort(files.begin(), files.end(), [](const auto& left, const auto& right) {
        return std::pair(numbersOf(left), left) < std::pair(numbersOf(right), right);
    });
    return files;
}

/// Nothing for a file that is not there or cannot be read.
std::optional<QString> textOf(const std::filesystem::path& path) {
    std::error_code failed;
    if (path.empty() || !std::filesystem::is_regular_file(path, failed))
        return std::nullopt;
    QFile file(workspace::toQString(path));
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return history::decodeText(file.readAll());
}

/// The first two lines, whatever follows them: reports can be long.
QString entryOf(const std::filesystem::path& path) {
    constexpr qint64 kLongestLine = 1024;
    std::error_code failed;
    QFile file(workspace::toQString(path));
    QStringList lines{QString(), QString()};
    if (std::filesystem::is_regular_file(path, failed) && file.open(QIODevice::ReadOnly))
        for (QString& line : lines)
            line = history::decodeText(file.readLine(kLongestLine)).remove(u'\r').remove(u'\n');
    return lines.join(u"     "_s);
}

/// \return whether the file is gone
bool removed(const std::filesystem::path& file) {
    std::error_code failed;
    std::filesystem::remove(file, failed);
    return !failed;
}

} // namespace

void ReportList::open() {
    m_entries.clear();
    m_listed.clear();
    m_unlisted = 0;
    for (const std::filesystem::path& file : reportsIn(m_userFolder / workspace::toPath(kReportFolder)))
        add(file);
}

void ReportList::add(const std::filesystem::path& file) {
    if (ReportCount >= kReportSlots) {
        ++m_unlisted;
        return;
    }
    ReportFiles[static_cast<std::size_t>(ReportCount)] = file;
    ++ReportCount;
    m_entries.push_back(entryOf(file));
    m_listed.push_back(file);
}

std::optional<QString> ReportList::textAt(int place) const {
    return place >= 0 && place < kReportSlots ? textOf(ReportFiles[static_cast<std::size_t>(place)]) : std::nullopt;
}

std::optional<QString> ReportList::last() const {
    return m_listed.empty() ? std::nullopt : textOf(m_listed.back());
}

std::optional<QString> ReportList::previous() {
    return ReportIndex > 0 ? textAt(--ReportIndex) : std::nullopt;
}

std::optional<QString> ReportList::next() {
    return ReportIndex < ReportCount ? textAt(++ReportIndex) : std::nullopt;
}

std::optional<QString> ReportList::chosen(int entry) const {
    return textAt(entry);
}

int ReportList::steppedEntry() const {
    if (ReportIndex >= ReportCount)
        return -1;
    const auto found =
        std::find(m_listed.begin(), m_listed.end(), ReportFiles[static_cast<std::size_t>(ReportIndex)]);
    return found == m_listed.end() ? -1 : static_cast<int>(found - m_listed.begin());
}

Paths ReportList::deleteAll(workspace::Settings& settings, const QString& user) {
    settings.set(user, u"Money"_s, u"Default"_s, u"0"_s);
    m_entries.clear();
    m_listed.clear();
    Paths left;
    for (const std::filesystem::path& file : reportsIn(m_userFolder))
        if (!removed(file))
            left.push_back(file);
    return left;
}

Paths ReportList::deleteTicked(const std::vector<int>& ticked) {
    Paths left;
    workspace::Keeping keeping(m_userFolder, u"删除盈亏报告时，没有打勾的报告被移到这里。"_s);
    for (const int entry : ticked) {
        const std::filesystem::path& file = ReportFiles[static_cast<std::size_t>(entry)];
        const bool isMeant = std::find_if(ticked.begin(), ticked.end(), [&](int other) {
                                 return m_listed[static_cast<std::size_t>(other)] == file;
                             }) != ticked.end();
        try {
            if (!isMeant)
                keeping.move(file);
            else if (!removed(file))
                left.push_back(file);
        } catch (const workspace::Failure&) {
            left.push_back(file);
        }
    }
    keeping.finish();
    open();
    return left;
}

} // namespace prize
