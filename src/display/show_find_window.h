#pragma once

#include "display/display_traits.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

namespace velmora {

struct FindState;
class Session;

/// Form14: the find window over a running show, flipped where the show is. Each press closes it
/// with what was asked for; the caller carries it out and asks again.
class Form14 final : public QDialog {
    Q_OBJECT
public:
    /// Time for which the message that nothing was found stands, in milliseconds; the buttons rest
    /// meanwhile.
    static constexpr int MessagePauseMs = 1200;

    Form14(Session& session, Orientation face, QWidget* parent);

    /// Shows the window with the last search text and waits. Leaves FindText, empty where the
    /// operator left, and FindDirection.
    void ask();
    /// The next ask() begins with the message that there are no more matches.
    void showNoMatch();

private:
    void fill(QWidget& sheet, Session& session);
    void answer(const QString& text, int direction);
    void endMessagePause();

    FindState& m_find;
    QLabel* Label1 = nullptr;
    QLineEdit* Text1 = nullptr;
    QPushButton* FindNext = nullptr;
    QPushButton* FindPrevious = nullptr;
    QPushButton* ExitButton = nullptr;
    bool m_noMatch = false;
};

} // namespace velmora
