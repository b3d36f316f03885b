// orv-damaged-gedcom: damages GEDCOM files of the demonstration BDP and imports them. Whatever they hold, the BDP is
// then sound, with all of an import or nothing of it, and a file that is refused is refused with a line.
#include "dice.h"

#include "platform/desktop/desktop.h"
#include "platform/jet/rows.h"
#include "platform/jet/transaction.h"
#include "store/modBD.h"
#include "study/exchange/gedcom.h"
#include "study/exchange/gedcomIn.h"

#include <QBuffer>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>

using namespace study::exchange;

namespace {

// Of a sound BDP each counts nothing.
// Of an empty table SQLite takes even null for one that isn't in it.
constexpr const char* unsound[] = {
    "select count(*) from individuo where famorig is not null and famorig not in (select nfamilia from familia)",
    "select count(*) from individuo where testamenteiro is not null and testamenteiro not in (select nind from "
    "individuo)",
    "select count(*) from familias where nind not in (select nind from individuo)",
    "select count(*) from familias where nfamilia not in (select nfamilia from familia)",
    "select count(*) from (select 1 from familias group by nfamilia having count(*) > 2)",
    "select count(*) from assistente where nind is not null and nind not in (select nind from individuo)",
    "select count(*) from assistente where tipoacto = 'b' and entidade not in (select nind from individuo)",
    "select count(*) from assistente where tipoacto = 'c' and entidade not in (select nfamilia from familia)",
    "select count(*) from profissoes where codprof is not null and codprof not in (select codprof from profissao)",
    "select count(*) from legadosprofanos where nindherd is not null and nindherd not in (select nind from individuo)",
    "select count(*) from individuo where localnasc is not null and tipolocalnasc is null",
};

QByteArray wholeFile(const jet::Connection& bdp, GedcomVersion version)
{
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    writeGedcom(bdp, file, {.version = version, .limitYears = 0});
    return file.data();
}

// HEAD, some records of the file that stand one behind the other, and its end.
QList<QByteArray> pieceOf(const QList<QByteArray>& records, Dice& dice)
{
    static constexpr int mostRecords = 40;
    const int first = 1 + dice.below(records.size() - 2);
    const qsizetype last = std::min<qsizetype>(records.size() - 1, first + 1 + dice.below(mostRecords));
    QList<QByteArray> lines = records.first().split('\n');
    for (qsizetype i = first; i < last; ++i)
        lines += records[i].split('\n');
    return lines << "0 TRLR";
}

void damage(QByteArray& line, const QList<QByteArray>& lines, Dice& dice)
{
    const int at = dice.below(line.size() + 1);
    switch (dice.below(8)) {
    case 0:
        line = lines[dice.below(lines.size())];
        break;
    case 1:
        line.truncate(at);
        break;
    case 2:
        line.insert(at, static_cast<char>(dice.below(256)));
        break;
    case 3:
        line += " 99999999999999999999";
        break;
    case 4:
        line.replace(QByteArray::number(dice.below(4)), QByteArray::number(dice.below(100)));
        break;
    case 5:
        line = line.mid(at) + line.left(at);
        break;
    case 6:
        line += '\n' + line;
        break;
    default:
        line.clear();
    }
}

QByteArray damaged(const QList<QByteArray>& records, Dice& dice)
{
    QList<QByteArray> lines = pieceOf(records, dice);
    const QList<QByteArray> whole = lines;
    for (int times = 1 + dice.below(6); times > 0; --times)
        damage(lines[dice.below(lines.size())], whole, dice);
    QByteArray all = lines.join(dice.chance(10) ? "\r\n" : "\n") + '\n';
    if (dice.chance(10)) all.truncate(dice.below(all.size()));
    if (dice.chance(5)) all = "\xFF\xFE" + all;
    return all;
}

class Attack
{
public:
    Attack()
    {
        jet::Connection demo;
        demo.open(ORV_DEMO);
        for (const GedcomVersion version : {GedcomVersion::V551, GedcomVersion::V70})
            records_ << recordsOf(wholeFile(demo, version));
        jet::createDatabase(folder_.filePath("a.orv"));
        bdp_.open(folder_.filePath("a.orv"));
        CriaTabelas(bdp_, ORV_DATA_DIR "/CriarTab.dat");
        before_ = rows();
    }

    // What is wrong behind one file; "" for nothing.
    QString play(Dice dice)
    {
        const QByteArray bytes = damaged(dice.of(records_), dice);
        const QString path = file();
        QFile out(path);
        if (!out.open(QIODevice::WriteOnly) || out.write(bytes) != bytes.size()) return "the file can't be written";
        out.close();
        const jet::Transaction transaction(bdp_); // given up at the end
        return import(path, dice.chance(33));
    }

    int written() const { return written_; }
    QString file() const { return folder_.filePath("a.ged"); } // the one played last

private:
    static QList<QByteArray> recordsOf(const QByteArray& all)
    {
        QList<QByteArray> records;
        qsizetype from = 0;
        for (qsizetype next = all.indexOf("\n0 "); next >= 0; next = all.indexOf("\n0 ", from)) {
            records << all.mid(from, next - from);
            from = next + 1;
        }
        return records;
    }

    QString import(const QString& path, bool takesBack)
    {
        try {
            importGedcom(bdp_, path, {.copyBefore = false});
            ++written_;
            if (const QString wrong = wrongRows(); !wrong.isEmpty() || !takesBack) return wrong;
            if (const QStringList why = takeBackImport(bdp_); !why.isEmpty()) return "it stays: " + why.join(' ');
            return rows() == before_ ? QString() : QString("something stays of what was taken back");
        } catch (const jet::Error& error) {
            static const QRegularExpression line("[Ll]inha \\d");
            if (!error.description.contains(line)) return "refused without a line: " + error.description;
            return rows() == before_ ? QString() : "half is written: " + error.description;
        }
    }

    QString wrongRows() const
    {
        for (const char* const select : unsound) {
            jet::Rows row(bdp_, jet::NativeSql(QString(select)));
            if (row.next() && row.number(0) != 0) return select;
        }
        return {};
    }

    // How many each table of the cards has.
    QList<qint64> rows() const
    {
        QList<qint64> all;
        for (const char* const table :
             {"individuo", "familia", "familias", "assistente", "residencia", "profissoes", "assinatura",
              "legadosprofanos", "rituaismorte", "passaporte", "profissao", "lugar", "sitio", "paroquia"})
        {
            jet::Rows row(bdp_, jet::NativeSql(QString("select count(*) from %1").arg(table)));
            row.next();
            all << row.number(0);
        }
        return all;
    }

    QTemporaryDir folder_;
    jet::Connection bdp_;
    QList<QList<QByteArray>> records_ = {};
    QList<qint64> before_ = {};
    int written_ = 0;
};

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription("Imports damaged GEDCOM files, and looks at the BDP.");
    parser.addHelpOption();
    const QCommandLineOption count("count", "How many files.", "N", "1000");
    const QCommandLineOption seed("seed", "The seed; the same one gives the same files.", "N", "1");
    const QCommandLineOption only("only", "The number of the one file to play; it is kept as a.ged.", "N");
    parser.addOptions({count, seed, only});
    parser.process(application);
    Desktop::setProgramFolder(ORV_DATA_DIR);
    Attack attack;
    QTextStream out(stdout);
    int failed = 0;
    const int files = std::max(1, parser.value(count).toInt());
    const bool isOne = parser.isSet(only);
    const int first = isOne ? parser.value(only).toInt() : 0, end = isOne ? first + 1 : files;
    for (int i = first; i < end; ++i) {
        const QString wrong = attack.play(Dice(parser.value(seed).toULongLong(), static_cast<quint64>(i)));
        if (isOne) QFile::copy(attack.file(), "a.ged");
        if (wrong.isEmpty()) continue;
        ++failed;
        out << "not ok " << i << ": " << wrong << Qt::endl;
    }
    out << attack.written() << " of " << end - first << " were taken\n";
    out << end - first - failed << " passed, " << failed << " failed\n";
    return failed == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
