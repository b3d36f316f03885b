#include "study/exchange/gedcomIn.h"

#include "common/tipoFam.h"
#include "platform/jet/error.h"
#include "platform/jet/transaction.h"
#include "platform/time/clock.h"
#include "store/session.h"
#include "study/acts/ledger.h"
#include "study/exchange/gedcomIn_p.h"
#include "study/exchange/gedcomInMarks.h"
#include "study/exchange/gedcomInTable.h"
#include "study/indicators/settingsJson.h"
#include "study/transcripts/import.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>

namespace study::exchange {

namespace {

constexpr int recordsBetweenQuestions = 256;
constexpr double shareOfTheRows = 0.6;

void openFile(QFile& file)
{
    const QFileInfo there(file.fileName());
    if (!there.exists())
        throw jet::Error(jet::number::fileNotFound, QString("O ficheiro \"%1\" não existe.").arg(file.fileName()));
    if (there.isDir())
        throw jet::Error(jet::number::permissionDenied,
                         QString("\"%1\" é uma pasta, e não um ficheiro.").arg(file.fileName()));
    if (!file.open(QIODevice::ReadOnly))
        throw jet::Error(jet::number::permissionDenied,
                         QString("O ficheiro \"%1\" não pode ser lido.").arg(file.fileName()));
}

// One file into one BDP, within a transaction of the caller.
class Import
{
public:
    Import(jet::Connection& bdp, GedcomIndex& index, const GedcomImportOptions& options, const GoesOn& goesOn)
        : bdp_(bdp), goesOn_(goesOn), hasKept_(index.number(numbersFor(bdp))), target_(bdp, index, options)
    {
        target_.report.version = index.head.version;
        target_.report.program = index.head.source;
        target_.report.encoding = index.head.encoding;
        target_.report.keptNumbers = hasKept_;
        target_.report.problems = index.problems;
        readProfessionsAndPlaces();
    }

    GedcomReport run(QIODevice& file, const QString& name)
    {
        GedcomReader reader(file);
        GedcomNode record;
        for (qint64 count = 1; reader.next(record); ++count) {
            take(record);
            if (count % recordsBetweenQuestions == 0) ask(shareOfTheIndex + reader.done() * shareOfTheRows);
        }
        expectAll();
        const qint64 unread = target_.index.notes.size() - target_.notesRead.size();
        if (unread > 0) target_.report.left["SNOTE"] += unread;
        settleFamilies();
        keepBaptisms();
        ask(shareOfTheIndex + shareOfTheRows);
        keepImport(name);
        target_.report.rows = target_.rows.counts();
        std::ranges::stable_sort(target_.report.problems, {}, &GedcomProblem::line);
        ask(1);
        return std::move(target_.report);
    }

private:
    static GedcomNumbers numbersFor(jet::Connection& bdp)
    {
        Ledger ledger(bdp);
        const auto count = [&](const char* select) { return ledger.value(jet::NativeSql(select)); };
        const bool isEmpty = count("select count(*) from individuo").toInt() == 0 &&
                             count("select count(*) from familia").toInt() == 0 &&
                             ledger.highestMerged("pessoas") == 0 && ledger.highestMerged("familias") == 0;
        const auto behindAll = static_cast<qint64>(count("select max(nfamilia) from familia").toDouble()) + 1;
        return {isEmpty, ledger.newPerson(), std::max(ledger.newFamily(), behindAll)};
    }

    // Links lead to all that was there when the file was read first.
    void expectAll() const
    {
        const auto isAll = [](qint64 written, std::size_t seen) { return written == static_cast<qint64>(seen); };
        if (!isAll(target_.report.people, target_.index.people.size()) ||
            !isAll(target_.report.families, target_.index.families.size()))
            throw jet::Error(jet::number::invalidCall, "O ficheiro foi alterado enquanto era lido.");
    }

    void ask(double done) const
    {
        if (goesOn_ && !goesOn_(done)) throw Interrupted{};
    }

    void take(const GedcomNode& record)
    {
        try {
            if (record.tag == "INDI")
                PersonIn(target_, record).write();
            else if (record.tag == "FAM")
                FamilyIn(target_, record).write();
            else
                countLeft(record);
        } catch (const jet::Error& error) {
            throw jet::Error(error.number, QString("Linha %1: %2").arg(record.line).arg(error.description));
        }
    }

    // What the people and families take of other records stands in their notes.
    void countLeft(const GedcomNode& record)
    {
        static const QHash<QString, QStringList> used{
            {"SOUR", {"TITL", "AUTH", "PUBL", "ABBR"}}, {"OBJE", {"FILE"}}, {"NOTE", {}}, {"SNOTE", {}}};
        if (target_.index.isOurs()) return;
        if (!used.contains(record.tag)) ++target_.report.left[record.tag];
        const QStringList taken = used.value(record.tag);
        QSet<QString> seen; // of a picture the first file is taken
        for (const GedcomNode& one : record.children) {
            const bool isFurther = one.tag == "FILE" && seen.contains(one.tag);
            seen << one.tag;
            const QString path = record.tag + '.' + one.tag;
            if (used.contains(record.tag) && (isFurther || !taken.contains(one.tag))) ++target_.report.left[path];
            for (const GedcomNode& below : one.children)
                if (one.tag == "FILE" && below.tag != "FORM") ++target_.report.left[path + '.' + below.tag];
        }
    }

    // As the card calculates it: by whose dates are known.
    void settleFamilies()
    {
        jet::Repeated type(bdp_, jet::NativeSql("update familia set tipocasal = ? where nfamilia = ?"));
        for (const GedcomFamilySeen& family : target_.index.families) {
            DatasDaFamilia known;
            int deaths = 0;
            for (const int member : family.members) {
                const DatesSeen dates =
                    target_.people.value(target_.index.people[static_cast<std::size_t>(member)].number);
                if (dates.death) ++deaths;
                if (dates.isWoman) known.nascimentoDaMae = dates.birth;
            }
            const GedcomTarget::Children children = target_.children.value(family.number);
            known.obitos = deaths == 2;
            known.casamento = target_.families.value(family.number).birth;
            known.nascimentosDosFilhos = children.all == children.dated;
            type.run({tipoDaFamilia(known).toInt(), family.number});
        }
    }

    void keepBaptisms()
    {
        if (target_.baptisms.empty()) return;
        indicators::Settings settings = indicators::keptSettings(bdp_);
        for (const auto& [child, days] : target_.baptisms)
            settings.baptisms[child] = days;
        indicators::keepSettings(bdp_, settings);
    }

    void readProfessionsAndPlaces()
    {
        for (const char* const table : {imported::parish, imported::locality, imported::site, imported::profession})
            before_.insert(table, keysOf(table));
    }

    QHash<QString, QByteArray> keysOf(const QString& kind) const
    {
        QHash<QString, QByteArray> keys;
        for (const OwnedTable& table : ownedTables()) {
            if (kind != QLatin1String(table.kind)) continue;
            jet::Rows row(bdp_, jet::NativeSql(QString("select %1 from %2").arg(table.owner, table.table)));
            while (row.next())
                keys.insert(row.text(0), {});
        }
        return keys;
    }

    QHash<QString, QByteArray> madeOf(const QString& kind) const
    {
        QHash<QString, QByteArray> made;
        if (kind == QLatin1String(imported::person))
            for (const GedcomPersonSeen& one : target_.index.people)
                made.insert(QString::number(one.number), {});
        else if (kind == QLatin1String(imported::family))
            for (const GedcomFamilySeen& one : target_.index.families)
                made.insert(QString::number(one.number), {});
        else {
            made = keysOf(kind);
            made.removeIf([&](const auto& one) { return before_.value(kind).contains(one.key()); });
        }
        return made;
    }

    void keepImport(const QString& name)
    {
        tables::make(bdp_, {importTable(), importedTable()});
        bdp_.execute(jet::NativeSql(
            "insert into estudo_importacao (quando, ficheiro, pessoas, familias) values (?, ?, ?, ?)",
            {Clock::moment().toString(tables::timeFormat), name, target_.report.people, target_.report.families}));
        {
            jet::Rows row(bdp_, jet::NativeSql("select max(id) from estudo_importacao"));
            row.next();
            target_.report.id = row.number(0);
        }
        jet::Repeated insert(
            bdp_, jet::NativeSql("insert into estudo_importado (importacao, tipo, chave, marca) values (?, ?, ?, ?)"));
        for (const char* const kind : {imported::person, imported::family, imported::parish, imported::locality,
                                       imported::site, imported::profession})
        {
            const QHash<QString, QByteArray> marks = marksOf(bdp_, kind, madeOf(kind));
            for (auto mark = marks.cbegin(); mark != marks.cend(); ++mark)
                insert.run({target_.report.id, QString(kind), mark.key(), QString::fromLatin1(*mark)});
        }
    }

    jet::Connection& bdp_;
    const GoesOn& goesOn_;
    bool hasKept_;
    GedcomTarget target_;
    QHash<QString, QHash<QString, QByteArray>> before_ = {}; // places and professions, by kind
};

constexpr std::pair<const char*, const char*> tableWords[] = {
    {"familias", "Maridos e mulheres"},
    {"assistente", "Padrinhos e testemunhas"},
    {"residencia", "Residências"},
    {"profissoes", "Profissões"},
    {"assinatura", "Assinaturas"},
    {"legadosprofanos", "Legados"},
    {"rituaismorte", "Sufrágios"},
    {"passaporte", "Passaportes"},
    {"paroquia", "Freguesias novas, provisórias"},
    {"lugar", "Lugares novos, provisórios"},
    {"sitio", "Sítios novos, provisórios"},
    {"profissao", "Nomes de profissões novos, provisórios"},
};

QString times(const QMap<QString, qint64>& paths)
{
    QStringList all;
    for (auto path = paths.cbegin(); path != paths.cend(); ++path)
        all << QString("%1 (%2)").arg(path.key()).arg(*path);
    return all.join(", ");
}

} // namespace

QStringList GedcomReport::lines() const
{
    static const QHash<GedcomEncoding, QString> encodings{{GedcomEncoding::Utf8, "UTF-8"},
                                                          {GedcomEncoding::Utf16, "UTF-16"},
                                                          {GedcomEncoding::Ansel, "ANSEL"},
                                                          {GedcomEncoding::Windows1252, "Windows-1252"}};
    QStringList all;
    all << QString("GEDCOM %1%2, em %3.")
               .arg(version.isEmpty() ? QString("de versão por dizer") : version,
                    program.isEmpty() ? QString() : ", de " + program, encodings.value(encoding));
    all << QString("Pessoas: %1; famílias: %2.").arg(people).arg(families);
    if (keptNumbers) all << QString("Os números são os da exportação.");
    for (const auto& [table, told] : tableWords)
        if (const qint64 count = rows.value(table); count > 0)
            all << QString("%1: %2.").arg(QString::fromUtf8(told)).arg(count);
    if (baptisms > 0) all << QString("Na lista de nascimentos e baptismos: %1.").arg(baptisms);
    if (shortened > 0) all << QString("Textos longos de mais, que estão por inteiro nas notas: %1.").arg(shortened);
    if (lostLetters > 0) all << QString("Letras que uma BDP não pode ter e que não foram: %1.").arg(lostLetters);
    if (lostLinks > 0) all << QString("Ligações a registos que o ficheiro não tem: %1.").arg(lostLinks);
    if (!toNotes.isEmpty()) all << "Foi para as notas: " + times(toNotes) + '.';
    if (!left.isEmpty()) all << "Não tem lugar na BDP: " + times(left) + '.';
    return all;
}

GedcomReport importGedcom(jet::Connection& bdp, const QString& path, const GedcomImportOptions& options,
                          const GoesOn& goesOn)
{
    QFile first(path);
    openFile(first);
    GedcomIndex index(first, goesOn);
    const QString copy = options.copyBefore ? copyBeforeImport(bdp) : QString();
    jet::Transaction transaction(bdp);
    QFile again(path);
    openFile(again);
    GedcomReport report = Import(bdp, index, options, goesOn).run(again, QFileInfo(path).fileName());
    report.copy = copy;
    transaction.commit();
    return report;
}

GedcomReport rehearseGedcom(const jet::Connection& bdp, const QString& path, const GedcomImportOptions& options,
                            const GoesOn& goesOn)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("ensaio.orv");
    bdp.copyTo(file);
    jet::Connection copy;
    copy.open(connectionString(file));
    GedcomImportOptions onTheCopy = options;
    onTheCopy.copyBefore = false;
    GedcomReport report = importGedcom(copy, path, onTheCopy, goesOn);
    report.isRehearsal = true;
    return report;
}

} // namespace study::exchange
