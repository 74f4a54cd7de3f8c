#pragma once

#include <gtest/gtest.h>

#include <QFontDatabase>
#include <QFontMetricsF>

/// For a test whose figures are this family's own. Only the run with other fonts has none of it:
/// the tests' own fonts are there, or nothing is built.
#define NEEDS_FONT(family)                                                                         \
    if (!QFontDatabase::hasFamily(QStringLiteral(family)))                                         \
    GTEST_SKIP() << "the figures are those of " family

namespace velmora {

/// What the family measures at a size of 1,000 pixels, by the toolkit.
inline QFontMetricsF metricsOf(const QString& family) {
    QFont font(family);
    font.setPixelSize(1000);
    font.setHintingPreference(QFont::PreferNoHinting);
    return QFontMetricsF(font);
}

} // namespace velmora
