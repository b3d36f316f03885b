#include "study/transcripts/tableFields.h"

namespace study {

namespace columns {

const QList<Person>& people()
{
    static const QList<Person> all{
        {"celebrante", "Celebrante", Role::Celebrant, {}, false},
        {"celebrante2", "Segundo celebrante", Role::Celebrant, {}, false},
        {"baptizado", "Baptizado", Role::Child},
        {"defunto", "Defunto", Role::Deceased},
        {"pai", "Pai", Role::Father, subject},
        {"mae", "Mãe", Role::Mother, subject},
        {"avo_paterno", "Avô paterno", Role::Father, "pai", false},
        {"avo_paterna", "Avó paterna", Role::Mother, "pai", false},
        {"avo_materno", "Avô materno", Role::Father, "mae", false},
        {"avo_materna", "Avó materna", Role::Mother, "mae", false},
        {"padrinho", "Padrinho", Role::Godfather},
        {"pai_padrinho", "Pai do padrinho", Role::Father, "padrinho", false},
        {"mae_padrinho", "Mãe do padrinho", Role::Mother, "padrinho", false},
        {"mulher_padrinho", "Mulher do padrinho", Role::Spouse, "padrinho", false},
        {"padrinho2", "Segundo padrinho", Role::Godfather},
        {"madrinha", "Madrinha", Role::Godmother},
        {"pai_madrinha", "Pai da madrinha", Role::Father, "madrinha", false},
        {"mae_madrinha", "Mãe da madrinha", Role::Mother, "madrinha", false},
        {"marido_madrinha", "Marido da madrinha", Role::Spouse, "madrinha", false},
        {"madrinha2", "Segunda madrinha", Role::Godmother},
        {"procurador_padrinho", "Procurador do padrinho", Role::Proxy, "padrinho", false},
        {"procurador_madrinha", "Procurador da madrinha", Role::Proxy, "madrinha", false},
        {"noivo", "Noivo", Role::Groom},
        {"pai_noivo", "Pai do noivo", Role::Father, "noivo"},
        {"mae_noivo", "Mãe do noivo", Role::Mother, "noivo"},
        {"mulher_noivo", "Mulher anterior do noivo", Role::EarlierSpouse, "noivo", false},
        {"noiva", "Noiva", Role::Bride},
        {"pai_noiva", "Pai da noiva", Role::Father, "noiva"},
        {"mae_noiva", "Mãe da noiva", Role::Mother, "noiva"},
        {"marido_noiva", "Marido anterior da noiva", Role::EarlierSpouse, "noiva", false},
        {"conjuge", "Cônjuge do defunto", Role::Spouse, "defunto"},
        {"testemunha", "Testemunha", Role::Witness, {}, false},
        {"testemunha2", "Segunda testemunha", Role::Witness, {}, false},
        {"testemunha3", "Terceira testemunha", Role::Witness, {}, false},
        {"testemunha4", "Quarta testemunha", Role::Witness, {}, false},
        {"referido", "Pessoa referida", Role::Mentioned, {}, false},
    };
    return all;
}

const QList<Detail>& details()
{
    static const QList<Detail> all{
        {"nome", "nome"},
        {"nome_padrao", "nome actual", true},
        {"sexo", "sexo", true},
        {attribute::age, "idade", true},
        {attribute::civilState, "estado civil"},
        {attribute::residence, "residência"},
        {attribute::birthplace, "naturalidade", true},
        {attribute::profession, "profissão"},
        {attribute::office, "função", true},
        {attribute::title, "título"},
        {attribute::nickname, "alcunha"},
        {attribute::dead, "já falecido"},
        {attribute::filiation, "filiação", true},
        {"notas", "notas"},
        {"id", "identificador", true},
    };
    return all;
}

const QList<OfTheAct>& ofTheAct()
{
    static const QList<OfTheAct> all{
        {"especie", "Espécie do acto"},
        {"data", "Data"},
        {"dia", "Dia"},
        {"mes", "Mês"},
        {"ano", "Ano"},
        {"livro", "Livro"},
        {"folio", "Fólio"},
        {"numero", "Número"},
        {"local", "Local da cerimónia"},
        {"id", "Identificador do acto"},
        {notes, "Notas do acto"},
        {attribute::offices, "Ofícios", true},
        {attribute::masses, "Missas", true},
        {attribute::alms, "Esmolas", true},
        {attribute::will, "Testamento", true},
        {attribute::sacraments, "Sacramentos", true},
        {attribute::cause, "Causa da morte", true},
        {attribute::shroud, "Mortalha", true},
        {attribute::church, "Igreja", true},
        {attribute::grave, "Sepultura", true},
        {attribute::deathPlace, "Lugar da morte", true},
    };
    return all;
}

} // namespace columns

const QList<TableField>& tableFields()
{
    static const QList<TableField> all = [] {
        QList<TableField> made;
        for (const columns::OfTheAct& one : columns::ofTheAct())
            made.push_back({one.id, one.title});
        for (const columns::Person& person : columns::people())
            for (const columns::Detail& detail : columns::details())
                if (person.isNear || !detail.ofNearOnly ||
                    (person.role == Role::Celebrant && detail.id == attribute::office))
                    made.push_back({person.id + '.' + detail.id, person.title + ": " + detail.title});
        return made;
    }();
    return all;
}

} // namespace study
