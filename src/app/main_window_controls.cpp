#include "app/main_window_controls.h"

#include "app/look.h"
#include "core/screen_scale.h"
#include "core/session.h"
#include "platform/rich_text/rich_text_view.h"
#include "widgets/font_name_combo.h"
#include "widgets/font_size_combo.h"

#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QStyle>
#include <QTimer>
#include <QVariant>

#include <chrono>

namespace velmora {

namespace {

/// Long enough to read a notice that came while nobody looked; then the keys are told again.
constexpr std::chrono::seconds NoticeTime(60);

/// A control that takes the keys from the keyboard alone: a click leaves them with the script.
void nameForKeyboard(QWidget& control, const QString& name, const QString& spoken) {
    control.setObjectName(name);
    control.setAccessibleName(spoken);
    control.setToolTip(spoken);
    control.setFocusPolicy(Qt::TabFocus);
}

QString howToBegin() {
    return QStringLiteral("F1  Start From Beginning      F2  Start From Cursor      "
                          "Ctrl+L  Load      Ctrl+S  Save      Alt+U  Setup");
}

} // namespace

MainWindowControls::MainWindowControls(QWidget& window, Session& session) : m_window(window) {
    window.setStyleSheet(mainWindowStyle(session.screen));
    // The strips come first: what is made later lies above.
    Backpicture = addStrip(QStringLiteral("Backpicture"));
    m_bottomStrip = addStrip(QStringLiteral("BottomStrip"));

    LoadText =
        addButton(QStringLiteral("LoadText"), QStringLiteral("Load"), QStringLiteral("Load Text"));
    SaveText =
        addButton(QStringLiteral("SaveText"), QStringLiteral("Save"), QStringLiteral("Save Text"));
    SetupButton = addButton(QStringLiteral("SetupButton"), QStringLiteral("Setup"),
                            QStringLiteral("Display Setup Menu"));
    ExitButton = addButton(QStringLiteral("ExitButton"), QStringLiteral("Exit"),
                           QStringLiteral("Exit Program"));
    StartButton = addButton(QStringLiteral("StartButton"), QStringLiteral("Start"),
                            QStringLiteral("Start Prompter Display"));

    Combo1 = new FontNameCombo(&window);
    nameForKeyboard(*Combo1, QStringLiteral("Combo1"), QStringLiteral("Font Name"));
    Combo2 = new FontSizeCombo(&window);
    nameForKeyboard(*Combo2, QStringLiteral("Combo2"), QStringLiteral("Font Size"));

    Label2 = addLabel(QStringLiteral("Label2"), QStringLiteral("Editor / Prompter Width"));
    Label4 = addLabel(QStringLiteral("Label4"), QStringLiteral("Min"));
    Label5 = addLabel(QStringLiteral("Label5"), QStringLiteral("Max"));
    m_noticeLine = addLabel(QStringLiteral("NoticeLine"), QString());
    Hscroll1 = new QSlider(Qt::Horizontal, &window);
    nameForKeyboard(*Hscroll1, QStringLiteral("Hscroll1"), Label2->text());
    Hscroll1->setRange(MinColumnMargin, MaxColumnMargin);
    // The captions at its ends stand where they do in any language.
    Hscroll1->setLayoutDirection(Qt::LeftToRight);

    rtb1 = new RichTextView(session.script.rtb1, &window);
    rtb1->setObjectName(QStringLiteral("rtb1"));
    rtb1->setAccessibleName(QStringLiteral("Script"));
    rtb1->setFrameShape(QFrame::NoFrame);
    m_noticeTime = new QTimer(&window);
    m_noticeTime->setObjectName(QStringLiteral("NoticeTime"));
    m_noticeTime->setSingleShot(true);
    m_noticeTime->setInterval(NoticeTime);
    QObject::connect(m_noticeTime, &QTimer::timeout, &window, [this] { showNotice(QString()); });
}

QWidget* MainWindowControls::addStrip(const QString& name) {
    auto* strip = new QWidget(&m_window);
    strip->setObjectName(name);
    strip->setAttribute(Qt::WA_StyledBackground);
    return strip;
}

QPushButton* MainWindowControls::addButton(const QString& name, const QString& caption,
                                           const QString& toolTip) {
    auto* button = new QPushButton(caption, &m_window);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    // The keyboard stays with the script.
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

QLabel* MainWindowControls::addLabel(const QString& name, const QString& caption) {
    auto* label = new QLabel(caption, &m_window);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    return label;
}

void MainWindowControls::place(const ScreenState& screen, QSize client) {
    m_layout = layoutMainWindow(screen, client);
    Backpicture->setGeometry(m_layout.Backpicture);
    LoadText->setGeometry(m_layout.LoadText);
    SaveText->setGeometry(m_layout.SaveText);
    Combo1->setGeometry(m_layout.Combo1);
    Combo2->setGeometry(m_layout.Combo2);
    SetupButton->setGeometry(m_layout.SetupButton);
    ExitButton->setGeometry(m_layout.ExitButton);
    m_bottomStrip->setGeometry(m_layout.bottomStrip);
    Label2->setGeometry(m_layout.Label2);
    Label4->setGeometry(m_layout.Label4);
    Hscroll1->setGeometry(m_layout.Hscroll1);
    Label5->setGeometry(m_layout.Label5);
    StartButton->setGeometry(m_layout.StartButton);
    m_noticeLine->setGeometry(m_layout.noticeLine);
    elideNotice();
    placeColumn(screen, client);
}

void MainWindowControls::placeColumn(const ScreenState& screen, QSize client) {
    rtb1->setGeometry(textColumn(m_layout, screen, Hscroll1->value(), client));
}

void MainWindowControls::showFont(const QString& name, int points) {
    Combo1->showName(name);
    Combo2->showSize(points);
}

void MainWindowControls::showNotice(const QString& notice) {
    notice.isEmpty() ? m_noticeTime->stop() : m_noticeTime->start();
    m_notice = notice;
    m_noticeLine->setToolTip(notice);
    m_noticeLine->setProperty("attention", !notice.isEmpty());
    // The colour hangs on the property, which a style sheet looks at only now.
    m_noticeLine->style()->unpolish(m_noticeLine);
    m_noticeLine->style()->polish(m_noticeLine);
    elideNotice();
}

void MainWindowControls::elideNotice() {
    m_noticeLine->setText(m_noticeLine->fontMetrics().elidedText(
        m_notice.isEmpty() ? howToBegin() : m_notice, Qt::ElideRight, m_noticeLine->width()));
}

} // namespace velmora
