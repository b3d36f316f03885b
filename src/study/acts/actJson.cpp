// Acts and conclusions as JSON, for the draft.
#include "study/acts/register.h"
#include "study/acts/register_tables.h"

#include <QJsonArray>

namespace study {

namespace {

// What is empty isn't written: a draft is written after each field.
void put(QJsonObject& json, const char* key, const QString& text)
{
    if (!text.isEmpty()) json[QLatin1String(key)] = text;
}

void put(QJsonObject& json, const char* key, int number, int usual = 0)
{
    if (number != usual) json[QLatin1String(key)] = number;
}

void put(QJsonObject& json, const char* key, const QJsonArray& values)
{
    if (!values.isEmpty()) json[QLatin1String(key)] = values;
}

QString text(const QJsonValue& json, const char* key)
{
    return json[QLatin1String(key)].toString();
}

int number(const QJsonValue& json, const char* key, int usual = 0)
{
    return json[QLatin1String(key)].toInt(usual);
}

QJsonObject jsonOf(const Told& told)
{
    QJsonObject json;
    put(json, "valor", told.value);
    put(json, "fonte", told.source);
    put(json, "comentario", told.comment);
    put(json, "duvida", told.doubtful ? 1 : 0);
    return json;
}

Told toldOf(const QJsonValue& json)
{
    return {.value = text(json, "valor"),
            .source = text(json, "fonte"),
            .comment = text(json, "comentario"),
            .doubtful = number(json, "duvida") != 0};
}

QJsonObject jsonOf(const PartialDate& date)
{
    QJsonObject json;
    put(json, "ano", date.year);
    put(json, "mes", date.month);
    put(json, "dia", date.day);
    put(json, "cerca", date.about ? 1 : 0);
    put(json, "texto", date.text);
    return json;
}

PartialDate dateOf(const QJsonValue& json)
{
    return {.year = number(json, "ano"),
            .month = number(json, "mes"),
            .day = number(json, "dia"),
            .about = number(json, "cerca") != 0,
            .text = text(json, "texto")};
}

QJsonArray jsonOf(const QList<Attribute>& attributes)
{
    QJsonArray all;
    for (const Attribute& attribute : attributes) {
        QJsonObject json = jsonOf(attribute.told);
        put(json, "tipo", attribute.type);
        put(json, "data", attribute.date);
        all << json;
    }
    return all;
}

QList<Attribute> attributesOf(const QJsonValue& json)
{
    QList<Attribute> all;
    for (const QJsonValue attribute : json.toArray())
        all << Attribute{.type = text(attribute, "tipo"), .told = toldOf(attribute), .date = text(attribute, "data")};
    return all;
}

QJsonObject jsonOf(const ActPerson& person)
{
    QJsonObject json{{"papel", tables::word(person.role)}, {"nome", jsonOf(person.name)}};
    put(json, "de", person.of, -1);
    put(json, "ordinal", person.ordinal);
    put(json, "nome_actual", person.standardName);
    if (person.toldSex) put(json, "sexo", tables::word(*person.toldSex));
    put(json, "atributos", jsonOf(person.attributes));
    put(json, "observacoes", person.notes);
    put(json, "id", person.id);
    put(json, "mesmo", QJsonArray::fromStringList(person.sameAs));
    return json;
}

ActPerson personOf(const QJsonValue& json, int place)
{
    ActPerson person{.role = tables::roleOf(text(json, "papel")),
                     .of = number(json, "de", -1),
                     .ordinal = number(json, "ordinal"),
                     .name = toldOf(json["nome"]),
                     .standardName = text(json, "nome_actual"),
                     .toldSex = tables::sexTold(text(json, "sexo")),
                     .attributes = attributesOf(json["atributos"]),
                     .notes = text(json, "observacoes"),
                     .id = text(json, "id")};
    if (person.of < 0 || person.of >= place) person.of = -1;
    for (const QJsonValue id : json["mesmo"].toArray())
        person.sameAs << id.toString();
    return person;
}

QJsonObject jsonOf(const Relation& relation)
{
    QJsonObject json = jsonOf(relation.told);
    put(json, "tipo", relation.type);
    put(json, "pessoa", relation.person, -1);
    put(json, "outra", relation.other, -1);
    put(json, "outra_nome", relation.otherName);
    put(json, "outra_id", relation.otherId);
    return json;
}

Relation relationOf(const QJsonValue& json, int people)
{
    const auto one = [&](const char* key) {
        const int person = number(json, key, -1);
        return person >= 0 && person < people ? person : -1;
    };
    return {.type = text(json, "tipo"),
            .told = toldOf(json),
            .person = one("pessoa"),
            .other = one("outra"),
            .otherName = text(json, "outra_nome"),
            .otherId = text(json, "outra_id")};
}

QJsonObject jsonOf(const Identity& identity)
{
    QJsonObject json{{"identidade", tables::word(identity.kind)}};
    if (identity.nind != 0) json["nind"] = identity.nind;
    put(json, "razao", identity.reason);
    if (identity.sex != Sex::Unknown) put(json, "sexo", tables::word(identity.sex));
    return json;
}

QJsonObject jsonOf(const PlaceChoice& place)
{
    QJsonObject json{{"nivel", QString(place.level)}};
    put(json, "codigo", place.code);
    put(json, "nome", place.name);
    put(json, "paroquia", place.parish);
    return json;
}

PlaceChoice placeOf(const QJsonValue& json)
{
    const QString level = text(json, "nivel");
    return {.code = text(json, "codigo"),
            .level = level.isEmpty() ? QChar('L') : level.front(),
            .name = text(json, "nome"),
            .parish = text(json, "paroquia")};
}

} // namespace

QJsonObject toJson(const Act& act)
{
    QJsonObject json{{"tipo", tables::word(act.kind)}, {"data", jsonOf(act.date)}, {"lugar", jsonOf(act.place)}};
    put(json, "livro", act.book);
    put(json, "folio", act.folio);
    put(json, "numero", act.number);
    put(json, "observacoes", act.notes);
    put(json, "id", act.id);
    put(json, "factos", jsonOf(act.facts));
    QJsonArray people, relations;
    for (const ActPerson& person : act.people)
        people << jsonOf(person);
    for (const Relation& relation : act.relations)
        relations << jsonOf(relation);
    put(json, "pessoas", people);
    put(json, "relacoes", relations);
    return json;
}

Act actFromJson(const QJsonObject& json)
{
    Act act{.kind = tables::kindOf(text(json, "tipo")),
            .date = dateOf(json["data"]),
            .book = text(json, "livro"),
            .folio = text(json, "folio"),
            .number = text(json, "numero"),
            .place = toldOf(json["lugar"]),
            .facts = attributesOf(json["factos"]),
            .notes = text(json, "observacoes"),
            .id = text(json, "id")};
    for (const QJsonValue person : json["pessoas"].toArray())
        act.people << personOf(person, int(act.people.size()));
    for (const QJsonValue relation : json["relacoes"].toArray())
        act.relations << relationOf(relation, int(act.people.size()));
    return act;
}

QJsonObject toJson(const Conclusions& conclusions)
{
    QJsonArray people;
    for (const Identity& identity : conclusions.people)
        people << jsonOf(identity);
    QJsonObject places, professions, overruled;
    for (const auto& [told, place] : conclusions.places.asKeyValueRange())
        places[told] = jsonOf(place);
    for (const auto& [told, code] : conclusions.professions.asKeyValueRange())
        professions[told] = code;
    for (const auto& [objection, reason] : conclusions.overruled.asKeyValueRange())
        overruled[objection] = reason;
    return {{"pessoas", people}, {"lugares", places}, {"profissoes", professions}, {"ressalvas", overruled}};
}

Conclusions conclusionsFromJson(const QJsonObject& json)
{
    Conclusions conclusions;
    for (const QJsonValue identity : json["pessoas"].toArray())
        conclusions.people << Identity{.kind = tables::identityOf(text(identity, "identidade")),
                                       .nind = identity["nind"].toInteger(),
                                       .reason = text(identity, "razao"),
                                       .sex = tables::sexTold(text(identity, "sexo")).value_or(Sex::Unknown)};
    const QJsonObject places = json["lugares"].toObject(), professions = json["profissoes"].toObject(),
                      overruled = json["ressalvas"].toObject();
    for (auto place = places.begin(); place != places.end(); ++place)
        conclusions.places.insert(place.key(), placeOf(place.value()));
    for (auto code = professions.begin(); code != professions.end(); ++code)
        conclusions.professions.insert(code.key(), code.value().toInt());
    for (auto reason = overruled.begin(); reason != overruled.end(); ++reason)
        conclusions.overruled.insert(reason.key(), reason.value().toString());
    return conclusions;
}

} // namespace study
