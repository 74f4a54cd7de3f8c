// Form1's load step and its unload step.
#include "app/main_window.h"

#include "app/exit_question.h"
#include "app/window_placement.h"
#include "core/arrangement.h"
#include "core/display_rects.h"
#include "core/screen_scale.h"
#include "core/session.h"
#include "editor/script_conventions.h"
#include "platform/desktop/message_boxes.h"
#include "platform/desktop/monitors.h"
#include "platform/timing/event_pump.h"
#include "setup/monitor_help.h"

#include <QApplication>
#include <QCloseEvent>
#include <QPushButton>
#include <QSlider>

namespace velmora {

// --- load step -----------------------------------------------------------------------------------

void Form1::Form_Load() {
    // It pumps: a key pressed before the editor is ready must not start a command inside it.
    command([this] { runLoadStep(); });
    offerRecovered();
}

void Form1::runLoadStep() {
    m_session.show.ShowRunning = 0;
    m_session.script.TextChanged = 0;
    measureScreen(m_session);
    placeOnDisplay1();
    readSettings();
    m_controls.place(m_session.screen, size());
    takeDefaultLook();
    updateCaption();
    showNotice(QString());
    show();
    m_session.platform.pump.DoEvents();
    focusEditor();
    if (m_session.settings.IgnoreMonitorHelp == 0) {
        Form11(m_session, this).showHelp();
    }
    if (m_session.settings.MirrorMode == mirror::TwoDisplays) {
        checkTwoDisplays();
    }
    focusEditor();
}

void Form1::takeDefaultLook() {
    m_controls.Hscroll1->setValue(m_session.settings.ColumnMargin);
    Hscroll1_Change();
    applyEditorDefaults(m_session);
    sendZoom();
    m_controls.showFont(m_session.settings.ScreenFontName, m_session.settings.ScreenFontSize);
}

void Form1::placeOnDisplay1() {
    GetDisplayRect(m_session, 1);
    placeWindow(*this, displayRect(m_session.displays));
}

void Form1::readSettings() {
    m_settingsFile.emplace(m_session.AppFolder, m_session.screen.ScreenPixelsHigh);
    // A file that is missing or damaged gives defaults, without a word.
    m_settingsFile->load(m_session.settings);
}

void Form1::checkTwoDisplays() {
    applyCheck(checkTwoDisplaysAtStart(m_session, columnSlider()));
}

void Form1::keepWordsWhole() {
    applyCheck({checkTwoDisplaysAgain(m_session, columnSlider()), false});
}

ColumnSlider Form1::columnSlider() const {
    const QSlider& slider = *m_controls.Hscroll1;
    return {slider.minimum(), slider.maximum(), slider.value()};
}

void Form1::applyCheck(const TwoDisplayCheck& check) {
    if (check.messageDue) {
        m_session.platform.messages.show(MessageIcon::Critical, displayMissingTitle(),
                                         displayMissingText(), MessageButtons::Ok);
    }
    m_controls.Hscroll1->setMinimum(check.slider.minimum);
    m_controls.Hscroll1->setValue(check.slider.value);
}

void Form1::offerRecovered() {
    const QString path = m_rescue.recoveryPath();
    if (path.isEmpty()) {
        m_rescue.begin(path);
        return;
    }
    const MessageAnswer answer = m_session.platform.messages.show(
        MessageIcon::Question, QStringLiteral("Recovered Script"),
        QStringLiteral(
            "Velmora was ended before a script was saved. I keep it as %1.\r\n\r\nDo you "
            "wish to load it now?")
            .arg(path),
        MessageButtons::YesNo);
    // Not before the answer: whatever ends the program meanwhile, the next start asks again.
    const QString recovered = m_rescue.begin(path);
    if (answer == MessageAnswer::Yes) {
        openScript(recovered);
    }
}

// --- unload step ---------------------------------------------------------------------------------

void Form1::ExitButton_Click() {
    close();
}

void Form1::closeEvent(QCloseEvent* event) {
    bool cancel = false;
    Form_Unload(cancel);
    event->setAccepted(!cancel);
    if (!cancel) {
        Q_EMIT unloaded();
    }
}

void Form1::Form_Unload(bool& cancel) {
    cancel = true;
    if (m_session.show.ShowRunning == 1) {
        m_session.show.ExitRequested = 1;
    }
    command([this, &cancel] {
        if (m_exit.run()) {
            m_rescue.scriptIsSafe();
            UnloadAllForms(objectName());
            m_session.platform.pump.DoEvents();
            cancel = false;
        }
    });
}

void Form1::sessionEnds() {
    m_rescue.keep();
    // There is nobody left to be told of a failure.
    static_cast<void>(writeSettings());
}

Outcome Form1::writeSettings() {
    if (!m_session.keepsFiles || !m_settingsFile) {
        return Outcome::success();
    }
    Settings settings = m_session.settings;
    if (settings.ControllerType == controller::Unchosen) {
        settings.ControllerType = m_session.keptControllerType.value_or(controller::Unchosen);
    }
    return m_settingsFile->save(settings);
}

ExitSequence::Steps Form1::exitSteps() {
    ExitSequence::Steps steps;
    steps.askToSave = [this] { Form17(m_session, this).ask(); };
    steps.writeSettings = [this] { return writeSettings(); };
    steps.saveScript = [this] { m_saver.SaveText(); };
    return steps;
}

void Form1::UnloadAllForms(const QString& name) {
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (window->objectName() != name && window->isVisible()) {
            window->close();
        }
    }
}

} // namespace velmora
