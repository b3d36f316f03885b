// What the researcher has decided, put aside and set.
#include "store/lixo_tabelas.h"
#include "study/checks/ownTables.h"
#include "study/exchange/gedcomInTable.h"
#include "study/exchange/tableList.h"
#include "study/indicators/ownTables.h"
#include "study/linkage/ownTables.h"
#include "study/transcripts/ownTables.h"

namespace study::exchange {

namespace {

using enum Kind;

TableColumn when()
{
    return textColumn("quando", "Hora local, 2026-11-22 09:24:22.", "Local time, 2026-11-22 09:24:22.");
}

TableColumn id()
{
    return {"id", Whole, "Número, pela ordem em que foram escritos.",
            "Number, in the order in which they were written."};
}

TableInfo deletions()
{
    return {"estudo_lixo",
            "O que as eliminações levaram.",
            "What deletions have taken away.",
            {"id"},
            {id(),
             when(),
             textColumn("tipo", "i um indivíduo, f uma família.", "i a person, f a family.").only({"i", "f"}),
             {"numero", Whole, "O seu número.", "Its number."},
             textColumn("nome", "O nome, ou os do casal.", "The name, or those of the couple."),
             textColumn("familias", "As famílias que foram.", "The families that went."),
             textColumn("linhas", "As linhas, em JSON.", "The rows, as JSON.")},
            {lixo::criacao}};
}

TableInfo decisions()
{
    return {
        "estudo_decisao",
        "O que se decidiu sobre quem é quem.",
        "What was decided about who is who.",
        {"id"},
        {id(),
         when(),
         textColumn("tipo", "Que decisão.", "Which decision."),
         textColumn("titulo", "A decisão, por palavras.", "The decision in words."),
         textColumn("razao", "A razão.", "Why."),
         textColumn("fica", "O que ficou.", "What stayed."),
         textColumn("junto", "O que foi junto a ele.", "What went."),
         {"alteradas", Whole, "Quantas linhas alterou.", "How many rows it has altered."},
         textColumn("linhas", "Essas linhas, em JSON.", "These rows, as JSON."),
         textColumn("desfeita", "Hora em que foi desfeita; vazio: vale.", "When it was taken back; empty: it stands.")},
        linkage::decisionTable().statements};
}

TableInfo sources()
{
    return {"estudo_fonte",
            "O que as transcrições dizem dos livros.",
            "What transcriptions tell of the books.",
            {"id"},
            {id(), when(), textColumn("livro", "Livro, como em estudo_acto.", "Book, as in estudo_acto."),
             textColumn("data", "Data.", "Date."), textColumn("tipo", "Tipo do livro.", "Type of the book."),
             textColumn("localizacao", "Onde se guarda.", "Where it is kept."),
             textColumn("observacoes", "O resto.", "All else.")},
            sourceTable().statements};
}

TableInfo imports()
{
    return {
        "estudo_importacao",
        "As importações de GEDCOM.",
        "The imports of GEDCOM.",
        {"id"},
        {id(),
         when(),
         textColumn("ficheiro", "O nome do ficheiro.", "The name of the file."),
         {"pessoas", Whole, "Quantas pessoas.", "How many people."},
         {"familias", Whole, "Quantas famílias.", "How many families."},
         textColumn("desfeita", "Hora em que foi desfeita; vazio: vale.", "When it was taken back; empty: it stands.")},
        importTable().statements};
}

TableInfo importedRecords()
{
    return {"estudo_importado",
            "Os registos que vieram com importações que valem.",
            "The records that came with imports that stand.",
            {"importacao", "tipo", "chave"},
            {TableColumn("importacao", Whole, "A importação.", "The import.").leads("estudo_importacao", "id"),
             textColumn("tipo", "i uma pessoa, f uma família, F uma paróquia, L um lugar, S um sítio, p uma profissão.",
                        "i a person, f a family, F a parish, L a locality, S a site, p a profession.")
                 .only({"i", "f", "F", "L", "S", "p"}),
             textColumn("chave", "O seu número ou código.", "Its number or code."),
             textColumn("marca", "Marca do que tinha nas suas linhas.", "A mark of what stood in its rows.")},
            importedTable().statements};
}

} // namespace

std::vector<TableInfo> tablesOfStudy()
{
    return {
        deletions(),
        decisions(),
        sources(),
        imports(),
        importedRecords(),
        {"estudo_colunas",
         "Que colunas de tabelas de actos têm o quê.",
         "Which columns of tables of acts hold what.",
         {"cabecalhos"},
         {textColumn("cabecalhos", "Os cabeçalhos, em JSON.", "The headers, as JSON."), when(),
          textColumn("atribuicao", "O que cada um tem, em JSON.", "What each holds, as JSON.")},
         assignmentTable().statements},
        {"estudo_visto",
         "Contradições dadas por vistas.",
         "Contradictions that were put aside.",
         {"chave"},
         {textColumn("chave", "A regra e os registos.", "The rule and the records."),
          textColumn("regra", "A regra.", "The rule."),
          textColumn("estado", "Marca do que estava nos registos.", "A mark of what stood in the records."),
          textColumn("texto", "O caso, como foi dito.", "The case, as it was told."),
          textColumn("razao", "A razão.", "Why."), when()},
         {checks::seenTable().statement}},
        {"estudo_regra",
         "O que nas verificações se quis de outro modo.",
         "What was set otherwise for the checks.",
         {"chave"},
         {textColumn("chave", "A regra ou o limite.", "The rule or the limit."),
          {"valor", Number, "O valor.", "The value."}},
         {checks::settingTable().statement}},
        {"estudo_ajuste",
         "O que nos indicadores se quis de outro modo.",
         "What was set otherwise for the indicators.",
         {"chave"},
         {textColumn("chave", "O ajuste.", "The setting."),
          textColumn("valor", "O valor, em JSON.", "The value, as JSON.")},
         {indicators::settingsTable}},
        {"estudo_peso",
         "Os pesos da comparação de pessoas e casais.",
         "The weights by which people and couples are compared.",
         {"campo", "nivel"},
         {textColumn("campo", "O que se compara.", "What is compared."),
          textColumn("nivel", "Como concorda.", "How it agrees."),
          {"m", Number, "Com que frequência concordam registos da mesma pessoa; dos limites, o valor.",
           "How often records of the same person agree so; of the limits, the value."},
          {"u", Number, "Com que frequência concordam por acaso.", "How often they agree so by chance."}},
         {linkage::weightTable}},
    };
}

} // namespace study::exchange
