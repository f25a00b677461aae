// The controls that steer every run of a filter window: mode, keep or remove, position boxes.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QRadioButton>
#include <QWidget>

#include "filter/run_settings.h"

namespace filter {

class RunPanel : public QWidget {
    Q_OBJECT

  public:
    /// \param blue  whether there is a box for the blue number
    RunPanel(bool blue, QWidget* parent);

    /// Mode and position boxes as they stand. Baoliu is not read here: other runs may leave it reversed.
    RunSettings settings() const;
    bool keeps() const { return m_keep->isChecked(); }

  signals:
    void modePressed(filter::Mode mode);
    void keepClicked();

  private:
    QGroupBox* buildModes();
    QGroupBox* buildKeep();
    QGroupBox* buildPositions(bool blue);

    QRadioButton* m_range = nullptr;
    QRadioButton* m_mean = nullptr;
    QRadioButton* m_list = nullptr;
    QComboBox* m_percent = nullptr;
    QRadioButton* m_keep = nullptr;
    std::array<QCheckBox*, 8> m_positions{};
};

} // namespace filter
