// Reading an act out of its tables.
#include "platform/jet/jsonrow.h"
#include "study/acts/catalogue.h"
#include "study/acts/register.h"
#include "study/acts/register_json.h"
#include "study/acts/register_tables.h"

#include <algorithm>

namespace study {

namespace {

QList<QJsonObject> rowsOf(jet::Connection& bdp, const char* select, qint64 act)
{
    return jet::jsonRows(bdp, jet::NativeSql(select, {act}));
}

QString text(const QJsonObject& row, const char* column)
{
    return row[QLatin1String(column)].toString();
}

int number(const QJsonObject& row, const char* column, int usual = 0)
{
    return row[QLatin1String(column)].toInt(usual);
}

// -1 for nobody, and for a number that somebody has put there: an index is never taken on trust.
int indexIn(const QJsonObject& row, const char* column, qsizetype people)
{
    const int index = number(row, column, -1);
    return index >= 0 && index < people ? index : -1;
}

PartialDate dateOf(const QJsonObject& row)
{
    return {.year = number(row, "ano"),
            .month = number(row, "mes"),
            .day = number(row, "dia"),
            .about = number(row, "cerca") != 0,
            .text = text(row, "data_texto")};
}

Told told(const QJsonObject& row)
{
    return {.value = text(row, "valor"),
            .source = text(row, "fonte"),
            .comment = text(row, "comentario"),
            .doubtful = number(row, "duvida") != 0};
}

class ReadingOfAct
{
public:
    ReadingOfAct(jet::Connection& bdp, const QJsonObject& row) : bdp_(bdp), id_(row["id"].toInteger())
    {
        record_.id = id_;
        record_.stored = QDateTime::fromString(text(row, "quando"), tables::timeFormat);
        record_.act = {.kind = tables::kindOf(text(row, "tipo")),
                       .date = dateOf(row),
                       .book = text(row, "livro"),
                       .folio = text(row, "folio"),
                       .number = text(row, "numero"),
                       .place = {.value = text(row, "lugar"),
                                 .source = text(row, "lugar_fonte"),
                                 .comment = text(row, "lugar_comentario"),
                                 .doubtful = number(row, "lugar_duvida") != 0},
                       .notes = text(row, "observacoes"),
                       .id = text(row, "id_transcricao")};
    }

    ActRecord run()
    {
        readPeople();
        readAttributes();
        readRelations();
        readMeanings();
        readWritten();
        return record_;
    }

private:
    void readPeople()
    {
        for (const QJsonObject& row : rowsOf(bdp_, "select * from estudo_pessoa where acto = ? order by ordem", id_)) {
            const QString sex = text(row, "sexo");
            ActPerson one{.role = tables::roleOf(text(row, "papel")),
                          .of = indexIn(row, "de", record_.act.people.size()),
                          .ordinal = number(row, "ordinal"),
                          .name = {.value = text(row, "nome"),
                                   .source = text(row, "nome_fonte"),
                                   .comment = text(row, "nome_comentario"),
                                   .doubtful = number(row, "nome_duvida") != 0},
                          .standardName = text(row, "nome_actual"),
                          .toldSex = tables::sexTold(sex),
                          .notes = text(row, "observacoes"),
                          .id = text(row, "id_transcricao")};
            record_.act.people << one;
            readIdentity(row);
        }
        for (const QJsonObject& row :
             rowsOf(bdp_, "select * from estudo_mesmo where acto = ? order by pessoa, ordem", id_))
            if (const int index = indexIn(row, "pessoa", record_.act.people.size()); index >= 0)
                record_.act.people[index].sameAs << text(row, "registo");
    }

    void readIdentity(const QJsonObject& row)
    {
        const qint64 nind = row["nind"].toInteger();
        Identity identity{.kind = tables::identityOf(text(row, "identidade")), .reason = text(row, "razao")};
        if (identity.kind == Identity::Kind::Known)
            identity.nind = nind != 0 ? nind : row["nind_eliminado"].toInteger();
        record_.conclusions.people << identity;
        record_.people << nind;
    }

    void readAttributes()
    {
        for (const QJsonObject& row : rowsOf(bdp_, "select * from estudo_atributo where acto = ? order by ordem", id_))
        {
            const Attribute attribute{.type = text(row, "tipo"), .told = told(row), .date = text(row, "data")};
            const int of = indexIn(row, "pessoa", record_.act.people.size());
            (of < 0 ? record_.act.facts : record_.act.people[of].attributes) << attribute;
        }
    }

    void readRelations()
    {
        const qsizetype people = record_.act.people.size();
        for (const QJsonObject& row : rowsOf(bdp_, "select * from estudo_relacao where acto = ? order by ordem", id_))
            record_.act.relations << Relation{.type = text(row, "tipo"),
                                              .told = told(row),
                                              .person = indexIn(row, "pessoa", people),
                                              .other = indexIn(row, "outra", people),
                                              .otherName = text(row, "outra_nome"),
                                              .otherId = text(row, "outra_id")};
    }

    void readMeanings()
    {
        for (const QJsonObject& row : rowsOf(bdp_, "select * from estudo_sentido where acto = ?", id_)) {
            const QString of = text(row, "texto"), level = text(row, "nivel");
            if (text(row, "tipo") == "profissao")
                record_.conclusions.professions.insert(of, number(row, "codprof"));
            else
                record_.conclusions.places.insert(of, {.code = text(row, "codigo"),
                                                       .level = level.isEmpty() ? QChar('L') : level.front(),
                                                       .name = text(row, "nome"),
                                                       .parish = text(row, "paroquia")});
        }
        for (const QJsonObject& row : rowsOf(bdp_, "select * from estudo_ressalva where acto = ?", id_))
            record_.conclusions.overruled.insert(text(row, "objeccao"), text(row, "razao"));
    }

    void readWritten()
    {
        for (const QJsonObject& row : rowsOf(bdp_, "select * from estudo_escrita where acto = ? order by ordem", id_))
            record_.written << RowChange{.table = text(row, "tabela"),
                                         .key = columnsOf(text(row, "chave")),
                                         .values = columnsOf(text(row, "valores")),
                                         .before = columnsOf(text(row, "antes"))};
        for (const QJsonObject& row :
             rowsOf(bdp_, "select nfamilia from estudo_familia where acto = ? order by ordem", id_))
            record_.families << row["nfamilia"].toInteger();
    }

    jet::Connection& bdp_;
    qint64 id_;
    ActRecord record_;
};

std::optional<ActRecord> recordOf(jet::Connection& bdp, const QList<QJsonObject>& rows)
{
    if (rows.isEmpty()) return {};
    return ReadingOfAct(bdp, rows.first()).run();
}

} // namespace

std::optional<ActRecord> readAct(jet::Connection& bdp, qint64 id)
{
    if (!hasActs(bdp)) return {};
    return recordOf(bdp, rowsOf(bdp, "select * from estudo_acto where id = ?", id));
}

std::optional<ActRecord> lastAct(jet::Connection& bdp)
{
    if (!hasActs(bdp)) return {};
    return recordOf(bdp, jet::jsonRows(bdp, jet::NativeSql("select * from estudo_acto order by id desc limit 1")));
}

static std::optional<qint64> firstAct(jet::Connection& bdp, const jet::NativeSql& select)
{
    const QList<QJsonObject> rows = jet::jsonRows(bdp, select);
    if (rows.isEmpty() || rows.first()["id"].isNull()) return {};
    return rows.first()["id"].toInteger();
}

// Of whom the act is about; "" where one has none.
static QString namesOf(const Act& act)
{
    QStringList names;
    for (const int person : subjects(act)) {
        names << plainWords(nameOf(act.people[person]));
        if (names.last().isEmpty()) return {};
    }
    return names.join('\n');
}

std::optional<qint64> actWith(jet::Connection& bdp, ActKind kind, const QString& book, const QString& number)
{
    if (!hasActs(bdp)) return {};
    QString plain = number.trimmed();
    while (plain.size() > 1 && plain.startsWith('0') && plain.at(1).isDigit())
        plain.remove(0, 1);
    const QString padded = !plain.isEmpty() && plain.at(0).isDigit() ? "0" : "";
    return firstAct(bdp,
                    jet::NativeSql("select min(id) as id from estudo_acto where tipo = ? and livro = ? and numero in "
                                   "(?, ?, ?, ?, ?)",
                                   {tables::word(kind), book, number, plain, padded + plain, padded + padded + plain,
                                    padded + padded + padded + plain}));
}

// Where neither day nor name is told, any act would be like another.
std::optional<qint64> actLike(jet::Connection& bdp, const Act& act)
{
    const QString names = namesOf(act);
    if (!hasActs(bdp) || act.date.day == 0 || act.date.month == 0 || names.isEmpty()) return {};
    const jet::NativeSql sameDay("select id from estudo_acto where ano = ? and mes = ? and dia = ? and tipo = ? and "
                                 "livro = ? and (numero = '' or ? = '') and (ifnull(folio, '') in ('', ?) or ? = '') "
                                 "order by id",
                                 {act.date.year, act.date.month, act.date.day, tables::word(act.kind), act.book,
                                  act.number.trimmed(), act.folio, act.folio});
    for (const QJsonObject& row : jet::jsonRows(bdp, sameDay)) {
        const auto other = readAct(bdp, row["id"].toInteger());
        if (!other || namesOf(other->act) != names) continue;
        const bool twoForTheTranscriber = !act.id.isEmpty() && !other->act.id.isEmpty() && act.id != other->act.id;
        if (!twoForTheTranscriber) return other->id;
    }
    return {};
}

QList<Appearance> appearances(jet::Connection& bdp, qint64 nind)
{
    QList<Appearance> all;
    if (!hasActs(bdp)) return all;
    const jet::NativeSql select("select a.id, a.tipo, a.ano, a.mes, a.dia, a.cerca, a.data_texto, p.papel from "
                                "estudo_pessoa p, estudo_acto a where p.nind = ? and a.id = p.acto order by a.ano, "
                                "a.mes, a.dia, a.id, p.ordem",
                                {double(nind)});
    for (const QJsonObject& row : jet::jsonRows(bdp, select))
        all << Appearance{.act = row["id"].toInteger(),
                          .kind = tables::kindOf(text(row, "tipo")),
                          .date = dateOf(row),
                          .role = tables::roleOf(text(row, "papel"))};
    return all;
}

} // namespace study
