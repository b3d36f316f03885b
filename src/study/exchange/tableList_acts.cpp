// The acts as they were transcribed, and what was concluded from them.
#include "study/acts/register_tables.h"
#include "study/exchange/tableList.h"

#include <algorithm>

namespace study::exchange {

namespace {

using enum Kind;

QStringList statementsOf(const char* name)
{
    const QList<tables::Table>& all = tables::ofActs();
    const auto found = std::ranges::find_if(all, [&](const tables::Table& one) { return QString(one.name) == name; });
    return found->statements;
}

TableColumn act()
{
    return TableColumn("acto", Whole, "Acto.", "Act.").leads("estudo_acto", "id");
}

TableColumn order(const char* portuguese, const char* english)
{
    return {"ordem", Whole, portuguese, english};
}

TableColumn spelling(const char* name)
{
    return {name, Text, "Como está escrito no registo.", "Its spelling in the register."};
}

TableColumn remark(const char* name)
{
    return {name, Text, "Comentário de quem transcreveu.", "Remark of the transcriber."};
}

TableColumn doubt(const char* name)
{
    return {name, Flag, "1: leitura duvidosa.", "1: the reading is doubtful."};
}

TableColumn place(const char* name, const char* letter)
{
    return TableColumn(name, Text, "O local por que foi tomado.", "The place that was taken for it.").place(letter);
}

TableColumn deletion()
{
    return TableColumn("eliminacao", Whole, "A eliminação.", "The deletion.").leads("estudo_lixo", "id");
}

TableInfo acts()
{
    return {
        "estudo_acto",
        "Os actos transcritos, como o registo os diz.",
        "The acts that were transcribed, as the register tells them.",
        {"id"},
        {{"id", Whole, "Número do acto.", "Number of the act."},
         textColumn("quando", "Hora local em que foi guardado.", "Local time of the storing."),
         textColumn("tipo", "baptismo, casamento ou obito.",
                    "baptismo (baptism), casamento (marriage), obito (burial).")
             .only({"baptismo", "casamento", "obito"}),
         {"ano", Whole, "Ano; 0: não dito.", "Year; 0: not told."},
         {"mes", Whole, "Mês; 0: não dito.", "Month; 0: not told."},
         {"dia", Whole, "Dia; 0: não dito.", "Day; 0: not told."},
         {"cerca", Flag, "1: cerca dessa data.", "1: about that date."},
         textColumn("data_texto", "A data como está no registo.", "The date as it stands in the register."),
         {"data", Day, "O dia que a representa.", "The day that stands for it."},
         textColumn("livro", "Livro.", "Book."),
         textColumn("folio", "Fólio.", "Folio."),
         textColumn("numero", "Número do registo.", "Number of the record."),
         textColumn("lugar", "Lugar da cerimónia, como o acto o diz.", "Place of the ceremony, as the act says it."),
         spelling("lugar_fonte"),
         remark("lugar_comentario"),
         doubt("lugar_duvida"),
         place("local", "nivel"),
         placeLevel("nivel"),
         textColumn("observacoes", "Notas.", "Notes."),
         textColumn("id_transcricao", "Nome do acto na transcrição.", "Name that a transcription gives to the act.")},
        statementsOf("estudo_acto")};
}

TableInfo people()
{
    return {
        "estudo_pessoa",
        "As pessoas de cada acto, pela ordem do registo.",
        "The people of each act, in the order of the register.",
        {"acto", "ordem"},
        {act(),
         order("Lugar no acto, desde 0.", "Place in the act, from 0."),
         textColumn("papel", "Papel no acto.", "Role in the act."),
         {"de", Whole, "A ordem da pessoa de quem é pai, cônjuge, …; vazio: do acto.",
          "Order of the person whose father, spouse, … this is; empty: of the act."},
         {"ordinal", Whole, "De vários cônjuges anteriores, qual; 0: não dito.",
          "Which of several earlier spouses; 0: not told."},
         textColumn("nome", "Nome como está escrito.", "Name as written."),
         spelling("nome_fonte"),
         remark("nome_comentario"),
         doubt("nome_duvida"),
         textColumn("nome_actual", "Nome na ortografia de hoje.", "Name as it is spelled today."),
         textColumn("sexo", "m, f ou ?.", "m, f or ?.").only({"m", "f", "?"}),
         textColumn("observacoes", "Notas.", "Notes."),
         textColumn("id_transcricao", "Nome na transcrição.", "Name that a transcription gives."),
         textColumn("identidade", "O que se concluiu: nova, conhecida, so no acto, aberta.",
                    "What was concluded: nova (new), conhecida (known), so no acto (in the act only), aberta (open)."),
         TableColumn("nind", Whole, "O indivíduo que é.", "The person that it is.").leads("individuo", "nind"),
         textColumn("razao", "Porque foi tomada por esse indivíduo.", "Why it was taken for that person."),
         {"nind_eliminado", Whole, "O indivíduo que era, entretanto eliminado.",
          "The person that it was, deleted since."},
         deletion()},
        statementsOf("estudo_pessoa")};
}

TableInfo attributes()
{
    return {"estudo_atributo",
            "O que um acto diz de uma pessoa, ou de si.",
            "What an act tells of a person, or of itself.",
            {"acto", "ordem"},
            {act(),
             order("Lugar entre as linhas do acto.", "Place among the rows of the act."),
             {"pessoa", Whole, "A ordem da pessoa; vazio: do acto.", "Order of the person; empty: of the act."},
             textColumn("tipo", "O que é dito: residencia, profissao, idade e outros.",
                        "What is told: residencia (residence), profissao (profession), idade (age) and others."),
             textColumn("valor", "Como é dito.", "As it is told."),
             spelling("fonte"),
             remark("comentario"),
             doubt("duvida"),
             textColumn("data", "Data própria, como foi transcrita.", "Date of its own, as transcribed."),
             place("local", "nivel"),
             placeLevel("nivel"),
             TableColumn("codprof", Whole, "A profissão por que foi tomado.", "The profession that was taken for it.")
                 .profession()},
            statementsOf("estudo_atributo")};
}

TableInfo relations()
{
    return {
        "estudo_relacao",
        "O que uma pessoa de um acto é a outra.",
        "What one person of an act is to another.",
        {"acto", "ordem"},
        {act(),
         order("Lugar entre as relações do acto.", "Place among the relations of the act."),
         textColumn("tipo", "parentesco, sociabilidade e outros.",
                    "parentesco (kinship), sociabilidade (sociability) and others."),
         textColumn("valor", "O que é dito.", "What is told."),
         spelling("fonte"),
         remark("comentario"),
         doubt("duvida"),
         {"pessoa", Whole, "A ordem de uma.", "Order of the one."},
         {"outra", Whole, "A ordem da outra; vazio: não está no acto.", "Order of the other; empty: not in the act."},
         textColumn("outra_nome", "Nome da outra na transcrição.", "Name of the other in the transcription."),
         textColumn("outra_id", "Identificação da outra na transcrição.", "Id of the other in the transcription.")},
        statementsOf("estudo_relacao")};
}

} // namespace

std::vector<TableInfo> tablesOfActs()
{
    return {
        acts(),
        people(),
        {"estudo_mesmo",
         "Registos de uma transcrição que o autor toma pela mesma pessoa.",
         "Records of a transcription that its author takes for the same person.",
         {"acto", "pessoa", "ordem"},
         {act(),
          {"pessoa", Whole, "A ordem da pessoa.", "Order of the person."},
          order("Lugar entre eles.", "Place among them."),
          textColumn("registo", "O registo.", "The record.")},
         statementsOf("estudo_mesmo")},
        attributes(),
        relations(),
        {"estudo_familia",
         "As famílias que um acto fez ou tocou.",
         "The families that an act has made or touched.",
         {"acto", "ordem"},
         {act(),
          order("Lugar entre elas.", "Place among them."),
          TableColumn("nfamilia", Whole, "Família.", "Family.").leads("familia", "nfamilia"),
          {"nfamilia_eliminada", Whole, "A família que era, entretanto eliminada.",
           "The family that it was, deleted since."},
          deletion()},
         statementsOf("estudo_familia")},
        {"estudo_sentido",
         "Por que foi tomado um texto de um acto.",
         "What a text of an act was taken for.",
         {"acto", "tipo", "texto"},
         {act(), textColumn("tipo", "lugar ou profissao.", "lugar (place) or profissao (profession)."),
          textColumn("texto", "O texto.", "The text."), place("codigo", "nivel"), placeLevel("nivel"),
          textColumn("nome", "De um local novo, o nome.", "Of a new place, the name."),
          textColumn("paroquia", "De um local novo, a paróquia.", "Of a new place, the parish."),
          TableColumn("codprof", Whole, "A profissão; 0: uma nova.", "The profession; 0: a new one.").profession()},
         statementsOf("estudo_sentido")},
        {"estudo_ressalva",
         "Objecções que foram ressalvadas.",
         "Objections that were overruled.",
         {"acto", "objeccao"},
         {act(), textColumn("objeccao", "A objecção.", "The objection."),
          textColumn("razao", "A razão.", "The reason."), textColumn("quando", "Hora local.", "Local time.")},
         statementsOf("estudo_ressalva")},
        {"estudo_escrita",
         "As linhas das fichas que um acto acrescentou ou alterou.",
         "The rows of the cards that an act has added or altered.",
         {"acto", "ordem"},
         {act(),
          order("Lugar entre elas.", "Place among them."),
          textColumn("tabela", "Tabela da linha.", "Table of the row."),
          {"nind", Whole, "O indivíduo em cuja ficha se vê.", "The person on whose card it is seen."},
          {"nfamilia", Whole, "A família em cuja ficha se vê.", "The family on whose card it is seen."},
          textColumn("chave", "O que nomeia a linha, em JSON.", "What names the row, as JSON."),
          textColumn("valores", "As colunas escritas, em JSON.", "The columns that were set, as JSON."),
          textColumn("antes", "O que tinham antes, em JSON; vazio: a linha era nova.",
                     "What they held before, as JSON; empty: the row was new.")},
         statementsOf("estudo_escrita")},
        {"estudo_rascunho",
         "O acto em curso.",
         "The act in work.",
         {"id"},
         {{"id", Whole, "Número.", "Number."},
          textColumn("quando", "Hora local.", "Local time."),
          textColumn("acto", "O acto, em JSON.", "The act, as JSON."),
          textColumn("conclusoes", "As conclusões, em JSON.", "The conclusions, as JSON.")},
         tables::ofDraft().statements},
    };
}

} // namespace study::exchange
