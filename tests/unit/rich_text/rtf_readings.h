#pragma once

#include "support/fragment_description.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace velmora {

/// What the reader makes of RTF, as describeRtf puts it.
struct RtfReading final {
    QByteArray rtf;
    QString reading;
};

inline void expectReadings(std::initializer_list<RtfReading> rows) {
    for (const RtfReading& row : rows) {
        EXPECT_EQ(describeRtf(row.rtf).toStdString(), row.reading.toStdString())
            << row.rtf.constData();
    }
}

} // namespace velmora
