#include "jet/testbdp.h"

namespace jet::test {

class Like : public TestBdp
{
protected:
    Like()
    {
        run("create table t (a memo)");
        run("insert into t values ('x')");
    }
    bool matches(const char* text, const char* pattern)
    {
        bdp.execute(QStringLiteral("update t set a = '%1'").arg(QString::fromUtf8(text)));
        return select(("select a from t where a like '" + std::string(pattern) + "'").c_str()).recordCount() == 1;
    }
};

TEST_F(Like, KnowsPercentAndUnderscoreAndNothingElse)
{
    EXPECT_TRUE(matches("Maria", "Maria"));
    EXPECT_TRUE(matches("Maria", "%"));
    EXPECT_TRUE(matches("Maria", "%%%"));
    EXPECT_TRUE(matches("Maria", "M%"));
    EXPECT_TRUE(matches("Maria", "%a"));
    EXPECT_TRUE(matches("Maria", "%ari%"));
    EXPECT_TRUE(matches("Maria", "M%r%a"));
    EXPECT_TRUE(matches("Maria", "M_ri_"));
    EXPECT_TRUE(matches("Maria", "_____"));
    EXPECT_TRUE(matches("Maria", "%_ia"));
    EXPECT_TRUE(matches("", ""));
    EXPECT_TRUE(matches("", "%"));
    EXPECT_TRUE(matches("aaab", "%aab"));
    EXPECT_TRUE(matches("abcabd", "%ab%abd"));
    EXPECT_FALSE(matches("Maria", "aria"));
    EXPECT_FALSE(matches("Maria", "Mari"));
    EXPECT_FALSE(matches("Maria", "____"));
    EXPECT_FALSE(matches("Maria", "______"));
    EXPECT_FALSE(matches("Maria", "%x%"));
    EXPECT_FALSE(matches("Maria", ""));
    EXPECT_FALSE(matches("", "_"));
    EXPECT_FALSE(matches("aba", "ab%ba"));
    EXPECT_FALSE(matches("Maria", "M*"));
    EXPECT_FALSE(matches("Maria", "M?ria"));
    EXPECT_FALSE(matches("Maria", "[M]aria"));
    EXPECT_TRUE(matches("*Maria", "*M%"));
}

TEST_F(Like, IsCaseBlindForEveryLetter)
{
    EXPECT_TRUE(matches("JOÃO ÁVILA", "joão%ávila"));
    EXPECT_TRUE(matches("ção", "ÇÃO"));
    EXPECT_TRUE(matches("Œuvre Ÿ Šć", "œUVRE ÿ šĆ"));
    EXPECT_TRUE(matches("ΑΛΦΑ", "%λφα"));
    EXPECT_TRUE(matches("ÿ", "Ÿ"));
    EXPECT_TRUE(matches("𐐀x", "_X"));
    EXPECT_TRUE(matches("𐐀", "𐐨"));
    EXPECT_TRUE(matches("K", "K")); // the Kelvin sign
}

TEST_F(Like, TellsAccentsApart)
{
    EXPECT_FALSE(matches("João", "Joao"));
    EXPECT_FALSE(matches("Joao", "João"));
    EXPECT_FALSE(matches("ñ", "n"));
    EXPECT_TRUE(matches("João", "Jo_o"));
    EXPECT_TRUE(matches("João", "Jo__"));
    EXPECT_FALSE(matches("João", "Jo___"));
    EXPECT_TRUE(matches("2º ÷ × ª", "2º ÷ × ª"));
    EXPECT_FALSE(matches("×", "÷"));
}

TEST_F(Like, TakesLongTextsAndNumbers)
{
    const std::string letters(2000, 'a');
    EXPECT_TRUE(matches((letters + "fim").c_str(), "%FIM"));
    EXPECT_TRUE(matches(letters.c_str(), "%aaaa%aaaa%"));
    EXPECT_FALSE(matches(letters.c_str(), "%b%"));
    EXPECT_EQ(rows("select a from t where 123 like '1%3'").size(), 2000);
    EXPECT_EQ(rows("select a from t where null like '%' or a like null"), "");
}

TEST_F(Like, TakesAPatternThatChangesFromRowToRow)
{
    run("create table p (x memo)");
    run("insert into p values ('a%')");
    run("insert into p values ('%b')");
    run("insert into p values (null)");
    run("update t set a = 'ac'");
    EXPECT_EQ(rows("select x from p, t where a like x"), "a%");
}

} // namespace jet::test
