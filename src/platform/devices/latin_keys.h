#pragma once

#include <QObject>

namespace velmora {

/// While it lives, letters pressed with Control or with Alt count by their place in every window of
/// the program where the keyboard writes no Latin letters: there Ctrl+C would be no key at all.
class LatinKeys final : public QObject {
    Q_OBJECT
public:
    LatinKeys();

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace velmora
