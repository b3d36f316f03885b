// What leads to a file or to somebody who isn't there.
#include "study/checks/told.h"
#include "study/checks/words.h"

#include <QMap>
#include <QRegularExpression>
#include <QSet>

namespace study::checks {

using parish::Family;
using parish::Person;
using parish::PersonLink;
using parish::PersonNumber;

namespace {

struct Picture
{
    QString path;
    const char* what; // "do baptismo "
    const Person* person = nullptr;
    const Family* family = nullptr;
};

// Servers and URLs aren't asked: a network that is away would hold the check up.
bool isElsewhere(const QString& path)
{
    static const QRegularExpression server(R"(^\s*([\\/]{2}|[A-Za-z][A-Za-z0-9+.-]+:))");
    return path.contains(server);
}

std::vector<Picture> picturesOf(const parish::Snapshot& parish)
{
    std::vector<Picture> pictures;
    const auto add = [&](const QString& path, const char* what, const Person* person, const Family* family) {
        if (!path.trimmed().isEmpty() && !isElsewhere(path)) pictures.push_back({path, what, person, family});
    };
    for (const Person& person : parish.people()) {
        add(person.baptismFile, "do baptismo ", &person, nullptr);
        add(person.burialFile, "do óbito ", &person, nullptr);
        for (const parish::Signature& row : person.signatures)
            add(row.file, "da assinatura ", &person, nullptr);
    }
    for (const Family& family : parish.families())
        add(family.file, "do casamento ", nullptr, &family);
    return pictures;
}

void report(const Picture& picture, Check& check)
{
    const QString whose = picture.person ? of(*picture.person) : of(*picture.family);
    Check::Found found{.text = QString("A imagem %1%2 não está em %3.").arg(picture.what, whose, picture.path),
                       .people = {},
                       .families = {},
                       .when = {},
                       .about = picture.path};
    addOnce(found.people, picture.person);
    addOnce(found.families, picture.family);
    check.report(found);
}

// One case for all that were in it.
void reportFolder(const QString& folder, const std::vector<const Picture*>& pictures, Check& check)
{
    static constexpr size_t most = 12;
    const auto count = static_cast<qint64>(pictures.size());
    Check::Found found{
        .text = QString("A pasta %1 não existe; devia ter %2.").arg(folder, howMany(count, "imagem", "imagens")),
        .people = {},
        .families = {},
        .when = {},
        .about = folder};
    for (const Picture* picture : pictures) {
        if (found.people.size() + found.families.size() >= most) break;
        addOnce(found.people, picture->person);
        addOnce(found.families, picture->family);
    }
    check.report(found);
}

// Names of files are compared blind to case: not every file system knows it.
void areNotOnDisk(const parish::Snapshot& parish, Check& check)
{
    const std::vector<Picture> pictures = picturesOf(parish);
    QMap<QString, std::vector<const Picture*>> byFolder;
    static const QRegularExpression lastSeparator(R"([\\/](?=[^\\/]*$))");
    for (const Picture& picture : pictures) {
        const auto at = picture.path.lastIndexOf(lastSeparator);
        byFolder[at < 0 ? QString(".") : picture.path.left(at + 1)].push_back(&picture);
    }
    for (auto at = byFolder.cbegin(); at != byFolder.cend(); ++at) {
        const std::optional<QStringList> files = check.filesIn(at.key());
        if (!files) {
            reportFolder(at.key(), *at, check);
            continue;
        }
        QSet<QString> names;
        for (const QString& file : *files)
            names.insert(file.toLower());
        for (const Picture* picture : *at)
            if (!names.contains(picture->path.section(lastSeparator, -1).toLower())) report(*picture, check);
    }
}

// Of a link that leads to nobody.
template <class Record>
void reportLink(const PersonLink& link, const char* what, const Record& whose, Check::Found found, Check& check)
{
    const QString number = parish::shown(link.number);
    found.text = QString("%1 %2 é o indivíduo nº %3, que não existe.").arg(what, of(whose), number);
    found.about = QString::fromUtf8(what) + ' ' + number;
    check.report(found);
}

void leadToNobody(const parish::Snapshot& parish, Check& check)
{
    for (const Person& person : parish.people()) {
        const auto ask = [&](const PersonLink& link, const char* what, const parish::Date& when) {
            if (!link.isGiven() || link.person) return;
            reportLink(link, what, person, {.text = {}, .people = {&person}, .families = {}, .when = when}, check);
        };
        for (const parish::Priest& priest : person.baptismPriests)
            ask(priest.who, "O padre do baptismo", person.birth);
        ask(person.burialPriest.who, "O padre do enterro", person.death);
        ask(person.executor, "O testamenteiro", person.death);
        for (const parish::Bequest& row : person.bequests)
            ask(row.heir, "Um herdeiro", person.death);
    }
    for (const Family& family : parish.families())
        for (const parish::Priest& priest : family.priests)
            if (priest.who.isGiven() && !priest.who.person)
                reportLink(priest.who, "O padre do casamento", family,
                           {.text = {}, .people = {}, .families = {&family}, .when = family.marriage}, check);
}

void areAssistedByNobody(const parish::Snapshot& parish, Check& check)
{
    for (const parish::Assistance& row : parish.assistances()) {
        if (row.assistant.person || (!row.child && !row.family)) continue; // of no act: K-08
        const QString who = row.assistant.isGiven()
                                ? QString("o indivíduo nº %1, que não existe").arg(parish::shown(row.assistant.number))
                                : QString("ninguém: não tem número");
        Check::Found found{.text = QString("Um assistente ao %1 é %2.").arg(actOf(row), who),
                           .people = {},
                           .families = {},
                           .when = row.date,
                           .about = 'i' + parish::shown(row.assistant.number)};
        addOnce(found.people, row.child);
        addOnce(found.families, row.family);
        check.report(found);
    }
}

// Of an act that isn't there.
QString lostAssistant(const parish::Assistance& row)
{
    if (row.assistant.person)
        return QString("%1 consta como assistente ao %2, que não existe.")
            .arg(named(*row.assistant.person), actOf(row));
    if (!row.assistant.isGiven())
        return QString("Há um assistente sem número a um acto que não existe, o %1.").arg(actOf(row));
    return QString("Há um assistente sem ficha nenhuma: nem existe o indivíduo nº %1, nem o %2.")
        .arg(parish::shown(row.assistant.number), actOf(row));
}

void assistAtNothing(const parish::Snapshot& parish, Check& check)
{
    for (const parish::Assistance& row : parish.assistances()) {
        if (row.child || row.family) continue;
        const bool baptism = row.kind == parish::ActKind::Baptism;
        Check::Found found{.text = lostAssistant(row),
                           .people = {},
                           .families = {},
                           .when = row.date,
                           .about = (baptism ? "b" : "c") + QString::number(row.entity) + " i" +
                                    parish::shown(row.assistant.number)};
        addOnce(found.people, row.assistant.person);
        check.report(found);
    }
}

// How many rows each owner has who isn't there.
using Lost = QMap<QString, qint64>;

void reportLost(const Lost& lost, const char* one, const char* many, Check& check)
{
    for (auto at = lost.cbegin(); at != lost.cend(); ++at)
        check.report({.text = QString("%1 %2, que não existe.").arg(howMany(*at, one, many), at.key()),
                      .people = {},
                      .families = {},
                      .when = {},
                      .about = at.key() + ' ' + QString::fromUtf8(one)});
}

void resideAsNobody(const parish::Snapshot& parish, Check& check)
{
    Lost lost;
    for (const parish::Residence& row : parish.residences()) {
        const bool ofAFamily = parish::value(row.family) != 0;
        if (ofAFamily ? parish.family(row.family) != nullptr : parish.person(row.person) != nullptr) continue;
        ++lost[ofAFamily ? "da família nº " + parish::shown(row.family)
                         : "do indivíduo nº " + parish::shown(row.person)];
    }
    reportLost(lost, "residência", "residências", check);
}

template <class Row>
void askOwners(std::span<const Row> rows, PersonNumber Row::*owner, const char* one, const char* many, Check& check)
{
    Lost lost;
    for (const Row& row : rows)
        if (!check.parish().person(row.*owner)) ++lost["do indivíduo nº " + parish::shown(row.*owner)];
    reportLost(lost, one, many, check);
}

void areListedForNobody(const parish::Snapshot& parish, Check& check)
{
    askOwners(parish.professions(), &parish::Profession::person, "profissão", "profissões", check);
    askOwners(parish.signatures(), &parish::Signature::person, "assinatura", "assinaturas", check);
    askOwners(parish.bequests(), &parish::Bequest::testator, "legado", "legados", check);
    askOwners(parish.suffrages(), &parish::Suffrage::deceased, "sufrágio", "sufrágios", check);
    askOwners(parish.passports(), &parish::Passport::person, "passaporte", "passaportes", check);
}

void areNamedInActsOnly(const parish::Snapshot& parish, Check& check)
{
    for (const parish::LostMention& mention : parish.lostMentions()) {
        const QString number = parish::shown(mention.number);
        const QString who = mention.name.trimmed().isEmpty() ? QString("alguém") : mention.name;
        check.report({.text = QString("No acto nº %1, %2 é o indivíduo nº %3, que não existe.")
                                  .arg(QString::number(mention.act), who, number),
                      .people = {},
                      .families = {},
                      .acts = {mention.act},
                      .when = {},
                      .about = QString("acto %1 %2 i%3").arg(mention.act).arg(mention.order).arg(number)});
    }
}

void areOfNoFamily(const parish::Snapshot& parish, Check& check)
{
    for (const parish::LostFamily& lost : parish.lostFamilies()) {
        const QString number = parish::shown(lost.number);
        check.report(
            {.text = QString("O acto nº %1 é da família nº %2, que não existe.").arg(QString::number(lost.act), number),
             .people = {},
             .families = {},
             .acts = {lost.act},
             .when = {},
             .about = QString("acto %1 %2 f%3").arg(lost.act).arg(lost.order).arg(number)});
    }
}

} // namespace

std::vector<Rule> lostRules()
{
    return {
        {"K-05",
         Severity::Information,
         "Imagem que não está no disco",
         areNotOnDisk,
         {},
         "As imagens estão noutro computador ou noutro disco. As que estão num servidor não se procuram."},
        {"K-06",
         Severity::Impossible,
         "Padre, testamenteiro ou herdeiro que não existe",
         leadToNobody,
         {},
         "A ficha foi eliminada, ou o número foi escrito à mão."},
        {"K-07",
         Severity::Impossible,
         "Assistente que não existe",
         areAssistedByNobody,
         {},
         "A ficha foi eliminada por outro programa, ou o número está errado."},
        {"K-08",
         Severity::Impossible,
         "Assistente a um acto que não existe",
         assistAtNothing,
         {},
         "A ficha ou a família do acto foi eliminada por outro programa."},
        {"K-09",
         Severity::Impossible,
         "Residência de ninguém",
         resideAsNobody,
         {},
         "A ficha ou a família foi eliminada por outro programa."},
        {"K-10",
         Severity::Impossible,
         "Profissão, assinatura, legado, sufrágio ou passaporte de ninguém",
         areListedForNobody,
         {},
         "A ficha foi eliminada por outro programa."},
        {"K-11",
         Severity::Impossible,
         "Pessoa de um acto com um número que não existe",
         areNamedInActsOnly,
         {},
         "A ficha foi eliminada sem que o acto o soubesse."},
        {"K-13",
         Severity::Impossible,
         "Família de um acto com um número que não existe",
         areOfNoFamily,
         {},
         "A família foi eliminada por outro programa, sem que o acto o soubesse."},
    };
}

} // namespace study::checks
