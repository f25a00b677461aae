// Failures in words: what a user reads when a statement, a file or a disk fails.
//
// A sentence has three parts: the cause, what is safe, and what to do. The original words go into the details.
#pragma once

#include <stdexcept>

#include <QString>

#include "workspace/dialogs.h"

namespace workspace {

/// A failure that already carries its Chinese sentence.
class Failure : public std::runtime_error {
  public:
    /// \param cause  "不能写入文件 …", without a full stop  \param details  the original words
    explicit Failure(const QString& cause, const QString& details = {});
    const QString& cause() const { return m_cause; }
    const QString& details() const { return m_details; }

  private:
    QString m_cause;
    QString m_details;
};

/// The cause of any exception as a Chinese clause without a full stop: "磁盘已满", "文件正被另一个程序使用", ….
QString causeOf(const std::exception& failure);
/// The original words of an exception, with its number if it has one.
QString detailsOf(const std::exception& failure);

/// "{happened}：{cause}。{advice}" with the original words as details.
/// \param happened  what did not work, such as "这一期没有保存"
/// \param advice    what is safe and what to do, whole sentences; empty: that nothing was changed, and to try again
Message failureMessage(const std::exception& failure, const QString& happened, const QString& title,
                       const QString& advice = {});

/// A database of the workspace does not open or cannot be read: what is told before the program ends.
Message brokenDatabaseMessage(const std::exception& failure);

} // namespace workspace
