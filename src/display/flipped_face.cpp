#include "display/flipped_face.h"

#include <QImage>
#include <QPainter>
#include <QWidget>

namespace velmora {

void paintFace(QWidget& widget, Orientation orientation,
               const std::function<void(QPainter&)>& face) {
    if (orientation == Orientation::Plain) {
        QPainter painter(&widget);
        face(painter);
        return;
    }
    QImage picture(widget.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    face(painter);
    painter.end();
    QPainter(&widget).drawImage(0, 0, picture.mirrored(true, false));
}

} // namespace velmora
