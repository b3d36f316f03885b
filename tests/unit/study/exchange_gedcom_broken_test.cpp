// What the check of the grammar finds: sound files of both versions, broken line by line.
#include "study/gedcomGrammar.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

constexpr auto sound70 = R"(0 HEAD
1 GEDC
2 VERS 7.0
1 SOUR ORV
2 VERS 1.0
2 NAME ORV
1 SUBM @U1@
1 LANG pt
1 PLAC
2 FORM Sítio, Lugar, Freguesia, Concelho, Distrito, País
1 NOTE Pessoas que ficaram de fora: 2
0 @U1@ SUBM
1 NAME Paróquia de Aguada
0 @R1@ REPO
1 NAME Arquivo Distrital
0 @S1@ SOUR
1 TITL Registos de baptismos
1 AUTH Paróquia de Aguada
1 PUBL Transcritos
1 REPO @R1@
1 UID 001429d2-c2fd-54f8-9bc4-5d33a7a92861
0 @I1@ INDI
1 NAME Padre Rui /da Silva/, o Moço
2 NPFX Padre
2 GIVN Rui
2 NICK o Moço
2 SPFX da
2 SURN Silva
1 SEX M
1 BIRT
2 DATE ABT 12 MAR 1622
1 CHR
2 DATE 14 MAR 1622
2 PLAC , , Aguada, Águeda, Aveiro, Portugal
3 EXID F010102
4 TYPE urn:orv:lugar
2 ASSO @I2@
3 ROLE GODP
4 PHRASE Madrinha
3 NOTE Parentesco: Tia
2 NOTE Idade do pai: 30
3 CONT Idade da mãe: 25
2 SOUR @S1@
3 PAGE Livro 3
3 OBJE @OB1@
1 DEAT
2 DATE ABT 1690
2 CAUS Febre
2 AGE 68y
1 BURI Y
1 WILL
2 ASSO @I2@
3 ROLE OTHER
4 PHRASE Herdeiro
1 FACT Exposto
2 TYPE Filiação
1 FACT Em observação
2 TYPE Observação
2 DATE FROM 14 MAR 1622 TO 1 JAN 1690
1 OCCU Ferreiro
2 DATE 1 MAY 1650
2 SOUR @VOID@
3 PAGE Rol
1 DSCR alto
2 CONT magro
1 EMIG
2 TYPE Passaporte
1 TITL Conde de Basto
1 FAMS @F1@
1 REFN 1
2 TYPE ORV nind
1 UID 101429d2-c2fd-54f8-9bc4-5d33a7a92861
0 @OB1@ OBJE
1 FILE imagens/a.jpg
2 FORM image/jpeg
0 @I2@ INDI
1 SEX F
1 FAMC @F1@
2 PEDI OTHER
3 PHRASE Exposto
0 @F1@ FAM
1 HUSB @I1@
1 CHIL @I2@
1 MARR
2 DATE 2 FEB 1645
2 HUSB
3 AGE 23y
2 ASSO @I2@
3 ROLE WITN
1 EVEN União
2 TYPE União
1 RESI
2 DATE ABT 1650
0 TRLR
)";

constexpr auto sound551 = R"(0 HEAD
1 SOUR ORV
2 VERS 1.0
1 SUBM @U1@
1 GEDC
2 VERS 5.5.1
2 FORM LINEAGE-LINKED
1 CHAR UTF-8
1 LANG Portuguese
1 PLAC
2 FORM Sítio, Lugar, Freguesia, Concelho, Distrito, País
0 @U1@ SUBM
1 NAME Paróquia de Aguada
0 @R1@ REPO
1 NAME Arquivo Distrital
0 @S1@ SOUR
1 TITL Registos de baptismos
1 REPO @R1@
0 @I1@ INDI
1 NAME Rui /da Silva/
2 NPFX Padre
2 GIVN Rui
1 SEX M
1 BIRT
2 DATE ABT 12 MAR 1622
1 CHR
2 DATE 14 MAR 1622
2 PLAC , , Aguada, Águeda, Aveiro, Portugal
3 NOTE @N1@
2 _ASSO @I2@
3 RELA Godparent
2 SOUR @S1@
3 PAGE Livro 3
3 OBJE
4 FILE imagens/a.jpg
5 FORM jpg
1 DEAT Y
1 EVEN Assina, nível 3
2 TYPE Assinatura
2 DATE 1 MAY 1650
2 AGE 28y
1 FAMS @F1@
1 ASSO @I2@
2 RELA Godparent
2 NOTE Madrinha do
3 CONC baptismo
1 REFN 1
2 TYPE ORV nind
1 _UID 101429d2-c2fd-54f8-9bc4-5d33a7a92861
0 @I2@ INDI
1 SEX F
1 FAMC @F1@
2 PEDI foster
0 @F1@ FAM
1 HUSB @I1@
1 CHIL @I2@
1 MARR
2 DATE 2 FEB 1645
2 HUSB
3 AGE 23y
1 EVEN União
2 TYPE União
0 @N1@ NOTE Código do lugar no ORV: F010102
0 TRLR
)";

QStringList problems(const QList<QByteArray>& lines, bool is551)
{
    return gedcom::problemsOf(gedcom::read(lines.join('\n') + '\n', is551), is551);
}

QList<QByteArray> linesOf(bool is551)
{
    return QByteArray(is551 ? sound551 : sound70).trimmed().split('\n');
}

int levelOf(const QByteArray& line)
{
    return line.left(line.indexOf(' ')).toInt();
}

// A line with what stands below it.
qsizetype endOf(const QList<QByteArray>& lines, qsizetype from)
{
    qsizetype end = from + 1;
    while (end < lines.size() && levelOf(lines[end]) > levelOf(lines[from]))
        ++end;
    return end;
}

QByteArray tagOf(const QByteArray& line)
{
    const QList<QByteArray> words = line.split(' ');
    return words[1].startsWith('@') ? words[2] : words[1];
}

// Where the line stands: "INDI.CHR.PLAC".
QByteArray pathOf(const QList<QByteArray>& lines, qsizetype at)
{
    QByteArray path = tagOf(lines[at]);
    int level = levelOf(lines[at]);
    for (qsizetype i = at - 1; i >= 0 && level > 0; --i)
        if (levelOf(lines[i]) == level - 1) {
            path = tagOf(lines[i]) + '.' + path;
            --level;
        }
    return path;
}

// The same file with this line put in the place of that one.
void expectFound(QList<QByteArray> lines, qsizetype at, const QByteArray& broken, bool is551)
{
    const QByteArray was = std::exchange(lines[at], broken);
    EXPECT_FALSE(problems(lines, is551).isEmpty()) << was.constData() << " -> " << broken.constData();
}

class BrokenGedcom : public testing::TestWithParam<bool>
{
};

} // namespace

TEST_P(BrokenGedcom, IsSoundAsItStands)
{
    EXPECT_EQ(problems(linesOf(GetParam()), GetParam()).join('\n'), "");
}

TEST_P(BrokenGedcom, IsFoundWhereATagOrALevelIsAnother)
{
    const QList<QByteArray> lines = linesOf(GetParam());
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QByteArray tag = tagOf(lines[i]), level = QByteArray::number(levelOf(lines[i]));
        expectFound(lines, i, QByteArray(lines[i]).replace(' ' + tag, " XYZW"), GetParam());
        expectFound(lines, i, QByteArray(lines[i]).replace(' ' + tag, " _XYZW"), GetParam());
        expectFound(lines, i, QByteArray::number(level.toInt() + 2) + lines[i].mid(1), GetParam());
        expectFound(lines, i, '0' + level + lines[i].mid(1), GetParam());
        expectFound(lines, i, ' ' + lines[i], GetParam());
        expectFound(lines, i, QByteArray(lines[i]).replace(tag, tag.toLower()), GetParam());
        if (level != "0") expectFound(lines, i, level + " @X1@" + lines[i].mid(1), GetParam());
    }
}

TEST_P(BrokenGedcom, IsFoundWhereAPointerLeadsAstray)
{
    const QList<QByteArray> lines = linesOf(GetParam());
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QByteArray value = lines[i].split(' ').mid(2).join(' ');
        if (levelOf(lines[i]) == 0 || !value.startsWith('@')) continue;
        const QByteArray before = lines[i].chopped(value.size());
        expectFound(lines, i, before + "@I99@", GetParam());
        expectFound(lines, i, before + (tagOf(lines[i]) == "SUBM" ? "@I1@" : "@U1@"), GetParam());
        if (tagOf(lines[i]) != "SOUR" && tagOf(lines[i]) != "NOTE")
            expectFound(lines, i, before + "ninguém", GetParam());
    }
}

TEST_P(BrokenGedcom, IsFoundWhereALineThatHasToBeThereIsNot)
{
    const QList<QByteArray> needed{
        "HEAD",      "TRLR",           "HEAD.GEDC",     "HEAD.GEDC.VERS",    "HEAD.PLAC.FORM", "SUBM.NAME",
        "REPO.NAME", "INDI.FACT.TYPE", "FAM.EVEN.TYPE", "FAM.MARR.HUSB.AGE", "OBJE.FILE",      "OBJE.FILE.FORM"};
    const QList<QByteArray> needed70{"INDI.CHR.ASSO.ROLE", "INDI.WILL.ASSO.ROLE.PHRASE", "INDI.FAMC.PEDI.PHRASE"};
    const QList<QByteArray> needed551{"HEAD.SUBM",
                                      "HEAD.CHAR",
                                      "HEAD.SOUR",
                                      "HEAD.GEDC.FORM",
                                      "INDI.ASSO.RELA",
                                      "INDI.CHR._ASSO.RELA",
                                      "INDI.CHR.SOUR.OBJE.FILE"};
    const QList<QByteArray> all = needed + (GetParam() ? needed551 : needed70);
    QList<QByteArray> lines = linesOf(GetParam());
    int seen = 0;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (!all.contains(pathOf(lines, i)) || (GetParam() && pathOf(lines, i) == "FAM.EVEN.TYPE")) continue;
        ++seen;
        QList<QByteArray> rest = lines;
        rest.remove(i, endOf(lines, i) - i);
        EXPECT_FALSE(problems(rest, GetParam()).isEmpty()) << "without " << pathOf(lines, i).constData();
    }
    EXPECT_GE(seen, 15);
}

TEST_P(BrokenGedcom, IsFoundWhereALineIsThereTwice)
{
    const QList<QByteArray> many{"INDI",           "FAM",
                                 "INDI.NAME",      "INDI.BIRT",
                                 "INDI.CHR",       "INDI.DEAT",
                                 "INDI.BURI",      "INDI.WILL",
                                 "INDI.FACT",      "INDI.OCCU",
                                 "INDI.DSCR",      "INDI.EMIG",
                                 "INDI.TITL",      "INDI.FAMS",
                                 "INDI.FAMC",      "INDI.REFN",
                                 "INDI.UID",       "SOUR.UID",
                                 "INDI.EVEN",      "INDI.ASSO",
                                 "FAM.MARR",       "FAM.EVEN",
                                 "FAM.RESI",       "FAM.CHIL",
                                 "SOUR.REPO",      "OBJE.FILE",
                                 "INDI.NAME.NPFX", "INDI.NAME.GIVN",
                                 "INDI.NAME.NICK", "INDI.NAME.SPFX",
                                 "INDI.NAME.SURN", "INDI.CHR.PLAC.EXID"};
    const QList<QByteArray> anywhere{"NOTE", "SOUR", "ASSO", "_ASSO", "OBJE", "CONT", "CONC", "FILE"};
    const QList<QByteArray> lines = linesOf(GetParam());
    int seen = 0;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QByteArray path = pathOf(lines, i), tag = tagOf(lines[i]);
        const bool isPiece551 = GetParam() && path.startsWith("INDI.NAME.");
        const bool isHead = path.startsWith("HEAD.");
        if (!isPiece551 && many.contains(path)) continue;
        if (!isHead && levelOf(lines[i]) > 0 && anywhere.contains(tag)) continue;
        ++seen;
        QList<QByteArray> twice = lines;
        const qsizetype end = endOf(lines, i);
        for (qsizetype j = i; j < end; ++j)
            twice.insert(end + j - i, lines[j]);
        EXPECT_FALSE(problems(twice, GetParam()).isEmpty()) << "twice " << path.constData();
    }
    EXPECT_GE(seen, 30);
}

TEST_P(BrokenGedcom, IsFoundWhereAValueIsOfAnotherKind)
{
    struct Value
    {
        const char* tag;
        QList<QByteArray> broken;
    };
    const QList<Value> values{
        {"DATE",
         {"", "1622-03-12", "12 MAR 22 a.C.", "12 MARCH 1622", "31 FEB 1622", "abt 1622", "ABT 12 MAR", "BET 1620"}},
        {"AGE", {"", "46", "46 years", "-1y"}},
        {"SEX", {"", "m", "D"}},
        {"NAME", {"", "Rui /Silva", "Rui /da/ Silva/"}},
        {"ROLE", {"", "PADRINHO", "Godp"}},
        {"PEDI", {"", "filho", "NATURAL"}},
        {"PLAC", {"Aguada", "Aguada, Portugal"}},
        {"VERS", {"7.1", "5.5", ""}},
        {"UID", {"", "1234", "101429D2-C2FD"}},
        {"_UID", {"", "1234"}},
        {"CHAR", {"", "Latin1"}},
        {"HUSB", {"Rui"}},
        {"BIRT", {"N", "sim"}},
        {"MARR", {"N", "sim"}},
        {"LANG", {GetParam() ? "Portuguese of Portugal" : "Português"}},
        {"FORM", {"", "um ficheiro"}},
        {"NOTE", {"um @ só", "@a"}}};
    const QList<QByteArray> lines = linesOf(GetParam());
    for (qsizetype i = 1; i < lines.size(); ++i) {
        const QByteArray path = pathOf(lines, i), tag = tagOf(lines[i]);
        if (levelOf(lines[i]) == 0 || path == "HEAD.SOUR.VERS" || path.endsWith("SOUR.NAME")) continue;
        if (path == "SUBM.NAME" || path == "REPO.NAME" || path == "HEAD.PLAC") continue;
        for (const Value& value : values)
            for (const QByteArray& broken : value.broken) {
                if (tag != value.tag || (!GetParam() && broken == "um @ só")) continue;
                const QByteArray number = QByteArray::number(levelOf(lines[i]));
                expectFound(lines, i, number + ' ' + tag + (broken.isEmpty() ? "" : ' ' + broken), GetParam());
            }
    }
}

INSTANTIATE_TEST_SUITE_P(Versions, BrokenGedcom, testing::Bool(),
                         [](const auto& version) { return version.param ? "V551" : "V70"; });
