// Any records, written as lines in any way, and read again; and files that are damaged.
#include "study/gedcomRead.h"

#include "fuzz/targets.h"
#include "platform/desktop/codepage.h"
#include "study/exchange/gedcomLines.h"

#include <QRandomGenerator>
#include <QStringEncoder>

namespace gedcomRead {

namespace {

enum class Written : quint8
{
    Utf8,
    Marked,
    Codepage,
    Little,
    Big,
    BigUnmarked
};
constexpr Written allWritten[] = {Written::Utf8,   Written::Marked, Written::Codepage,
                                  Written::Little, Written::Big,    Written::BigUnmarked};

// Writes what it makes up, and knows what has to be read.
class Author
{
public:
    Author(quint32 seed, bool is70, Written written) : dice_(seed), is70_(is70), written_(written)
    {
        lineEnd_ = QStringList{"\n", "\r", "\r\n", "\n\r"}[dice_.bounded(4)];
        line("0 HEAD");
        line("1 GEDC");
        line(is70 ? "2 VERS 7.0" : "2 VERS 5.5.1");
        line(QString("1 CHAR ") + (written == Written::Codepage ? "ANSI" : "UTF-8"));
        line("1 NOTE " + letters()); // so that the encoding shows
    }

    std::vector<GedcomNode> write(int records)
    {
        std::vector<GedcomNode> all;
        all.reserve(std::size_t(records));
        for (int i = 0; i < records; ++i)
            all.push_back(structure(0));
        line("0 TRLR");
        return all;
    }

    QByteArray bytes() const
    {
        if (written_ == Written::Utf8) return text_.toUtf8();
        if (written_ == Written::Marked) return "\xEF\xBB\xBF" + text_.toUtf8();
        if (written_ == Written::Codepage) return toCodePage(text_);
        const bool isLittle = written_ == Written::Little;
        const QString mark = written_ == Written::BigUnmarked ? QString() : QString(QChar(0xFEFF));
        return QStringEncoder(isLittle ? QStringConverter::Utf16LE : QStringConverter::Utf16BE)(mark + text_);
    }

private:
    void line(const QString& whole)
    {
        text_ += whole + lineEnd_;
        ++line_;
    }

    QString letters() const
    {
        return QString::fromUtf8(written_ == Written::Codepage ? "Conceição à Sé, avó e avô: €“”"
                                                               : "Conceição Ł漢🙂Ж");
    }

    // No blanks at the end of what may be a whole line, which would be as good as none.
    QString word()
    {
        static const QList<uint> plain = QString("aeio 19@/_-,.#").toUcs4();
        const QList<uint> all = plain + letters().toUcs4();
        QString made("x");
        for (int i = dice_.bounded(30); i > 0; --i) {
            const char32_t letter = all[dice_.bounded(all.size())];
            made += QString::fromUcs4(&letter, 1);
        }
        return made;
    }

    QString escaped(QString value) const
    {
        if (is70_) return value.startsWith(u'@') ? '@' + value : value;
        return value.replace("@", "@@");
    }

    GedcomNode structure(int level)
    {
        static const QStringList tags = {"INDI", "NOTE", "_X9", "DATE", "A"};
        GedcomNode node;
        node.tag = tags[dice_.bounded(tags.size())];
        node.line = line_ + 1;
        if (dice_.bounded(3) == 0) node.xref = QString("I%1").arg(node.line);
        const QString head =
            QString::number(level) + (node.xref.isEmpty() ? "" : " @" + node.xref + "@") + ' ' + node.tag;
        if (level > 0 && dice_.bounded(4) == 0) {
            node.isPointer = true;
            node.value = "F" + QString::number(dice_.bounded(99));
            line(head + " @" + node.value + '@');
        } else
            text(head, level, node);
        for (int i = level < 6 ? dice_.bounded(3) : 0; i > 0; --i)
            node.children.push_back(structure(level + 1));
        return node;
    }

    void text(const QString& head, int level, GedcomNode& node)
    {
        node.value = dice_.bounded(5) == 0 ? QString() : word();
        line(node.value.isEmpty() ? head : head + ' ' + escaped(node.value));
        for (int i = dice_.bounded(3); i > 0; --i) {
            const bool onNewLine = is70_ || dice_.bounded(2) == 0;
            const QString more = (dice_.bounded(4) == 0 ? "@" : dice_.bounded(4) == 0 ? " " : "") + word();
            node.value += onNewLine ? '\n' + more : more;
            line(QString::number(level + 1) + (onNewLine ? " CONT " : " CONC ") + escaped(more));
        }
    }

    QRandomGenerator dice_;
    bool is70_;
    Written written_;
    QString lineEnd_ = {}, text_ = {};
    int line_ = 0;
};

} // namespace

TEST(GedcomReaderProperty, GivesBackAnyRecordsHoweverTheyAreWritten)
{
    for (quint32 seed = 0; seed < 120; ++seed) {
        const bool is70 = seed % 2 == 0;
        const Written how = allWritten[seed / 2 % std::size(allWritten)];
        Author author(seed, is70, how);
        const std::vector<GedcomNode> written = author.write(1 + static_cast<int>(seed % 9));
        const File file = readAll(author.bytes(), seed % 3 == 0 ? 1 + seed % 5 : 1 << 20);
        EXPECT_EQ(file.records, written) << seed;
        const bool isStrange = is70 && how == Written::Codepage; // 7.0 is UTF-8
        EXPECT_EQ(file.problems.size(), isStrange ? 1U : 0U) << seed << qPrintable(file.told());
    }
}

TEST(GedcomReaderProperty, TakesALargeFilePieceByPiece)
{
    for (const Written written : allWritten) {
        Author author(1702, false, written);
        const std::vector<GedcomNode> records = author.write(700);
        const QByteArray bytes = author.bytes();
        EXPECT_GT(bytes.size(), 1 << 16) << "several pieces";
        EXPECT_EQ(readAll(bytes).records, records);
    }
}

TEST(GedcomReaderProperty, GivesBackWhatTheExportWrites)
{
    QRandomGenerator dice(1896);
    const QList<uint> letters = QString::fromUtf8("aãé@@@# ŁЖ漢🙂x\n").toUcs4();
    for (const GedcomVersion version : {GedcomVersion::V551, GedcomVersion::V70}) {
        for (int round = 0; round < 200; ++round) {
            QString text;
            for (int i = dice.bounded(900); i > 0; --i) {
                const char32_t letter = letters[dice.bounded(letters.size())];
                text += QString::fromUcs4(&letter, 1);
            }
            QBuffer buffer;
            buffer.open(QIODevice::WriteOnly);
            GedcomLines lines(buffer, version);
            lines.bare(0, "HEAD");
            lines.bare(1, "GEDC");
            lines.word(2, "VERS", version == GedcomVersion::V551 ? "5.5.1" : "7.0");
            lines.word(1, "CHAR", "UTF-8");
            lines.record("I1", "INDI");
            lines.memo(1, "NOTE", text);
            lines.pointer(1, "FAMS", "F1");
            lines.bare(0, "TRLR");
            lines.flush();
            const File file = readAll(buffer.data());
            EXPECT_EQ(file.note(), text);
            EXPECT_EQ(file.told(), "");
            EXPECT_EQ(file.records.at(0).text("FAMS"), "F1");
        }
    }
}

TEST(GedcomReaderProperty, HoldsWhateverIsDamaged)
{
    QRandomGenerator dice(5511);
    for (quint32 seed = 0; seed < 1500; ++seed) {
        Author author(seed, seed % 2 == 0, allWritten[seed % std::size(allWritten)]);
        author.write(3);
        QByteArray bytes = author.bytes();
        for (int i = 1 + dice.bounded(8); i > 0; --i) {
            const qsizetype at = dice.bounded(bytes.size());
            switch (dice.bounded(5)) {
            case 0:
                bytes[at] = static_cast<char>(dice.bounded(256));
                break;
            case 1:
                bytes.remove(at, dice.bounded(9));
                break;
            case 2:
                bytes.insert(at, QByteArray(dice.bounded(4), static_cast<char>(dice.bounded(256))));
                break;
            case 3:
                bytes.insert(at, bytes.mid(dice.bounded(bytes.size()), dice.bounded(60)));
                break;
            default:
                bytes.truncate(qMax<qsizetype>(8, at));
                break;
            }
        }
        try {
            Fuzz::gedcom(bytes);
        } catch (const Fuzz::Broken& broken) {
            ADD_FAILURE() << seed << ": " << qPrintable(broken.what);
        }
    }
}

} // namespace gedcomRead
