#include "study/transcripts/kleioText.h"
#include "study/transcripts/tableFields.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace study {

namespace {

// The words of a header, each as the field's ids have it; what isn't known stays as it is.
QStringList wordsOf(const QString& header)
{
    static const QRegularExpression gaps("[^\\p{L}\\p{N}]+");
    static const QRegularExpression ordinals("[ºª]");
    static const QSet<QString> small{"do", "da", "de", "dos", "das", "o",  "a",
                                     "os", "as", "e",  "em",  "no",  "na", "the"};
    QStringList words;
    static const QRegularExpression childOf("^\\s*filh[oa](?:\\(a\\)|/a)?\\s+d[eoa]\\b\\s*");
    QString text = header.toLower().remove(ordinals);
    const bool isFiliation = childOf.match(text).hasMatch();
    for (const QString& word : text.remove(childOf).split(gaps, Qt::SkipEmptyParts)) {
        const QString plain = word == "avó" ? QString("ava") : kleio::folded(word);
        if (!small.contains(plain)) words << plain;
    }
    return isFiliation && words.isEmpty() ? QStringList("pai") : words;
}

const QHash<QString, QString>& people()
{
    static const QHash<QString, QString> words{{"baptizado", "baptizado"},
                                               {"baptizada", "baptizado"},
                                               {"batizado", "baptizado"},
                                               {"batizada", "baptizado"},
                                               {"crianca", "baptizado"},
                                               {"menino", "baptizado"},
                                               {"filho", "baptizado"},
                                               {"filha", "baptizado"},
                                               {"rebento", "baptizado"},
                                               {"pai", "pai"},
                                               {"pais", "pai"},
                                               {"mae", "mae"},
                                               {"avo", "avo"},
                                               {"ava", "ava"},
                                               {"padrinho", "padrinho"},
                                               {"madrinha", "madrinha"},
                                               {"noivo", "noivo"},
                                               {"esposo", "noivo"},
                                               {"noiva", "noiva"},
                                               {"esposa", "noiva"},
                                               {"defunto", "defunto"},
                                               {"defunta", "defunto"},
                                               {"obituado", "defunto"},
                                               {"falecido", "defunto"},
                                               {"falecida", "defunto"},
                                               {"conjuge", "conjuge"},
                                               {"marido", "marido"},
                                               {"mulher", "mulher"},
                                               {"testemunha", "testemunha"},
                                               {"test", "testemunha"},
                                               {"celebrante", "celebrante"},
                                               {"padre", "celebrante"},
                                               {"paroco", "celebrante"},
                                               {"vigario", "celebrante"},
                                               {"cura", "celebrante"},
                                               {"sacerdote", "celebrante"},
                                               {"oficiante", "celebrante"},
                                               {"procurador", "procurador"},
                                               {"referido", "referido"}};
    return words;
}

const QHash<QString, QString>& details()
{
    namespace at = attribute;
    static const QHash<QString, QString> words{{"nome", "nome"},
                                               {"sexo", "sexo"},
                                               {"genero", "sexo"},
                                               {"idade", at::age},
                                               {"ec", at::civilState},
                                               {"civil", at::civilState},
                                               {"residencia", at::residence},
                                               {"morada", at::residence},
                                               {"resid", at::residence},
                                               {"morador", at::residence},
                                               {"moradores", at::residence},
                                               {"lugar", at::residence},
                                               {"naturalidade", at::birthplace},
                                               {"natural", at::birthplace},
                                               {"profissao", at::profession},
                                               {"ocupacao", at::profession},
                                               {"mester", at::profession},
                                               {"funcao", at::office},
                                               {"cargo", at::office},
                                               {"titulo", at::title},
                                               {"alcunha", at::nickname},
                                               {"morto", at::dead},
                                               {"morta", at::dead},
                                               {"ja", at::dead},
                                               {"filiacao", at::filiation},
                                               {"legitimidade", at::filiation},
                                               {"notas", "notas"},
                                               {"nota", "notas"},
                                               {"obs", "notas"},
                                               {"observacoes", "notas"},
                                               {"observacao", "notas"},
                                               {"id", "id"}};
    return words;
}

const QHash<QString, QString>& ofTheAct()
{
    namespace at = attribute;
    static const QHash<QString, QString> words{{"data", "data"},
                                               {"dia", "dia"},
                                               {"mes", "mes"},
                                               {"ano", "ano"},
                                               {"livro", "livro"},
                                               {"folio", "folio"},
                                               {"fol", "folio"},
                                               {"fl", "folio"},
                                               {"folha", "folio"},
                                               {"pagina", "folio"},
                                               {"pag", "folio"},
                                               {"numero", "numero"},
                                               {"num", "numero"},
                                               {"n", "numero"},
                                               {"assento", "numero"},
                                               {"registo", "numero"},
                                               {"id", "id"},
                                               {"identificador", "id"},
                                               {"local", "local"},
                                               {"igreja", "local"},
                                               {"capela", "local"},
                                               {"especie", "especie"},
                                               {"tipo", "especie"},
                                               {"acto", "especie"},
                                               {"notas", "notas"},
                                               {"obs", "notas"},
                                               {"observacoes", "notas"},
                                               {"oficios", at::offices},
                                               {"missas", at::masses},
                                               {"esmolas", at::alms},
                                               {"esmola", at::alms},
                                               {"testamento", at::will},
                                               {"sacramentos", at::sacraments},
                                               {"causa", at::cause},
                                               {"mortalha", at::shroud},
                                               {"habito", at::shroud},
                                               {"sepultura", at::grave},
                                               {"sepultado", at::grave},
                                               {"enterrado", at::grave},
                                               {"cova", at::grave}};
    return words;
}

// "pai" of "madrinha" is "pai_madrinha"; grandparents are told by their adjective.
QString personOf(const QStringList& words)
{
    QStringList found;
    for (const QString& word : words)
        if (const QString person = people().value(word); !person.isEmpty() && !found.contains(person)) found << person;
    if (found.isEmpty()) return {};
    const bool isGrandmother = found.first() == "ava" || words.contains("paterna") || words.contains("materna");
    if (found.first() == "avo" || found.first() == "ava") {
        const bool isPaternal = words.contains("paterno") || words.contains("paterna");
        return QString("avo_") + (isPaternal ? "patern" : "matern") + (isGrandmother ? 'a' : 'o');
    }
    const QString both = found.first() + '_' + found.value(1);
    const auto hasId = [&](const columns::Person& person) { return person.id == both; };
    if (found.size() > 1 && std::any_of(columns::people().begin(), columns::people().end(), hasId)) return both;
    if (found.first() == "marido" || found.first() == "mulher") return "conjuge";
    return found.first();
}

QString detailOf(const QStringList& words)
{
    for (const QString& word : words)
        if (const QString detail = details().value(word); !detail.isEmpty()) return detail;
    return {};
}

// "2", "2º", "segunda".
QString numbered(const QString& person, const QStringList& words)
{
    static const QRegularExpression number("^([2-4])[oa]?$");
    QString ordinal;
    for (const QString& word : words) {
        if (const auto match = number.match(word); match.hasMatch()) ordinal = match.captured(1);
        if (word == "segundo" || word == "segunda") ordinal = "2";
    }
    return person + ordinal;
}

// Whom the acts of a table are about, by all its headers. A header that names a person tells of that one alone: "pai já
// falecido" is no deceased, and a child who is baptized may have a date of death.
QString subjectOf(const QList<QStringList>& headers)
{
    static const QSet<QString> baptized{"baptizado", "baptizada", "batizado", "batizada"};
    QSet<QString> found;
    for (const QStringList& words : headers) {
        const QString person = personOf(words);
        if (std::any_of(words.begin(), words.end(), [](const QString& word) { return baptized.contains(word); }))
            found << "baptizado";
        if (person.isEmpty())
            for (const QString& word : words)
                found << word;
        else if (person != "baptizado")
            found << person.section('_', -1);
    }
    if (found.contains("noivo") || found.contains("noiva")) return "noivo";
    if (found.contains("baptizado")) return "baptizado";
    for (const char* word : {"defunto", "obito", "enterro", "sepultura", "mortalha", "oficios"})
        if (found.contains(word)) return "defunto";
    return "baptizado";
}

// A date or a place of something else than the act.
bool isOfAnotherEvent(const QStringList& words, const QString& subject)
{
    static const QHash<QString, QString> events{{"nascimento", ""},
                                                {"nasc", ""},
                                                {"nascido", ""},
                                                {"nascida", ""},
                                                {"registo", ""},
                                                {"transcricao", ""},
                                                {"baptismo", "baptizado"},
                                                {"batismo", "baptizado"},
                                                {"casamento", "noivo"},
                                                {"matrimonio", "noivo"},
                                                {"obito", "defunto"},
                                                {"morte", "defunto"},
                                                {"falecimento", "defunto"},
                                                {"enterro", "defunto"}};
    static const QSet<QString> whenAndWhere{"data", "dia", "mes", "ano", "lugar", "local"};
    const auto tellsIt = [](const QString& word) { return whenAndWhere.contains(word); };
    if (std::none_of(words.begin(), words.end(), tellsIt)) return false;
    return std::any_of(words.begin(), words.end(), [&](const QString& word) {
        const auto event = events.constFind(word);
        return event != events.constEnd() && *event != subject;
    });
}

// Whether somebody is the main person of acts of another kind.
bool isOfOtherActs(const QString& person, const QString& subject)
{
    return person != subject && (person == "baptizado" || person == "defunto");
}

bool isField(const QString& id)
{
    return std::any_of(tableFields().begin(), tableFields().end(),
                       [&](const TableField& field) { return field.id == id; });
}

// `isMixed`: a column tells the kind of each act, so there are main people of several.
QString fieldOf(const QString& header, const QStringList& words, const QString& subject, bool isMixed)
{
    if (isField(header)) return header; // an id itself
    const QString person = personOf(words);
    const QString detail = detailOf(words);
    if (isOfAnotherEvent(words, subject)) return columns::notes;
    if (!isMixed && isOfOtherActs(person, subject)) return columns::notes;
    if (words.contains("pais") && (detail.isEmpty() || detail == "nome")) return columns::notes; // both in one cell
    if (!person.isEmpty()) {
        const QString own = detail.isEmpty() ? QString("nome") : detail;
        for (const QString& one : {numbered(person, words), person})
            if (isField(one + '.' + own)) return one + '.' + own;
        return columns::notes;
    }
    for (const QString& word : words)
        if (const QString id = ofTheAct().value(word); !id.isEmpty()) return id;
    if (!detail.isEmpty() && isField(subject + '.' + detail)) return subject + '.' + detail;
    return columns::notes;
}

// The next one of the same kind: a second column of godparents is the second godparent.
QString nextFree(const QString& field, const QStringList& taken)
{
    static constexpr int mostAlike = 4;
    if (!taken.contains(field)) return field;
    const QString person = field.section('.', 0, 0);
    const QString detail = field.section('.', 1);
    for (int number = 2; number <= mostAlike && !detail.isEmpty(); ++number)
        if (const QString next = person + QString::number(number) + '.' + detail;
            isField(next) && !taken.contains(next))
            return next;
    return columns::notes;
}

} // namespace

Assignment proposed(const QStringList& headers)
{
    QList<QStringList> words;
    words.reserve(headers.size());
    for (const QString& header : headers)
        words << wordsOf(header);
    const QString subject = subjectOf(words);
    const auto fields = [&](bool isMixed) {
        QStringList columns;
        columns.reserve(headers.size());
        for (qsizetype column = 0; column < headers.size(); ++column)
            columns << nextFree(fieldOf(headers[column].trimmed(), words[column], subject, isMixed), columns);
        return columns;
    };
    Assignment assignment{.columns = fields(false)};
    if (assignment.columns.contains("especie")) return {.columns = fields(true)};
    assignment.kind = subject == "noivo"     ? ActKind::Marriage
                      : subject == "defunto" ? ActKind::Burial
                                             : ActKind::Baptism;
    return assignment;
}

} // namespace study
