#include "study/indicators/tallyJson.h"

#include "platform/jet/error.h"
#include "study/indicators/settingEntries.h"

#include <QSet>

#include <algorithm>
#include <limits>
#include <string>
#include <utility>

namespace study::indicators {

namespace {

using nlohmann::json;
using Known = std::span<const Subject* const>;

constexpr auto format = "orv-contagens";
constexpr qint64 version = 1;
constexpr qint64 mostAmount = 1'000'000'000'000'000; // so that sums stay whole numbers
constexpr qint64 leastValue = Tally::any + 1;
constexpr qint64 mostValue = std::numeric_limits<qint32>::max();

[[noreturn]] void refuse(const QString& why)
{
    throw jet::Error{jet::number::typeMismatch, why};
}

[[noreturn]] void refuseDamaged(const QString& where)
{
    refuse(QString("O ficheiro de contagens está danificado: %1.").arg(where));
}

const Subject* subjectIn(Known known, const QString& id)
{
    const auto found = std::find_if(known.begin(), known.end(), [&id](const Subject* one) { return id == one->id; });
    return found == known.end() ? nullptr : *found;
}

json toldOf(const Counted& counted)
{
    const parish::Source& source = counted.source;
    return {{"nome", counted.name.toStdString()},
            {"codigo", counted.code.toStdString()},
            {"ficheiro", source.path.toStdString()},
            {"bytes", source.bytes},
            {"sha256", source.sha256.toStdString()},
            {"lido", source.readAt.toUTC().toString(Qt::ISODateWithMs).toStdString()},
            {"ajustes", toldOf(counted.settings)}};
}

json toldOf(const Subject& subject, const Tally& tally)
{
    json told = json::object();
    for (const auto& [key, amount] : tally.cells()) {
        if (key.count >= subject.counts.size())
            refuse(QString("O tema \"%1\" não tem a contagem n.º %2.").arg(subject.id).arg(key.count));
        told[subject.counts[key.count]].push_back(json::array({key.at, amount}));
    }
    return told;
}

const json& partOf(const json& whole, const char* name)
{
    const auto part = whole.find(name);
    if (part == whole.end()) refuseDamaged(QString("falta \"%1\"").arg(name));
    return *part;
}

QString textOf(const json& whole, const char* name)
{
    const json& part = partOf(whole, name);
    if (!part.is_string()) refuseDamaged(QString("\"%1\" não é um texto").arg(name));
    return QString::fromStdString(part.get_ref<const std::string&>());
}

parish::Source sourceTold(const json& told)
{
    const auto bytes = wholeOf(partOf(told, "bytes"), 0, std::numeric_limits<qint64>::max());
    if (!bytes) refuseDamaged("o tamanho de uma BDP não é um número");
    const QString moment = textOf(told, "lido");
    const QDateTime readAt = QDateTime::fromString(moment, Qt::ISODateWithMs);
    if (!moment.isEmpty() && !readAt.isValid()) refuseDamaged("a hora de uma BDP não é uma hora");
    return {.path = textOf(told, "ficheiro"),
            .bytes = *bytes,
            .sha256 = textOf(told, "sha256"),
            .readAt = readAt.isValid() ? readAt.toLocalTime() : QDateTime()};
}

std::vector<Counted> parishesOf(const json& told)
{
    if (!told.is_array() || told.empty()) refuseDamaged("não diz de que freguesias é");
    std::vector<Counted> parishes;
    for (const json& one : told) {
        if (!one.is_object()) refuseDamaged("uma freguesia não é um objecto");
        parishes.push_back({.source = sourceTold(one),
                            .settings = settingsTold(partOf(one, "ajustes")),
                            .name = textOf(one, "nome"),
                            .code = textOf(one, "codigo")});
    }
    return parishes;
}

void takeCell(Tally& tally, quint16 count, const json& cell, const QString& where)
{
    if (!cell.is_array() || cell.size() != 2 || !cell[0].is_array() || cell[0].size() != 4) refuseDamaged(where);
    Key key{.count = count};
    for (std::size_t i = 0; i < key.at.size(); ++i) {
        const auto value = wholeOf(cell[0][i], leastValue, mostValue);
        if (!value) refuseDamaged(where);
        key.at[i] = static_cast<qint32>(*value);
    }
    const auto amount = wholeOf(cell[1], -mostAmount, mostAmount);
    if (!amount || *amount == 0 || tally[key] != 0) refuseDamaged(where);
    tally.add(key, *amount);
}

Tally tallyTold(const Subject& subject, const json& told)
{
    if (!told.is_object()) refuseDamaged(QString("o tema \"%1\" não é um objecto").arg(subject.id));
    Tally tally;
    for (const auto& [name, cells] : told.items()) {
        const std::string& word = name;
        const auto count = std::find(subject.counts.begin(), subject.counts.end(), word);
        const QString where = QString("\"%1\" do tema \"%2\"").arg(QString::fromStdString(word), subject.id);
        if (count == subject.counts.end()) refuse("O ficheiro tem uma contagem desconhecida: " + where + '.');
        if (!cells.is_array()) refuseDamaged(where);
        for (const json& cell : cells)
            takeCell(tally, static_cast<quint16>(count - subject.counts.begin()), cell, where);
    }
    return tally;
}

std::map<QString, Tally> subjectsOf(const json& told, Known known)
{
    if (!told.is_object()) refuseDamaged("\"temas\" não é um objecto");
    std::map<QString, Tally> bySubject;
    for (const auto& [name, counts] : told.items()) {
        const QString id = QString::fromStdString(name);
        const Subject* subject = subjectIn(known, id);
        if (!subject) refuse(QString("O ficheiro tem um tema desconhecido: \"%1\".").arg(id));
        bySubject.emplace(id, tallyTold(*subject, counts));
    }
    return bySubject;
}

void refuseOtherForms(const json& all)
{
    const auto form = all.is_object() ? all.find("formato") : all.end();
    if (form == all.end() || *form != format) refuse("Isto não é um ficheiro de contagens.");
    const auto told = wholeOf(partOf(all, "versao"), 1, std::numeric_limits<qint64>::max());
    if (!told) refuseDamaged("a versão não é um número");
    if (*told > version)
        refuse(QString("O ficheiro de contagens é da versão %1, que este programa ainda não conhece.").arg(*told));
}

// Counts of a parish beside those of others mean something where they are of the same things, once each.
void refuseWhatCannotBeJoined(const std::vector<Counted>& parishes)
{
    QSet<QString> marks;
    for (const Counted& one : parishes) {
        const QStringList differ = whatDiffers(parishes.front().settings, one.settings);
        if (!differ.isEmpty())
            refuse(QString("As contagens não se podem juntar: foram feitas com ajustes diferentes (%1).")
                       .arg(differ.join("; ")));
        const QString mark = one.source.sha256;
        if (mark.isEmpty()) continue;
        if (marks.contains(mark))
            refuse(
                QString("As contagens não se podem juntar: a BDP \"%1\" foi contada duas vezes.").arg(one.source.path));
        marks.insert(mark);
    }
}

void refuseOtherSubjects(const Tallies& one, const Tallies& other)
{
    for (const auto& entry : one.bySubject)
        if (!other.bySubject.contains(entry.first))
            refuse(QString("As contagens não se podem juntar: o tema \"%1\" só está numa delas.").arg(entry.first));
}

// The years that both cover.
YearSpan common(const YearSpan& one, const YearSpan& other)
{
    const int last = one.last == 0 || other.last == 0 ? std::max(one.last, other.last) : std::min(one.last, other.last);
    return {std::max(one.first, other.first), last};
}

void addGaps(std::vector<YearSpan>& all, const std::vector<YearSpan>& further)
{
    for (const YearSpan& gap : further)
        if (std::find(all.begin(), all.end(), gap) == all.end()) all.push_back(gap);
}

} // namespace

QByteArray jsonOf(const Tallies& tallies, Known known)
{
    json parishes = json::array(), bySubject = json::object();
    for (const Counted& one : tallies.parishes)
        parishes.push_back(toldOf(one));
    for (const auto& [id, tally] : tallies.bySubject) {
        const Subject* subject = subjectIn(known, id);
        if (!subject) refuse(QString("Não há o tema \"%1\".").arg(id));
        bySubject[id.toStdString()] = toldOf(*subject, tally);
    }
    const json all{{"formato", format}, {"versao", version}, {"freguesias", parishes}, {"temas", bySubject}};
    return QByteArray::fromStdString(all.dump());
}

Tallies talliesFrom(const QByteArray& text, Known known)
{
    const json all = json::parse(text.begin(), text.end(), nullptr, false);
    refuseOtherForms(all);
    Tallies tallies{.parishes = parishesOf(partOf(all, "freguesias")),
                    .bySubject = subjectsOf(partOf(all, "temas"), known)};
    refuseWhatCannotBeJoined(tallies.parishes);
    return tallies;
}

Tallies joined(const Tallies& one, const Tallies& other)
{
    Tallies sum = one;
    sum.parishes.insert(sum.parishes.end(), other.parishes.begin(), other.parishes.end());
    refuseWhatCannotBeJoined(sum.parishes);
    refuseOtherSubjects(one, other);
    refuseOtherSubjects(other, one);
    for (auto& [id, tally] : sum.bySubject)
        tally += other.bySubject.at(id);
    return sum;
}

QStringList whatDiffers(const Settings& one, const Settings& other)
{
    QStringList titles;
    for (const Entry& entry : settingEntries())
        if (entry.defines == Defines::Counting && entry.told(one) != entry.told(other)) titles << entry.title;
    return titles;
}

Settings settingsOf(const Tallies& tallies)
{
    if (tallies.parishes.empty()) return {};
    Settings settings = tallies.parishes.front().settings;
    for (const Counted& one : std::span(tallies.parishes).subspan(1))
        for (std::size_t i = 0; i < settings.books.size(); ++i) {
            settings.books[i] = common(settings.books[i], one.settings.books[i]);
            addGaps(settings.gaps[i], one.settings.gaps[i]);
        }
    return settings;
}

} // namespace study::indicators
