#pragma once

#include <QGraphicsScene>
#include <QGraphicsView>

namespace velmora {

/// Shows a sheet of working controls as a mirror would: keys go to the control that has the focus,
/// the pointer to the control that is seen under it. For windows that are read in a mirror; a face
/// that nobody types into is painted flipped instead.
class FlippedView final : public QGraphicsView {
    Q_OBJECT
public:
    /// Owns the sheet.
    FlippedView(QWidget* sheet, QWidget* parent);

    [[nodiscard]] QWidget* sheet() const { return m_sheet; }
    [[nodiscard]] QSize sizeHint() const override;

protected:
    /// Enter presses the button that has the focus, or else the default one, as in a dialog.
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* m_sheet;
    QGraphicsScene m_scene;
};

} // namespace velmora
