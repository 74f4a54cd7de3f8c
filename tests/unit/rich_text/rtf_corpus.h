#pragma once

#include "support/files.h"

#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QStringList>

#include <map>
#include <string>

namespace velmora {

/// Files of many writers, with the text and the formats that another reader or the file's own
/// project expects. They are not part of the project: they lie in the folder shared/corpus beside
/// it, where there is one.
class RtfCorpus : public ::testing::Test {
protected:
    void SetUp() override {
        if (!corpus().exists()) {
            GTEST_SKIP() << "no corpus beside the project";
        }
    }
};

/// A file that is read otherwise than its expectation says, and why that is right.
using Departures = std::map<std::string, std::string>;

/// Checks one file for agreement against the list of departures, in both directions.
inline void expectAgreement(const Departures& departures, const QString& file,
                            const QString& difference) {
    const auto departure = departures.find(file.toStdString());
    if (departure == departures.end()) {
        EXPECT_TRUE(difference.isEmpty()) << file.toStdString() << "\n" << difference.toStdString();
    } else {
        EXPECT_FALSE(difference.isEmpty())
            << file.toStdString() << " agrees now; the list still says: " << departure->second;
    }
}

/// What two readers may spell differently: kinds of blanks and hyphens, marks without a width, the
/// bar between cells, and whether a character is composed.
inline QString folded(QString text) {
    static constexpr char16_t Blanks[] = {0x00A0, 0x2002, 0x2003, 0x2005, 0x2009, 0x202F, u'|'};
    static constexpr char16_t LineEnds[] = {u'\r', 0x0B, 0x0C, 0x07, 0x2028, 0x2029};
    static constexpr char16_t Hyphens[] = {0x2010, 0x2011};
    static constexpr char16_t Nothing[] = {0x00AD, 0x200B, 0x200C, 0x200D,
                                           0x200E, 0x200F, 0x2060, 0xFEFF};
    text.replace(u"\r\n"_qs, u"\n"_qs);
    const auto replaceAll = [&text](const auto& units, const QString& by) {
        for (const char16_t unit : units) {
            text.replace(QChar(unit), by);
        }
    };
    replaceAll(Blanks, u" "_qs);
    replaceAll(LineEnds, u"\n"_qs);
    replaceAll(Hyphens, u"-"_qs);
    replaceAll(Nothing, QString());
    return text.normalized(QString::NormalizationForm_C);
}

/// Length of a list's label at a line's start: readers differ in whether they give it.
inline qsizetype labelLength(const QString& line) {
    static const QRegularExpression label(
        u"^[ "
        u"\\t]*(?:[\u2022\u00b7\u25aa\u25cf\u25cb\u25e6\u2023\u2043\u2219\u2013\uf0b7\uf0a7\uf0d8"
        "\uf076\uf02d\uf0a8\uf0fc*o-]|\\(?(?:\\d+(?:\\.\\d+)*|[A-Za-z]|[ivxlcIVXLC]+)[.)])[ "
        "\\t]+"_qs);
    return label.match(line).capturedLength();
}

} // namespace velmora
