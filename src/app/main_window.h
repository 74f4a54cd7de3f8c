#pragma once

#include "app/exit_sequence.h"
#include "app/main_window_controls.h"
#include "app/start_commands.h"
#include "core/editor_host.h"
#include "core/settings_file.h"
#include "core/two_display_check.h"
#include "display/show_hand_over.h"
#include "editor/progress_window.h"
#include "editor/recent_files.h"
#include "editor/rescue_copy.h"
#include "editor/script_loader.h"
#include "editor/script_saver.h"
#include "platform/devices/latin_keys.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

class QKeyEvent;
class QMimeData;

namespace velmora {

class Session;

/// Form1: the main window, with the script in its column, the toolbar above and the width slider
/// and the Start button below. Owned by the application; lives as long as the program. The script
/// itself, rtb1, is the session's.
///
/// Everything else is opened from here, does its work and goes away: RunPrompter is a nested call
/// that returns when the show is over. During a show the window is disabled, and closing it asks
/// the show to end instead.
class Form1 final : public QWidget, public EditorHost {
    Q_OBJECT
public:
    /// The session's AppFolder must be set.
    explicit Form1(Session& session);
    ~Form1() override;

    /// The load step: screen, settings, look, the help on monitors, the check of two displays.
    /// Returns when the editor is usable, with the window shown and empty.
    void Form_Load();
    /// The session ends, whatever the user would say: what is unsaved goes into the rescue copy,
    /// and the settings are written.
    void sessionEnds();
    /// Loads a script that was named on the command line or dropped on the window.
    void openScript(const QString& path);
    /// Closes every other window of the program.
    void UnloadAllForms(const QString& name);

    // --- EditorHost
    void sendZoom() override;
    void focusEditor() override;
    [[nodiscard]] int firstVisibleLine() const override;
    void scrollLineToTop(int line) override;
    void setEditorActive(bool active) override;
    [[nodiscard]] QString comboFontName() const override;
    [[nodiscard]] double comboFontSize() const override;
    void showProgress(const QString& text) override;
    [[nodiscard]] bool showProgressShare(double share) override;
    void showNotice(const QString& text) override;

Q_SIGNALS:
    /// The unload step has gone through: the program ends.
    void unloaded();

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Key;

    // --- controls' events
    void LoadText_Click();
    void SaveText_Click();
    void SetupButton_Click();
    void StartButton_Click();
    void ExitButton_Click();
    void Combo1_Click();
    void Combo2_Click();
    void Hscroll1_Change();
    void rtb1_Change();
    /// True: the control does not see the key.
    bool rtb1_KeyDown(const QKeyEvent& event);
    /// What is pasted or dropped.
    void enterText(const QMimeData& mime);
    void runShow();
    void startFromBeginning();
    void startFromCursor();

    // --- load and unload
    void connectControls();
    void runLoadStep();
    void placeOnDisplay1();
    void readSettings();
    void checkTwoDisplays();
    /// Where the column is narrowed for display 2, it is narrowed anew for the words there are now.
    void keepWordsWhole();
    /// Tells of the script that an earlier session left unsaved, and loads it if that is wanted.
    void offerRecovered();
    [[nodiscard]] ColumnSlider columnSlider() const;
    void applyCheck(const TwoDisplayCheck& check);
    /// The setup window, and what has to be renewed when it has closed.
    void runSetup();
    /// The settings' look, for an editor without text: font, colours and column width.
    void takeDefaultLook();
    /// Behind an act in one of the other controls: only the keyboard's own stay there.
    void leaveControl(const QWidget& control);
    /// The unload step. Sets cancel when the program goes on.
    void Form_Unload(bool& cancel);
    [[nodiscard]] ExitSequence::Steps exitSteps();
    Outcome writeSettings();

    /// Runs a command of the editor, unless it has to rest: during a show, another command, the
    /// exit. Meanwhile nothing else starts, nor does the window close.
    void command(const std::function<void()>& work);
    [[nodiscard]] bool mustRest() const;
    template<typename Load> void load(const Load& load);
    [[nodiscard]] bool holdsScript() const;
    void updateCaption();
    [[nodiscard]] bool acceptsFile(const QMimeData& mime) const;
    bool dropFile(const QMimeData& mime);

    Session& m_session;
    LatinKeys m_latinKeys;
    ShowHandOver m_handOver;
    RecentFileTable m_recentFiles;
    ScriptLoader m_loader;
    ScriptSaver m_saver;
    RescueCopy m_rescue;
    StartCommands m_start;
    ExitSequence m_exit;
    std::optional<SettingsFile> m_settingsFile;
    MainWindowControls m_controls;
    std::unique_ptr<Form31> m_progress;
    /// What the caption tells: the file that was last loaded or saved with success.
    QString m_shownFile;
    bool m_busy = false;
};

} // namespace velmora
