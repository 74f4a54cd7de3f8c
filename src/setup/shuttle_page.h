#pragma once

#include "controllers/controller_buttons.h"

#include <QWidget>

class QGridLayout;
class QListWidget;

namespace velmora {

class ShuttlePicture;

/// Picture3 of Form3: the button page, a drawn shuttle with the list of functions Button1 to
/// Button5 near each of its buttons.
class ShuttlePage final : public QWidget {
    Q_OBJECT
public:
    ShuttlePage(Settings& settings, QWidget* parent);

    /// Selects in each list the function of its setting; limits the settings.
    void showFunctions();
    /// To be called when the page comes into view: limits the settings and keeps copies of them.
    void begin();

Q_SIGNALS:
    /// The lists' functions are stored.
    void saved();
    /// The settings are as they were.
    void cancelled();

private:
    /// CB2 "Save".
    void CB2_Click();
    /// CB1 "Cancel".
    void CB1_Click();
    void addList(QGridLayout& grid, int number, int line, int column);
    bool eventFilter(QObject* watched, QEvent* event) override;

    Settings& m_settings;
    ShuttlePicture* m_picture;
    /// Button1 to Button5.
    std::array<QListWidget*, ShuttleButtons.size()> m_lists = {};
    /// ShuttleButtonBackup1 to ShuttleButtonBackup5.
    std::array<int, ShuttleButtons.size()> m_backups = {};
};

} // namespace velmora
