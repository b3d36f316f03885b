#include "study/transcripts/kleioHead.h"
#include "study/transcripts/sexByName.h"
#include "study/transcripts/tableFields.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>

namespace study {

namespace {

// "Ana?" is a doubtful Ana, and a lone ? nothing.
Told toldIn(const QString& cell)
{
    QString text = cell.trimmed();
    bool doubtful = false;
    while (text.endsWith('?')) {
        text.chop(1);
        doubtful = true;
    }
    text = text.trimmed();
    return {.value = text, .doubtful = doubtful && !text.isEmpty()};
}

std::optional<ActKind> kindCalled(const QString& word)
{
    static const QRegularExpression baptism("^(b|bap|bapt|ba[pt]+i[sz].*)$");
    static const QRegularExpression marriage("^(c|cas|cas[ao].*|matrim.*|recebim.*)$");
    static const QRegularExpression burial("^(o|ob|obit.*|enterr.*|morte|mort|defunt.*|falecim.*)$");
    const QString plain = kleio::folded(word.trimmed());
    if (baptism.match(plain).hasMatch()) return ActKind::Baptism;
    if (marriage.match(plain).hasMatch()) return ActKind::Marriage;
    if (burial.match(plain).hasMatch()) return ActKind::Burial;
    return {};
}

// Some write H and M for men and women, others M and F; a lone letter is read as its column has them.
std::optional<Sex> sexIn(const CellTable& sheet, int column, const QString& text)
{
    const QString word = kleio::folded(text.trimmed());
    if (word != "m") return sexCalled(word);
    const auto has = [&](const QString& letter) {
        return std::any_of(sheet.rows.begin(), sheet.rows.end(), [&](const QStringList& row) {
            return kleio::folded(row.value(column).trimmed()) == letter;
        });
    };
    if (!has("h")) return Sex::Male;
    return has("f") ? std::nullopt : std::optional(Sex::Female);
}

// One row becomes an act.
class RowReader
{
public:
    RowReader(const CellTable& sheet, const Assignment& assignment, int row)
        : sheet_(sheet), assignment_(assignment), row_(row)
    {
    }

    // False where the kind isn't told; `why` says so then.
    bool read(Act& act, QString& why)
    {
        if (!readKind(act, why)) return false;
        act.book = assignment_.book;
        for (int column = 0; column < assignment_.columns.size(); ++column)
            takeOfTheAct(act, column);
        for (const columns::Person& person : columns::people())
            takePerson(act, person);
        return true;
    }

    // What of the row isn't understood; it was taken as it is.
    const QStringList& warnings() const { return warnings_; }

private:
    QString cell(int column) const { return sheet_.rows[row_].value(column).trimmed(); }

    bool readKind(Act& act, QString& why) const
    {
        const qsizetype column = assignment_.columns.indexOf("especie");
        const QString told = column < 0 ? QString() : cell(static_cast<int>(column));
        const std::optional<ActKind> kind = told.isEmpty() ? assignment_.kind : kindCalled(told);
        if (kind) act.kind = *kind;
        if (!kind)
            why = told.isEmpty() ? QString("Falta a espécie do acto.")
                                 : QString("\"%1\" não é uma espécie de acto.").arg(told.left(40));
        return kind.has_value();
    }

    void takeOfTheAct(Act& act, int column)
    {
        const QString& field = assignment_.columns[column];
        const QString text = cell(column);
        if (text.isEmpty() || field.isEmpty() || field.contains('.')) return;
        if (field == "livro")
            act.book = text;
        else if (field == "folio")
            act.folio = text;
        else if (field == "numero")
            act.number = text;
        else if (field == "local")
            act.place = toldIn(text);
        else if (field == "id")
            act.id = text;
        else if (field == columns::notes)
            kleio::addNote(act.notes, labelled(column, text));
        else if (!takeDate(act.date, field, text) && field != "especie")
            act.facts << Attribute{field, toldIn(text)};
    }

    // A note tells which column it comes from where there are several.
    QString labelled(int column, const QString& text) const
    {
        if (assignment_.columns.count(assignment_.columns[column]) < 2) return text;
        return sheet_.headers.value(column) + ": " + text;
    }

    static bool takeDate(PartialDate& date, const QString& field, const QString& text)
    {
        if (field == "data") {
            date = kleio::readDate(text);
            return true;
        }
        int* const number = field == "dia"   ? &date.day
                            : field == "mes" ? &date.month
                            : field == "ano" ? &date.year
                                             : nullptr;
        if (!number) return false;
        bool isNumber = false;
        *number = text.toInt(&isNumber);
        if (!isNumber && field == "mes") {
            *number = kleio::readDate("1 " + text + " 1700").month;
            isNumber = *number > 0;
        }
        if (!isNumber && text != "?") date.text += (date.text.isEmpty() ? "" : "; ") + field + " " + text;
        return true;
    }

    // Whom the columns of a person tell of in a row of this kind: the parents of a marriage are those of the groom, and
    // where a table names the subjects of all its acts in one column, it is that of every kind.
    QString idIn(const Act& act, const QString& id) const
    {
        if (act.kind == ActKind::Marriage) return id == "pai" || id == "mae" ? id + "_noivo" : id;
        const QString own = subjectOf(act);
        const QString other = own == "defunto" ? "baptizado" : "defunto";
        return id == other && !assignment_.columns.contains(own + ".nome") ? own : id;
    }

    static const columns::Person& personCalled(const QString& id)
    {
        return *std::find_if(columns::people().begin(), columns::people().end(),
                             [&](const columns::Person& one) { return one.id == id; });
    }

    // Whether acts of that kind have the person, or the one whom that person hangs on.
    bool belongsTo(const Act& act, const QString& id) const
    {
        const columns::Person& person = personCalled(id);
        if (!person.of.isEmpty() && person.of != columns::subject) return belongsTo(act, idIn(act, person.of));
        switch (person.role) {
        case Role::Child:
            return act.kind == ActKind::Baptism;
        case Role::Groom:
        case Role::Bride:
            return act.kind == ActKind::Marriage;
        case Role::Deceased:
            return act.kind == ActKind::Burial;
        default:
            return true;
        }
    }

    // The index of a person of the row; whoever hangs on a person whom the row leaves out gets one without a name.
    int indexOf(Act& act, const QString& id)
    {
        const auto known = indexes_.constFind(id);
        if (known != indexes_.constEnd()) return *known;
        const columns::Person& person = personCalled(id);
        ActPerson made{.role = person.role};
        if (!person.of.isEmpty())
            made.of = indexOf(act, person.of == columns::subject ? subjectOf(act) : idIn(act, person.of));
        act.people << made;
        indexes_.insert(id, static_cast<int>(act.people.size()) - 1);
        return indexes_[id];
    }

    static QString subjectOf(const Act& act)
    {
        if (act.kind == ActKind::Burial) return "defunto";
        return act.kind == ActKind::Baptism ? "baptizado" : "noivo";
    }

    void takePerson(Act& act, const columns::Person& person)
    {
        const QString prefix = person.id + '.';
        for (int column = 0; column < assignment_.columns.size(); ++column) {
            const QString text = cell(column);
            if (text.isEmpty() || !assignment_.columns[column].startsWith(prefix)) continue;
            const QString id = idIn(act, person.id);
            if (belongsTo(act, id))
                takeDetail(act.people[indexOf(act, id)], assignment_.columns[column].mid(prefix.size()), column);
            else
                kleio::addNote(act.notes, sheet_.headers.value(column) + ": " + text);
        }
    }

    void takeDetail(ActPerson& person, const QString& detail, int column)
    {
        const QString text = cell(column);
        if (detail == "nome" && person.name.isEmpty())
            person.name = toldIn(text);
        else if (detail == "nome")
            person.attributes << Attribute{attribute::otherName, toldIn(text)};
        else if (detail == "nome_padrao")
            person.standardName = text;
        else if (detail == "id")
            person.id = text;
        else if (detail == columns::notes)
            kleio::addNote(person.notes, labelled(column, text));
        else if (detail == "sexo" && takeSex(person, column))
            return;
        else if (detail == "sexo" || (detail == attribute::dead && !saysDeadBefore(text)))
            kleio::addNote(person.notes, sheet_.headers.value(column) + ": " + text);
        else if (const Told told = toldIn(text); !told.isEmpty())
            person.attributes << Attribute{detail, told};
    }

    bool takeSex(ActPerson& person, int column)
    {
        const std::optional<Sex> sex = sexIn(sheet_, column, cell(column));
        if (sex)
            person.toldSex = sex;
        else
            warnings_ << QString("\"%1\" não diz o sexo; fica nas notas.").arg(cell(column).left(40));
        return sex.has_value();
    }

    const CellTable& sheet_;
    const Assignment& assignment_;
    int row_;
    QStringList warnings_;
    QHash<QString, int> indexes_; // of the people by their ids
};

// Spreadsheets count days where a column of dates has lost its format.
QString whyNoDate(const QString& text)
{
    static const QRegularExpression serial(R"(^-?\d{5,6}([.,]\d+)?$)");
    if (!serial.match(text.trimmed()).hasMatch()) return {};
    return " Parece o número de série de um dia: dê à coluna o formato de data ou de texto antes de gravar a folha.";
}

void check(Transcript& read, const TranscribedAct& one)
{
    const auto warn = [&](const QString& text) { read.problems << Problem{one.line, text}; };
    if (one.act.date.isEmpty())
        warn("O acto não tem data.");
    else if (!one.act.date.isPossible())
        warn(QString("A data %1 não existe.").arg(shown(one.act.date)));
    else if (one.act.date.year == 0)
        warn(QString("A data \"%1\" não se entende.%2").arg(shown(one.act.date), whyNoDate(one.act.date.text)));
    const QList<int> about = subjects(one.act);
    if (about.isEmpty()) warn("O acto não diz de quem é.");
    for (const int person : about)
        if (one.act.people[person].name.value.isEmpty()) warn("Há uma pessoa sem nome.");
}

} // namespace

QString whyNotAssigned(const QStringList& headers, const Assignment& assignment)
{
    const QStringList& columns = assignment.columns;
    if (columns.size() != headers.size())
        return QString("A tabela tem %1 colunas, e estão atribuídas %2.").arg(headers.size()).arg(columns.size());
    for (const QString& column : columns) {
        const auto isIt = [&](const TableField& field) { return field.id == column; };
        if (!column.isEmpty() && std::none_of(tableFields().begin(), tableFields().end(), isIt))
            return QString("Não há nenhum campo \"%1\".").arg(column);
        const bool mayRepeat =
            column.isEmpty() || column == columns::notes || column.endsWith(QString(".") + columns::notes);
        if (!mayRepeat && columns.count(column) > 1) return QString("O campo \"%1\" está em duas colunas.").arg(column);
    }
    if (!assignment.kind && !columns.contains("especie")) return "Falta dizer a espécie dos actos.";
    if (!columns.contains("data") && !columns.contains("ano")) return "Falta a coluna da data.";
    for (const char* name : {"baptizado.nome", "noivo.nome", "noiva.nome", "defunto.nome"})
        if (columns.contains(name)) return {};
    return "Falta a coluna do nome de quem o acto trata.";
}

Transcript actsOf(const CellTable& sheet, const Assignment& assignment)
{
    Transcript read;
    read.problems = sheet.problems;
    read.encoding = sheet.encoding;
    read.acts.reserve(sheet.rows.size());
    for (int row = 0; row < sheet.rows.size(); ++row) {
        TranscribedAct one{.act = {}, .line = sheet.lines.value(row)};
        QString why;
        RowReader reader(sheet, assignment, row);
        if (reader.read(one.act, why)) {
            check(read, one);
            for (const QString& warning : reader.warnings())
                read.problems << Problem{one.line, warning};
            read.acts << one;
        } else {
            read.problems << Problem{one.line, why, Problem::Severity::Error};
        }
    }
    std::stable_sort(read.problems.begin(), read.problems.end(),
                     [](const Problem& a, const Problem& b) { return a.line < b.line; });
    return read;
}

} // namespace study
