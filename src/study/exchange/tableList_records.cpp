// People, families, and who took part in their acts.
#include "study/exchange/tableList.h"

namespace study::exchange {

namespace {

using enum Kind;

TableColumn person(const char* name, const char* portuguese, const char* english)
{
    return TableColumn(name, Whole, portuguese, english).leads("individuo", "nind");
}

TableColumn state(const char* name, const char* portuguese, const char* english)
{
    return TableColumn(name, Whole, portuguese, english).codes("EstCi");
}

TableColumn kinship(const char* name, const char* portuguese, const char* english)
{
    return TableColumn(name, Whole, portuguese, english).codes("Paren");
}

TableColumn function(const char* name, const char* portuguese, const char* english)
{
    return TableColumn(name, Whole, portuguese, english).codes("FunPa");
}

TableColumn levelOf(const char* name)
{
    return TableColumn(
               name, Text, "Nível do local: P país, Z zona, D distrito, C concelho, F paróquia, L lugar, S sítio.",
               "Level of the place: P country, Z zone, D district, C municipality, F parish, L locality, S site.")
        .only(lettersOfLevels());
}

TableColumn exact(const char* name)
{
    return {name, Flag, "1: a data é exacta; 0: aproximada, ou não há data.",
            "1: the date is exact; 0: approximate, or there is none."};
}

std::vector<TableColumn> columnsOfPeople()
{
    return {
        {"nind", Whole, "Número do indivíduo.", "Number of the person."},
        {"nome", Text, "Nome completo.", "Full name."},
        TableColumn("tipo", Text, "Tipo, pelas datas que se conhecem.", "Type, by the dates that are known.")
            .codes("TipIn"),
        TableColumn("sexo", Text, "Sexo: m, f, ou d por determinar.", "Sex: m, f, or d for undetermined.")
            .only({"m", "f", "d"}),
        TableColumn("famorig", Whole, "Família de origem.", "Family of origin.").leads("familia", "nfamilia"),
        {"titulo", Text, "Título.", "Title."},
        {"alcunha", Text, "Alcunha.", "Nickname."},
        {"inicioobs", Day, "Início da observação.", "Begin of observation."},
        {"fimobs", Day, "Fim da observação.", "End of observation."},
        {"datanasc", Day, "Data do nascimento ou do baptismo; nada diz qual.",
         "Date of birth or of baptism; nothing tells which."},
        exact("dnascfixa"),
        TableColumn("localnasc", Text, "Local do nascimento.", "Place of birth.").place("tipolocalnasc"),
        levelOf("tipolocalnasc"),
        TableColumn("filiacao", Whole, "Filiação.", "Filiation.").codes("Filia"),
        {"idadepai", Whole, "Idade do pai, como consta do acto.", "Age of the father, as the act has it."},
        {"idademae", Whole, "Idade da mãe, como consta do acto.", "Age of the mother, as the act has it."},
        state("estadocivilpai", "Estado civil do pai.", "Marital status of the father."),
        state("estadocivilmae", "Estado civil da mãe.", "Marital status of the mother."),
        {"dataobito", Day, "Data do óbito ou do enterro; nada diz qual.",
         "Date of death or of burial; nothing tells which."},
        exact("dobitofixa"),
        TableColumn("localobito", Text, "Local do óbito.", "Place of death.").place("tipolocalobito"),
        levelOf("tipolocalobito"),
        {"causa", Text, "Causa da morte.", "Cause of death."},
        {"idadeobito", Whole, "Idade ao óbito, como consta do acto, em anos.",
         "Age at death, as the act has it, in years."},
        state("estadoobito", "Estado civil ao óbito.", "Marital status at death."),
        {"menor", Flag, "1: morreu menor.", "1: died a minor."},
        TableColumn("sacramentos", Whole, "Sacramentos recebidos.", "Last sacraments received.").codes("Sacra"),
        TableColumn("classparoquial", Whole, "Classe paroquial.", "Class of parishioner.").codes("ClaPa"),
        {"testam", Flag, "1: fez testamento.", "1: made a will."},
        person("testamenteiro", "Testamenteiro.", "Executor of the will."),
        {"escrit", Flag, "1: há uma escritura.", "1: a notarial deed exists."},
        {"obs", Text, "Notas.", "Notes."},
        person("primpadrebapt", "Primeiro padre do baptismo.", "First priest at the baptism."),
        person("segpadrebapt", "Segundo padre do baptismo.", "Second priest at the baptism."),
        function("funcprimpbapt", "Função do primeiro padre do baptismo.", "Function of the first priest."),
        function("funcsegpbapt", "Função do segundo padre do baptismo.", "Function of the second priest."),
        person("primpadreobito", "Padre do óbito.", "Priest at the burial."),
        function("funcprimpobito", "Função do padre do óbito.", "Function of the priest at the burial."),
        {"mortalha", Text, "Mortalha.", "Shroud."},
        {"igreja", Text, "Igreja do enterro.", "Church of the burial."},
        {"enterro", Text, "Lugar do enterro.", "Place of the burial."},
        {"cfisicas", Text, "Características físicas.", "Physical description."},
        {"estatura", Text, "Estatura.", "Stature."},
        {"altura", Whole, "Altura, em centímetros.", "Height, in centimetres."},
        {"rpbapt", Text, "Ficheiro do registo de baptismo.", "File of the baptismal record."},
        {"rpobi", Text, "Ficheiro do registo de óbito.", "File of the record of death."},
    };
}

std::vector<TableColumn> columnsOfFamilies()
{
    return {
        {"nfamilia", Whole, "Número da família.", "Number of the family."},
        TableColumn("sfamilia", Text, "Situação da família.", "Situation of the family.").codes("SitFa"),
        TableColumn("tipocasal", Whole, "Tipo de família.", "Type of family.").codes("TipFa"),
        {"datacasam", Day, "Data do casamento.", "Date of the marriage."},
        exact("dcasamfixa"),
        TableColumn("localcasam", Text, "Local do casamento.", "Place of the marriage.").place("tipolocalcasam"),
        levelOf("tipolocalcasam"),
        {"inicioobs", Day, "Início da observação.", "Begin of observation."},
        {"fimobs", Day, "Fim da observação.", "End of observation."},
        {"obs", Text, "Notas.", "Notes."},
        person("primpadrecasam", "Primeiro padre do casamento.", "First priest at the marriage."),
        person("segpadrecasam", "Segundo padre do casamento.", "Second priest at the marriage."),
        function("funcprimpcasam", "Função do primeiro padre.", "Function of the first priest."),
        function("funcsegpcasam", "Função do segundo padre.", "Function of the second priest."),
        {"rpcas", Text, "Ficheiro do registo de casamento.", "File of the marriage record."},
    };
}

} // namespace

std::vector<TableInfo> tablesOfRecords()
{
    return {
        {"individuo", "Os indivíduos.", "People.", {"nind"}, columnsOfPeople()},
        {"familia", "As famílias.", "Families.", {"nfamilia"}, columnsOfFamilies()},
        {"familias",
         "Os cônjuges de cada família; marido e mulher conhecem-se pelo sexo do indivíduo.",
         "The spouses of each family; husband and wife are told apart by the sex of the person.",
         {"nind", "nfamilia"},
         {TableColumn("nfamilia", Whole, "Família.", "Family.").leads("familia", "nfamilia"),
          person("nind", "Cônjuge.", "Spouse."),
          {"idade", Whole, "Idade ao casamento, como consta do acto.", "Age at marriage, as the act has it."},
          state("estadocivil", "Estado civil ao casamento.", "Marital status at the marriage."),
          {"numcasam", Whole, "Número deste casamento para o cônjuge.", "Number of this marriage for the spouse."}}},
        {"assistente",
         "Padrinhos e testemunhas de baptismos e casamentos.",
         "Godparents and witnesses of baptisms and marriages.",
         {},
         {TableColumn("tipoacto", Text, "Acto: b baptismo, c casamento.", "Act: b baptism, c marriage.")
              .only({"b", "c"}),
          {"entidade", Whole, "O acto: número do baptizado (b) ou da família (c).",
           "The act: number of the baptised person (b) or of the family (c)."},
          {"dataref", Day, "Data do acto, quando o assistente foi escrito.",
           "Date of the act, when the assistant was written."},
          person("nind", "Quem assistiu.", "Who assisted."),
          TableColumn("tipoassistente", Text, "p padrinho ou madrinha, t testemunha.", "p godparent, t witness.")
              .only({"p", "t"}),
          state("estadocivil", "Estado civil do assistente.", "Marital status of the assistant."),
          {"falecidopai", Flag, "1: o pai do assistente já morreu.", "1: the father of the assistant is dead."},
          {"falecidomae", Flag, "1: a mãe do assistente já morreu.", "1: the mother of the assistant is dead."},
          kinship("parentbapt", "Parentesco com o baptizado.", "Kinship to the baptised person."),
          kinship("parentnoivo", "Parentesco com o noivo.", "Kinship to the groom."),
          kinship("parentnoiva", "Parentesco com a noiva.", "Kinship to the bride."),
          {"obs", Text, "Notas.", "Notes."}}},
    };
}

} // namespace study::exchange
