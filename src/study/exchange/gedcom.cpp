#include "study/exchange/gedcom.h"

#include "platform/jet/disk.h"
#include "platform/jet/draft.h"
#include "platform/jet/error.h"
#include "study/exchange/gedcomPeople_p.h"
#include "study/exchange/privacy.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <system_error>

namespace study::exchange {

namespace {

constexpr auto submitter = "U1";

// A table of one of these names with other columns is somebody else's.
bool hasColumns(const jet::Connection& bdp, const QString& table, const QStringList& columns)
{
    QStringList missing = columns;
    for (const jet::Connection::Column& one : bdp.columns())
        if (one.table.compare(table, Qt::CaseInsensitive) == 0) missing.removeAll(one.name.toLower());
    return missing.isEmpty();
}

bool hasActs(const jet::Connection& bdp)
{
    return hasColumns(bdp, "estudo_acto", {"id", "tipo", "livro", "folio", "numero"}) &&
           hasColumns(bdp, "estudo_pessoa", {"acto", "papel", "nind"}) &&
           hasColumns(bdp, "estudo_familia", {"acto", "ordem", "nfamilia"});
}

// An export takes the place of an earlier one and of nothing else.
void checkTarget(const QString& path, const QString& bdp)
{
    static constexpr qint64 placeOfMark = 256; // bytes in which a file of ours tells of itself
    const QFileInfo there(path);
    if (!there.dir().exists())
        throw jet::Error(jet::number::pathNotFound, QString("A pasta \"%1\" não existe.").arg(there.path()));
    if (!there.exists()) return;
    if (there.canonicalFilePath() == QFileInfo(bdp).canonicalFilePath())
        throw jet::Error(jet::number::permissionDenied, "A BDP não se exporta para cima de si própria.");
    QFile file(path);
    const QByteArray begin = file.open(QIODevice::ReadOnly) ? file.read(placeOfMark) : QByteArray();
    if (!file.isOpen() || (file.size() > 0 && !(begin.contains("0 HEAD\n") && begin.contains("\n1 SOUR ORV\n"))))
        throw jet::Error(jet::number::fileExists,
                         QString("O ficheiro \"%1\" já existe e não é uma exportação GEDCOM do ORV; não se escreve "
                                 "por cima.")
                             .arg(path));
}

} // namespace

QString actsOfPeople(const jet::Connection& bdp, Register which)
{
    if (!hasActs(bdp)) return "select 0, '', '', '' where 0";
    return QString("select p.nind, a.livro, a.folio, a.numero from estudo_pessoa p join estudo_acto a on a.id = p.acto "
                   "where a.tipo = '%1' and p.papel = '%2' and p.nind is not null order by p.nind, a.id")
        .arg(wordsOf(which).act, which == Register::Baptisms ? "baptizado" : "defunto");
}

QString actsOfFamilies(const jet::Connection& bdp)
{
    if (!hasActs(bdp)) return "select 0, '', '', '' where 0";
    return "select f.nfamilia, a.livro, a.folio, a.numero from estudo_familia f join estudo_acto a on a.id = f.acto "
           "where a.tipo = 'casamento' and f.ordem = 0 and f.nfamilia is not null order by f.nfamilia, a.id";
}

QString pageAt(const jet::Rows& row)
{
    QStringList parts;
    const auto add = [&](const char* what, int column) {
        if (const QString told = row.text(column).simplified(); !told.isEmpty())
            parts << QString::fromUtf8(what) + ' ' + told;
    };
    add("Livro", 1);
    add("fl.", 2);
    add("n.º", 3);
    return parts.join(", ");
}

GedcomWriter::GedcomWriter(const jet::Connection& bdp, QIODevice& target, const GedcomOptions& options,
                           const GoesOn& goesOn)
    : bdp_(bdp), options_(options), goesOn_(goesOn), lines_(target, options.version), places_(bdp),
      folder_(QFileInfo(bdp.dataSource()).absolutePath())
{
    readCatalogue();
    if (options.limitYears > 0) withheld_ = peopleWhoMayBeAlive(bdp, options.today.addYears(-options.limitYears));
    if (!withheld_.isEmpty()) {
        jet::Rows member(bdp, jet::NativeSql("select nfamilia, nind from familias"));
        while (member.next())
            if (withheld_.contains(member.number(1))) withheldFamilies_.insert(member.number(0));
    }
    counts_.withheldPeople = withheld_.size();
    jet::Rows count(bdp, jet::NativeSql("select (select count(*) from individuo) + (select count(*) from familia)"));
    if (count.next()) all_ = qMax<qint64>(1, count.number(0));
}

void GedcomWriter::readCatalogue()
{
    jet::Rows home(bdp_, jet::NativeSql("select cod, nome from infopar"));
    if (home.next()) home_ = {home.text(0), home.text(1)};
    jet::Rows code(bdp_, jet::NativeSql("select categoria, codigo, descricao from infocomplementar"));
    while (code.next())
        catalogue_.codes[code.text(0)].insert(code.text(1), code.text(2).simplified());
    jet::Rows profession(bdp_, jet::NativeSql("select codprof, profissao from profissao"));
    while (profession.next())
        catalogue_.professions.insert(static_cast<int>(profession.number(0)), profession.text(1));
}

void GedcomWriter::next()
{
    static constexpr qint64 recordsBetweenQuestions = 1024;
    if (done_++ % recordsBetweenQuestions != 0 || !goesOn_) return;
    if (!goesOn_(static_cast<double>(done_) / static_cast<double>(all_))) throw Interrupted{};
}

GedcomCounts GedcomWriter::write()
{
    writeHead();
    writeRegisters(); // before who cites them: some readers know no record that comes later
    writePeople();
    writeFamilies();
    writePlaceNotes();
    lines_.bare(0, "TRLR");
    lines_.flush();
    return counts_;
}

void GedcomWriter::writeHead()
{
    lines_.bare(0, "HEAD");
    if (!lines_.is551()) {
        lines_.bare(1, "GEDC");
        lines_.word(2, "VERS", "7.0");
    }
    lines_.word(1, "SOUR", "ORV");
    if (!options_.programVersion.isEmpty()) lines_.text(2, "VERS", options_.programVersion);
    lines_.word(2, "NAME", "ORV");
    lines_.pointer(1, "SUBM", submitter);
    if (lines_.is551()) {
        lines_.bare(1, "GEDC");
        lines_.word(2, "VERS", "5.5.1");
        lines_.word(2, "FORM", "LINEAGE-LINKED");
        lines_.word(1, "CHAR", "UTF-8");
    }
    lines_.word(1, "LANG", lines_.is551() ? "Portuguese" : "pt");
    lines_.bare(1, "PLAC");
    lines_.text(2, "FORM", placeForm);
    if (counts_.withheldPeople > 0)
        lines_.memo(1, "NOTE",
                    QString("Pessoas que podem estar vivas e que não vão neste ficheiro: %1 (nascidas há menos de %2 "
                            "anos, sem óbito).")
                        .arg(counts_.withheldPeople)
                        .arg(options_.limitYears));
    static constexpr int longest = 60; // letters of a submitter's name
    lines_.record(submitter, "SUBM");
    lines_.text(1, "NAME", (home_.name.isEmpty() ? QString("Paróquia") : "Paróquia de " + home_.name).left(longest));
}

void GedcomWriter::writePeople()
{
    OfPeople rows(bdp_, options_.version);
    const jet::WideView view(bdp_);
    jet::Rows people(bdp_, jet::NativeSql(peopleSelect));
    while (people.next()) {
        next();
        if (!withheld_.contains(people.number(0))) writePerson(cardAt(people), rows);
    }
}

// One source for each register of the parish; where its books are kept, as far as transcriptions tell.
void GedcomWriter::writeRegisters()
{
    const QString parish = home_.name.isEmpty() ? QString("paróquia") : home_.name.simplified();
    QStringList keepers;
    if (hasColumns(bdp_, "estudo_fonte", {"localizacao"})) {
        jet::Rows row(bdp_, jet::NativeSql("select distinct localizacao from estudo_fonte "
                                           "where coalesce(localizacao, '') <> '' order by localizacao"));
        while (row.next())
            keepers << row.text(0).simplified();
    }
    for (int i = 0; i < keepers.size(); ++i) {
        static constexpr int longest = 90;
        lines_.record('R' + QByteArray::number(i + 1), "REPO");
        lines_.text(1, "NAME", lines_.is551() ? keepers[i].left(longest) : keepers[i]);
    }
    for (const Register which : {Register::Baptisms, Register::Marriages, Register::Burials}) {
        const RegisterWords& words = wordsOf(which);
        lines_.record(words.xref, "SOUR");
        lines_.memo(1, "TITL", QString("%1 de %2").arg(words.title, parish));
        lines_.memo(1, "AUTH", "Paróquia de " + parish);
        lines_.memo(1, "PUBL", "Transcritos numa base de dados paroquial (ORV)");
        for (int i = 0; i < keepers.size(); ++i)
            lines_.pointer(1, "REPO", 'R' + QByteArray::number(i + 1));
        if (!lines_.is551()) lines_.word(1, "UID", uidOf(home_, words.act, 0));
    }
}

GedcomCounts writeGedcom(const jet::Connection& bdp, QIODevice& target, const GedcomOptions& options,
                         const GoesOn& goesOn)
{
    const jet::OneLook look(bdp);
    return GedcomWriter(bdp, target, options, goesOn).write();
}

GedcomCounts exportGedcom(const jet::Connection& bdp, const QString& path, const GedcomOptions& options,
                          const GoesOn& goesOn)
{
    checkTarget(path, bdp.dataSource());
    jet::Draft draft(jet::behindLinks(path));
    QFile file(draft.path());
    if (!file.open(QIODevice::WriteOnly))
        throw jet::writeError(std::make_error_code(std::errc::permission_denied), path);
    GedcomCounts counts;
    try {
        counts = writeGedcom(bdp, file, options, goesOn);
    } catch (const jet::Error&) {
        if (file.error() == QFileDevice::NoError) throw;
    }
    if (!file.flush() || file.error() != QFileDevice::NoError)
        throw jet::writeError(std::make_error_code(std::errc::no_space_on_device), path);
    file.close();
    QFileInfo::exists(path) ? draft.replace() : draft.place();
    return counts;
}

} // namespace study::exchange
