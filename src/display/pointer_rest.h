#pragma once

#include <QObject>
#include <QPointF>

#include <cstdint>
#include <vector>

class QWidget;

namespace velmora {

class Session;

/// The pointer over the text of a running show goes after a rest, and comes back when it is moved.
/// In a pause it does not go. Owned by the display window.
class PointerRest final : public QObject {
    Q_OBJECT
public:
    static constexpr int RestSeconds = 2;

    explicit PointerRest(const Session& session);

    /// A picture of the text; all of them are one place for the pointer.
    void watch(QWidget& picture);
    /// To be called while the text runs.
    void look();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showPointer(bool shown);

    const Session& m_session;
    std::vector<QWidget*> m_pictures;
    QPointF m_place;
    std::int64_t m_movedAt;
    bool m_shown = true;
};

} // namespace velmora
