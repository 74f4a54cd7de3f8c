#pragma once

#include "app/main_window_layout.h"

#include <QSize>

class QLabel;
class QPushButton;
class QSlider;
class QTimer;
class QWidget;

namespace velmora {

class FontNameCombo;
class FontSizeCombo;
class RichTextView;
class Session;
struct ScreenState;

/// The controls of Form1 by their names: made here, put in place here, and nothing more. All are
/// children of the window, which connects and owns them.
class MainWindowControls final {
public:
    MainWindowControls(QWidget& window, Session& session);

    /// Puts everything in place for a window of this size inside; the column at Hscroll1's value.
    void place(const ScreenState& screen, QSize client);
    /// Puts the text column alone in place.
    void placeColumn(const ScreenState& screen, QSize client);
    /// Shows a font in Combo1 and Combo2; also a name that is not installed, and a size in points
    /// that is not among the sizes offered.
    void showFont(const QString& name, int points);
    /// A line at the bottom: for a while a notice that needs attention, else how to begin.
    void showNotice(const QString& notice);

    QWidget* Backpicture;
    QPushButton* LoadText;
    QPushButton* SaveText;
    FontNameCombo* Combo1;
    FontSizeCombo* Combo2;
    QPushButton* SetupButton;
    QPushButton* ExitButton;
    RichTextView* rtb1;
    QLabel* Label2;
    QLabel* Label4;
    QSlider* Hscroll1;
    QLabel* Label5;
    QPushButton* StartButton;

private:
    QPushButton* addButton(const QString& name, const QString& caption, const QString& toolTip);
    QLabel* addLabel(const QString& name, const QString& caption);
    QWidget* addStrip(const QString& name);
    void elideNotice();

    QWidget& m_window;
    QWidget* m_bottomStrip;
    QLabel* m_noticeLine;
    QString m_notice;
    /// How long the notice stands yet.
    QTimer* m_noticeTime;
    MainWindowLayout m_layout;
};

} // namespace velmora
