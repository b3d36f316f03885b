#include "texts.h"

#include <algorithm>

namespace {

const QList<QString> names{"Maria",     "José da Silva", "Inês Gonçalves", "São João",    "D. Antónia", "Rui",
                           "Conceição", "Zé-Ninguém",    "Padre Bento",    "Üstün Çelik", "Ærø",        "x"};

const QList<QString> odd{
    "'",
    "''",
    "'''",
    "\"",
    "\"\"",
    "`",
    "lençol', nome='OUTRO",
    "pano' or 'a'='a",
    "x'; delete from individuo; --",
    "'||(select nome from individuo)||'",
    "x')--",
    "/* fim */",
    "-- fim",
    "%",
    "_",
    "a%b_c",
    "#",
    "#01/02/1750#",
    "##",
    ";",
    "\\",
    "\\'",
    "[nome]",
    "(",
    ")",
    "?",
    "@p",
    ":p",
    "$x",
    "&Alterar",
    "<b>negro</b>",
    "{\\rtf1 x}",
    "null",
    "NULL",
    "True",
    "*",
    "*Maria",
    "**",
    "a*b",
    "-",
    "Vila-Cova",
    "x -F- 030302",
    " -P- ",
    "%1",
    "%n%s",
    "=1+1",
    "😀",
    "👨‍👩‍👧‍👦",
    "e\u0301",
    "a\u0300\u0323",
    "שלום",
    "\u202eabc\u202c",
    "\u200b",
    "\u200d",
    "\ufeff",
    "\ufffd",
    "\u00a0",
    "a\u00a0b",
    "\u2028",
    "a\u2028b",
    "\u2029",
    "\u0085",
    "\u00ad",
    "İıſß",
    "ﬁ",
    "\U0001F468",
    "\t",
    "a\tb",
    "\x01",
    "\x1b[0m",
    "\x7f",
};
const QList<QString> onlyPasted{"a\nb", "a\r\nb", "a\rb", "\n", "\r\n\r\n", "fim\n", "a\vb\fc"};

const QList<QString> wholeNumbers{"0",   "1",   "2",  "3",  "7",  "12", "30", "45", "99", "100",
                                  "007", "150", "32", "64", "21", "5",  "4",  "6",  "8",  "9"};
const QList<QString> oddNumbers{"-1",
                                "+3",
                                "1,5",
                                "1.5",
                                "12.000",
                                "1.234,56",
                                "1e3",
                                "0x10",
                                "12-3",
                                "1+1",
                                "2147483647",
                                "2147483648",
                                "-2147483648",
                                "-2147483649",
                                "9007199254740993",
                                "99999999999999999999",
                                "1e308",
                                "1e999",
                                "inf",
                                "nan",
                                "--1",
                                "1 2",
                                " 3 ",
                                "3 ",
                                "٣",
                                "５",
                                "½",
                                "²",
                                ",5",
                                "5,",
                                ".",
                                ",",
                                "-",
                                "-0",
                                "0,1",
                                "0,000000000000000000001",
                                "(select 1)",
                                "1 or 1=1",
                                "1;",
                                "1--",
                                "null",
                                "1'"};

const QList<QString> dates{"01/01/1700", "10/01/1700", "29/02/1704", "31/12/1799", "1/2/1750",
                           "09/03/1750", "15/06/1730", "24121688",   "01/02/1728", "30/11/1812"};
const QList<QString> oddDates{"30/02/1712", "29/02/1700", "31/04/1750", "00/01/1750",  "01/00/1750",   "32/01/1750",
                              "13/13/1750", "01/13/1750", "12/31/1750", "01/01/0001",  "01/01/0100",   "31/12/9999",
                              "01/01/99",   "1750-01-02", "01-02-1750", "01.02.1750",  "#01/02/1750#", "1/2",
                              "/",          "//",         "1750",       "01/02/17500", "01021750",     "1 /2/1750",
                              "٠١/٠٢/١٧٥٠", "amanhã",     "__/__/____", "01/02/1750'", " 01/02/1750",  "1/2/3/4",
                              "05/10/1582", "29/02/1500", "0",          "99999999",    "31021750",     "dd/mm/aaaa"};

QString blanks(Dice& dice)
{
    return QString(dice.below(4), ' ');
}

QString longText(Dice& dice, bool pasted)
{
    static const QList<int> typedLengths{254, 255, 256, 300};
    static const QList<int> pastedLengths{255, 256, 1000, 5000, 65534, 65535, 65536, 70000};
    QString piece = dice.oneIn(3) ? QString("palavra ") : dice.oneIn(2) ? dice.among(odd) : QString("á");
    if (piece.isEmpty()) piece = "á";
    const int length = dice.among(pasted ? pastedLengths : typedLengths);
    return piece.repeated(length / int(piece.size()) + 1).left(length - 1) + '.';
}

// Half a character at the end of what was cut is none.
QString whole(const QString& text)
{
    QString kept;
    for (const char32_t character : text.toUcs4())
        if (character < 0xd800 || character > 0xdfff) kept += QString::fromUcs4(&character, 1);
    return kept;
}

} // namespace

QString Texts::any(Dice& dice, Manner manner)
{
    if (dice.oneIn(4)) return dice.among(names);
    if (manner.tame) return any(dice, {manner.pasted, false}).remove('\'');
    if (dice.oneIn(12)) return {};
    if (dice.oneIn(15)) return blanks(dice) + ' ';
    if (dice.oneIn(15)) return number(dice, manner);
    if (dice.oneIn(15)) return date(dice, manner);
    if (dice.oneIn(manner.pasted ? 12 : 25)) return whole(longText(dice, manner.pasted));
    QString text;
    for (int pieces = 1 + dice.below(3); pieces > 0; --pieces) {
        if (manner.pasted && dice.oneIn(5)) text += dice.among(onlyPasted);
        if (manner.pasted && dice.oneIn(40)) text += QChar(u'\0');
        text += dice.oneIn(3) ? dice.among(names) : dice.among(odd);
        text += blanks(dice);
    }
    return text;
}

QString Texts::number(Dice& dice, Manner manner)
{
    if (manner.tame) return dice.oneIn(10) ? QString() : dice.among(wholeNumbers);
    return dice.oneIn(10) ? any(dice, manner) : dice.oneIn(3) ? dice.among(wholeNumbers) : dice.among(oddNumbers);
}

QString Texts::date(Dice& dice, Manner manner)
{
    if (dice.oneIn(12)) return {};
    if (!manner.tame) return dice.oneIn(10) ? any(dice, manner) : dice.among(oddDates);
    if (dice.oneIn(2)) return dice.among(dates);
    return QStringLiteral("%1/%2/%3")
        .arg(1 + dice.below(28), 2, 10, QChar('0'))
        .arg(1 + dice.below(12), 2, 10, QChar('0'))
        .arg(1600 + dice.below(250));
}

QString Texts::path(Dice& dice)
{
    static const QList<QString> paths{"registo.pdf", "C:\\Registos\\bapt 1750.jpg", "imagens/assento.png", "livro.doc",
                                      "nota.txt"};
    return dice.oneIn(2) ? dice.among(paths) : any(dice, {false, dice.oneIn(2)});
}
