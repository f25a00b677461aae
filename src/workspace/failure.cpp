#include "workspace/failure.h"

#include <new>
#include <system_error>

#include "sql/error.h"

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

struct Cause {
    int number;
    const char16_t* text;
};

constexpr Cause kCauses[] = {
    {sql::error::kDiskFull, u"磁盘空间不足"},           {sql::error::kLocked, u"文件正被另一个程序使用"},
    {sql::error::kPermission, u"没有读写该文件的权限"}, {sql::error::kInputOutput, u"磁盘读写出错"},
    {sql::error::kNotADatabase, u"数据库文件已损坏"},   {sql::error::kFileNotFound, u"找不到文件"},
    {sql::error::kPathNotFound, u"找不到文件夹"},       {sql::error::kTableNotFound, u"数据库缺少数据表"},
    {sql::error::kObjectNotFound, u"数据库缺少数据表"}, {sql::error::kColumnNotFound, u"数据表缺少字段"},
    {sql::error::kFieldNotFound, u"数据表缺少字段"},    {sql::error::kNoCurrentRecord, u"数据表缺少记录"},
};

} // namespace

Failure::Failure(const QString& cause, const QString& details)
    : std::runtime_error(cause.toStdString()), m_cause(cause), m_details(details) {}

QString causeOf(const std::exception& failure) {
    if (const auto* own = dynamic_cast<const Failure*>(&failure))
        return own->cause();
    if (const auto* statement = dynamic_cast<const sql::SqlError*>(&failure)) {
        for (const Cause& cause : kCauses)
            if (cause.number == statement->number())
                return QString::fromUtf16(cause.text);
        return u"数据库操作失败"_s;
    }
    if (const auto* system = dynamic_cast<const std::system_error*>(&failure)) {
        if (system->code() == std::errc::no_space_on_device)
            return u"磁盘空间不足"_s;
        if (system->code() == std::errc::permission_denied || system->code() == std::errc::operation_not_permitted)
            return u"没有读写该文件的权限"_s;
        return u"文件操作失败"_s;
    }
    return dynamic_cast<const std::bad_alloc*>(&failure) ? u"内存不足"_s : u"程序内部错误"_s;
}

QString detailsOf(const std::exception& failure) {
    if (const auto* own = dynamic_cast<const Failure*>(&failure))
        return own->details();
    const QString words = QString::fromUtf8(failure.what());
    if (const auto* statement = dynamic_cast<const sql::SqlError*>(&failure))
        return u"错误 %1：%2"_s.arg(statement->number()).arg(words);
    return words;
}

Message failureMessage(const std::exception& failure, const QString& happened, const QString& title,
                       const QString& advice) {
    const QString rest = advice.isEmpty() ? u"原有的数据没有改变，请排除原因后重试。"_s : advice;
    return {u"%1：%2。%3"_s.arg(happened, causeOf(failure), rest), title, detailsOf(failure)};
}

Message brokenDatabaseMessage(const std::exception& failure) {
    return {u"数据库读写错误,程序即将退出!"_s, u"数据库错误"_s, detailsOf(failure),
            u"原因：%1。您的文件都没有改变，历史号码和保存的选号都在。"_s.arg(causeOf(failure))};
}

} // namespace workspace
