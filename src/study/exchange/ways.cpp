#include "study/exchange/ways.h"

#include "platform/jet/rows.h"
#include "study/exchange/episodes.h"
#include "study/exchange/gedcomIn.h"
#include "study/exchange/ids.h"
#include "study/indicators/baptismDays.h"
#include "study/indicators/settingsJson.h"
#include "study/report/origin.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <memory>

namespace study::exchange {

namespace {

// By what the notes of the cards and the list of the study tell, where the BDP has words for it.
std::function<std::optional<KnownDays>(parish::PersonNumber, const parish::Date&, const QString&)>
daysOf(const jet::Connection& bdp)
{
    const auto settings = std::make_shared<const indicators::Settings>(indicators::keptSettings(bdp));
    const auto reader = std::make_shared<const indicators::BaptismReader>(*settings);
    return [settings, reader](parish::PersonNumber number, const parish::Date& card,
                              const QString& notes) -> std::optional<KnownDays> {
        parish::Person child;
        child.number = number;
        child.birth = card;
        const indicators::BaptismTold told = reader->read(child, notes);
        if (!told.isTold()) return {};
        return KnownDays{told.days.birth, told.days.baptism};
    };
}

// A line of what was written, where there is something to tell.
void tellOf(qint64 count, const char* line, Exchanged& told)
{
    if (count > 0) told.lines << QString::fromUtf8(line).arg(count);
}

constexpr auto mayBeAlive = "Podem estar vivas e não foram: %1 pessoas.";
constexpr auto linkedToNobody = "Ligações a quem não está na BDP, que não foram: %1.";

Exchanged writeGedcomFile(GedcomVersion version, const jet::Connection& bdp, const OutOrder& order,
                          const GoesOn& goesOn)
{
    GedcomOptions options{.version = version,
                          .birthDates = order.options.birthDates,
                          .limitYears = order.options.limitYears,
                          .today = order.today,
                          .associationsTwice = order.options.associationsTwice};
    options.programVersion = report::programName().section(' ', -1);
    options.days = daysOf(bdp);
    const GedcomCounts counts = exportGedcom(bdp, order.target, options, goesOn);
    Exchanged told{.lines = {QString("Pessoas: %1; famílias: %2.").arg(counts.people).arg(counts.families)}};
    tellOf(counts.withheldPeople, mayBeAlive, told);
    tellOf(counts.lostLinks, linkedToNobody, told);
    tellOf(counts.shortened, "Textos longos de mais, que estão por inteiro nas notas: %1.", told);
    return told;
}

Exchanged writeGedcom551(const jet::Connection& bdp, const OutOrder& order, const GoesOn& goesOn)
{
    return writeGedcomFile(GedcomVersion::V551, bdp, order, goesOn);
}

Exchanged writeGedcom70(const jet::Connection& bdp, const OutOrder& order, const GoesOn& goesOn)
{
    return writeGedcomFile(GedcomVersion::V70, bdp, order, goesOn);
}

QStringList linesOf(const std::vector<TableCount>& tables)
{
    QStringList lines;
    for (const TableCount& table : tables)
        lines << QString("%1: %2").arg(table.name).arg(table.rows);
    return lines;
}

// The same BDP gives the same files, wherever it lies and whenever it is read.
parish::Source sourceOf(const OutOrder& order)
{
    parish::Source source = order.source ? order.source() : parish::Source();
    source.path = QFileInfo(order.bdp).fileName();
    source.readAt = {};
    return source;
}

Exchanged writeTables(Dialect dialect, const jet::Connection& bdp, const OutOrder& order, const GoesOn& goesOn)
{
    const TablesWritten all = exportTables(bdp, order.target,
                                           {.dialect = dialect,
                                            .orphans = order.options.emptyOrphans ? Orphans::Emptied : Orphans::Apart,
                                            .program = report::programName(),
                                            .source = sourceOf(order),
                                            .goesOn = goesOn});
    Exchanged told{.lines = linesOf(all.tables)};
    tellOf(all.apart, "Células em problemas.csv: %1.", told);
    tellOf(all.emptied, "Números que não levam a nenhum registo e ficaram vazios: %1.", told);
    for (const QString& other : all.leftOut)
        told.warnings.push_back({.text = "Ficou de fora, por ser de outro programa: " + other});
    return told;
}

Exchanged writeStandardTables(const jet::Connection& bdp, const OutOrder& order, const GoesOn& goesOn)
{
    return writeTables(Dialect::Standard, bdp, order, goesOn);
}

Exchanged writeSpreadsheets(const jet::Connection& bdp, const OutOrder& order, const GoesOn& goesOn)
{
    return writeTables(Dialect::Spreadsheet, bdp, order, goesOn);
}

Exchanged writeIds(const jet::Connection& bdp, const OutOrder& order, const GoesOn& goesOn)
{
    const OutOptions& chosen = order.options;
    const QDate lastWritten = QFileInfo(order.bdp).lastModified().date();
    const IdsCounts all = exportIds(bdp, order.target,
                                    {.upperCase = chosen.upperCase,
                                     .reversedRelations = chosen.reversedRelations,
                                     .childrenAtHome = chosen.childrenAtHome,
                                     .limitYears = chosen.limitYears,
                                     .today = order.today,
                                     .version = chosen.version.isValid() ? chosen.version : lastWritten,
                                     .program = report::programName(),
                                     .study = indicators::keptSettings(bdp),
                                     .source = sourceOf(order)},
                                    goesOn);
    Exchanged told{.lines = linesOf(all.tables)};
    tellOf(all.withheldPeople, mayBeAlive, told);
    tellOf(all.lostLinks, linkedToNobody, told);
    tellOf(all.unmapped, "Filiações que não contam como legítimas nem como ilegítimas: %1.", told);
    return told;
}

Exchanged writeEpisodes(const jet::Connection& bdp, const OutOrder& order, const GoesOn& goesOn)
{
    const EpisodesWritten all = exportEpisodes(bdp, order.target,
                                               {.limitYears = order.options.limitYears,
                                                .today = order.today,
                                                .program = report::programName(),
                                                .source = sourceOf(order),
                                                .goesOn = goesOn});
    Exchanged told{.lines = linesOf(all.files)};
    tellOf(all.withheldPeople, mayBeAlive, told);
    return told;
}

std::vector<Remark> remarksOf(const std::vector<TableProblem>& problems)
{
    std::vector<Remark> remarks;
    remarks.reserve(problems.size());
    for (const TableProblem& one : problems)
        remarks.push_back({one.file, one.line, one.text});
    return remarks;
}

Exchanged readTables(jet::Connection*, const InOrder& order, const GoesOn& goesOn)
{
    const TablesRead all = importTables(order.source, order.bdp, order.rehearse, goesOn);
    Exchanged told{.warnings = remarksOf(all.warnings), .errors = remarksOf(all.errors)};
    if (!all.errors.empty()) return told;
    told.lines = linesOf(all.tables);
    if (all.referenceData) told.lines << "Locais, códigos e profissões: os do programa.";
    return told;
}

Exchanged readGedcom(jet::Connection* open, const InOrder& order, const GoesOn& goesOn)
{
    const GedcomImportOptions options{.newPlaces = order.options.newPlaces,
                                      .newProfessions = order.options.newProfessions};
    const GedcomReport report = order.rehearse ? rehearseGedcom(*open, order.source, options, goesOn)
                                               : importGedcom(*open, order.source, options, goesOn);
    Exchanged told;
    if (!report.copy.isEmpty()) told.lines << "Cópia da BDP: " + report.copy;
    told.lines << report.lines();
    for (const GedcomProblem& one : report.problems)
        told.warnings.push_back({QFileInfo(order.source).fileName(), one.line, one.text});
    return told;
}

// The folder of an export, made where it isn't there; what was made for nothing goes again.
class TargetFolder
{
public:
    explicit TargetFolder(const QString& path) : path_(path), isMade_(!QFileInfo::exists(path))
    {
        if (!isMade_ && !QFileInfo(path).isDir())
            throw jet::Error(jet::number::pathNotFound, QString("\"%1\" não é uma pasta.").arg(path));
        if (isMade_ && !QDir().mkdir(path))
            throw jet::Error(jet::number::pathNotFound, QString("A pasta \"%1\" não pode ser criada.").arg(path));
    }
    ~TargetFolder()
    {
        if (isMade_) QDir().rmdir(path_); // an empty one alone
    }
    TargetFolder(const TargetFolder&) = delete;
    TargetFolder& operator=(const TargetFolder&) = delete;

private:
    QString path_;
    bool isMade_;
};

void requireOtherThanTheBdp(const OutOrder& order)
{
    const QFileInfo there(order.target);
    if (there.exists() && there.canonicalFilePath() == QFileInfo(order.bdp).canonicalFilePath())
        throw jet::Error(jet::number::permissionDenied, "A BDP não se exporta para cima de si própria.");
}

template <class Way>
const Way* named(const std::vector<Way>& ways, const QString& name)
{
    const auto found = std::ranges::find_if(ways, [&](const Way& way) { return name == QLatin1String(way.name); });
    return found == ways.end() ? nullptr : &*found;
}

} // namespace

QString textOf(const Remark& remark)
{
    if (remark.file.isEmpty()) return remark.text;
    if (remark.line == 0) return remark.file + ": " + remark.text;
    return QString("%1:%2: %3").arg(remark.file, QString::number(remark.line), remark.text);
}

bool WayOut::offers(Choice choice) const
{
    return std::ranges::find(choices, choice) != choices.end();
}

bool WayIn::offers(InChoice choice) const
{
    return std::ranges::find(choices, choice) != choices.end();
}

const std::vector<WayOut>& waysOut()
{
    using enum Choice;
    static const std::vector<WayOut> all{
        {"gedcom-5.5.1",
         "GEDCOM 5.5.1",
         "Um ficheiro com as pessoas e as famílias, para os programas de genealogia: quase todos lêem esta versão. O "
         "que ela não sabe dizer vai em notas.",
         Place::File,
         "ged",
         {LimitYears, BirthDates, AssociationsTwice},
         writeGedcom551},
        {"gedcom-7.0",
         "GEDCOM 7.0",
         "O mesmo na versão mais nova, que diz mais: quem assistiu a cada acto, e em que papel. Nem todos os programas "
         "a lêem.",
         Place::File,
         "ged",
         {LimitYears, BirthDates, AssociationsTwice},
         writeGedcom70},
        {"tabelas",
         "Tabelas (CSV)",
         "Uma pasta com todas as tabelas da BDP em CSV e a sua descrição (datapackage.json), para o R e outros "
         "programas. Delas se volta a fazer a mesma BDP. Vão todas as pessoas, também as que podem estar vivas.",
         Place::Folder,
         "",
         {EmptyOrphans},
         writeStandardTables},
        {"tabelas-excel",
         "Tabelas para o Excel",
         "As mesmas tabelas como o Excel em português as abre: com \";\", vírgula decimal e datas dd/mm/aaaa. Também "
         "delas se volta a fazer a BDP. Vão todas as pessoas, também as que podem estar vivas.",
         Place::Folder,
         "",
         {EmptyOrphans},
         writeSpreadsheets},
        {"ids",
         "IDS, versão 4",
         "Uma pasta com as tabelas da Intermediate Data Structure, que as bases de dados da demografia histórica "
         "trocam entre si: cada facto numa linha, com o seu tipo, valor e data.",
         Place::Folder,
         "",
         {LimitYears, UpperCase, ReversedRelations, ChildrenAtHome},
         writeIds},
        {"episodios",
         "Episódios (R)",
         "Uma pasta com quem esteve em risco de quê, e de quando a quando, pelas regras do estudo: fecundidade, "
         "mortalidade, casamento e recasamento, para a análise de sobrevivência, com um exemplo em R. Sem nomes.",
         Place::Folder,
         "",
         {LimitYears},
         writeEpisodes},
    };
    return all;
}

const WayOut* wayOut(const QString& name)
{
    return named(waysOut(), name);
}

Exchanged writeOut(const WayOut& way, const jet::Connection& bdp, const OutOrder& order, const GoesOn& goesOn)
{
    requireOtherThanTheBdp(order);
    const jet::OneLook look(bdp);
    {
        jet::Rows first(bdp, jet::NativeSql("select count(*) from infopar")); // takes the lock
        first.next();
    }
    if (way.target == Place::File) return way.run(bdp, order, goesOn);
    const TargetFolder folder(order.target);
    return way.run(bdp, order, goesOn);
}

QString questionBefore(const WayOut& way, const QString& target)
{
    if (way.target == Place::File)
        return QFileInfo::exists(target)
                   ? QString("O ficheiro \"%1\" já existe. Deseja substituí-lo?").arg(QDir::toNativeSeparators(target))
                   : QString();
    const QDir folder(target);
    if (!folder.exists() || folder.isEmpty()) return {};
    return QString("A pasta \"%1\" não está vazia. Deseja exportar para ela? Os ficheiros de uma exportação anterior "
                   "são substituídos, e os outros ficam.")
        .arg(QDir::toNativeSeparators(target));
}

const std::vector<WayIn>& waysIn()
{
    static const std::vector<WayIn> all{
        {"tabelas",
         "Tabelas (CSV)",
         "Uma pasta com as tabelas de uma BDP, como a exportação as escreve ou feitas por outro programa, com os "
         "mesmos "
         "nomes e colunas. Delas se faz uma BDP nova; sem tabelas de locais, de códigos e de profissões, estes são os "
         "do programa.",
         Place::Folder,
         "",
         Into::NewBdp,
         {},
         readTables},
        {"gedcom",
         "GEDCOM",
         "Um ficheiro GEDCOM, 5.5.1 ou 7.0, de qualquer programa. Todas as pessoas e famílias ficam na BDP aberta com "
         "fichas novas; o que não tem coluna vai para as notas. Antes é feita uma cópia da BDP.",
         Place::File,
         "GEDCOM (*.ged)|*.ged|Todos os ficheiros (*)|*",
         Into::OpenBdp,
         {InChoice::NewPlaces, InChoice::NewProfessions},
         readGedcom},
    };
    return all;
}

const WayIn* wayIn(const QString& name)
{
    return named(waysIn(), name);
}

Exchanged readIn(const WayIn& way, jet::Connection* open, const InOrder& order, const GoesOn& goesOn)
{
    return way.run(open, order, goesOn);
}

} // namespace study::exchange
