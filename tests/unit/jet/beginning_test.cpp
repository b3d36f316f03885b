#include "platform/jet/beginning.h"

#include "jet/testbdp.h"

namespace jet::test {

using TheBeginningOfAPattern = TestBdp;

// The pattern of a letter finds every text that begins with a letter of the same kind, by its range alone.
TEST_F(TheBeginningOfAPattern, KnowsEveryLetterThatCountsAsAnother)
{
    run("create table t (a varchar(255))");
    bdp.beginTrans();
    QStringList letters;
    for (char32_t letter = 1; letter <= 0x10ffff; ++letter)
        if (QChar::toCaseFolded(letter) != letter) letters << QString::fromUcs4(&letter, 1);
    for (const QString& letter : letters)
        bdp.execute(NativeSql("insert into t values (?), (?)", {letter + "x", letter.toCaseFolded() + "x"}));
    bdp.commitTrans();
    EXPECT_GT(letters.size(), 1400);
    for (const QString& letter : letters)
        for (const QString& typed : {letter, letter.toCaseFolded()}) {
            const QString pattern = u'\'' + typed + "X%'";
            const auto count = [&](const QString& condition) {
                return Recordset(bdp, NativeSql("select count(*) from t where " + condition))[0].toInt();
            };
            const QString range = beginningCondition("a", typed + "X%");
            const int all = count("a like " + pattern);
            EXPECT_GE(all, 2);
            EXPECT_EQ(range.isEmpty() ? all : count("a like " + pattern + " and (" + range + ")"), all)
                << typed.toStdString();
        }
}

// Nothing that a range could be made of.
TEST(ABeginning, IsNotKnownOfEveryPattern)
{
    for (const char* pattern : {"", "%", "%a", "_a", "\xEF\xBF\xBF", "\xF0\x90\x90\x80x"})
        EXPECT_EQ(beginningCondition("a", QString::fromUtf8(pattern)), "") << pattern;
    EXPECT_NE(beginningCondition("a", "a"), "");
}

} // namespace jet::test
