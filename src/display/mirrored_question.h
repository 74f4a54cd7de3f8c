#pragma once

#include "display/show_text.h"

#include <QDialog>
#include <QFont>
#include <QRect>
#include <QString>

namespace velmora {

/// Form6: a question to an operator who reads the screen in a mirror: its whole face is the flipped
/// picture of the question, and so are its two buttons. Shown by ask(); Enter is Yes, Escape and
/// the frame are No.
class Form6 final : public QDialog {
    Q_OBJECT
public:
    Form6(const QString& title, const QString& text, QWidget* parent);

    /// MirroredAnswer: 0 for No, 1 for Yes.
    [[nodiscard]] int ask();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void layOut();
    void paintQuestion(QPainter& painter) const;

    QString m_title;
    QString m_text;
    QFont m_titleFont;
    QFont m_textFont;
    QRect m_titleRect;
    QRect m_textRect;
    /// No and Yes.
    ShowButton* CB1 = nullptr;
    ShowButton* CB2 = nullptr;
    int MirroredAnswer = 0;
};

} // namespace velmora
