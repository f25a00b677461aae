// A fresh program folder and a fresh configuration folder for one case; both are gone when it ends.
#pragma once

#include <filesystem>

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

namespace test_support {

/// Points SSQDESK_HOME, XDG_CONFIG_HOME and XDG_DATA_HOME into a temporary folder, and back at the end.
class FreshHome {
  public:
    FreshHome();
    ~FreshHome();
    FreshHome(const FreshHome&) = delete;
    FreshHome& operator=(const FreshHome&) = delete;

    /// The program's folder; it exists and is empty.
    std::filesystem::path folder() const;
    QString folderName() const { return m_root.filePath(QStringLiteral("home")); }
    /// The folder of the settings file.
    QString configFolder() const { return m_root.filePath(QStringLiteral("config")); }

  private:
    QTemporaryDir m_root;
    QByteArray m_before[3];
};

} // namespace test_support
