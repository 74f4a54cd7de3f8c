#pragma once

#include "core/settings.h"

#include <QWidget>

class QGridLayout;

namespace velmora {

/// The page of Form3 for a hand controller with two buttons. Nothing opens it; its settings are
/// kept all the same, so that the settings file keeps its order.
class TwoButtonPage final : public QWidget {
    Q_OBJECT
public:
    /// Keeps copies of the two settings, which Cancel puts back.
    TwoButtonPage(Settings& settings, QWidget* parent);

Q_SIGNALS:
    void left();

private:
    void SaveSettings_Click();
    void Cancel_Click();
    void addOptions(QGridLayout& grid, int column);

    Settings& m_settings;
    int m_button1Before;
    int m_button2Before;
};

} // namespace velmora
