#include "study/parish/record.h"

#include <QStringList>

#include <algorithm>
#include <iterator>
#include <span>
#include <utility>

namespace study::parish {

namespace {

// The order of the lines of a sheet, for persons and families alike.
const QStringList& titles()
{
    static const QStringList all{"Nome",   "Sexo",           "Título",          "Alcunha",        "Marido",
                                 "Mulher", "Situação",       "Nascimento",      "Naturalidade",   "Pai",
                                 "Mãe",    "Filiação",       "Padrinhos",       "Casamento",      "Local",
                                 "Óbito",  "Idade no óbito", "Estado no óbito", "Local do óbito", "Testamenteiro",
                                 "Filhos", "Residência",     "Profissão",       "Testemunhas",    "Assistiu"};
    return all;
}

class Sheet
{
public:
    explicit Sheet(const Catalogue& catalogue) : catalogue_(catalogue) {}

    void add(const QString& title, const QString& value)
    {
        if (!value.isEmpty()) lines_.push_back({title, value, false});
    }
    void add(const QString& title, const QStringList& rows)
    {
        static constexpr qsizetype shownRows = 12;
        for (const QString& row : rows.first(qMin(shownRows, rows.size())))
            lines_.push_back({title, row, true});
        if (rows.size() > shownRows)
            lines_.push_back({title, "… e mais " + QString::number(rows.size() - shownRows), true});
    }

    QString placeName(const Place& place) const
    {
        const QString name = catalogue_.name(place);
        return name.isEmpty() ? place.code : name;
    }
    const Catalogue& catalogue() const { return catalogue_; }

    std::vector<RecordLine> taken() { return std::move(lines_); }

private:
    const Catalogue& catalogue_;
    std::vector<RecordLine> lines_;
};

QString nameOf(const Person& person)
{
    return person.name.isEmpty() ? QString("(sem nome)") : person.name;
}

QString linked(const PersonLink& link)
{
    if (!link.isGiven()) return {};
    return link.person ? label(*link.person) : "nº " + shown(link.number) + " (não existe)";
}

QString labelOrNothing(const Person* person)
{
    return person ? label(*person) : QString();
}

QString genderWord(Gender gender)
{
    if (gender == Gender::Undetermined) return "indeterminado";
    return gender == Gender::Male ? "masculino" : "feminino";
}

QString behind(const QString& text, const QString& more)
{
    if (text.isEmpty() || more.isEmpty()) return text + more;
    return text + ", " + more;
}

QStringList childrenOf(const Family& family)
{
    QStringList rows;
    rows.reserve(qsizetype(family.children.size()));
    for (const Person* child : family.children)
        rows << behind(label(*child), shown(child->birth));
    return rows;
}

QString unionOf(const Person& person, const Membership& row)
{
    if (!row.family) return "família " + shown(row.familyNumber) + " (não existe)";
    const Person* spouse = spouseOf(person, *row.family);
    const QString with = spouse ? label(*spouse) : QString("cônjuge desconhecido");
    return behind("família " + shown(row.familyNumber) + ": " + with, shown(row.family->marriage));
}

QStringList residencesOf(const Sheet& sheet, std::span<const Residence> residences)
{
    QStringList rows;
    rows.reserve(qsizetype(residences.size()));
    for (const Residence& row : residences)
        rows << behind(shown(row.date), sheet.placeName(row.place));
    rows.removeAll(QString());
    return rows;
}

QStringList professionsOf(const Sheet& sheet, const Person& person)
{
    QStringList rows;
    for (const Profession& row : person.professions)
        if (row.code) rows << behind(sheet.catalogue().professions.value(*row.code), shown(row.date));
    rows.removeAll(QString());
    return rows;
}

QStringList assistantsOf(std::span<const Assistance> assistances)
{
    QStringList rows;
    rows.reserve(qsizetype(assistances.size()));
    for (const Assistance& row : assistances)
        rows << linked(row.assistant);
    rows.removeAll(QString());
    return rows;
}

QStringList assistedBy(const Person& person)
{
    QStringList rows;
    rows.reserve(qsizetype(person.assisted.size()));
    for (const Assistance* row : person.assisted) {
        const QString what = row->kind == ActKind::Marriage ? QString("casamento") : QString("baptismo");
        const QString number = QString::number(row->entity);
        const QString of = row->child                       ? label(*row->child)
                           : row->family                    ? label(*row->family)
                           : row->kind == ActKind::Marriage ? "família " + number
                                                            : "nº " + number;
        rows << behind(what + " de " + of, shown(row->date));
    }
    return rows;
}

QStringList childrenOf(const Person& person)
{
    QStringList rows;
    for (const Membership* row : person.unions)
        if (row->family) rows << childrenOf(*row->family);
    return rows;
}

QStringList unionsOf(const Person& person)
{
    QStringList rows;
    rows.reserve(qsizetype(person.unions.size()));
    for (const Membership* row : person.unions)
        rows << unionOf(person, *row);
    return rows;
}

std::vector<RecordLine> group(const std::vector<RecordLine>& lines, const QString& title)
{
    std::vector<RecordLine> found;
    std::ranges::copy_if(lines, std::back_inserter(found), [&](const RecordLine& line) { return line.title == title; });
    return found;
}

ComparedLine::Mark markOf(const ComparedLine& line, bool several)
{
    using Mark = ComparedLine::Mark;
    if (line.one == line.other) return Mark::Same;
    if (several && !line.one.isEmpty() && !line.other.isEmpty()) return Mark::Beside;
    if (line.other.isEmpty()) return Mark::OnlyOne;
    if (line.one.isEmpty()) return Mark::OnlyOther;
    return Mark::Differs;
}

// Equal rows first, each taken from both; what is left is paired in its order.
void compareGroup(std::vector<RecordLine> one, std::vector<RecordLine> other, ComparedLines& lines)
{
    const bool several = (one.empty() ? other : one).front().several;
    for (auto row = one.begin(); row != one.end();) {
        const auto same = std::ranges::find(other, *row);
        if (same == other.end()) {
            ++row;
            continue;
        }
        lines.push_back({row->title, row->value, same->value, ComparedLine::Mark::Same});
        other.erase(same);
        row = one.erase(row);
    }
    for (size_t i = 0; i < std::max(one.size(), other.size()); ++i) {
        ComparedLine line;
        line.title = i < one.size() ? one[i].title : other[i].title;
        if (i < one.size()) line.one = one[i].value;
        if (i < other.size()) line.other = other[i].value;
        line.mark = markOf(line, several);
        lines.push_back(line);
    }
}

} // namespace

QString label(const Person& person)
{
    return "nº " + shown(person.number) + ' ' + nameOf(person);
}

QString label(const Family& family)
{
    QStringList couple;
    for (const Membership& row : family.members)
        couple << linked(row.member);
    const QString number = "família " + shown(family.number);
    return couple.isEmpty() ? number : number + ": " + couple.join(" e ");
}

std::vector<RecordLine> record(const Snapshot& parish, const Person& person)
{
    const Catalogue& words = parish.catalogue();
    Sheet sheet(words);
    sheet.add("Nome", person.name);
    sheet.add("Sexo", genderWord(person.gender));
    sheet.add("Título", person.title);
    sheet.add("Alcunha", person.nickname);
    sheet.add("Nascimento", shown(person.birth));
    sheet.add("Naturalidade", sheet.placeName(person.birthPlace));
    sheet.add("Pai", labelOrNothing(person.father()));
    sheet.add("Mãe", labelOrNothing(person.mother()));
    sheet.add("Filiação", words.description("Filia", person.filiation));
    sheet.add("Padrinhos", assistantsOf(person.godparents));
    sheet.add("Casamento", unionsOf(person));
    sheet.add("Óbito", shown(person.death));
    if (person.ageAtDeath) sheet.add("Idade no óbito", QString::number(*person.ageAtDeath));
    sheet.add("Estado no óbito", words.description("EstCi", person.stateAtDeath));
    sheet.add("Local do óbito", sheet.placeName(person.deathPlace));
    sheet.add("Testamenteiro", linked(person.executor));
    sheet.add("Filhos", childrenOf(person));
    sheet.add("Residência", residencesOf(sheet, person.residences));
    sheet.add("Profissão", professionsOf(sheet, person));
    sheet.add("Assistiu", assistedBy(person));
    return sheet.taken();
}

std::vector<RecordLine> record(const Snapshot& parish, const Family& family)
{
    Sheet sheet(parish.catalogue());
    sheet.add("Marido", labelOrNothing(family.husband));
    sheet.add("Mulher", labelOrNothing(family.wife));
    sheet.add("Situação", parish.catalogue().description("SitFa", family.situation));
    sheet.add("Casamento", shown(family.marriage));
    sheet.add("Local", sheet.placeName(family.place));
    sheet.add("Filhos", childrenOf(family));
    sheet.add("Residência", residencesOf(sheet, family.residences));
    sheet.add("Testemunhas", assistantsOf(family.witnesses));
    return sheet.taken();
}

ComparedLines compared(const std::vector<RecordLine>& one, const std::vector<RecordLine>& other)
{
    ComparedLines lines;
    lines.reserve(one.size() + other.size());
    for (const QString& title : titles()) {
        std::vector<RecordLine> left = group(one, title), right = group(other, title);
        if (!left.empty() || !right.empty()) compareGroup(std::move(left), std::move(right), lines);
    }
    return lines;
}

QString sign(ComparedLine::Mark mark)
{
    if (mark == ComparedLine::Mark::Same) return "=";
    return mark == ComparedLine::Mark::Differs ? QString("≠") : QString();
}

} // namespace study::parish
