// Places, codes and professions.
#include "study/exchange/tableList.h"

namespace study::exchange {

namespace {

using enum Kind;

struct Above
{
    const char* column = nullptr; // none: the top
    const char* table = nullptr;
    const char* portuguese = nullptr;
    const char* english = nullptr;
};

TableInfo level(const char* table, const char* portuguese, const char* english, const char* code, const char* name,
                const Above& above)
{
    TableInfo made{table,
                   portuguese,
                   english,
                   {code},
                   {TableColumn(code, Text, "Código.", "Code."), TableColumn(name, Text, "Nome.", "Name.")}};
    if (above.column)
        made.columns.push_back(
            TableColumn(above.column, Text, above.portuguese, above.english).leads(above.table, above.column));
    made.columns.emplace_back("obs", Text, "Notas.", "Notes.");
    if (QString(table) == "zonapais")
        made.columns.push_back(TableColumn("tipo", Whole, "Tipo da zona.", "Kind of zone.").codes("TipZo"));
    made.columns.emplace_back("prioridade", Whole, "0 fora da lista de trabalho, 1 na lista, 2 a paróquia da BDP.",
                              "0 not on the working list, 1 on it, 2 the parish of the BDP.");
    return made;
}

} // namespace

std::vector<TableInfo> tablesOfPlaces()
{
    return {
        level("pais", "Países.", "Countries.", "codpais", "nomepais", {}),
        level("zonapais", "Zonas de um país.", "Zones of a country.", "codzona", "nomezona",
              {"codpais", "pais", "País.", "Country."}),
        level("distrito", "Distritos.", "Districts.", "coddistrito", "nomedistrito",
              {"codpais", "pais", "País.", "Country."}),
        level("concelho", "Concelhos.", "Municipalities.", "codconcelho", "nomeconcelho",
              {"coddistrito", "distrito", "Distrito.", "District."}),
        level("paroquia", "Paróquias (freguesias).", "Parishes.", "codparoquia", "nomeparoquia",
              {"codconcelho", "concelho", "Concelho.", "Municipality."}),
        level("lugar", "Lugares de uma paróquia.", "Localities of a parish.", "codlugar", "nomelugar",
              {"codparoquia", "paroquia", "Paróquia.", "Parish."}),
        level("sitio", "Sítios de um lugar.", "Sites of a locality.", "codsitio", "nomesitio",
              {"codlugar", "lugar", "Lugar.", "Locality."}),
        {"infopar",
         "A paróquia em estudo.",
         "The parish under study.",
         {},
         {{"cod", Text, "Código da paróquia.", "Code of the parish."},
          {"nome", Text, "Nome da paróquia.", "Name of the parish."},
          {"pais", Text, "Código do país.", "Code of the country."}}},
        {"categoria",
         "Categorias dos códigos.",
         "Categories of the codes.",
         {"codcat"},
         {{"codcat", Text, "Código da categoria.", "Code of the category."},
          {"nomecat", Text, "Nome da categoria.", "Name of the category."}}},
        {"infocomplementar",
         "Os códigos de cada categoria e o que querem dizer.",
         "The codes of each category and what they mean.",
         {"categoria", "codigo"},
         {TableColumn("categoria", Text, "Categoria.", "Category.").leads("categoria", "codcat"),
          {"codigo", Text, "Código.", "Code."},
          {"descricao", Text, "O que quer dizer.", "What it means."}}},
        {"profissao",
         "Catálogo das profissões.",
         "Catalogue of professions.",
         {"codprof"},
         {{"codprof", Whole, "Código da profissão.", "Code of the profession."},
          {"profissao", Text, "Nome da profissão.", "Name of the profession."},
          {"obs", Text, "Notas; também o código HISCO.", "Notes; the HISCO code as well."}}},
    };
}

} // namespace study::exchange
