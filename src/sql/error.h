// What can go wrong with a database: one exception class, told apart by the engine's error numbers.
//
// Callers branch on the number only where the repair of a workspace does; everywhere else a failed statement either
// stops its handler or is passed over (see passOver in database.h).
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

namespace sql {

/// A stretch of bytes of a statement's text.
struct Span {
    std::size_t first = 0;
    std::size_t length = 0;
};

namespace error {
inline constexpr int kFileNotFound = 3024;
inline constexpr int kPathNotFound = 3044;
inline constexpr int kTableNotFound = 3078;
inline constexpr int kObjectNotFound = 3011;
inline constexpr int kTableExists = 3010;
inline constexpr int kNoCurrentRecord = 3021;
inline constexpr int kColumnNotFound = 3061; // an unknown name reads as a parameter that nobody has filled in
inline constexpr int kFieldNotFound = 3265;  // of a record set
inline constexpr int kSyntax = 3075;
inline constexpr int kNotADatabase = 3343;
inline constexpr int kColumnExists = 3380;
inline constexpr int kColumnMissing = 3381; // ALTER … DROP of a column that is not there
inline constexpr int kTypeMismatch = 3464;
inline constexpr int kNotUpdatable = 3027;
inline constexpr int kMixedStores = 3707; // one statement over a combination table and an ordinary one
inline constexpr int kDiskFull = 3183;
inline constexpr int kLocked = 3045;      // another program holds the file
inline constexpr int kPermission = 3051;  // the file may not be opened, or not be written
inline constexpr int kInputOutput = 3043; // the disk failed in reading or writing
inline constexpr int kStorage = 3146;     // anything else that the file underneath reports
} // namespace error

class SqlError : public std::runtime_error {
  public:
    SqlError(int number, const std::string& text, Span span = {})
        : std::runtime_error(text), m_number(number), m_span(span) {}

    int number() const { return m_number; }
    Span span() const { return m_span; }

  private:
    int m_number;
    Span m_span;
};

} // namespace sql
