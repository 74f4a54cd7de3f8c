#pragma once

#include "display/display_traits.h"

#include <QPushButton>
#include <QString>
#include <QWidget>

namespace velmora {

/// One text of the control row: a clock, a duration, a caption. In a mirrored window the text is
/// drawn into a hidden picture and shown flipped: what is elapsedsource, remainingsource, Picture5
/// and Picture11 there, and ElapsedTime, Remainingtime, Picture4 and Statuspic to the eye.
class ShowText final : public QWidget {
    Q_OBJECT
public:
    /// points: size at 96 dots to the inch.
    ShowText(const QString& text, int points, Orientation orientation, QWidget* parent);

    [[nodiscard]] const QString& text() const { return m_text; }
    /// Repaints on a difference only.
    void setText(const QString& text);
    /// Enlarges the letters.
    void setUnit(double unit);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_text;
    int m_points;
    Orientation m_orientation;
};

/// A button of the control row, with its face flipped in a mirrored window. Takes no focus and has
/// no menu: both would take the show out of the operator's hands. A double click is one press: its
/// second one would reach the button that has come in the place of the first.
class ShowButton final : public QPushButton {
    Q_OBJECT
public:
    ShowButton(const QString& text, Orientation orientation, QWidget* parent);

protected:
    void mouseDoubleClickEvent(QMouseEvent*) override {}
    void paintEvent(QPaintEvent* event) override;

private:
    Orientation m_orientation;
};

} // namespace velmora
