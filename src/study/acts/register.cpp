#include "study/acts/register.h"

#include "common/marca.h"
#include "platform/jet/jsonrow.h"
#include "platform/time/clock.h"
#include "study/acts/catalogue.h"
#include "study/acts/ledger.h"
#include "study/acts/register_json.h"
#include "study/acts/register_tables.h"

namespace study {

namespace {

// A value that isn't told is null, so that a count of a column counts what is told.
QVariant orNull(const QString& text)
{
    return text.isEmpty() ? QVariant() : text;
}

QVariant orNull(qint64 number)
{
    return number == 0 ? QVariant() : double(number);
}

QVariant person(int index)
{
    return index < 0 ? QVariant() : index;
}

// The number of the person, or of the family, on whose card the row is seen.
QVariant ownerOf(const RowChange& row, bool family)
{
    const bool residence = row.table.compare("residencia", Qt::CaseInsensitive) == 0;
    if (residence) {
        const bool ofFamily = valueIn(row, "tiporesid").toString() == "f";
        return ofFamily == family ? valueIn(row, "numero") : QVariant();
    }
    if (!family) return valueIn(row, "nind");
    const bool atMarriage = valueIn(row, "tipoacto").toString() == "c";
    return valueIn(row, atMarriage ? "entidade" : "nfamilia");
}

// What a text of the act means in the BDP.
struct Meaning
{
    QVariant place = {}, level = {}, profession = {};
};

// As the plan takes the name of what is new. It stands in the BDP by now: made with the act, or there before.
QString newName(const QString& name)
{
    return semMarca(name).remove(QChar(0)).simplified();
}

QVariant codeOfNewPlace(jet::Connection& bdp, const PlaceChoice& choice)
{
    const QString name = newName(choice.name);
    if (name.isEmpty()) return {};
    return orNull(localityNamed(bdp, name, choice.parish.isEmpty() ? Ledger(bdp).ownParish() : choice.parish));
}

QVariant codeOfNewProfession(jet::Connection& bdp, const QString& text)
{
    const QString name = newName(text);
    const auto code = name.isEmpty() ? std::nullopt : professionNamed(bdp, name);
    return code ? QVariant(*code) : QVariant();
}

class Adding
{
public:
    Adding(jet::Connection& bdp, const Act& act, const Conclusions& conclusions, const Plan& plan)
        : bdp_(bdp), act_(act), conclusions_(conclusions), plan_(plan),
          now_(Clock::moment().toString(tables::timeFormat))
    {
    }

    qint64 run()
    {
        id_ = jet::jsonRows(bdp_, jet::NativeSql("select ifnull(max(id), 0) + 1 as id from estudo_acto"))
                  .first()["id"]
                  .toInteger();
        addAct();
        for (int index = 0; index < act_.people.size(); ++index)
            addPerson(index);
        addAttributes();
        addRelations();
        addMeanings();
        addOverruled();
        addFamilies();
        addWritten();
        return id_;
    }

private:
    void addAct()
    {
        const Meaning meaning = placeMeant(act_.place.value);
        const std::optional<QDate> day = act_.date.standing();
        bdp_.execute(jet::NativeSql(
            "insert into estudo_acto (id, quando, tipo, ano, mes, dia, cerca, data_texto, data, livro, folio, numero, "
            "lugar, lugar_fonte, lugar_comentario, lugar_duvida, local, nivel, observacoes, id_transcricao) values (?, "
            "?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
            {id_,
             now_,
             tables::word(act_.kind),
             act_.date.year,
             act_.date.month,
             act_.date.day,
             act_.date.about,
             orNull(act_.date.text),
             day ? QVariant(*day) : QVariant(),
             act_.book,
             orNull(act_.folio),
             act_.number,
             orNull(act_.place.value),
             orNull(act_.place.source),
             orNull(act_.place.comment),
             act_.place.doubtful,
             meaning.place,
             meaning.level,
             orNull(act_.notes),
             orNull(act_.id)}));
    }

    void addPerson(int index)
    {
        const ActPerson& one = act_.people[index];
        const Identity identity = conclusions_.people.value(index);
        const bool known = identity.kind == Identity::Kind::Known;
        bdp_.execute(jet::NativeSql(
            "insert into estudo_pessoa (acto, ordem, papel, de, ordinal, nome, nome_fonte, nome_comentario, "
            "nome_duvida, "
            "nome_actual, sexo, observacoes, id_transcricao, identidade, nind, razao) values (?, ?, ?, ?, ?, ?, ?, ?, "
            "?, ?, ?, ?, ?, ?, ?, ?)",
            {id_, index, tables::word(one.role), person(one.of), one.ordinal, orNull(one.name.value),
             orNull(one.name.source), orNull(one.name.comment), one.name.doubtful, orNull(one.standardName),
             one.toldSex ? QVariant(tables::word(*one.toldSex)) : QVariant(), orNull(one.notes), orNull(one.id),
             tables::word(identity.kind), orNull(known ? identity.nind : plan_.people.value(index)),
             orNull(identity.reason)}));
        for (int same = 0; same < one.sameAs.size(); ++same)
            bdp_.execute(jet::NativeSql("insert into estudo_mesmo (acto, pessoa, ordem, registo) values (?, ?, ?, ?)",
                                        {id_, index, same, one.sameAs[same]}));
    }

    void addAttributes()
    {
        int order = 0;
        for (const Attribute& fact : act_.facts)
            addAttribute(order++, -1, fact);
        for (int index = 0; index < act_.people.size(); ++index)
            for (const Attribute& attribute : act_.people[index].attributes)
                addAttribute(order++, index, attribute);
    }

    void addAttribute(int order, int of, const Attribute& attribute)
    {
        const Meaning meaning = meant(attribute);
        bdp_.execute(jet::NativeSql(
            "insert into estudo_atributo (acto, ordem, pessoa, tipo, valor, fonte, comentario, duvida, data, local, "
            "nivel, codprof) values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
            {id_, order, person(of), attribute.type, orNull(attribute.told.value), orNull(attribute.told.source),
             orNull(attribute.told.comment), attribute.told.doubtful, orNull(attribute.date), meaning.place,
             meaning.level, meaning.profession}));
    }

    Meaning placeMeant(const QString& text) const
    {
        const auto choice = conclusions_.places.constFind(text);
        if (choice == conclusions_.places.cend()) return {};
        const QVariant code = choice->code.isEmpty() ? codeOfNewPlace(bdp_, *choice) : QVariant(choice->code);
        return {.place = code, .level = code.isNull() ? QVariant() : QString(choice->level)};
    }

    Meaning meant(const Attribute& attribute) const
    {
        static const QStringList places{attribute::residence, attribute::birthplace, attribute::deathPlace,
                                        attribute::church, attribute::grave};
        const QString type = attribute.type.toLower(), text = attribute.told.value;
        if (places.contains(type)) return placeMeant(text);
        if (type != attribute::profession) return {};
        const auto code = conclusions_.professions.constFind(text);
        if (code == conclusions_.professions.cend()) return {};
        return {.profession = *code == 0 ? codeOfNewProfession(bdp_, text) : *code};
    }

    void addRelations()
    {
        for (int order = 0; order < act_.relations.size(); ++order) {
            const Relation& one = act_.relations[order];
            bdp_.execute(jet::NativeSql(
                "insert into estudo_relacao (acto, ordem, tipo, valor, fonte, comentario, duvida, pessoa, outra, "
                "outra_nome, outra_id) values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
                {id_, order, one.type, orNull(one.told.value), orNull(one.told.source), orNull(one.told.comment),
                 one.told.doubtful, person(one.person), person(one.other), orNull(one.otherName),
                 orNull(one.otherId)}));
        }
    }

    void addMeanings()
    {
        for (const auto& [text, place] : conclusions_.places.asKeyValueRange())
            bdp_.execute(jet::NativeSql(
                "insert into estudo_sentido (acto, tipo, texto, codigo, nivel, nome, paroquia) "
                "values (?, 'lugar', ?, ?, ?, ?, ?)",
                {id_, text, orNull(place.code), QString(place.level), orNull(place.name), orNull(place.parish)}));
        for (const auto& [text, code] : conclusions_.professions.asKeyValueRange())
            bdp_.execute(
                jet::NativeSql("insert into estudo_sentido (acto, tipo, texto, codprof) values (?, 'profissao', ?, ?)",
                               {id_, text, code}));
    }

    void addOverruled()
    {
        for (const auto& [objection, reason] : conclusions_.overruled.asKeyValueRange())
            bdp_.execute(
                jet::NativeSql("insert into estudo_ressalva (acto, objeccao, razao, quando) values (?, ?, ?, ?)",
                               {id_, objection, orNull(reason), now_}));
    }

    void addFamilies()
    {
        for (int order = 0; order < plan_.families.size(); ++order)
            bdp_.execute(jet::NativeSql("insert into estudo_familia (acto, ordem, nfamilia) values (?, ?, ?)",
                                        {id_, order, orNull(plan_.families[order])}));
    }

    void addWritten()
    {
        for (int order = 0; order < plan_.rows.size(); ++order) {
            const RowChange& row = plan_.rows[order];
            bdp_.execute(jet::NativeSql(
                "insert into estudo_escrita (acto, ordem, tabela, nind, nfamilia, chave, valores, antes) values (?, ?, "
                "?, ?, ?, ?, ?, ?)",
                {id_, order, row.table, ownerOf(row, false), ownerOf(row, true), textOf(row.key), textOf(row.values),
                 row.before.isEmpty() ? QVariant() : textOf(row.before)}));
        }
    }

    jet::Connection& bdp_;
    const Act& act_;
    const Conclusions& conclusions_;
    const Plan& plan_;
    QString now_;
    qint64 id_ = 0;
};

} // namespace

bool hasActs(jet::Connection& bdp)
{
    return tables::exist(bdp, tables::ofActs());
}

qint64 addAct(jet::Connection& bdp, const Act& act, const Conclusions& conclusions, const Plan& plan)
{
    tables::make(bdp, tables::ofActs());
    return Adding(bdp, act, conclusions, plan).run();
}

void removeAct(jet::Connection& bdp, qint64 id)
{
    if (!hasActs(bdp)) return;
    bdp.execute(jet::NativeSql("delete from estudo_mesmo where acto = ?", {id}));
    bdp.execute(jet::NativeSql("delete from estudo_pessoa where acto = ?", {id}));
    bdp.execute(jet::NativeSql("delete from estudo_atributo where acto = ?", {id}));
    bdp.execute(jet::NativeSql("delete from estudo_relacao where acto = ?", {id}));
    bdp.execute(jet::NativeSql("delete from estudo_familia where acto = ?", {id}));
    bdp.execute(jet::NativeSql("delete from estudo_sentido where acto = ?", {id}));
    bdp.execute(jet::NativeSql("delete from estudo_ressalva where acto = ?", {id}));
    bdp.execute(jet::NativeSql("delete from estudo_escrita where acto = ?", {id}));
    bdp.execute(jet::NativeSql("delete from estudo_acto where id = ?", {id}));
}

} // namespace study
