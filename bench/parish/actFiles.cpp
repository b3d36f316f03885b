#include "parish/acts.h"

#include <QRegularExpression>

namespace bench {

namespace {

using study::Act;
using study::Role;

const QStringList& otherNames(const QString& group)
{
    static const QMap<QString, QStringList> names{
        {"bap", {"b", "BAP", "bap"}},  {"cas", {"c", "Cas", "cas"}},  {"obito", {"o", "Óbito", "obito"}},
        {"pai", {"pn", "PAI", "pai"}}, {"mae", {"mn", "mãe", "mae"}}, {"ls", {"atr", "attr", "LS", "ls"}},
        {"pad", {"pad", "Pad"}},       {"mad", {"mad", "MAD"}}};
    static const QStringList none;
    const auto found = names.constFind(group);
    return found == names.constEnd() ? none : *found;
}

// A line broken at a blank, where no quotes hold it together.
QString broken(QString line, demo::Random& random)
{
    const qsizetype blank = line.indexOf(' ', line.size() / 2);
    if (line.contains('"') || blank < 1 || line[blank - 1].isSpace() || !random.chance(20)) return line;
    return line.replace(blank, 1, "\n      ");
}

} // namespace

QByteArray clumsyKleio(const QByteArray& kleio, std::uint32_t seed)
{
    static const QRegularExpression head("^(\\s*)([a-z]+)\\$");
    demo::Random random(seed);
    bool isWithin = false; // a text between three quotes
    QStringList lines;
    for (QString line : QString::fromUtf8(kleio).split('\n')) {
        const bool wasWithin = isWithin;
        if (line.count("\"\"\"") % 2 == 1) isWithin = !isWithin;
        const auto match = head.match(line);
        if (wasWithin || isWithin || !match.hasMatch()) {
            lines << line;
            continue;
        }
        const QStringList& names = otherNames(match.captured(2));
        const QString group = names.isEmpty() ? match.captured(2) : random.pick(names);
        line = QString(random.between(0, 12), ' ') + group + line.mid(match.capturedEnd(2));
        if (random.chance(20)) line.replace("/id=", "/ID__");
        lines << broken(line, random);
    }
    return lines.join('\n').replace('\n', random.chance(50) ? "\r\n" : "\n").toUtf8();
}

namespace {

struct Column
{
    QString header;
    Role role;
    Role of; // the subject where it is the same as role
    QString attribute = {};
};

QList<Column> columnsOf(study::ActKind kind)
{
    namespace at = study::attribute;
    switch (kind) {
    case study::ActKind::Baptism:
        return {{"Criança", Role::Child, Role::Child},
                {"Sexo", Role::Child, Role::Child, "sexo"},
                {"Pai", Role::Father, Role::Child},
                {"Residência do pai", Role::Father, Role::Child, at::residence},
                {"Mãe", Role::Mother, Role::Child},
                {"Padrinho", Role::Godfather, Role::Godfather},
                {"Madrinha", Role::Godmother, Role::Godmother},
                {"Marido da madrinha", Role::Spouse, Role::Godmother}};
    case study::ActKind::Marriage:
        return {{"Noivo", Role::Groom, Role::Groom},         {"Pai do noivo", Role::Father, Role::Groom},
                {"Mãe do noivo", Role::Mother, Role::Groom}, {"Noiva", Role::Bride, Role::Bride},
                {"Pai da noiva", Role::Father, Role::Bride}, {"Mãe da noiva", Role::Mother, Role::Bride},
                {"Testemunha", Role::Witness, Role::Witness}};
    case study::ActKind::Burial:
        break;
    }
    return {{"Defunto", Role::Deceased, Role::Deceased},
            {"Idade", Role::Deceased, Role::Deceased, at::age},
            {"Pai", Role::Father, Role::Deceased},
            {"Mãe", Role::Mother, Role::Deceased}};
}

QString cellOf(const Act& act, const Column& column)
{
    const int owner = study::personWith(act, column.of);
    const int person = column.role == column.of ? owner : owner < 0 ? -1 : study::personWith(act, column.role, owner);
    if (person < 0) return {};
    const study::ActPerson& one = act.people[person];
    if (column.attribute == "sexo") return study::sexOf(act, person) == study::Sex::Male ? "M" : "F";
    if (!column.attribute.isEmpty()) return study::toldValue(one.attributes, column.attribute);
    return one.name.doubtful ? one.name.value + '?' : one.name.value;
}

QString quoted(const QString& cell, QChar separator)
{
    const bool isPlain = !cell.contains(separator) && !cell.contains('"') && !cell.contains('\n');
    return isPlain ? cell : '"' + QString(cell).replace("\"", "\"\"") + '"';
}

} // namespace

QByteArray actTable(const QList<Act>& acts, study::ActKind kind, char separator)
{
    const QList<Column> columns = columnsOf(kind);
    const QChar sign(separator);
    QStringList headers{"Livro", "Número", "Data", "Celebrante"};
    for (const Column& column : columns)
        headers << column.header;
    headers << "Observações";
    QStringList lines{headers.join(sign)};
    for (const Act& act : acts) {
        if (act.kind != kind) continue;
        const int priest = study::personWith(act, Role::Celebrant);
        QStringList cells{act.book, act.number, study::shown(act.date),
                          priest < 0 ? QString() : act.people[priest].name.value};
        for (const Column& column : columns)
            cells << cellOf(act, column);
        cells << act.notes;
        for (QString& cell : cells)
            cell = quoted(cell, sign);
        lines << cells.join(sign);
    }
    return (lines.join("\r\n") + "\r\n").toUtf8();
}

} // namespace bench
