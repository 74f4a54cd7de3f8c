#pragma once

#include <QWidget>

namespace velmora {

/// The drawn shuttle: a disc with its ring and the five numbered buttons around its upper half,
/// button 1 at the left. One button may be marked.
class ShuttlePicture final : public QWidget {
    Q_OBJECT
public:
    explicit ShuttlePicture(QWidget* parent);

    /// 1 to 5, or 0 for none.
    void markButton(int number);
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_marked = 0;
};

} // namespace velmora
