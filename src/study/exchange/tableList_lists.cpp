// What hangs on a person or a family: dated rows, bequests, suffrages.
#include "study/exchange/tableList.h"

namespace study::exchange {

namespace {

using enum Kind;

TableColumn owner()
{
    return TableColumn("nind", Whole, "Indivíduo.", "Person.").leads("individuo", "nind");
}

TableColumn running(const char* name)
{
    return {name, Whole, "Número de ordem no indivíduo.", "Running number within the person."};
}

TableColumn notes()
{
    return {"obs", Text, "Notas.", "Notes."};
}

TableColumn source()
{
    return {"fonte", Text, "Fonte.", "Source."};
}

TableColumn day()
{
    return {"dataref", Day, "Data de referência.", "Date of reference."};
}

TableColumn exact()
{
    return {"datafixa", Flag, "1: a data é exacta.", "1: the date is exact."};
}

TableInfo suffrages()
{
    return {
        "rituaismorte",
        "Missas, ofícios e esmolas por alma.",
        "Masses, offices and alms for the soul.",
        {"nind", "idlegpio"},
        {owner(),
         running("idlegpio"),
         TableColumn("tipolegpio", Text, "missa, oficio ou esmola.", "missa (mass), oficio (office) or esmola (alms).")
             .only({"missa", "oficio", "esmola"}),
         TableColumn("tipo", Whole, "Tipo da missa, do ofício ou da esmola.",
                     "Kind of the mass, the office or the alms.")
             .codesBy("tipolegpio", {{"missa", "TipMi"}, {"oficio", "TipOf"}, {"esmola", "TipEs"}}),
         {"quantidade", Number, "Quantidade.", "How many."},
         {"valorunit", Number, "Valor de cada um.", "Value of each."},
         TableColumn("tipomoeda", Text, "Moeda: Re réis, Es escudos, Eu euros.",
                     "Currency: Re réis, Es escudos, Eu euros.")
             .only({"Re", "Es", "Eu"}),
         {"destino", Text, "Destino ou intenção.", "Purpose."},
         {"numpadres", Whole, "Número de padres.", "Number of priests."},
         {"valortotal", Number, "Valor total.", "Total value."},
         notes()}};
}

} // namespace

std::vector<TableInfo> tablesOfLists()
{
    return {
        {"residencia",
         "Residências de indivíduos e de famílias.",
         "Residences of people and of families.",
         {"numero", "tiporesid", "dataref"},
         {{"numero", Whole, "Número do indivíduo (i) ou da família (f).",
           "Number of the person (i) or the family (f)."},
          TableColumn("tiporesid", Text, "i de um indivíduo, f de uma família.", "i of a person, f of a family.")
              .only({"i", "f"}),
          day(),
          exact(),
          TableColumn("localresid", Text, "Local.", "Place.").place("tipolocal"),
          placeLevel("tipolocal"),
          source(),
          notes()}},
        {"profissoes",
         "Profissões dos indivíduos.",
         "Professions of people.",
         {"nind", "idprofissao"},
         {owner(), running("idprofissao"), day(), exact(),
          TableColumn("codprof", Whole, "Profissão.", "Profession.").profession().leads("profissao", "codprof"),
          source(), notes()}},
        {"assinatura",
         "Assinaturas dos indivíduos.",
         "Signatures of people.",
         {"nind", "idassinatura"},
         {owner(),
          running("idassinatura"),
          day(),
          {"idade", Whole, "Idade ao assinar.", "Age when signing."},
          exact(),
          {"nivelassinatura", Whole, "Nível da assinatura.", "Level of the signature."},
          {"assinatura", Text, "Ficheiro com a imagem.", "File with the picture."},
          {"assina", Text, "Como assina.", "How the person signs."},
          source(),
          {"funcao", Text, "Função em que assinou.", "Function in which the person signed."},
          notes()}},
        {"legadosprofanos",
         "Legados de um testamento.",
         "Bequests of a will.",
         {"nind", "idlegprof"},
         {owner(),
          running("idlegprof"),
          TableColumn("nindherd", Whole, "Herdeiro.", "Heir.").leads("individuo", "nind"),
          TableColumn("parentesco", Whole, "Parentesco do herdeiro.", "Kinship of the heir.").codes("Paren"),
          {"bensmoveis", Text, "Bens móveis.", "Movable goods."},
          {"bensraiz", Text, "Bens de raiz.", "Real estate."},
          notes()}},
        suffrages(),
        {"passaporte",
         "Passaportes dos indivíduos.",
         "Passports of people.",
         {"nind", "npass"},
         {owner(),
          {"npass", Whole, "Número do passaporte.", "Number of the passport."},
          {"dataref", Day, "Data do passaporte.", "Date of the passport."},
          TableColumn("localdestino", Text, "Destino.", "Destination.").place("tipolocaldest"),
          placeLevel("tipolocaldest"),
          notes()}},
    };
}

} // namespace study::exchange
