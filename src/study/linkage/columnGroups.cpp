// The columns of each table of the schema, as the cards name them.
#include "study/linkage/columns.h"

namespace study::linkage {

namespace {

// clang-format off
constexpr ColumnGroup ofPerson[]{
    {"nome", "nome"},
    {"sexo", "sexo", Shown::Sex},
    {"famorig", "família de origem nº", Shown::Number},
    {"titulo", "título"},
    {"alcunha", "alcunha"},
    {"inicioobs", "início de observação", Shown::Date},
    {"fimobs", "fim de observação", Shown::Date},
    {"datanasc", "data de nascimento", Shown::Date, "dnascfixa"},
    {"localnasc", "local de nascimento", Shown::Place, "tipolocalnasc"},
    {"filiacao", "filiação", Shown::Code, "", "Filia"},
    {"idadepai", "idade do pai", Shown::Number},
    {"idademae", "idade da mãe", Shown::Number},
    {"estadocivilpai", "estado civil do pai", Shown::Code, "", "EstCi"},
    {"estadocivilmae", "estado civil da mãe", Shown::Code, "", "EstCi"},
    {"dataobito", "data de óbito", Shown::Date, "dobitofixa"},
    {"localobito", "local de óbito", Shown::Place, "tipolocalobito"},
    {"causa", "causa da morte"},
    {"idadeobito", "idade ao óbito", Shown::Number},
    {"estadoobito", "estado civil ao óbito", Shown::Code, "", "EstCi"},
    {"menor", "menor", Shown::Mark},
    {"sacramentos", "sacramentos", Shown::Code, "", "Sacra"},
    {"classparoquial", "classe paroquial", Shown::Code, "", "ClaPa"},
    {"testam", "testamento", Shown::Mark},
    {"testamenteiro", "testamenteiro nº", Shown::Person},
    {"escrit", "testamento escrito", Shown::Mark},
    {"primpadrebapt", "primeiro padre do baptismo nº", Shown::Person, "funcprimpbapt", "FunPa"},
    {"segpadrebapt", "segundo padre do baptismo nº", Shown::Person, "funcsegpbapt", "FunPa"},
    {"primpadreobito", "padre do óbito nº", Shown::Person, "funcprimpobito", "FunPa"},
    {"mortalha", "mortalha"},
    {"igreja", "igreja"},
    {"enterro", "sepultura"},
    {"cfisicas", "características físicas"},
    {"estatura", "estatura"},
    {"altura", "altura", Shown::Number},
    {"rpbapt", "ficheiro do baptismo"},
    {"rpobi", "ficheiro do óbito"},
};

constexpr ColumnGroup ofFamily[]{
    {"sfamilia", "situação", Shown::Code, "", "SitFa"},
    {"datacasam", "data de casamento", Shown::Date, "dcasamfixa"},
    {"localcasam", "local de casamento", Shown::Place, "tipolocalcasam"},
    {"inicioobs", "início de observação", Shown::Date},
    {"fimobs", "fim de observação", Shown::Date},
    {"primpadrecasam", "primeiro padre do casamento nº", Shown::Person, "funcprimpcasam", "FunPa"},
    {"segpadrecasam", "segundo padre do casamento nº", Shown::Person, "funcsegpcasam", "FunPa"},
    {"rpcas", "ficheiro do casamento"},
};

constexpr ColumnGroup ofMember[]{
    {"idade", "idade", Shown::Number},
    {"estadocivil", "estado civil", Shown::Code, "", "EstCi"},
    {"numcasam", "número de casamento", Shown::Number},
};

constexpr ColumnGroup ofAssistant[]{
    {"tipoassistente", "tipo de assistente"},
    {"estadocivil", "estado civil", Shown::Code, "", "EstCi"},
    {"falecidopai", "pai já falecido", Shown::Mark},
    {"falecidomae", "mãe já falecida", Shown::Mark},
    {"parentbapt", "parentesco com quem foi baptizado", Shown::Code, "", "Paren"},
    {"parentnoivo", "parentesco com o noivo", Shown::Code, "", "Paren"},
    {"parentnoiva", "parentesco com a noiva", Shown::Code, "", "Paren"},
};

constexpr ColumnGroup ofResidence[]{
    {"datafixa", "data fixa", Shown::Mark},
    {"localresid", "residência em", Shown::Place, "tipolocal"},
    {"fonte", "fonte"},
};

constexpr ColumnGroup ofPassport[]{
    {"dataref", "data", Shown::Date},
    {"localdestino", "destino", Shown::Place, "tipolocaldest"},
};
// clang-format on

} // namespace

const QStringList& uncompared()
{
    static const QStringList all{"nind",     "nfamilia", "tipo",   "tipocasal", "obs",  "tipoacto",
                                 "entidade", "dataref",  "numero", "tiporesid", "npass"};
    return all;
}

ColumnGroups groupsOf(const QString& table)
{
    if (table == "individuo") return ofPerson;
    if (table == "familia") return ofFamily;
    if (table == "familias") return ofMember;
    if (table == "assistente") return ofAssistant;
    if (table == "residencia") return ofResidence;
    if (table == "passaporte") return ofPassport;
    return {};
}

} // namespace study::linkage
