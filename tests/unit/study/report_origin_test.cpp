// The line that tells of which state of a BDP a figure is.
#include "study/report/origin.h"

#include <gtest/gtest.h>

using namespace study;

TEST(TheOriginOfAFigure, IsToldInOneLine)
{
    const QDateTime read(QDate(2026, 11, 22), QTime(9, 30));
    parish::Source source{.path = "/casa/a.orv", .bytes = 999, .sha256 = "ab", .readAt = read};
    EXPECT_EQ(report::originText(source), "Fonte: /casa/a.orv, 999 bytes, SHA-256 ab, lido em 22/11/2026 09:30:00");
    source.sha256.clear();
    EXPECT_EQ(report::originText(source), "Fonte: /casa/a.orv, lido em 22/11/2026 09:30:00");
    EXPECT_EQ(report::sizeText(1), "1 byte");
    EXPECT_EQ(report::momentText({}), "–");
}
