#include "app/main_window.h"

#include "app/dropped_file.h"
#include "core/line_spacing.h"
#include "core/program_name.h"
#include "core/screen_scale.h"
#include "core/session.h"
#include "editor/incoming_text.h"
#include "editor/script_conventions.h"
#include "platform/rich_text/rich_text_view.h"
#include "setup/display_options.h"
#include "widgets/font_name_combo.h"
#include "widgets/font_size_combo.h"

#include <QFileInfo>
#include <QKeyEvent>
#include <QMimeData>
#include <QPushButton>
#include <QSlider>

#include <array>
#include <tuple>

namespace velmora {

/// A key of rtb1 and its command; no command: the key is swallowed.
struct Form1::Key final {
    int key;
    Qt::KeyboardModifiers modifiers;
    void (Form1::*command)();
};

Form1::Form1(Session& session)
    : m_session(session), m_handOver(session, *this), m_recentFiles(session.AppFolder),
      m_loader(session, *this, session.keepsFiles ? &m_recentFiles : nullptr),
      m_saver(session, *this), m_rescue(session, *this),
      m_start(session, *this, [this] { runShow(); }), m_exit(session, *this, exitSteps()),
      m_controls(*this, session) {
    setObjectName(QStringLiteral("Form1"));
    setAcceptDrops(true);
    connectControls();
}

Form1::~Form1() = default;

void Form1::connectControls() {
    connect(m_controls.LoadText, &QPushButton::clicked, this, &Form1::LoadText_Click);
    connect(m_controls.SaveText, &QPushButton::clicked, this, &Form1::SaveText_Click);
    connect(m_controls.StartButton, &QPushButton::clicked, this, &Form1::StartButton_Click);
    connect(m_controls.SetupButton, &QPushButton::clicked, this, &Form1::SetupButton_Click);
    connect(m_controls.ExitButton, &QPushButton::clicked, this, &Form1::ExitButton_Click);
    connect(m_controls.Combo1, &QComboBox::activated, this, &Form1::Combo1_Click);
    connect(m_controls.Combo2, &QComboBox::activated, this, &Form1::Combo2_Click);
    connect(m_controls.Combo1, &ListCombo::closed, this, &Form1::focusEditor);
    connect(m_controls.Combo2, &ListCombo::closed, this, &Form1::focusEditor);
    connect(m_controls.Hscroll1, &QSlider::valueChanged, this, &Form1::Hscroll1_Change);
    connect(&m_session.script.rtb1, &RichTextBox::Change, this, &Form1::rtb1_Change);
    m_controls.rtb1->setIncomingHandler([this](const QMimeData& mime) { enterText(mime); });
    // As a save leaves it: white letters cannot be read on the paper of other programs.
    m_controls.rtb1->setOutgoingLook(
        [](RichTextFragment& text) { applyColourRule(text, Black, White); });
    m_controls.rtb1->installEventFilter(this);
    m_controls.rtb1->viewport()->installEventFilter(this);
}

// --- commands ------------------------------------------------------------------------------------

bool Form1::mustRest() const {
    return m_busy || m_session.show.ShowRunning == 1;
}

void Form1::command(const std::function<void()>& work) {
    if (mustRest()) {
        return;
    }
    m_busy = true;
    work();
    m_busy = false;
}

template<typename Load> void Form1::load(const Load& load) {
    command([&] {
        const ScriptState& script = m_session.script;
        if (load()) {
            m_shownFile = script.ScriptFileName;
            if (script.TextChanged == 0) {
                m_rescue.scriptIsSafe();
            }
            keepWordsWhole();
        }
        updateCaption();
    });
}

void Form1::LoadText_Click() {
    load([this] { return m_loader.LoadText(); });
}

void Form1::openScript(const QString& path) {
    load([this, &path] { return m_loader.loadScript(path); });
}

void Form1::SaveText_Click() {
    command([this] {
        ScriptState& script = m_session.script;
        script.SaveFailed = 1;
        m_saver.SaveText();
        if (script.SaveFailed == 0 && !script.rtb1.isEmpty()) {
            m_shownFile = script.ScriptFileName;
            m_rescue.scriptIsSafe();
        }
        script.SaveFailed = 0;
        updateCaption();
    });
}

void Form1::SetupButton_Click() {
    command([this] { runSetup(); });
}

void Form1::runSetup() {
    Settings& settings = m_session.settings;
    const int mirrorModeBefore = settings.MirrorMode;
    const auto look = [&settings] {
        return std::tuple(settings.ScreenBackColor, settings.ScreenTextColor,
                          settings.ScreenFontName, settings.ScreenFontSize, settings.ColumnMargin);
    };
    const auto lookBefore = look();
    m_session.script.DialogClosing = 0;
    Form8(m_session, this).exec();
    if (look() != lookBefore && m_session.script.rtb1.isEmpty()) {
        takeDefaultLook();
    }
    m_session.show.LineSpacingText = lineSpacingText(settings.LineSpacingIndex);
    deriveSettings(settings);
    applyCheck(checkTwoDisplaysAfterSetup(m_session, columnSlider(), mirrorModeBefore));
    focusEditor();
}

void Form1::StartButton_Click() {
    command([this] { m_start.StartButton(); });
}

void Form1::runShow() {
    keepWordsWhole();
    // Now, so that nothing is written while the script runs.
    m_rescue.keep();
    m_handOver.RunPrompter();
    // Bookmarks that the show has added are a change.
    updateCaption();
}

void Form1::startFromBeginning() {
    command([this] { m_start.fromBeginning(); });
}

void Form1::startFromCursor() {
    command([this] { m_start.fromCursor(); });
}

bool Form1::rtb1_KeyDown(const QKeyEvent& event) {
    static constexpr std::array keys = {
        Key{Qt::Key_F1, Qt::NoModifier, &Form1::startFromBeginning},
        Key{Qt::Key_F2, Qt::NoModifier, &Form1::startFromCursor},
        Key{Qt::Key_L, Qt::ControlModifier, &Form1::LoadText_Click},
        Key{Qt::Key_S, Qt::ControlModifier, &Form1::SaveText_Click},
        Key{Qt::Key_U, Qt::AltModifier, &Form1::SetupButton_Click},
    };
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    for (const Key& entry : keys) {
        if (event.key() == entry.key && modifiers == entry.modifiers) {
            (this->*entry.command)();
            return true;
        }
    }
    // The other function keys do nothing in the editor.
    return event.key() >= Qt::Key_F1 && event.key() <= Qt::Key_F12;
}

void Form1::rtb1_Change() {
    m_rescue.scriptChanged();
    if (m_session.show.ShowRunning == 1) {
        return;
    }
    ScriptState& script = m_session.script;
    if (script.TextChanged == 0 && holdsScript()) {
        script.TextChanged = 1;
        updateCaption();
    }
}

/// There is text, or there was some in a file.
bool Form1::holdsScript() const {
    const ScriptState& script = m_session.script;
    return !script.rtb1.isEmpty() || !script.ownFile.isEmpty();
}

void Form1::Hscroll1_Change() {
    const int margin = m_controls.Hscroll1->value();
    m_session.settings.ColumnMargin = margin;
    m_controls.placeColumn(m_session.screen, size());
    m_session.script.rtb1.setWrapWidth(wrapWidthForMargin(margin));
    leaveControl(*m_controls.Hscroll1);
}

void Form1::leaveControl(const QWidget& control) {
    // A click gives none of them the focus: whichever has it was reached by keyboard, and each step
    // would have to be paid with a walk back to it.
    if (!control.hasFocus()) {
        focusEditor();
    }
}

void Form1::enterText(const QMimeData& mime) {
    command([&] {
        insertIncomingText(m_session, *this, mime);
        keepWordsWhole();
    });
}

void Form1::Combo1_Click() {
    m_session.script.rtb1.setSelFontName(m_controls.Combo1->currentText());
    leaveControl(*m_controls.Combo1);
}

void Form1::Combo2_Click() {
    m_session.script.rtb1.setSelFontSize(comboFontSize());
    sendZoom();
    leaveControl(*m_controls.Combo2);
}

void Form1::updateCaption() {
    QString caption = programName();
    if (!m_shownFile.isEmpty()) {
        // The toolkit takes this for the place of its own mark of a change, unless it is doubled.
        caption +=
            QStringLiteral(" - ") + QFileInfo(m_shownFile)
                                        .fileName()
                                        .replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
    }
    if (m_session.script.TextChanged == 1 && holdsScript()) {
        caption += u'*';
    }
    setWindowTitle(caption);
}

// --- window events -------------------------------------------------------------------------------

void Form1::resizeEvent(QResizeEvent*) {
    m_controls.place(m_session.screen, size());
    // A running show has the control's zoom.
    if (m_session.show.ShowRunning == 0) {
        sendZoom();
    }
}

bool Form1::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_controls.rtb1 && event->type() == QEvent::KeyPress) {
        return rtb1_KeyDown(static_cast<const QKeyEvent&>(*event));
    }
    if (watched != m_controls.rtb1->viewport()) {
        return false;
    }
    // A file dropped on the text is a script to load; text is the control's own matter.
    if (event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove) {
        auto& drag = static_cast<QDragMoveEvent&>(*event);
        const bool accepted = acceptsFile(*drag.mimeData());
        if (accepted) {
            drag.acceptProposedAction();
        }
        return accepted;
    }
    return event->type() == QEvent::Drop &&
           dropFile(*static_cast<const QDropEvent&>(*event).mimeData());
}

void Form1::keyPressEvent(QKeyEvent* event) {
    // From the controls beside the text. The editor's own keys have been asked for already.
    const bool leaves = event->key() == Qt::Key_Escape || event->key() == Qt::Key_Return ||
                        event->key() == Qt::Key_Enter;
    if (leaves) {
        focusEditor();
    }
    event->setAccepted(leaves || rtb1_KeyDown(*event));
}

void Form1::dragEnterEvent(QDragEnterEvent* event) {
    if (acceptsFile(*event->mimeData())) {
        event->acceptProposedAction();
    }
}

void Form1::dropEvent(QDropEvent* event) {
    if (dropFile(*event->mimeData())) {
        event->acceptProposedAction();
    }
}

bool Form1::acceptsFile(const QMimeData& mime) const {
    return !mustRest() && !firstLocalFile(mime).isEmpty();
}

bool Form1::dropFile(const QMimeData& mime) {
    if (!acceptsFile(mime)) {
        return false;
    }
    // Later, since the load may ask a question and the other program waits for the drop's end.
    QMetaObject::invokeMethod(
        this, [this, path = firstLocalFile(mime)] { openScript(path); }, Qt::QueuedConnection);
    return true;
}

} // namespace velmora
