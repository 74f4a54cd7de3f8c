#pragma once

#include "platform/rich_text/rich_text_view_core.h"

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QObject>
#include <QPoint>

class QMouseEvent;

namespace velmora {

/// The mouse of the editor view: caret, selection by characters, words and paragraphs, scrolling
/// while a selection is dragged out of the view, the paste of the middle button. Owned by the view.
class MouseHandler final : public QObject {
    Q_OBJECT
public:
    explicit MouseHandler(ViewCore& core) : m_core(core) {}

    void press(const QMouseEvent& event);
    void doubleClick(const QMouseEvent& event);
    void move(const QMouseEvent& event);
    void release(const QMouseEvent& event);

    /// Whether a point of the viewport lies on selected text.
    [[nodiscard]] bool isOnSelection(QPointF point) const;
    /// Offers the selection to the middle mouse button of every program, where the platform knows
    /// that.
    void publishSelection() const;

Q_SIGNALS:
    /// The selection was taken up and moved: a drag begins.
    void dragStarted();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    enum class Unit { Character, Word, Paragraph };
    enum class State { Idle, Selecting, OnSelection };
    struct Range final {
        int start = 0;
        int end = 0;
    };

    void beginSelection(Unit unit, int position);
    void extendTo(QPointF point);
    [[nodiscard]] Range unitAt(Unit unit, int position) const;
    [[nodiscard]] bool isThirdClick(const QMouseEvent& event) const;
    void pasteSelectionAt(QPointF point);

    ViewCore& m_core;
    State m_state = State::Idle;
    Unit m_unit = Unit::Character;
    /// What the first click of a selection took; it stays selected however the mouse moves.
    Range m_first;
    QPoint m_pressPoint;
    QPointF m_lastPoint;
    QElapsedTimer m_sinceDoubleClick;
    QBasicTimer m_autoScroll;
};

} // namespace velmora
