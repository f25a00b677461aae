// The questions and messages of the program as boxes above a window: MsgBox, InputBox, FileDialog.
#pragma once

#include "workspace/dialogs.h"

class QWidget;

namespace toolkit {

class DialogBoxes final : public workspace::Dialogs {
  public:
    /// \param parent  the window that the boxes stand above; may be null
    explicit DialogBoxes(QWidget* parent) : m_parent(parent) {}

    using Dialogs::confirm;
    using Dialogs::tell;
    bool confirm(const workspace::Message& question, workspace::Risk risk) override;
    void tell(const workspace::Message& message) override;
    void warn(const workspace::Message& message) override;
    std::optional<QString> askText(const QString& prompt, const QString& title, const QString& proposed) override;
    std::optional<QString> askSecret(const QString& prompt, const QString& title) override;
    std::unique_ptr<workspace::Progress> progress(const QString& caption) override;
    QString chooseFile(const QString& folder, const QString& filter) override;
    QString chooseNewFile(const QString& proposed, const QString& filter) override;

  private:
    QWidget* m_parent;
};

} // namespace toolkit
